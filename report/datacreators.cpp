#include "datacreators.h"

#include "databounditems.h"
#include "keyfactories.h"

#include <core/profile.h>

namespace coagulation {

FieldCreator::FieldCreator(Profile* profile, const QString& group, const QString& table, const QString& field,
                           QObject* parent)
    : TextCreator(group, parent),
      m_profile(profile), m_keyList{QStringLiteral("field:/%1/%2").arg(table, field)}, m_table(table),
      m_field(field)
{
    if (m_profile)
        m_name = m_profile->value(QStringLiteral("%1/%2").arg(table, field)).toString();
}

ReportItem* FieldCreator::create()
{
    return new ReportFieldItem(m_profile, m_table, m_field);
}

FactoryProxyCreator::FactoryProxyCreator(CreatorFactory* factory, const QString& group, const QString& key,
                                         const QString& name, QObject* parent)
    : GeneralRectCreator(QStringLiteral("toolText"), group, parent), m_factory(factory), m_key(key),
      m_name(name)
{}

ReportItem* FactoryProxyCreator::create()
{
    return m_factory ? m_factory->create(m_key) : nullptr;
}

} // namespace coagulation
