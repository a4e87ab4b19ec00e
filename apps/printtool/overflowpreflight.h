#pragma once

#include <QCoreApplication>
#include <QList>
#include <QStringList>

namespace coagulation {

class Report;
class Workspace;
struct MaintenanceExportData;
struct QcExportData;

// Binds every page of a print job to its data the way the printer will, before anything is
// printed, and collects the overflow warnings (OverflowCheck) of each page.
class OverflowPreflight
{
    Q_DECLARE_TR_FUNCTIONS(coagulation::OverflowPreflight)
public:
    explicit OverflowPreflight(Workspace* workspace) : m_workspace(workspace) {}

    QStringList patients(const QList<qint64>& ids);
    QStringList qc(const QList<QcExportData*>& series);
    QStringList maintenance(const MaintenanceExportData& data);

    // Tells the user every warning on stderr; false when `strict` makes them a failure (said too).
    static bool passes(const QStringList& warnings, bool strict);

private:
    // The template remembered under `key`, false when it cannot be loaded (the printer says why).
    bool load(Report* report, const QString& key) const;

    Workspace* m_workspace;
};

} // namespace coagulation
