#include "maintenancecreators.h"

#include "databounditems.h"

namespace coagulation {

MaintenanceMonthCreator::MaintenanceMonthCreator(const QString& group, QObject* parent)
    : GeneralRectCreator(QStringLiteral("toolText"), group, parent)
{}

QList<QString> MaintenanceMonthCreator::keys() const
{
    return {QStringLiteral("MaintenanceMonth")};
}

QString MaintenanceMonthCreator::name() const
{
    return tr("维护月份");
}

ReportItem* MaintenanceMonthCreator::create()
{
    return new ReportMonthItem;
}

MaintenanceOperatorCreator::MaintenanceOperatorCreator(const QString& group, QObject* parent)
    : GeneralRectCreator(QStringLiteral("toolText"), group, parent)
{}

QList<QString> MaintenanceOperatorCreator::keys() const
{
    return {QStringLiteral("MaintenanceOperator")};
}

QString MaintenanceOperatorCreator::name() const
{
    return tr("操作者");
}

ReportItem* MaintenanceOperatorCreator::create()
{
    return new ReportOperatorItem;
}

} // namespace coagulation
