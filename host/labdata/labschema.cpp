#include "labschema.h"

#include <QFile>
#include <QSqlError>
#include <QSqlQuery>

namespace coagulation {

QStringList LabSchema::statements(Database database)
{
    static const char* const files[] = {":/labdata/schema/config.sql", ":/labdata/schema/data.sql",
                                        ":/labdata/schema/qc.sql"};
    QFile file(QString::fromLatin1(files[database]));
    if (!file.open(QIODevice::ReadOnly))
        return {};
    QString script;
    const QStringList lines = QString::fromUtf8(file.readAll()).split(QLatin1Char('\n'));
    for (const QString& line : lines) {
        if (!line.trimmed().startsWith(QLatin1String("--")))
            script += line + QLatin1Char('\n');
    }
    QStringList result;
    const QStringList parts = script.split(QLatin1Char(';'));
    for (const QString& part : parts) {
        const QString statement = part.trimmed();
        if (!statement.isEmpty())
            result.append(statement);
    }
    return result;
}

bool LabSchema::create(QSqlDatabase db, Database database, QString* errorString)
{
    const QStringList list = statements(database);
    if (list.isEmpty()) {
        if (errorString)
            *errorString = QStringLiteral("The schema resource is missing");
        return false;
    }
    QSqlQuery query(db);
    for (const QString& statement : list) {
        if (!query.exec(statement)) {
            if (errorString)
                *errorString = QStringLiteral("%1: %2").arg(
                    statement.section(QLatin1Char('('), 0, 0).simplified(), query.lastError().text());
            return false;
        }
    }
    return true;
}

} // namespace coagulation
