#include "previewdata.h"

#include <core/profile.h>
#include <kvcore/qcdatareader.h>

#include <QCoreApplication>
#include <QLocale>
#include <QSqlQuery>

namespace coagulation {

PreviewData::PreviewData(Profile* profile) : m_profile(profile) {}

QList<PreviewData::Option> PreviewData::options(const QSqlDatabase& db, const QString& sql) const
{
    QList<Option> list;
    QSqlQuery query(db);
    if (query.exec(sql.arg(optionLimit)))
        while (query.next())
            list.append({query.value(0), query.value(1).toString().simplified()});
    return list;
}

QList<PreviewData::Option> PreviewData::patients() const
{
    return options(m_profile->dataDatabase(),
                   QStringLiteral("SELECT id, sampleNo || '  ' || coalesce(name, '') FROM patient "
                                  "WHERE id IN (SELECT patientId FROM result) ORDER BY id DESC LIMIT %1"));
}

QList<PreviewData::Option> PreviewData::reagents() const
{
    return options(
        m_profile->qcDatabase(),
        QStringLiteral("SELECT r.id, r.name || '  ' || coalesce(r.lot, '') || '  ' || "
                       "coalesce(r.level, '') FROM reagent r JOIN qcResult q ON q.reagentId = r.id "
                       "GROUP BY r.id ORDER BY max(q.time) DESC, r.id LIMIT %1"));
}

QList<PreviewData::Option> PreviewData::maintenanceMonths() const
{
    QList<Option> months =
        options(m_profile->qcDatabase(), QStringLiteral("SELECT DISTINCT substr(date, 1, 7) || '-01', '' "
                                                        "FROM maintenanceRecord ORDER BY 1 DESC LIMIT %1"));
    for (Option& month : months) {
        month.value = QDate::fromString(month.value.toString(), Qt::ISODate);
        month.label = QLocale().toString(month.value.toDate(), QStringLiteral("yyyy MMMM"));
    }
    months.removeIf([](const Option& month) { return !month.value.toDate().isValid(); });
    return months;
}

PreviewChoice PreviewData::latest() const
{
    PreviewChoice choice;
    if (const QList<Option> list = patients(); !list.isEmpty())
        choice.patientIds = {list.first().value.toLongLong()};
    if (const QList<Option> list = reagents(); !list.isEmpty())
        choice.reagentIds = {list.first().value.toLongLong()};
    if (const QList<Option> list = maintenanceMonths(); !list.isEmpty())
        choice.month = list.first().value.toDate();
    return choice;
}

QList<QcExportData*> PreviewData::qcData(const PreviewChoice& choice)
{
    m_series.clear();
    QcDataReader reader(m_profile);
    for (qint64 id : choice.reagentIds) {
        std::unique_ptr<QcSeries> series = reader.read(id, choice.from, choice.to);
        if (series && !series->data()->points.isEmpty())
            m_series.push_back(std::move(series));
    }
    QList<QcExportData*> data;
    for (const auto& series : m_series)
        data.append(series->data());
    return data;
}

const MaintenanceExportData* PreviewData::maintenanceData(const PreviewChoice& choice)
{
    if (!choice.month.isValid())
        return nullptr;
    QSqlQuery query(m_profile->qcDatabase());
    query.prepare(QStringLiteral("SELECT w.id, w.name FROM maintenanceRecord r JOIN workbench w "
                                 "ON w.id = r.workbench WHERE substr(r.date, 1, 7) = ? "
                                 "ORDER BY r.date DESC LIMIT 1"));
    query.addBindValue(choice.month.toString(QStringLiteral("yyyy-MM")));
    if (!query.exec() || !query.next())
        return nullptr;
    m_workbench = Workbench(query.value(0).toInt(), query.value(1).toString());
    m_maintenance.workbench = &m_workbench;
    m_maintenance.month = choice.month;
    m_maintenance.recordType = MaintenanceManager::DailyMaintenance;
    return &m_maintenance;
}

} // namespace coagulation
