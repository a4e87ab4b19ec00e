#pragma once

#include <QCoreApplication>
#include <QSqlDatabase>
#include <QSqlQuery>
#include <QStringList>

namespace coagulation {

// The print times of one patient job. They are written as the pages render but stay in a
// transaction that reserves the database from the start, so that they are kept only once the
// pages have come out and a concurrent writer delays the job instead of losing its times.
class PrintTimes
{
    Q_DECLARE_TR_FUNCTIONS(coagulation::ReportPrinter)
public:
    explicit PrintTimes(QSqlDatabase database);
    ~PrintTimes(); // rolls back what was neither committed nor rolled back

    // False when the database stays locked by another writer; errorString() says so.
    bool begin();
    void write(qint64 patientId);
    void commit();
    void rollback();
    QString errorString() const { return m_errorString; }

private:
    bool exec(const QString& sql);
    void end(const QStringList& statements);

    QSqlDatabase m_database;
    QSqlQuery m_update;
    QString m_errorString;
    QStringList m_commit;   // what keeps the times: commit, or the release of our savepoint
    QStringList m_rollback; // what undoes them
    int m_savedTimeout = -1;
};

} // namespace coagulation
