#pragma once

#include <kvcore/maintenanceexportdata.h>
#include <kvcore/qcseries.h>
#include <kvcore/workbench.h>

#include <QDate>
#include <QList>
#include <QSqlDatabase>
#include <QVariant>

#include <memory>
#include <vector>

namespace coagulation {

class Profile;

// What a preview shows: patients for a patient report, QC reagents and a date range for a QC
// report, a month of maintenance.
struct PreviewChoice
{
    QList<qint64> patientIds;
    QList<qint64> reagentIds;
    QDate from, to; // QC points from .. to; a null date leaves that end open
    QDate month;    // any day of the maintenance month
};

// Sample data from a workspace's databases to fill a template preview, and what there is to
// choose from.
class PreviewData
{
public:
    struct Option
    {
        QVariant value;
        QString label;
    };
    static constexpr int optionLimit = 500;

    explicit PreviewData(Profile* profile);

    // Patients with results, newest first ("sample number  name").
    QList<Option> patients() const;
    // Reagents with QC points, the one measured last first.
    QList<Option> reagents() const;
    // Months with maintenance records (their first days), newest first.
    QList<Option> maintenanceMonths() const;
    // The newest of each: the latest patient, the reagent measured last with all its points,
    // the latest month.
    PreviewChoice latest() const;

    // The QC series of the chosen reagents; owned by this object.
    QList<QcExportData*> qcData(const PreviewChoice& choice);
    // The chosen month with the workbench maintained last in it; null when there is none.
    const MaintenanceExportData* maintenanceData(const PreviewChoice& choice);

private:
    QList<Option> options(const QSqlDatabase& db, const QString& sql) const;

    Profile* m_profile;
    std::vector<std::unique_ptr<QcSeries>> m_series;
    Workbench m_workbench;
    MaintenanceExportData m_maintenance;
};

} // namespace coagulation
