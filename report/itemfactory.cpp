#include "itemfactory.h"

#include "creators.h"
#include "keyfactories.h"

#include <core/profile.h>

#include <QSqlDriver>
#include <QSqlRecord>

// The tool icons live in this shared library; registering them once more is harmless.
static void initReportResources()
{
    Q_INIT_RESOURCE(reportresources);
}

namespace coagulation {

ItemFactory::ItemFactory(Profile* profile, QObject* parent) : QObject(parent), m_profile(profile)
{
    initReportResources();

    auto* profileFactory = new ProfileItemFactory(profile);
    auto* propFactory = new PropItemFactory(profile);
    registerFactory(new FieldItemFactory(profile));
    registerFactory(profileFactory);
    registerFactory(propFactory);

    // The palette, group by group, in the order the designer shows it.
    registerBasicTools();
    registerGeneralInformation(profileFactory, propFactory);
    registerPatientInformation();
    registerQcPlasma();
    registerQcInformation(propFactory);
    registerMaintenanceRecords();
}

// Creators go with the QObject tree; the key factories are ours to delete.
ItemFactory::~ItemFactory()
{
    qDeleteAll(m_factories);
    m_factories.clear();
}

void ItemFactory::registerCreator(ReportItemCreator* creator)
{
    if (!creator)
        return;
    if (!creator->parent())
        creator->setParent(this);
    const QList<QString> keys = creator->keys();
    for (const QString& key : keys)
        m_creatorsByKey.insert(key, creator);
    m_creatorList.append(creator);
}

void ItemFactory::registerFactory(CreatorFactory* factory)
{
    if (factory)
        m_factories.append(factory);
}

ReportItemCreator* ItemFactory::creator(const QString& key) const
{
    return m_creatorsByKey.value(key, nullptr);
}

ReportItem* ItemFactory::create(const QString& key) const
{
    if (ReportItemCreator* c = creator(key))
        return c->create();
    for (CreatorFactory* factory : m_factories) {
        if (ReportItem* item = factory->create(key))
            return item;
    }
    return nullptr;
}

void ItemFactory::registerBasicTools()
{
    registerCreator(new ArrowCreator(this));
    registerCreator(new LineCreator(this));
    registerCreator(new RectCreator(this));
    registerCreator(new TextCreator(this));
    registerCreator(new ImageCreator(this));
}

void ItemFactory::registerGeneralInformation(CreatorFactory* profileFactory, CreatorFactory* propFactory)
{
    const QString group = tr("通用信息");
    registerProxy(profileFactory, group, QStringLiteral("profile:/hospital"), tr("医院名称"));
    registerProxy(propFactory, group, QStringLiteral("prop:/date"), tr("打印日期"));
    registerProxy(propFactory, group, QStringLiteral("prop:/time"), tr("打印时间"));
    registerProxy(propFactory, group, QStringLiteral("prop:/page"), tr("页码"));
}

void ItemFactory::registerPatientInformation()
{
    const QString group = tr("患者信息");
    registerColumns(group, QStringLiteral("patient"), m_profile ? m_profile->dataDatabase() : QSqlDatabase());
    registerCreator(new PatientTableCreator(m_profile, group, this));
}

void ItemFactory::registerQcPlasma()
{
    // The reagent table has columns only, no table creator.
    registerColumns(tr("质控血浆"), QStringLiteral("reagent"),
                    m_profile ? m_profile->qcDatabase() : QSqlDatabase());
}

void ItemFactory::registerQcInformation(CreatorFactory* propFactory)
{
    const QString group = tr("质控信息");
    registerProxy(propFactory, group, QStringLiteral("prop:/qc/item"), tr("项目名称"));
    registerProxy(propFactory, group, QStringLiteral("prop:/qc/abbr"), tr("项目缩写"));
    registerProxy(propFactory, group, QStringLiteral("prop:/qc/unit"), tr("项目单位"));
    // An example file number serves as the label.
    registerProxy(propFactory, group, QStringLiteral("prop:/qc/fileno"), tr("QC01"));
    registerCreator(new QcChartCreator(group, this));
    registerCreator(new QcInfoTableCreator(group, this));
    registerCreator(new QcInfoDetailsTableCreator(group, this));
    registerCreator(new QcTableCreator(group, this));
}

void ItemFactory::registerMaintenanceRecords()
{
    const QString group = tr("维护记录");
    registerCreator(new MaintenanceMonthCreator(group, this));
    registerCreator(new MaintenanceRecordCreator(group, this));
    registerCreator(new MaintenanceOperatorCreator(group, this));
}

// Only the columns to which the profile gives a display name are offered.
void ItemFactory::registerColumns(const QString& group, const QString& table, QSqlDatabase db)
{
    if (!m_profile || !db.driver())
        return;
    const QSqlRecord record = db.driver()->record(table);
    for (int i = 0; i < record.count(); ++i) {
        const QString column = record.fieldName(i);
        if (m_profile->value(QStringLiteral("%1/%2").arg(table, column)).isNull())
            continue;
        registerCreator(new FieldCreator(m_profile, group, table, column, this));
    }
}

void ItemFactory::registerProxy(CreatorFactory* factory, const QString& group, const QString& key,
                                const QString& name)
{
    registerCreator(new FactoryProxyCreator(factory, group, key, name, this));
}

} // namespace coagulation
