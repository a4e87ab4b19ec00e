#include "labdatabasegenerator.h"

#include "assayconfigwriter.h"
#include "columndisplaynames.h"
#include "labrandom.h"
#include "maintenancegenerator.h"
#include "patientgenerator.h"
#include "personnames.h"
#include "qcgenerator.h"

#include <core/profile.h>

#include <QSqlError>

namespace coagulation {

LabDatabaseGenerator::LabDatabaseGenerator(Profile* profile, quint32 seed) : m_profile(profile), m_seed(seed)
{}

void LabDatabaseGenerator::setLastDay(const QDate& day)
{
    if (day.isValid())
        m_lastDay = day;
}

bool LabDatabaseGenerator::generate()
{
    m_errorString.clear();
    if (!m_profile) {
        m_errorString = QStringLiteral("No profile to generate the databases in");
        return false;
    }
    LabRandom staffRandom(m_seed, 4);
    const QStringList staff = PersonNames::names(staffRandom, 5);

    const bool written =
        fill(m_profile->database(), LabSchema::ConfigDatabase,
             [&](QString* error) {
                 AssayConfigWriter writer;
                 const bool ok = writer.write(m_profile->database());
                 *error = writer.errorString();
                 return ok;
             }) &&
        fill(m_profile->qcDatabase(), LabSchema::QcDatabase,
             [&](QString* error) {
                 QcGenerator qc(m_seed, m_lastDay, staff);
                 MaintenanceGenerator maintenance(m_seed, m_lastDay, staff);
                 const bool ok = qc.write(m_profile->qcDatabase(), m_qcPointCount) &&
                                 maintenance.write(m_profile->qcDatabase(), m_maintenanceMonths);
                 *error = qc.errorString().isEmpty() ? maintenance.errorString() : qc.errorString();
                 return ok;
             }) &&
        fill(m_profile->dataDatabase(), LabSchema::DataDatabase, [&](QString* error) {
            PatientGenerator patients(m_profile, m_seed, m_lastDay);
            const bool ok = patients.write(m_profile->dataDatabase(), m_patientCount);
            *error = patients.errorString();
            return ok;
        });
    if (!written)
        return false;
    ColumnDisplayNames::write(m_profile);
    return true;
}

bool LabDatabaseGenerator::fill(QSqlDatabase db, LabSchema::Database which,
                                const std::function<bool(QString*)>& write)
{
    static const char* const names[] = {"configuration", "data", "QC"};
    const QString name = QString::fromLatin1(names[which]);
    if (!db.isOpen()) {
        m_errorString = QStringLiteral("The %1 database is not open").arg(name);
        return false;
    }
    if (!db.transaction()) {
        m_errorString = QStringLiteral("The %1 database: %2").arg(name, db.lastError().text());
        return false;
    }
    QString error;
    if (!LabSchema::create(db, which, &error) || !write(&error)) {
        db.rollback();
        m_errorString = QStringLiteral("The %1 database: %2").arg(name, error);
        return false;
    }
    if (!db.commit()) {
        m_errorString = QStringLiteral("The %1 database: %2").arg(name, db.lastError().text());
        db.rollback();
        return false;
    }
    return true;
}

} // namespace coagulation
