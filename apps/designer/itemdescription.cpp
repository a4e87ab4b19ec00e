#include "itemdescription.h"

#include <drawingitems.h>
#include <itemfactory.h>
#include <reportitemcreator.h>

namespace coagulation {

ItemDescription::Binding ItemDescription::binding(const QString& key)
{
    for (Binding b : {FieldBinding, PropertyBinding, ProfileBinding})
        if (key.startsWith(scheme(b)))
            return b;
    return NoBinding;
}

QString ItemDescription::scheme(Binding binding)
{
    switch (binding) {
    case FieldBinding:
        return QStringLiteral("field:/");
    case PropertyBinding:
        return QStringLiteral("prop:/");
    case ProfileBinding:
        return QStringLiteral("profile:/");
    default:
        return {};
    }
}

QString ItemDescription::toolName(const QString& key, const ItemFactory* factory)
{
    const ReportItemCreator* creator = factory ? factory->creator(key) : nullptr;
    return creator ? creator->name() : key;
}

QString ItemDescription::kind(const ReportItem* item, const ItemFactory* factory)
{
    switch (binding(item->key())) {
    case FieldBinding:
        return tr("数据字段");
    case PropertyBinding:
        return tr("报表属性");
    case ProfileBinding:
        return tr("配置信息");
    default:
        return toolName(item->key(), factory);
    }
}

QString ItemDescription::displayName(const ReportItem* item, const ItemFactory* factory)
{
    if (binding(item->key()) != NoBinding)
        return toolName(item->key(), factory);
    if (const auto* text = dynamic_cast<const ReportTextItem*>(item))
        return text->toPlainText().section(QLatin1Char('\n'), 0, 0).left(40);
    return {};
}

} // namespace coagulation
