#pragma once

#include "labdata_global.h"
#include "labschema.h"

#include <QDate>
#include <QSqlDatabase>

#include <functional>

namespace coagulation {

class Profile;

// Builds a realistic coagulation laboratory in a profile's three databases: the assay
// configuration, patients with their results, QC materials with their runs, and the analysers'
// maintenance records; it also writes the column display names and the hospital name into the
// profile. Existing tables of these names are replaced. The same seed and options always give
// the same contents; nothing depends on the current date.
class LABDATA_EXPORT LabDatabaseGenerator
{
public:
    explicit LabDatabaseGenerator(Profile* profile, quint32 seed = 1);

    quint32 seed() const { return m_seed; }

    int patientCount() const { return m_patientCount; }
    void setPatientCount(int count) { m_patientCount = qMax(0, count); } // default 200

    int qcPointCount() const { return m_qcPointCount; }
    void setQcPointCount(int count) { m_qcPointCount = qMax(0, count); } // per reagent, default 90

    int maintenanceMonths() const { return m_maintenanceMonths; }
    void setMaintenanceMonths(int months) { m_maintenanceMonths = qMax(0, months); } // default 3

    // The last day with samples, QC runs and maintenance; default 2024-06-28.
    QDate lastDay() const { return m_lastDay; }
    void setLastDay(const QDate& day);

    // False, with errorString() set, when a database is not open or cannot be written; each
    // database is written in one transaction, so a failed one keeps its previous contents.
    bool generate();
    QString errorString() const { return m_errorString; }

private:
    bool fill(QSqlDatabase db, LabSchema::Database which, const std::function<bool(QString*)>& write);

    Profile* m_profile;
    quint32 m_seed;
    int m_patientCount = 200;
    int m_qcPointCount = 90;
    int m_maintenanceMonths = 3;
    QDate m_lastDay{2024, 6, 28};
    QString m_errorString;
};

} // namespace coagulation
