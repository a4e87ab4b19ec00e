#include "reportsources.h"

#include <core/profile.h>
#include <kvcore/maintenancerecords.h>
#include <kvcore/qcdatareader.h>
#include <kvcore/sample.h>

#include <QSqlError>
#include <QSqlQuery>

namespace coagulation {

bool ReportSources::fail(const QString& message)
{
    m_errorString = message;
    return false;
}

bool ReportSources::checkPatients(const QList<qint64>& ids)
{
    QSqlQuery query(m_profile->dataDatabase());
    if (!query.prepare(QStringLiteral("select 1 from patient where id = :id")))
        return fail(QStringLiteral("Cannot read the patients: %1").arg(query.lastError().text()));
    for (qint64 id : ids) {
        query.bindValue(QStringLiteral(":id"), id);
        if (!query.exec())
            return fail(QStringLiteral("Cannot read the patients: %1").arg(query.lastError().text()));
        if (!query.next())
            return fail(QStringLiteral("No patient with id %1").arg(id));
    }
    return true;
}

bool ReportSources::patientsOfSamples(const QStringList& sampleNumbers, QList<qint64>* ids)
{
    QSqlQuery query(m_profile->dataDatabase());
    if (!query.prepare(
            QStringLiteral("select id from patient where sampleNo = :sampleNo order by id desc limit 1")))
        return fail(QStringLiteral("Cannot read the patients: %1").arg(query.lastError().text()));
    for (const QString& sampleNo : sampleNumbers) {
        query.bindValue(QStringLiteral(":sampleNo"), sampleNo);
        if (!query.exec())
            return fail(QStringLiteral("Cannot read the patients: %1").arg(query.lastError().text()));
        if (!query.next())
            return fail(QStringLiteral("No sample with the number '%1'").arg(sampleNo));
        ids->append(query.value(0).toLongLong());
    }
    return true;
}

QStringList ReportSources::qcSamples(const QList<qint64>& ids) const
{
    QStringList samples;
    QSqlQuery query(m_profile->dataDatabase());
    if (!query.prepare(QStringLiteral("select sampleNo from patient where id = :id")))
        return samples;
    for (qint64 id : ids) {
        query.bindValue(QStringLiteral(":id"), id);
        if (query.exec() && query.next()) {
            const QString sampleNo = query.value(0).toString();
            if (Sample::sampleTypeOf(sampleNo, m_profile) == kv::QcSample)
                samples.append(sampleNo);
        }
    }
    return samples;
}

bool ReportSources::qcSeries(const QList<qint64>& reagentIds, const QDate& from, const QDate& to,
                             std::vector<std::unique_ptr<QcSeries>>* series)
{
    QcDataReader reader(m_profile);
    const QList<qint64> ids = reagentIds.isEmpty() ? reader.reagentIds() : reagentIds;
    if (ids.isEmpty())
        return fail(QStringLiteral("The QC database holds no reagents"));
    for (qint64 id : ids) {
        std::unique_ptr<QcSeries> one = reader.read(id, from, to);
        if (!one)
            return fail(reader.errorString());
        series->push_back(std::move(one));
    }
    return true;
}

bool ReportSources::workbench(qint64 id, Workbench* workbench)
{
    const QList<Workbench> all = MaintenanceRecords(m_profile).workbenches();
    if (all.isEmpty())
        return fail(QStringLiteral("The QC database holds no workbenches"));
    if (id == 0) {
        *workbench = all.first();
        return true;
    }
    for (const Workbench& candidate : all) {
        if (candidate.id() == id) {
            *workbench = candidate;
            return true;
        }
    }
    return fail(QStringLiteral("No workbench with id %1").arg(id));
}

} // namespace coagulation
