#include "maintenancemanager.h"

#include <QCoreApplication>

namespace coagulation {

QString MaintenanceManager::recordTypeName(int recordType)
{
    switch (recordType) {
    case DailyMaintenance:
        return QCoreApplication::translate("coagulation::MaintenanceManager", "日保养");
    case WeeklyMaintenance:
        return QCoreApplication::translate("coagulation::MaintenanceManager", "周保养");
    case MonthlyMaintenance:
        return QCoreApplication::translate("coagulation::MaintenanceManager", "月保养");
    default:
        return QString();
    }
}

} // namespace coagulation
