#pragma once

#include "kvcore_global.h"

#include <QString>

namespace coagulation {

// The kinds of maintenance the laboratory records for its workbenches.
class KVCORE_EXPORT MaintenanceManager
{
public:
    enum RecordType : int {
        DailyMaintenance = 1,
        WeeklyMaintenance = 2,
        MonthlyMaintenance = 3,
    };

    static bool isValid(int recordType)
    {
        return recordType >= DailyMaintenance && recordType <= MonthlyMaintenance;
    }
    // "日保养", "周保养", "月保养"; empty for any other value.
    static QString recordTypeName(int recordType);
};

} // namespace coagulation
