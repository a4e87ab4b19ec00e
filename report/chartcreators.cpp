#include "chartcreators.h"

#include "chartitems.h"

namespace coagulation {

QcChartCreator::QcChartCreator(const QString& group, QObject* parent)
    : GeneralRectCreator(QStringLiteral("toolChart"), group, parent)
{}

QList<QString> QcChartCreator::keys() const
{
    return {QStringLiteral("QcChart")};
}

QString QcChartCreator::name() const
{
    return tr("质控图");
}

ReportItem* QcChartCreator::create()
{
    return new ReportQcChartItem;
}

MaintenanceRecordCreator::MaintenanceRecordCreator(const QString& group, QObject* parent)
    : GeneralRectCreator(QStringLiteral("toolChart"), group, parent)
{}

QList<QString> MaintenanceRecordCreator::keys() const
{
    return {QStringLiteral("MaintenanceRecord")};
}

QString MaintenanceRecordCreator::name() const
{
    return tr("维护记录表");
}

ReportItem* MaintenanceRecordCreator::create()
{
    return new ReportMaintenanceRecordItem;
}

} // namespace coagulation
