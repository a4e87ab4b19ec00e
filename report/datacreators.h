#pragma once

#include "toolcreators.h"

namespace coagulation {

class CreatorFactory;
class Profile;

// Places one column of a database table; named by the profile's display name of the column.
class REPORT_EXPORT FieldCreator : public TextCreator
{
    Q_OBJECT
public:
    FieldCreator(Profile* profile, const QString& group, const QString& table, const QString& field,
                 QObject* parent = nullptr);

    QList<QString> keys() const override { return m_keyList; }
    QString name() const override { return m_name; }
    // A field item, which is not editable.
    ReportItem* create() override;

    QString table() const { return m_table; }
    QString field() const { return m_field; }

private:
    Profile* m_profile;
    QList<QString> m_keyList;
    QString m_name;
    QString m_table;
    QString m_field;
};

// A palette entry for one fixed key of a key factory's scheme, such as "prop:/date".
class REPORT_EXPORT FactoryProxyCreator : public GeneralRectCreator
{
    Q_OBJECT
public:
    FactoryProxyCreator(CreatorFactory* factory, const QString& group, const QString& key,
                        const QString& name, QObject* parent = nullptr);

    QList<QString> keys() const override { return {m_key}; }
    QString name() const override { return m_name; }
    ReportItem* create() override;

private:
    CreatorFactory* m_factory; // owned by the item factory
    QString m_key;
    QString m_name;
};

} // namespace coagulation
