#include "printtimes_p.h"

#include "sqlwarning.h"

#include <QDateTime>
#include <QSqlError>

namespace coagulation {

namespace {

// How long a job waits for another writer to finish before it gives up.
constexpr int busyTimeoutMs = 5000;
const char busyCode[] = "5"; // SQLITE_BUSY

} // namespace

PrintTimes::PrintTimes(QSqlDatabase database) : m_database(database), m_update(database) {}

PrintTimes::~PrintTimes()
{
    rollback();
}

bool PrintTimes::exec(const QString& sql)
{
    QSqlQuery query(m_database);
    if (query.exec(sql))
        return true;
    m_errorString = query.lastError().nativeErrorCode();
    return false;
}

bool PrintTimes::begin()
{
    if (!m_update.prepare(QStringLiteral("update patient set printTime=:time where id=:id")))
        REPORT_SQL_WARNING(m_update.lastError());
    if (m_database.driverName() != QLatin1String("QSQLITE")) {
        if (m_database.transaction()) {
            m_commit = QStringList{QStringLiteral("commit")};
            m_rollback = QStringList{QStringLiteral("rollback")};
        }
        return true;
    }
    QSqlQuery timeout(m_database);
    if (timeout.exec(QStringLiteral("pragma busy_timeout")) && timeout.next()) {
        m_savedTimeout = timeout.value(0).toInt();
        timeout.exec(QStringLiteral("pragma busy_timeout = %1").arg(busyTimeoutMs));
    }
    if (exec(QStringLiteral("begin immediate"))) {
        m_commit = QStringList{QStringLiteral("commit")};
        m_rollback = QStringList{QStringLiteral("rollback")};
        return true;
    }
    if (m_errorString == QLatin1String(busyCode)) {
        m_errorString =
            tr("数据库正被其他程序写入, 等待 %1 秒后仍无法记录打印时间").arg(busyTimeoutMs / 1000);
        end({});
        return false;
    }
    // Inside the caller's own transaction the times go into it, behind a savepoint of ours.
    m_errorString.clear();
    if (exec(QStringLiteral("savepoint printTimes"))) {
        m_commit = QStringList{QStringLiteral("release printTimes")};
        m_rollback =
            QStringList{QStringLiteral("rollback to printTimes"), QStringLiteral("release printTimes")};
    }
    return true;
}

void PrintTimes::write(qint64 patientId)
{
    m_update.bindValue(QStringLiteral(":time"), QDateTime::currentDateTime().toString(Qt::ISODate));
    m_update.bindValue(QStringLiteral(":id"), patientId);
    if (!m_update.exec())
        REPORT_SQL_WARNING(m_update.lastError());
}

void PrintTimes::commit()
{
    end(m_commit);
}

void PrintTimes::rollback()
{
    end(m_rollback);
}

void PrintTimes::end(const QStringList& statements)
{
    m_update.finish();
    for (const QString& statement : statements) {
        QSqlQuery query(m_database);
        if (!query.exec(statement))
            REPORT_SQL_WARNING(query.lastError());
    }
    m_commit.clear();
    m_rollback.clear();
    if (m_savedTimeout >= 0)
        QSqlQuery(m_database).exec(QStringLiteral("pragma busy_timeout = %1").arg(m_savedTimeout));
    m_savedTimeout = -1;
}

} // namespace coagulation
