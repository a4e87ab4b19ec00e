#include "keyfactories.h"

#include "databounditems.h"

#include <QStringList>

namespace coagulation {

namespace {

// The part of key after a case-sensitive scheme prefix; false when the key has another scheme.
bool afterScheme(const QString& key, QLatin1String scheme, QString* rest)
{
    if (!key.startsWith(scheme))
        return false;
    *rest = key.mid(scheme.size());
    return true;
}

} // namespace

CreatorFactory::~CreatorFactory() = default;

ReportItem* FieldItemFactory::create(const QString& key)
{
    QString rest;
    if (!afterScheme(key, QLatin1String("field:/"), &rest))
        return nullptr;
    // Empty parts count: "field:/patient/" names the table and an empty column.
    const QStringList parts = rest.split(QLatin1Char('/'));
    if (parts.size() != 2)
        return nullptr;
    return new ReportFieldItem(profile(), parts.at(0), parts.at(1));
}

ReportItem* PropItemFactory::create(const QString& key)
{
    QString name;
    if (!afterScheme(key, QLatin1String("prop:/"), &name))
        return nullptr;
    return new ReportPropItem(profile(), name);
}

ReportItem* ProfileItemFactory::create(const QString& key)
{
    QString name;
    if (!afterScheme(key, QLatin1String("profile:/"), &name))
        return nullptr;
    return new ReportProfileItem(profile(), name);
}

} // namespace coagulation
