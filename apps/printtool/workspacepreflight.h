#pragma once

#include "toolarguments.h"

#include <QCoreApplication>
#include <QString>
#include <QStringList>

namespace coagulation {

class Profile;

// Checks, before a job starts, that the workspace's databases hold every table and column that
// the job reads or writes, so that a job never prints reports without their data or fails to
// record them. Nothing is created or changed.
class WorkspacePreflight
{
    Q_DECLARE_TR_FUNCTIONS(coagulation::PrintTool)
public:
    explicit WorkspacePreflight(Profile* profile) : m_profile(profile) {}

    bool check(ToolArguments::Command command);
    // Further columns of the patient table, named by the template's data fields.
    void addPatientColumns(const QStringList& columns) { m_patientColumns += columns; }
    QString errorString() const { return m_errorString; }

private:
    bool checkTable(const QString& kind, const QString& table, const QStringList& columns);
    bool fail(const QString& message);

    Profile* m_profile;
    QStringList m_patientColumns;
    QString m_errorString;
};

} // namespace coagulation
