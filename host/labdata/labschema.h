#pragma once

#include "labdata_global.h"

#include <QSqlDatabase>
#include <QStringList>

namespace coagulation {

// The tables of the laboratory's three databases. Dates and times are stored as text
// ("yyyy-MM-dd HH:mm:ss", "yyyy-MM-dd", "HH:mm:ss") in columns declared DATETIME, DATE and TIME.
class LABDATA_EXPORT LabSchema
{
public:
    enum Database {
        ConfigDatabase, // Profile::database(): assayTemplate, assayItem
        DataDatabase,   // Profile::dataDatabase(): patient, result
        QcDatabase,     // Profile::qcDatabase(): reagent, qcResult, workbench, maintenanceRecord
    };

    // The statements that drop and re-create the tables of one database, in order.
    static QStringList statements(Database database);

    // Drops and re-creates the tables of one database (other tables stay). False, with the
    // reason in *errorString, when a statement fails.
    static bool create(QSqlDatabase db, Database database, QString* errorString = nullptr);
};

} // namespace coagulation
