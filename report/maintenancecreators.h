#pragma once

#include "generalcreator.h"

namespace coagulation {

class REPORT_EXPORT MaintenanceMonthCreator : public GeneralRectCreator
{
    Q_OBJECT
public:
    explicit MaintenanceMonthCreator(const QString& group, QObject* parent = nullptr);
    QList<QString> keys() const override;
    QString name() const override;
    ReportItem* create() override;
};

class REPORT_EXPORT MaintenanceOperatorCreator : public GeneralRectCreator
{
    Q_OBJECT
public:
    explicit MaintenanceOperatorCreator(const QString& group, QObject* parent = nullptr);
    QList<QString> keys() const override;
    QString name() const override;
    ReportItem* create() override;
};

} // namespace coagulation
