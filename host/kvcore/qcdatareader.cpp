#include "qcdatareader.h"

#include "assaydirectory.h"

#include <core/profile.h>

#include <QSqlError>
#include <QSqlQuery>

namespace coagulation {

namespace {
const QString timeFormat = QStringLiteral("yyyy-MM-dd HH:mm:ss");
}

QcDataReader::QcDataReader(Profile* profile) : m_profile(profile) {}

QList<qint64> QcDataReader::reagentIds() const
{
    QList<qint64> ids;
    if (!m_profile)
        return ids;
    QSqlQuery query(m_profile->qcDatabase());
    if (!query.exec(QStringLiteral("select id from reagent order by id"))) {
        qWarning("QcDataReader: %s", qPrintable(query.lastError().text()));
        return ids;
    }
    while (query.next())
        ids.append(query.value(0).toLongLong());
    return ids;
}

std::unique_ptr<QcSeries> QcDataReader::read(qint64 reagentId, const QDate& from, const QDate& to)
{
    m_errorString.clear();
    if (!m_profile) {
        m_errorString = QStringLiteral("No profile to read QC data from");
        return nullptr;
    }
    auto series = std::make_unique<QcSeries>();
    if (!readReagent(reagentId, series.get()) || !readPoints(reagentId, from, to, series->data()))
        return nullptr;
    return series;
}

bool QcDataReader::readReagent(qint64 reagentId, QcSeries* series)
{
    QSqlQuery query(m_profile->qcDatabase());
    const bool prepared = query.prepare(QStringLiteral(
        "select controlNo, assayTemplate, assayItem, hasLimits, targetValue, upperMarkLimit, upperStopLimit, "
        "lowerMarkLimit, lowerStopLimit, mean, sd from reagent where id = :id"));
    query.bindValue(QStringLiteral(":id"), reagentId);
    if (!prepared || !query.exec()) {
        m_errorString =
            QStringLiteral("Cannot read reagent %1: %2").arg(reagentId).arg(query.lastError().text());
        return false;
    }
    if (!query.next()) {
        m_errorString = QStringLiteral("No reagent with id %1").arg(reagentId);
        return false;
    }
    QcExportData* data = series->data();
    data->reagentId = reagentId;
    data->controlNo = query.value(0).toInt();
    data->hasLimits = query.value(3).toInt();
    data->targetValue = query.value(4).toDouble();
    data->upperMarkLimit = query.value(5).toDouble();
    data->upperStopLimit = query.value(6).toDouble();
    data->lowerMarkLimit = query.value(7).toDouble();
    data->lowerStopLimit = query.value(8).toDouble();
    data->mean = query.value(9).toDouble();
    data->sd = query.value(10).toDouble();

    const AssayDirectory assays(m_profile);
    const std::optional<AssayTemplate> assayTemplate = assays.findTemplate(query.value(1).toString());
    series->setAssayTemplate(assayTemplate);
    series->setAssayItem(assayTemplate ? assays.findItem(*assayTemplate, query.value(2).toString())
                                       : std::nullopt);
    return true;
}

bool QcDataReader::readPoints(qint64 reagentId, const QDate& from, const QDate& to, QcExportData* data)
{
    // Times are stored as "yyyy-MM-dd HH:mm:ss" text, which sorts and compares chronologically.
    QString sql = QStringLiteral("select time, value, rejected from qcResult where reagentId = :id");
    if (from.isValid())
        sql += QStringLiteral(" and time >= :from");
    if (to.isValid())
        sql += QStringLiteral(" and time < :to");
    sql += QStringLiteral(" order by time, id");

    QSqlQuery query(m_profile->qcDatabase());
    query.setForwardOnly(true);
    const bool prepared = query.prepare(sql);
    query.bindValue(QStringLiteral(":id"), reagentId);
    const QDateTime start = from.isValid() ? from.startOfDay() : QDateTime();
    const QDateTime end = to.isValid() ? to.addDays(1).startOfDay() : QDateTime();
    if (from.isValid())
        query.bindValue(QStringLiteral(":from"), start.toString(timeFormat));
    if (to.isValid())
        query.bindValue(QStringLiteral(":to"), end.toString(timeFormat));
    if (!prepared || !query.exec()) {
        m_errorString = QStringLiteral("Cannot read the QC points of reagent %1: %2")
                            .arg(reagentId)
                            .arg(query.lastError().text());
        return false;
    }
    while (query.next()) {
        const QDateTime time = QDateTime::fromString(query.value(0).toString(), timeFormat);
        if (!time.isValid())
            continue; // a point without a usable time cannot be placed on a chart
        data->points.append(
            {QcPoint::fromDatetime(time), query.value(1).toDouble(), query.value(2).toBool()});
    }
    data->firstIndex = 0;
    data->count = int(data->points.size());
    return true;
}

} // namespace coagulation
