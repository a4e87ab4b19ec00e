// The plug-in as the host sees it: found by interface id, loaded with QPluginLoader, nothing
// of the library used directly.
#include <kvcore/datastorage.h>
#include <kvcore/datastoragefactoryinterface.h>
#include <kvcore/pluginlocator.h>

#include <QJsonObject>
#include <QLibrary>
#include <QMetaMethod>
#include <QPluginLoader>
#include <QPointer>
#include <QTemporaryDir>
#include <QtTest>

#include <memory>

using namespace coagulation;

class tst_Plugin : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase();
    void oneInstance();
    void createPrinters();

private:
    QString m_plugin;
};

void tst_Plugin::initTestCase()
{
    m_plugin = PluginLocator().findPlugin(QStringLiteral("velra.kv.dataStorageFactoryInterface"));
    QVERIFY2(!m_plugin.isEmpty(), qPrintable(PluginLocator::defaultFolders().join(QLatin1Char(' '))));
    const QJsonObject metaData = QPluginLoader(m_plugin).metaData();
    QCOMPARE(metaData.value(QLatin1String("IID")).toString(),
             QStringLiteral("velra.kv.dataStorageFactoryInterface"));
    QCOMPARE(metaData.value(QLatin1String("className")).toString(), QStringLiteral("ReportFactory"));
    QVERIFY(metaData.value(QLatin1String("MetaData")).toObject().isEmpty());

    // Folders without the plug-in find nothing and say where they looked.
    QTemporaryDir empty;
    QVERIFY(empty.isValid());
    PluginLocator locator({empty.path()});
    QVERIFY(locator.findPlugin(QStringLiteral("velra.kv.dataStorageFactoryInterface")).isEmpty());
    QVERIFY(!locator.dataStorageFactory());
    QVERIFY(locator.errorString().contains(empty.path()));
}

void tst_Plugin::oneInstance()
{
    QLibrary library(m_plugin);
    using InstanceFunction = QObject* (*)();
    auto instance = reinterpret_cast<InstanceFunction>(library.resolve("qt_plugin_instance"));
    QVERIFY2(instance, qPrintable(library.errorString()));

    QObject* first = instance();
    QVERIFY(first);
    QCOMPARE(instance(), first);
    QPluginLoader loader(m_plugin);
    QCOMPARE(loader.instance(), first);
    QVERIFY(!first->parent());
    // The interface is the second base, so its address differs from the object's.
    auto* interface = qobject_cast<DataStorageFactoryInterface*>(first);
    QVERIFY(interface);
    QVERIFY(static_cast<void*>(interface) != static_cast<void*>(first));
    QCOMPARE(first->qt_metacast("velra.kv.dataStorageFactoryInterface"), static_cast<void*>(interface));
    QCOMPARE(first->qt_metacast("coagulation::DataStorage"), nullptr);

    // Once the object is gone, the next call makes a new one.
    QPointer<QObject> guard(first);
    delete first;
    QVERIFY(guard.isNull());
    QObject* second = instance();
    QVERIFY(second);
    QCOMPARE(instance(), second);
    QCOMPARE(second->metaObject()->className(), "coagulation::ReportFactory");
}

void tst_Plugin::createPrinters()
{
    PluginLocator locator;
    DataStorageFactoryInterface* factory = locator.dataStorageFactory();
    QVERIFY2(factory, qPrintable(locator.errorString()));
    QCOMPARE(locator.fileName(), m_plugin);

    std::unique_ptr<DataStorage> first(factory->create());
    std::unique_ptr<DataStorage> second(factory->create());
    QVERIFY(first && second && first.get() != second.get());
    QVERIFY(!first->parent());
    QCOMPARE(first->metaObject()->className(), "coagulation::ReportPrinter");

    // The slots a host calls, and the printer's page loops.
    const QMetaObject* storage = &DataStorage::staticMetaObject;
    QStringList storageSlots;
    for (int i = storage->methodOffset(); i < storage->methodCount(); ++i)
        storageSlots << QString::fromLatin1(storage->method(i).methodSignature());
    QCOMPARE(storageSlots,
             QStringList({
                 "setWorkspace(coagulation::Workspace*)",
                 "enumTemplate(QString,coagulation::kv::ReportType)",
                 "store(const coagulation::MaintenanceExportData*,coagulation::DataStorage::StoreMode)",
                 "store(QList<coagulation::QcExportData*>,coagulation::DataStorage::StoreMode)",
                 "store(QList<qint64>,QSqlDatabase,coagulation::DataStorage::StoreMode)",
             }));
    const QMetaObject* meta = first->metaObject();
    QCOMPARE(meta->superClass(), storage);
    QStringList printerSlots;
    for (int i = meta->methodOffset(); i < meta->methodCount(); ++i)
        printerSlots << QString::fromLatin1(meta->method(i).methodSignature());
    QCOMPARE(printerSlots, QStringList({"printResult(QPrinter*)", "printQc(QPrinter*)",
                                        "printMaintenanceRecord(QPrinter*)"}));
}

QTEST_MAIN(tst_Plugin)
#include "tst_plugin.moc"
