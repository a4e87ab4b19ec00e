#include "maintenancerecords.h"

#include <core/profile.h>

#include <QSqlError>
#include <QSqlQuery>

namespace coagulation {

namespace {
const QString dateFormat = QStringLiteral("yyyy-MM-dd");
}

MaintenanceRecords::MaintenanceRecords(Profile* profile) : m_profile(profile) {}

QList<Workbench> MaintenanceRecords::workbenches() const
{
    QList<Workbench> list;
    if (!m_profile)
        return list;
    QSqlQuery query(m_profile->qcDatabase());
    if (!query.exec(QStringLiteral("select id, name from workbench order by id"))) {
        qWarning("MaintenanceRecords: %s", qPrintable(query.lastError().text()));
        return list;
    }
    while (query.next())
        list.append(Workbench(query.value(0).toInt(), query.value(1).toString(), m_profile));
    return list;
}

QList<MaintenanceRecord> MaintenanceRecords::records(const Workbench* workbench, const QDate& month,
                                                     MaintenanceManager::RecordType recordType) const
{
    QList<MaintenanceRecord> list;
    if (!m_profile || !workbench || !month.isValid() || !MaintenanceManager::isValid(recordType))
        return list;
    const QDate first(month.year(), month.month(), 1);
    QSqlQuery query(m_profile->qcDatabase());
    const bool prepared =
        query.prepare(QStringLiteral("select id, date, task, operator, result, remark from maintenanceRecord "
                                     "where workbench = :workbench and recordType = :type "
                                     "and date >= :first and date < :next order by date, id"));
    query.bindValue(QStringLiteral(":workbench"), workbench->id());
    query.bindValue(QStringLiteral(":type"), int(recordType));
    query.bindValue(QStringLiteral(":first"), first.toString(dateFormat));
    query.bindValue(QStringLiteral(":next"), first.addMonths(1).toString(dateFormat));
    if (!prepared || !query.exec()) {
        qWarning("MaintenanceRecords: %s", qPrintable(query.lastError().text()));
        return list;
    }
    while (query.next()) {
        MaintenanceRecord record;
        record.id = query.value(0).toLongLong();
        record.workbenchId = workbench->id();
        record.recordType = recordType;
        record.date = QDate::fromString(query.value(1).toString(), dateFormat);
        record.task = query.value(2).toString();
        record.operatorName = query.value(3).toString();
        record.result = query.value(4).toString();
        record.remark = query.value(5).toString();
        list.append(record);
    }
    return list;
}

} // namespace coagulation
