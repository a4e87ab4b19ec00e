#pragma once

#include "keyfactories.h"
#include "report_global.h"

#include <QList>
#include <QMap>
#include <QObject>
#include <QSqlDatabase>
#include <QString>

namespace coagulation {

class Profile;
class ReportItem;
class ReportItemCreator;

// The registry from which report items are made by key: the designer's creators (the tool
// palette, in registration order) and the key factories for field, property and profile keys.
// One per profile, shared by every report made with it.
class REPORT_EXPORT ItemFactory : public QObject
{
    Q_OBJECT
public:
    explicit ItemFactory(Profile* profile, QObject* parent = nullptr);
    ~ItemFactory() override;

    Profile* profile() const { return m_profile; }

    // Adopts a creator without parent; each of its keys now names it (the last registered wins).
    void registerCreator(ReportItemCreator* creator);
    // Takes ownership.
    void registerFactory(CreatorFactory* factory);

    ReportItemCreator* creator(const QString& key) const;
    QList<ReportItemCreator*> creators() const { return m_creatorList; }
    // A new item owned by the caller, or null for an unknown key. The key is not set on it.
    ReportItem* create(const QString& key) const;

private:
    void registerBasicTools();
    void registerGeneralInformation(CreatorFactory* profileFactory, CreatorFactory* propFactory);
    void registerPatientInformation();
    void registerQcPlasma();
    void registerQcInformation(CreatorFactory* propFactory);
    void registerMaintenanceRecords();
    void registerColumns(const QString& group, const QString& table, QSqlDatabase db);
    void registerProxy(CreatorFactory* factory, const QString& group, const QString& key,
                       const QString& name);

    Profile* m_profile; // borrowed
    QMap<QString, ReportItemCreator*> m_creatorsByKey;
    QList<ReportItemCreator*> m_creatorList;
    QList<CreatorFactory*> m_factories; // owned
};

} // namespace coagulation
