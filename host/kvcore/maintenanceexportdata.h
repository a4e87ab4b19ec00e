#pragma once

#include "maintenancemanager.h"

#include <QDate>

namespace coagulation {

class Workbench;

// One month of maintenance records of a workbench, as the host hands it to a printer.
struct MaintenanceExportData
{
    Workbench* workbench = nullptr; // borrowed
    QDate month;                    // any day of the month
    // The record type the next maintenance table on a page shows. Printing advances it through a
    // const pointer, one step per table, hence mutable.
    mutable MaintenanceManager::RecordType recordType = MaintenanceManager::DailyMaintenance;
};

} // namespace coagulation
