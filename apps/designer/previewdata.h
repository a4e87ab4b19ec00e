#pragma once

#include <kvcore/maintenanceexportdata.h>
#include <kvcore/qcseries.h>
#include <kvcore/workbench.h>

#include <QList>

#include <memory>
#include <vector>

namespace coagulation {

class Profile;

// Sample data from a workspace's databases to fill a template preview: a few patients, the QC
// series of a few reagents, and the latest month of maintenance of a workbench.
class PreviewData
{
public:
    static constexpr int patientCount = 3;
    static constexpr int qcSeriesCount = 2;

    explicit PreviewData(Profile* profile);

    // The latest patients that have results, newest first.
    QList<qint64> patientIds() const;
    // The QC series of the first reagents that have points; owned by this object.
    QList<QcExportData*> qcData();
    // The month of the latest maintenance record and its workbench; null when there is none.
    const MaintenanceExportData* maintenanceData();

private:
    Profile* m_profile;
    std::vector<std::unique_ptr<QcSeries>> m_series;
    Workbench m_workbench;
    MaintenanceExportData m_maintenance;
};

} // namespace coagulation
