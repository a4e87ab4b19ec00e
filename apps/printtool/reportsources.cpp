#include "reportsources.h"

#include <core/profile.h>
#include <kvcore/maintenancerecords.h>
#include <kvcore/qcdatareader.h>
#include <kvcore/sample.h>

#include <QDir>
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
        return fail(tr("无法读取病人表"));
    for (qint64 id : ids) {
        query.bindValue(QStringLiteral(":id"), id);
        if (!query.exec())
            return fail(tr("无法读取病人表"));
        if (!query.next())
            return fail(tr("没有编号为 %1 的病人").arg(id));
    }
    return true;
}

bool ReportSources::patientsOfSamples(const QStringList& sampleNumbers, QList<qint64>* ids)
{
    QSqlQuery query(m_profile->dataDatabase());
    if (!query.prepare(
            QStringLiteral("select id from patient where sampleNo = :sampleNo order by id desc limit 1")))
        return fail(tr("无法读取病人表"));
    for (const QString& sampleNo : sampleNumbers) {
        query.bindValue(QStringLiteral(":sampleNo"), sampleNo);
        if (!query.exec())
            return fail(tr("无法读取病人表"));
        if (!query.next())
            return fail(tr("没有样本号为 '%1' 的样本").arg(sampleNo));
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
        return fail(tr("质控数据库 %1 中没有试剂")
                        .arg(QDir::toNativeSeparators(m_profile->databasePath(QStringLiteral("qc")))));
    QSqlQuery reagent(m_profile->qcDatabase());
    reagent.prepare(QStringLiteral("select 1 from reagent where id = :id"));
    for (qint64 id : ids) {
        reagent.bindValue(QStringLiteral(":id"), id);
        if (!reagent.exec() || !reagent.next())
            return fail(tr("没有编号为 %1 的试剂").arg(id));
        std::unique_ptr<QcSeries> one = reader.read(id, from, to);
        if (!one)
            return fail(tr("无法读取试剂 %1 的质控数据").arg(id));
        series->push_back(std::move(one));
    }
    return true;
}

bool ReportSources::workbench(qint64 id, Workbench* workbench)
{
    const QList<Workbench> all = MaintenanceRecords(m_profile).workbenches();
    if (all.isEmpty())
        return fail(tr("质控数据库 %1 中没有工作台")
                        .arg(QDir::toNativeSeparators(m_profile->databasePath(QStringLiteral("qc")))));
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
    return fail(tr("没有编号为 %1 的工作台").arg(id));
}

} // namespace coagulation
