#pragma once

#include <QSqlDatabase>
#include <QSqlQuery>
#include <QStringList>
#include <QVariantList>

namespace coagulation {

// Inserts rows into one table through a single prepared statement.
class TableWriter
{
public:
    TableWriter(QSqlDatabase db, const QString& table, const QStringList& columns);

    // Values in column order; false, with errorString() set, when the row cannot be written.
    bool insert(const QVariantList& values);
    QString errorString() const { return m_errorString; }

private:
    QSqlQuery m_query;
    QString m_table;
    int m_columnCount;
    bool m_prepared;
    QString m_errorString;
};

} // namespace coagulation
