#pragma once

#include "generalcreator.h"

namespace coagulation {

class REPORT_EXPORT QcChartCreator : public GeneralRectCreator
{
    Q_OBJECT
public:
    explicit QcChartCreator(const QString& group, QObject* parent = nullptr);
    QList<QString> keys() const override;
    QString name() const override;
    ReportItem* create() override;
};

class REPORT_EXPORT MaintenanceRecordCreator : public GeneralRectCreator
{
    Q_OBJECT
public:
    explicit MaintenanceRecordCreator(const QString& group, QObject* parent = nullptr);
    QList<QString> keys() const override;
    QString name() const override;
    ReportItem* create() override;
};

} // namespace coagulation
