#include "previewdata.h"

#include <core/profile.h>
#include <kvcore/qcdatareader.h>

#include <QSqlQuery>

namespace coagulation {

PreviewData::PreviewData(Profile* profile) : m_profile(profile) {}

QList<qint64> PreviewData::patientIds() const
{
    QList<qint64> ids;
    QSqlQuery query(m_profile->dataDatabase());
    query.prepare(QStringLiteral("SELECT id FROM patient WHERE id IN (SELECT patientId FROM result) "
                                 "ORDER BY id DESC LIMIT ?"));
    query.addBindValue(patientCount);
    if (query.exec())
        while (query.next())
            ids.append(query.value(0).toLongLong());
    return ids;
}

QList<QcExportData*> PreviewData::qcData()
{
    if (m_series.empty()) {
        QcDataReader reader(m_profile);
        for (qint64 id : reader.reagentIds()) {
            std::unique_ptr<QcSeries> series = reader.read(id);
            if (series && !series->data()->points.isEmpty())
                m_series.push_back(std::move(series));
            if (int(m_series.size()) == qcSeriesCount)
                break;
        }
    }
    QList<QcExportData*> data;
    for (const auto& series : m_series)
        data.append(series->data());
    return data;
}

const MaintenanceExportData* PreviewData::maintenanceData()
{
    QSqlQuery query(m_profile->qcDatabase());
    if (!query.exec(QStringLiteral("SELECT w.id, w.name, r.date FROM maintenanceRecord r "
                                   "JOIN workbench w ON w.id = r.workbench ORDER BY r.date DESC LIMIT 1")) ||
        !query.next())
        return nullptr;
    m_workbench = Workbench(query.value(0).toInt(), query.value(1).toString());
    m_maintenance.workbench = &m_workbench;
    m_maintenance.month = QDate::fromString(query.value(2).toString().left(10), Qt::ISODate);
    m_maintenance.recordType = MaintenanceManager::DailyMaintenance;
    return m_maintenance.month.isValid() ? &m_maintenance : nullptr;
}

} // namespace coagulation
