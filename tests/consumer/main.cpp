// Loads the installed report plug-in by its interface id and builds a report through the linked
// library; prints what it did and exits with 0 only when everything worked.
#include <core/profile.h>
#include <drawingitems.h>
#include <itemfactory.h>
#include <kvcore/datastorage.h>
#include <kvcore/datastoragefactoryinterface.h>
#include <kvcore/pluginlocator.h>
#include <report.h>
#include <reportfactory.h>
#include <reportprinter.h>

#include <QApplication>
#include <QDir>
#include <QImage>
#include <QJsonObject>
#include <QPainter>
#include <QPluginLoader>
#include <QTemporaryDir>

#include <cstdio>
#include <memory>

using namespace coagulation;

namespace {

int fail(const QString& message)
{
    std::fprintf(stderr, "consumer: %s\n", qPrintable(message));
    return 1;
}

// The first library in the folder whose metadata names the interface id, as a host scans.
QString findPlugin(const QString& folder, const QString& interfaceId)
{
    const QFileInfoList entries = QDir(folder).entryInfoList(QDir::Files, QDir::Name);
    for (const QFileInfo& entry : entries) {
        const QJsonObject metaData = QPluginLoader(entry.absoluteFilePath()).metaData();
        if (metaData.value(QLatin1String("IID")).toString() == interfaceId)
            return entry.absoluteFilePath();
    }
    return QString();
}

} // namespace

int main(int argc, char* argv[])
{
    QApplication app(argc, argv);

    const QString interfaceId = QStringLiteral(DataStorageFactoryInterface_iid);
    const QString pluginFile = findPlugin(QStringLiteral(PLUGIN_DIR), interfaceId);
    if (pluginFile.isEmpty())
        return fail(QStringLiteral("no plug-in with interface %1 in %2")
                        .arg(interfaceId, QStringLiteral(PLUGIN_DIR)));
    QPluginLoader loader(pluginFile);
    QObject* instance = loader.instance();
    if (!instance)
        return fail(loader.errorString());
    auto* factory = qobject_cast<DataStorageFactoryInterface*>(instance);
    if (!factory)
        return fail(QStringLiteral("%1 does not implement %2").arg(pluginFile, interfaceId));
    // The plug-in and the linked library must be one loaded copy: the casts compare meta-objects.
    if (!qobject_cast<ReportFactory*>(instance))
        return fail(QStringLiteral("the plug-in object is not the linked library's ReportFactory"));
    std::unique_ptr<DataStorage> storage(factory->create());
    if (!qobject_cast<ReportPrinter*>(storage.get()))
        return fail(QStringLiteral("the factory made no ReportPrinter"));
    // The host's locator finds the same plug-in object there.
    PluginLocator locator({QStringLiteral(PLUGIN_DIR)});
    if (locator.dataStorageFactory() != factory)
        return fail(
            QStringLiteral("the plug-in locator found no or another plug-in: %1").arg(locator.errorString()));
    std::printf("plug-in %s: %s\n", qPrintable(pluginFile), instance->metaObject()->className());

    Profile profile;
    ItemFactory items(&profile);
    Report report(&profile, &items);
    report.setType(kv::PatientReport);
    const QString key = QStringLiteral("Text");
    auto* text = dynamic_cast<ReportTextItem*>(items.create(key));
    if (!text)
        return fail(QStringLiteral("the item factory made no text item for the key \"Text\""));
    text->setKey(key);
    QFont font(QStringLiteral("Noto Sans CJK SC"));
    font.setPixelSize(24);
    text->setFont(font);
    const QString words = QStringLiteral("凝血分析报告");
    text->setPlainText(words);
    text->setPos(40, 40);
    report.addItem(text);
    if (report.reportItems().size() != 1)
        return fail(QStringLiteral("the report holds %1 items, not 1").arg(report.reportItems().size()));

    // The text must reach the page.
    QImage page(report.sceneRect().size().toSize(), QImage::Format_RGB32);
    page.fill(Qt::white);
    {
        QPainter painter(&page);
        report.render(&painter, QRectF(page.rect()), report.sceneRect());
    }
    const QRect textRect = text->sceneBoundingRect().toAlignedRect();
    int inked = 0;
    for (int y = textRect.top(); y <= textRect.bottom(); ++y)
        for (int x = textRect.left(); x <= textRect.right(); ++x)
            inked += page.pixel(x, y) != qRgb(255, 255, 255);
    if (inked == 0)
        return fail(QStringLiteral("the text item painted nothing"));

    QTemporaryDir folder;
    const QString templateFile = folder.filePath(QStringLiteral("consumer.rpt"));
    if (!report.save(templateFile))
        return fail(QStringLiteral("saving the template failed: %1").arg(report.errorString()));
    Report loaded(&profile, &items);
    if (!loaded.load(templateFile))
        return fail(QStringLiteral("loading the template failed: %1").arg(loaded.errorString()));
    const QList<ReportItem*> loadedItems = loaded.reportItems();
    auto* loadedText = loadedItems.size() == 1 ? dynamic_cast<ReportTextItem*>(loadedItems.first()) : nullptr;
    if (!loadedText || loadedText->toPlainText() != words || loadedText->key() != key)
        return fail(QStringLiteral("the template did not come back as the one text item"));
    std::printf("report: one text item, %d inked pixels, template of %lld bytes loaded back\n", inked,
                QFileInfo(templateFile).size());
    return 0;
}
