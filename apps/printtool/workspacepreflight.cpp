#include "workspacepreflight.h"

#include <core/profile.h>

#include <QDir>
#include <QFileInfo>
#include <QSqlQuery>
#include <QSqlRecord>

namespace coagulation {

namespace {

struct TableNeed
{
    const char* database; // "data", "qc" or "config", as the profile names them
    const char* table;
    QStringList columns;
};

QSqlDatabase databaseOf(Profile* profile, const QString& kind)
{
    if (kind == QLatin1String("data"))
        return profile->dataDatabase();
    if (kind == QLatin1String("qc"))
        return profile->qcDatabase();
    return profile->database();
}

// What the report module and the host's readers ask of the databases for each kind of job.
QList<TableNeed> needsOf(ToolArguments::Command command)
{
    const QList<TableNeed> assays = {
        {"config", "assayTemplate", {"id", "name"}},
        {"config", "assayItem", {"id", "assayTemplateId", "name", "abbr", "unit", "precision", "visible"}},
    };
    switch (command) {
    case ToolArguments::Patients:
    case ToolArguments::Samples:
        return QList<TableNeed>{
                   {"data", "patient", {"id", "sampleNo", "printTime"}},
                   {"data",
                    "result",
                    {"patientId", "item", "subitem", "abbr", "code", "result", "unit", "flag",
                     "lowerMarkLimit", "upperMarkLimit", "displayOrder"}},
               } +
               assays;
    case ToolArguments::Qc:
        return QList<TableNeed>{
                   {"qc",
                    "reagent",
                    {"id", "controlNo", "assayTemplate", "assayItem", "hasLimits", "targetValue",
                     "upperMarkLimit", "upperStopLimit", "lowerMarkLimit", "lowerStopLimit", "mean", "sd"}},
                   {"qc", "qcResult", {"id", "reagentId", "time", "value", "rejected"}},
               } +
               assays;
    case ToolArguments::Maintenance:
        return {
            {"qc", "workbench", {"id", "name"}},
            {"qc",
             "maintenanceRecord",
             {"id", "workbench", "recordType", "date", "task", "operator", "result", "remark"}},
        };
    default:
        return {};
    }
}

} // namespace

bool WorkspacePreflight::fail(const QString& message)
{
    m_errorString = message;
    return false;
}

bool WorkspacePreflight::check(ToolArguments::Command command)
{
    for (const TableNeed& need : needsOf(command)) {
        QStringList columns = need.columns;
        if (qstrcmp(need.table, "patient") == 0)
            columns += m_patientColumns;
        if (!checkTable(QString::fromLatin1(need.database), QString::fromLatin1(need.table), columns))
            return false;
    }
    return true;
}

bool WorkspacePreflight::checkTable(const QString& kind, const QString& table, const QStringList& columns)
{
    const QString file = QDir::toNativeSeparators(m_profile->databasePath(kind));
    if (!QFileInfo::exists(m_profile->databasePath(kind)))
        return fail(tr("数据库文件 %1 不存在").arg(file));
    QSqlDatabase db = databaseOf(m_profile, kind);
    QSqlQuery probe(db);
    if (!db.isOpen() || !probe.exec(QStringLiteral("select count(*) from sqlite_master")))
        return fail(tr("无法读取数据库文件 %1 (不是 SQLite 数据库或已损坏)").arg(file));
    if (!db.tables().contains(table, Qt::CaseInsensitive))
        return fail(tr("数据库 %1 中没有表 \"%2\"").arg(file, table));
    const QSqlRecord record = db.record(table);
    for (const QString& column : columns) {
        if (!record.contains(column))
            return fail(tr("数据库 %1 的表 \"%2\" 中没有列 \"%3\"").arg(file, table, column));
    }
    return true;
}

} // namespace coagulation
