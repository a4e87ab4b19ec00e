#include "tablewriter.h"

#include <QSqlError>

namespace coagulation {

TableWriter::TableWriter(QSqlDatabase db, const QString& table, const QStringList& columns)
    : m_query(db), m_table(table), m_columnCount(int(columns.size()))
{
    QStringList placeholders;
    for (int i = 0; i < m_columnCount; ++i)
        placeholders.append(QStringLiteral("?"));
    m_prepared = m_query.prepare(
        QStringLiteral("insert into %1 (%2) values (%3)")
            .arg(table, columns.join(QStringLiteral(", ")), placeholders.join(QStringLiteral(", "))));
    if (!m_prepared)
        m_errorString = QStringLiteral("%1: %2").arg(table, m_query.lastError().text());
}

bool TableWriter::insert(const QVariantList& values)
{
    if (!m_prepared)
        return false;
    if (values.size() != m_columnCount) {
        m_errorString =
            QStringLiteral("%1: %2 values for %3 columns").arg(m_table).arg(values.size()).arg(m_columnCount);
        return false;
    }
    for (int i = 0; i < m_columnCount; ++i)
        m_query.bindValue(i, values.at(i));
    if (!m_query.exec()) {
        m_errorString = QStringLiteral("%1: %2").arg(m_table, m_query.lastError().text());
        return false;
    }
    return true;
}

} // namespace coagulation
