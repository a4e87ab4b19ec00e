#pragma once

#include <QCoreApplication>
#include <QString>

namespace coagulation {

class ItemFactory;
class ReportItem;

// How the designer names an item to its user: its kind ("文本", "数据字段") and what it shows
// (a column's display name, a property's name, a free text's first words).
class ItemDescription
{
    Q_DECLARE_TR_FUNCTIONS(coagulation::ItemDescription)
public:
    enum Binding { NoBinding, FieldBinding, PropertyBinding, ProfileBinding };

    static Binding binding(const QString& key);
    // The key prefix of a binding ("field:/"), empty for none.
    static QString scheme(Binding binding);
    static QString kind(const ReportItem* item, const ItemFactory* factory);
    static QString displayName(const ReportItem* item, const ItemFactory* factory);
    // The palette's name for a key, or the key itself when no tool offers it.
    static QString toolName(const QString& key, const ItemFactory* factory);
};

} // namespace coagulation
