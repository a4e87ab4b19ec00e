#pragma once

#include "kvcore_global.h"
#include "maintenancerecord.h"
#include "workbench.h"

#include <QList>

namespace coagulation {

class Profile;

// Reads workbenches and maintenance records from the profile's QC database (tables "workbench"
// and "maintenanceRecord"). Database errors are logged and give empty lists.
class KVCORE_EXPORT MaintenanceRecords
{
public:
    explicit MaintenanceRecords(Profile* profile);

    // All workbenches, by id, each tied to this reader's profile.
    QList<Workbench> workbenches() const;

    // The records of one workbench and record type in the month of `month` (any day of it), by
    // date, then in the order they were recorded. Empty for a null workbench, an invalid month
    // or an unknown record type.
    QList<MaintenanceRecord> records(const Workbench* workbench, const QDate& month,
                                     MaintenanceManager::RecordType recordType) const;

private:
    Profile* m_profile;
};

} // namespace coagulation
