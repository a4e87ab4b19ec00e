// Binding a report to the data of the page being printed.
#include "report.h"

#include "reportitembase.h"
#include "sqlwarning.h"

#include <core/profile.h>
#include <kvcore/maintenanceexportdata.h>
#include <kvcore/qcexportdata.h>

#include <QSqlField>
#include <QSqlQuery>

namespace coagulation {

void Report::fetchData(int patientId, QSqlDatabase db)
{
    m_records.clear();
    m_patientId = patientId;
    QSqlQuery query(db);
    query.setForwardOnly(true);
    if (!query.exec(QStringLiteral("select * from patient where id=%1").arg(patientId)))
        REPORT_SQL_WARNING(query.lastError());
    else if (query.next())
        m_records.insert(QStringLiteral("patient"), query.record());
    loadFieldType(QStringLiteral("patient"), db);
    const QList<ReportItem*> items = reportItems();
    for (ReportItem* item : items)
        item->updateData();
}

void Report::prepareQcData(const QcExportData* data)
{
    m_currentPage = 1;
    m_pageCount = 1;
    m_qcData = data;
    m_records.clear();
    const QSqlDatabase db = m_profile ? m_profile->qcDatabase() : QSqlDatabase();
    if (data) {
        QSqlQuery query(db);
        if (!query.prepare(QStringLiteral("select * from reagent where id=:id")))
            REPORT_SQL_WARNING(query.lastError());
        query.bindValue(QStringLiteral(":id"), data->reagentId);
        if (!query.exec())
            REPORT_SQL_WARNING(query.lastError());
        else if (query.next())
            m_records.insert(QStringLiteral("reagent"), query.record());
    }
    loadFieldType(QStringLiteral("reagent"), db);
    const QList<ReportItem*> items = reportItems();
    for (ReportItem* item : items)
        item->prepareData();
}

void Report::fetchQcData(const QcExportData*)
{
    // The series bound by prepareQcData stays in force whatever the caller passes.
    const QList<ReportItem*> items = reportItems();
    for (ReportItem* item : items)
        item->updateData();
}

void Report::prepareMaintenanceData(const MaintenanceExportData* data)
{
    m_currentPage = 1;
    m_pageCount = 1;
    // The first maintenance table on the page shows the first record type; each table advances it.
    if (data)
        data->recordType = MaintenanceManager::RecordType(1);
    m_maintenanceData = data;
    const QList<ReportItem*> items = reportItems();
    for (ReportItem* item : items)
        item->updateData();
}

QSqlRecord Report::record(const QString& table) const
{
    return m_records.value(table);
}

QMetaType::Type Report::fieldType(const QString& table, const QString& column)
{
    const auto it = m_fieldTypes.constFind(table);
    if (it == m_fieldTypes.constEnd())
        return QMetaType::QString;
    return it->value(column, QMetaType::QString);
}

void Report::loadFieldType(const QString& table, QSqlDatabase db)
{
    if (m_fieldTypes.contains(table))
        return;
    QHash<QString, QMetaType::Type> types;
    QSqlQuery query(db);
    if (!query.exec(QStringLiteral("pragma table_info('%1')").arg(table)))
        REPORT_SQL_WARNING(query.lastError());
    const QSqlRecord columns = db.isOpen() ? db.record(table) : QSqlRecord();
    while (query.next()) {
        const QString name = query.value(1).toString();
        auto type = QMetaType::Type(columns.field(name).metaType().id());
        if (type == QMetaType::UnknownType)
            type = QMetaType::QString;
        // SQLite keeps dates and times as text; the declared type tells what the text holds.
        if (type == QMetaType::QString) {
            const QString declared = query.value(2).toString();
            if (declared.compare(QLatin1String("datetime"), Qt::CaseInsensitive) == 0)
                type = QMetaType::QDateTime;
            else if (declared.compare(QLatin1String("date"), Qt::CaseInsensitive) == 0)
                type = QMetaType::QDate;
            else if (declared.compare(QLatin1String("time"), Qt::CaseInsensitive) == 0)
                type = QMetaType::QTime;
        }
        types.insert(name, type);
    }
    m_fieldTypes.insert(table, types);
}

} // namespace coagulation
