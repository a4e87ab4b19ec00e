#include "assaydirectory.h"

#include <core/profile.h>

#include <QSqlError>
#include <QSqlQuery>

namespace coagulation {

AssayDirectory::AssayDirectory(Profile* profile) : m_profile(profile) {}

std::optional<AssayTemplate> AssayDirectory::findTemplate(const QString& name) const
{
    if (!m_profile)
        return std::nullopt;
    QSqlQuery query(m_profile->database());
    const bool prepared = query.prepare(
        QStringLiteral("select id, name from assayTemplate where name = :name order by id limit 1"));
    query.bindValue(QStringLiteral(":name"), name);
    if (!prepared || !query.exec()) {
        qWarning("AssayDirectory: %s", qPrintable(query.lastError().text()));
        return std::nullopt;
    }
    if (!query.next())
        return std::nullopt;
    return AssayTemplate(query.value(0).toLongLong(), query.value(1).toString());
}

std::optional<AssayItem> AssayDirectory::findItem(const AssayTemplate& assayTemplate,
                                                  const QString& name) const
{
    if (!m_profile)
        return std::nullopt;
    QSqlQuery query(m_profile->database());
    const bool prepared = query.prepare(
        QStringLiteral("select id, name, abbr, unit, precision from assayItem "
                       "where assayTemplateId = :templateId and name = :name order by id limit 1"));
    query.bindValue(QStringLiteral(":templateId"), assayTemplate.id());
    query.bindValue(QStringLiteral(":name"), name);
    if (!prepared || !query.exec()) {
        qWarning("AssayDirectory: %s", qPrintable(query.lastError().text()));
        return std::nullopt;
    }
    if (!query.next())
        return std::nullopt;
    return AssayItem(query.value(0).toLongLong(), query.value(1).toString(), query.value(2).toString(),
                     query.value(3).toString(), query.value(4).toInt());
}

} // namespace coagulation
