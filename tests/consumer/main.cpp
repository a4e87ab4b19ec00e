// Uses an installed copy of the module the way the host does: finds the report plug-in in the
// installed plug-in folder and prints one patient to PDF through it. Exits with 0 only when that
// worked.
#include <core/information.h>
#include <core/profile.h>
#include <drawingitems.h>
#include <kvcore/datastoragefactoryinterface.h>
#include <kvcore/pluginlocator.h>
#include <kvcore/workspace.h>
#include <report.h>
#include <reportprinter.h>

#include <QApplication>
#include <QFile>
#include <QRegularExpression>
#include <QSqlQuery>
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

} // namespace

int main(int argc, char* argv[])
{
    QApplication app(argc, argv);
    PluginLocator locator({QStringLiteral(PLUGIN_DIR)});
    DataStorageFactoryInterface* factory = locator.dataStorageFactory();
    if (!factory)
        return fail(locator.errorString());
    std::unique_ptr<DataStorage> storage(factory->create());
    // The plug-in and the linked library must be one loaded copy: the cast compares meta-objects.
    auto* printer = qobject_cast<ReportPrinter*>(storage.get());
    if (!printer)
        return fail(QStringLiteral("the plug-in's printer is not the linked library's ReportPrinter"));

    QTemporaryDir folder;
    Profile profile;
    QSqlQuery query(profile.dataDatabase());
    if (!query.exec(
            QStringLiteral("create table patient (id integer primary key, sampleNo text, printTime text)")) ||
        !query.exec(QStringLiteral("insert into patient (id, sampleNo) values (1, '1')")))
        return fail(QStringLiteral("no patient table"));
    Workspace workspace(&profile, QDir(folder.path()));
    printer->setWorkspace(&workspace);
    Report report(&profile, printer->itemFactory());
    report.setType(kv::PatientReport);
    auto* text = new ReportTextItem;
    text->setKey(QStringLiteral("Text"));
    text->setPlainText(QStringLiteral("凝血分析报告"));
    report.addItem(text);
    if (!report.save(folder.filePath(QStringLiteral("consumer.rpt"))))
        return fail(report.errorString());
    profile.setValue(QStringLiteral("report/template"), QStringLiteral("consumer"));

    const QString pdf = folder.filePath(QStringLiteral("consumer.pdf"));
    printer->setOutputFileName(pdf);
    if (!printer->store({1}, profile.dataDatabase(), DataStorage::StoreAtOnce))
        return fail(QStringLiteral("the job failed: ") + InformationLog::last().text);
    QFile file(pdf);
    const QByteArray bytes = file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
    static const QRegularExpression page(QStringLiteral("/Type\\s*/Page(?![a-zA-Z])"));
    if (!bytes.startsWith("%PDF-") || QString::fromLatin1(bytes).count(page) != 1)
        return fail(QStringLiteral("%1 is not a PDF of one page").arg(pdf));
    if (!query.exec(QStringLiteral("select printTime from patient where id = 1")) || !query.next() ||
        query.value(0).isNull())
        return fail(QStringLiteral("the patient was not recorded as printed"));
    std::printf("plug-in %s printed one patient on one page (%lld bytes)\n", qPrintable(locator.fileName()),
                qint64(bytes.size()));
    return 0;
}
