#pragma once

#include "maintenancemanager.h"

#include <QDate>
#include <QString>

namespace coagulation {

// One maintenance task done on a workbench (row of the QC database's "maintenanceRecord" table).
struct MaintenanceRecord
{
    qint64 id = 0;
    int workbenchId = 0;
    MaintenanceManager::RecordType recordType = MaintenanceManager::DailyMaintenance;
    QDate date;
    QString task;
    QString operatorName;
    QString result;
    QString remark;
};

} // namespace coagulation
