// Print jobs end to end: the printer comes from the plug-in, the data from the generated
// laboratory databases, the templates are saved by the test, and the output is a real PDF.
#include "../common/dialoganswerer.h"
#include "../common/workspace.h"

#include <core/information.h>
#include <core/profile.h>
#include <core/toplevelwidget.h>
#include <drawingitems.h>
#include <itemfactory.h>
#include <keyfactories.h>
#include <kvcore/datastoragefactoryinterface.h>
#include <kvcore/maintenancerecords.h>
#include <kvcore/pluginlocator.h>
#include <kvcore/qcdatareader.h>
#include <kvcore/workspace.h>
#include <report.h>
#include <reportprinter.h>

#include <QDateTime>
#include <QInputDialog>
#include <QMainWindow>
#include <QPrintDialog>
#include <QPrinterInfo>
#include <QPrintPreviewDialog>
#include <QPrintPreviewWidget>
#include <QProcess>
#include <QRegularExpression>
#include <QSemaphore>
#include <QSettings>
#include <QSqlQuery>
#include <QStandardPaths>
#include <QThread>
#include <QTranslator>
#include <QtTest>

#include <algorithm>
#include <memory>

using namespace coagulation;

namespace {

// What a paging item saw each time it was refreshed.
struct Seen
{
    int patientId;
    qint64 reagentId;
    int currentPage;
    int pageCount;
};

QList<Seen>& seen()
{
    static QList<Seen> list;
    return list;
}

// Pages a test QC series needs, by reagent id.
QHash<qint64, int>& pagesNeeded()
{
    static QHash<qint64, int> pages;
    return pages;
}

// Stands for the tables that spread a QC series over pages: raises the page count while it
// prepares and shows where it is.
class PagingItem : public ReportTextItem
{
public:
    PagingItem() : ReportTextItem(false) {}

    void prepareData() override
    {
        if (const QcExportData* data = report()->qcData())
            report()->setPageCount(pagesNeeded().value(data->reagentId, 1));
    }
    void updateData() override
    {
        const Report* r = report();
        const qint64 reagent = r->qcData() ? r->qcData()->reagentId : 0;
        seen().append({r->patientId(), reagent, r->currentPage(), r->pageCount()});
        setPlainText(QStringLiteral("paging %1 %2 %3/%4")
                         .arg(r->patientId())
                         .arg(reagent)
                         .arg(r->currentPage())
                         .arg(r->pageCount()));
    }
};

class PagingItemFactory : public CreatorFactory
{
public:
    using CreatorFactory::CreatorFactory;
    ReportItem* create(const QString& key) override
    {
        return key == QLatin1String("test:/paging") ? new PagingItem : nullptr;
    }
};

// Brackets every text of one translation context.
class BracketTranslator : public QTranslator
{
public:
    explicit BracketTranslator(const char* context) : m_context(context) {}
    bool isEmpty() const override { return false; }
    QString translate(const char* context, const char* sourceText, const char*, int) const override
    {
        if (qstrcmp(context, m_context) != 0)
            return QString();
        return QLatin1Char('[') + QString::fromUtf8(sourceText) + QLatin1Char(']');
    }

private:
    const char* m_context;
};

// Another program writing to a database: holds its write lock until released or for at most
// holdMs.
class Writer : public QThread
{
public:
    Writer(const QString& fileName, int holdMs) : m_fileName(fileName), m_holdMs(holdMs) {}
    QSemaphore locked;
    QSemaphore release;

protected:
    void run() override
    {
        {
            QSqlDatabase db = QSqlDatabase::addDatabase(QStringLiteral("QSQLITE"), QStringLiteral("writer"));
            db.setDatabaseName(m_fileName);
            QSqlQuery query(db);
            if (db.open() && query.exec(QStringLiteral("begin immediate")))
                locked.release();
            release.tryAcquire(1, m_holdMs);
            query.exec(QStringLiteral("rollback"));
        }
        QSqlDatabase::removeDatabase(QStringLiteral("writer"));
    }

private:
    QString m_fileName;
    int m_holdMs;
};

int pdfPageCount(const QString& fileName)
{
    QFile file(fileName);
    if (!file.open(QIODevice::ReadOnly))
        return -1;
    static const QRegularExpression page(QStringLiteral("/Type\\s*/Page(?![a-zA-Z])"));
    return int(QString::fromLatin1(file.readAll()).count(page));
}

QString poppler(const QString& tool, const QStringList& arguments)
{
    QProcess process;
    process.start(tool, arguments);
    if (!process.waitForFinished(60000) || process.exitCode() != 0)
        return QString();
    return QString::fromUtf8(process.readAllStandardOutput());
}

bool hasPoppler()
{
    return !QStandardPaths::findExecutable(QStringLiteral("pdftotext")).isEmpty() &&
           !QStandardPaths::findExecutable(QStringLiteral("pdfinfo")).isEmpty();
}

// The text of each page, in page order.
QStringList pdfPageTexts(const QString& fileName)
{
    QStringList pages =
        poppler(QStringLiteral("pdftotext"), {fileName, QStringLiteral("-")}).split(QLatin1Char('\f'));
    if (!pages.isEmpty() && pages.constLast().trimmed().isEmpty())
        pages.removeLast();
    return pages;
}

// Width and height in points of the first page.
QSizeF pdfPageSize(const QString& fileName)
{
    static const QRegularExpression size(QStringLiteral("Page size:\\s*([0-9.]+) x ([0-9.]+)"));
    const QRegularExpressionMatch match = size.match(poppler(QStringLiteral("pdfinfo"), {fileName}));
    return match.hasMatch() ? QSizeF(match.captured(1).toDouble(), match.captured(2).toDouble()) : QSizeF();
}

// A field of pdfinfo's report, such as "Title".
QString pdfInfo(const QString& fileName, const QString& field)
{
    const QRegularExpression line(QStringLiteral("^%1:\\s*(.*)$").arg(field),
                                  QRegularExpression::MultilineOption);
    return line.match(poppler(QStringLiteral("pdfinfo"), {fileName})).captured(1).trimmed();
}

} // namespace

class tst_Printing : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase();
    void init();
    void cleanup();

    void enumTemplate_data();
    void enumTemplate();
    void pickDialog_data();
    void pickDialog();
    void pickDialogCancelled();
    void pickDialogWithoutTemplates();
    void missingTemplate();
    void patientPages();
    void qcSamples_data();
    void qcSamples();
    void qcSeriesPaging();
    void printDialog();
    void preview();
    void nestedJobKeepsItsMembers();
    void maintenance_data();
    void maintenance();
    void searchableArchive_data();
    void searchableArchive();
    void unwritableOutput();
    void incompleteOutput_data();
    void incompleteOutput();
    void concurrentWriter_data();
    void concurrentWriter();
    void noPrinter();
    void noWorkspace();
    void sqlFailuresDoNotStopTheJob();
    void translatedMessages();

private:
    QString templatePath(const QString& name) const;
    void saveTemplate(const QString& name, kv::ReportType type, const QStringList& keys,
                      const QString& marker = QString(),
                      QPageLayout::Orientation orientation = QPageLayout::Portrait,
                      const QString& markerFamily = QString());
    QString printTime(qint64 id) const;
    QList<qint64> patients(bool qcSamples, int count) const;
    QString outputFile(const QString& name) const { return m_lab.filePath(name + QStringLiteral(".pdf")); }

    test::DemoWorkspace m_lab;
    Profile* m_profile = nullptr;
    Workspace* m_workspace = nullptr;
    DataStorageFactoryInterface* m_factory = nullptr;
    std::unique_ptr<DataStorage> m_storage;
    ReportPrinter* m_printer = nullptr;
};

void tst_Printing::initTestCase()
{
    PluginLocator locator;
    m_factory = locator.dataStorageFactory();
    QVERIFY2(m_factory, qPrintable(locator.errorString()));

    QVERIFY2(m_lab.create(), qPrintable(m_lab.errorString()));
    m_profile = m_lab.profile();
    m_workspace = m_lab.workspace();
    QVERIFY(patients(true, 2).size() == 2);
}

void tst_Printing::init()
{
    QVERIFY(m_lab.clearTemplates());
    QSqlQuery query(m_profile->dataDatabase());
    QVERIFY(query.exec(QStringLiteral("update patient set printTime=NULL")));
    InformationLog::clear();
    seen().clear();
    pagesNeeded().clear();

    m_storage.reset(m_factory->create());
    m_printer = qobject_cast<ReportPrinter*>(m_storage.get());
    QVERIFY(m_printer);
    m_printer->setWorkspace(m_workspace);
    QVERIFY(m_printer->itemFactory());
    m_printer->itemFactory()->registerFactory(new PagingItemFactory(m_profile));
}

void tst_Printing::cleanup()
{
    m_storage.reset();
}

QString tst_Printing::templatePath(const QString& name) const
{
    return m_workspace->templateDirectory().filePath(name + QStringLiteral(".rpt"));
}

// A template with one item per key and, when given, a text reading marker.
void tst_Printing::saveTemplate(const QString& name, kv::ReportType type, const QStringList& keys,
                                const QString& marker, QPageLayout::Orientation orientation,
                                const QString& markerFamily)
{
    Report report(m_profile, m_printer->itemFactory());
    report.setType(type);
    report.setOrientation(orientation);
    qreal y = 40;
    for (const QString& key : keys) {
        ReportItem* item = m_printer->itemFactory()->create(key);
        QVERIFY2(item, qPrintable(key));
        item->setKey(key);
        report.addItem(item->graphicsItem());
        item->graphicsItem()->setPos(40, y);
        y += 40;
    }
    if (!marker.isEmpty()) {
        auto* text = new ReportTextItem;
        text->setPlainText(marker);
        if (!markerFamily.isEmpty())
            text->setFont(QFont(markerFamily, 12));
        text->setKey(QStringLiteral("Text"));
        report.addItem(text);
        text->setPos(40, 10); // above the items, which may be tall
    }
    QVERIFY2(report.save(templatePath(name)), qPrintable(report.errorString()));
}

QString tst_Printing::printTime(qint64 id) const
{
    QSqlQuery query(m_profile->dataDatabase());
    query.prepare(QStringLiteral("select printTime from patient where id=:id"));
    query.bindValue(QStringLiteral(":id"), id);
    if (!query.exec() || !query.next())
        return QStringLiteral("<no row>");
    return query.value(0).toString();
}

QList<qint64> tst_Printing::patients(bool qcSamples, int count) const
{
    QSqlQuery query(m_profile->dataDatabase());
    query.exec(QStringLiteral("select id, sampleNo from patient order by id"));
    QList<qint64> ids;
    while (query.next() && ids.size() < count) {
        if (query.value(1).toString().startsWith(QLatin1String("QC")) == qcSamples)
            ids.append(query.value(0).toLongLong());
    }
    return ids;
}

void tst_Printing::enumTemplate_data()
{
    QTest::addColumn<int>("type");
    QTest::addColumn<QStringList>("names");
    QTest::newRow("patient") << 0 << QStringList({"a", "x.y"});
    QTest::newRow("qc") << 1 << QStringList({"b"});
    QTest::newRow("maintenance") << 2 << QStringList();
    QTest::newRow("none") << -1 << QStringList({"broken", "empty"});
}

void tst_Printing::enumTemplate()
{
    QFETCH(int, type);
    QFETCH(QStringList, names);
    saveTemplate(QStringLiteral("a"), kv::PatientReport, {});
    saveTemplate(QStringLiteral("b"), kv::QcReport, {});
    saveTemplate(QStringLiteral("x.y"), kv::PatientReport, {});
    QFile::copy(templatePath(QStringLiteral("a")),
                m_workspace->templateDirectory().filePath(QStringLiteral("c.txt")));
    QFile broken(templatePath(QStringLiteral("broken")));
    QVERIFY(broken.open(QIODevice::WriteOnly));
    broken.write("not a template");
    broken.close();
    QFile empty(templatePath(QStringLiteral("empty")));
    QVERIFY(empty.open(QIODevice::WriteOnly));
    empty.close();
    QVERIFY(m_workspace->templateDirectory().mkdir(QStringLiteral("folder.rpt")));

    QStringList listed =
        m_printer->enumTemplate(m_workspace->templateDirectory().path(), kv::ReportType(type));
    listed.sort();
    QCOMPARE(listed, names);
    QVERIFY(m_printer->enumTemplate(m_lab.filePath(QStringLiteral("missing")), kv::PatientReport).isEmpty());
}

void tst_Printing::pickDialog_data()
{
    QTest::addColumn<QString>("job");
    QTest::addColumn<QString>("key");
    QTest::addColumn<int>("type");
    QTest::addColumn<QString>("label");
    QTest::newRow("patient") << "patient"
                             << "report/template" << 0 << "请选择一个病人样本打印模板:";
    QTest::newRow("qc sample") << "qcSample"
                               << "report/qc" << 0 << "请选择一个质控样本打印模板:";
    QTest::newRow("qc report") << "qc"
                               << "report/qctemplate" << 1 << "请选择一个质控报表打印模板:";
    QTest::newRow("maintenance") << "maintenance"
                                 << "report/maintenanceRecord" << 2 << "请选择一个维护记录打印模板:";
}

// The user is asked once, even with a single template; the choice is remembered in the profile's file.
void tst_Printing::pickDialog()
{
    QFETCH(QString, job);
    QFETCH(QString, key);
    QFETCH(int, type);
    QFETCH(QString, label);
    saveTemplate(QStringLiteral("mine"), kv::ReportType(type), {QStringLiteral("test:/paging")});
    saveTemplate(QStringLiteral("other"), kv::ReportType((type + 1) % 3), {});
    if (job == QLatin1String("qcSample")) {
        saveTemplate(QStringLiteral("patients"), kv::PatientReport, {});
        m_profile->setValue(QStringLiteral("report/template"), QStringLiteral("patients"), true);
    }
    QMainWindow window;
    Workspace workspace(m_profile, m_workspace->templateDirectory(), &window);
    m_printer->setWorkspace(&workspace);
    m_printer->itemFactory()->registerFactory(new PagingItemFactory(m_profile));

    test::DialogAnswerer dialogs;
    dialogs.then([&](QDialog* dialog) {
        auto* input = qobject_cast<QInputDialog*>(dialog);
        QVERIFY(input);
        QCOMPARE(input->parentWidget(), &window);
        QCOMPARE(input->windowTitle(), QString());
        QCOMPARE(input->labelText(), label);
        // Every template of the report type, the first one current.
        QStringList items = input->comboBoxItems();
        QCOMPARE(input->textValue(), items.value(0));
        items.sort();
        QCOMPARE(items, job == QLatin1String("qcSample") ? QStringList({"mine", "patients"})
                                                         : QStringList({"mine"}));
        QVERIFY(!input->isComboBoxEditable());
        input->setTextValue(QStringLiteral("mine"));
        input->accept();
    });

    m_printer->setOutputFileName(outputFile(job));
    auto print = [&] {
        if (job == QLatin1String("qc")) {
            auto series = QcDataReader(m_profile).read(QcDataReader(m_profile).reagentIds().value(0));
            return series && m_printer->store(QList<QcExportData*>{series->data()}, DataStorage::StoreAtOnce);
        }
        if (job == QLatin1String("maintenance")) {
            Workbench workbench = MaintenanceRecords(m_profile).workbenches().value(0);
            MaintenanceExportData data{&workbench, QDate(2024, 6, 1)};
            return m_printer->store(&data, DataStorage::StoreAtOnce);
        }
        const QList<qint64> ids = patients(job == QLatin1String("qcSample"), 1);
        return m_printer->store(ids, m_profile->dataDatabase(), DataStorage::StoreAtOnce);
    };
    QVERIFY(print());
    QCOMPARE(dialogs.shown(), QStringList{"QInputDialog"});
    QCOMPARE(m_profile->value(key).toString(), QStringLiteral("mine"));
    QCOMPARE(QSettings(m_profile->fileName(), QSettings::IniFormat).value(key).toString(),
             QStringLiteral("mine"));
    QCOMPARE(InformationLog::count(), 0);
    QVERIFY(!seen().isEmpty());

    // Remembered: the next job asks nothing.
    QVERIFY(print());
    QCOMPARE(dialogs.shown().size(), 1);
    m_printer->setWorkspace(m_workspace);
}

void tst_Printing::pickDialogCancelled()
{
    saveTemplate(QStringLiteral("mine"), kv::PatientReport, {QStringLiteral("test:/paging")});
    test::DialogAnswerer dialogs;
    dialogs.reject();
    m_printer->setOutputFileName(outputFile(QStringLiteral("cancelled")));
    const QList<qint64> ids = patients(false, 2);
    QVERIFY(!m_printer->store(ids, m_profile->dataDatabase(), DataStorage::StoreAtOnce));
    QCOMPARE(InformationLog::count(), 0);
    QCOMPARE(m_profile->value(QStringLiteral("report/template")).toString(), QString());
    QVERIFY(!QFile::exists(outputFile(QStringLiteral("cancelled"))));
    QVERIFY(printTime(ids.at(0)).isEmpty());
    QCOMPARE(dialogs.shown(), QStringList{"QInputDialog"});
}

void tst_Printing::pickDialogWithoutTemplates()
{
    saveTemplate(QStringLiteral("qc"), kv::QcReport, {});
    test::DialogAnswerer dialogs;
    dialogs.then([](QDialog* dialog) {
        auto* input = qobject_cast<QInputDialog*>(dialog);
        QVERIFY(input);
        QCOMPARE(input->comboBoxItems(), QStringList());
        input->accept();
    });
    m_printer->setOutputFileName(outputFile(QStringLiteral("none")));
    QVERIFY(!m_printer->store(patients(false, 1), m_profile->dataDatabase(), DataStorage::StoreAtOnce));
    QCOMPARE(InformationLog::count(), 1);
    QFile file(templatePath(QString()));
    QVERIFY(!file.open(QIODevice::ReadOnly));
    QCOMPARE(InformationLog::last().text, QStringLiteral("无法加载打印模板 \n") + file.errorString());
    // The empty choice is stored, so the user is asked again next time.
    QVERIFY(m_profile->value(QStringLiteral("report/template")).isValid());
    QCOMPARE(m_profile->value(QStringLiteral("report/template")).toString(), QString());
}

void tst_Printing::missingTemplate()
{
    m_profile->setValue(QStringLiteral("report/template"), QStringLiteral("gone"), true);
    test::DialogAnswerer dialogs;
    m_printer->setOutputFileName(outputFile(QStringLiteral("missing")));
    const QList<qint64> ids = patients(false, 1);
    QVERIFY(!m_printer->store(ids, m_profile->dataDatabase(), DataStorage::StoreAtOnce));
    QCOMPARE(dialogs.shown(), QStringList());
    QFile file(templatePath(QStringLiteral("gone")));
    QVERIFY(!file.open(QIODevice::ReadOnly));
    QCOMPARE(InformationLog::count(), 1);
    QCOMPARE(InformationLog::last().text, QStringLiteral("无法加载打印模板 gone\n") + file.errorString());
    QCOMPARE(InformationLog::last().buttons, QMessageBox::StandardButtons(QMessageBox::Ok));
    // Kept, so the same template is tried again next time.
    QCOMPARE(m_profile->value(QStringLiteral("report/template")).toString(), QStringLiteral("gone"));
    QVERIFY(!QFile::exists(outputFile(QStringLiteral("missing"))));
    QVERIFY(printTime(ids.at(0)).isEmpty());

    // A file that is not a template names the format error.
    QFile bad(templatePath(QStringLiteral("gone")));
    QVERIFY(bad.open(QIODevice::WriteOnly));
    bad.write(QByteArray(64, 'x'));
    bad.close();
    QVERIFY(!m_printer->store(ids, m_profile->dataDatabase(), DataStorage::StoreAtOnce));
    QCOMPARE(InformationLog::last().text, QStringLiteral("无法加载打印模板 gone\n错误的文件格式"));
}

void tst_Printing::patientPages()
{
    saveTemplate(QStringLiteral("patients"), kv::PatientReport,
                 {QStringLiteral("test:/paging"), QStringLiteral("field:/patient/sampleNo"),
                  QStringLiteral("field:/patient/name"), QStringLiteral("prop:/date"),
                  QStringLiteral("prop:/time")},
                 QStringLiteral("PATIENT SHEET"));
    m_profile->setValue(QStringLiteral("report/template"), QStringLiteral("patients"), true);
    const QList<qint64> ids = patients(false, 3);
    QCOMPARE(ids.size(), 3);
    m_printer->setOutputFileName(outputFile(QStringLiteral("three")));

    const QDateTime before = QDateTime::currentDateTime().addSecs(-1);
    QVERIFY(m_printer->store(ids, m_profile->dataDatabase(), DataStorage::StoreAtOnce));
    const QDateTime after = QDateTime::currentDateTime().addSecs(1);

    QCOMPARE(pdfPageCount(outputFile(QStringLiteral("three"))), 3);
    QCOMPARE(seen().size(), 3);
    for (int i = 0; i < 3; ++i) {
        QCOMPARE(seen().at(i).patientId, int(ids.at(i)));
        const QString written = printTime(ids.at(i));
        QVERIFY2(QRegularExpression(QStringLiteral("^\\d{4}-\\d\\d-\\d\\dT\\d\\d:\\d\\d:\\d\\d$"))
                     .match(written)
                     .hasMatch(),
                 qPrintable(written));
        const QDateTime time = QDateTime::fromString(written, Qt::ISODate);
        QVERIFY(time >= before && time <= after);
    }
    // Patients not in the job keep their print time.
    QVERIFY(printTime(patients(false, 4).at(3)).isEmpty());
    QCOMPARE(InformationLog::count(), 0);

    if (hasPoppler()) {
        const QStringList pages = pdfPageTexts(outputFile(QStringLiteral("three")));
        QCOMPARE(pages.size(), 3);
        for (const QString& page : pages)
            QVERIFY2(page.contains(QStringLiteral("PATIENT SHEET")), qPrintable(page));
    }

    // No ids: nothing happens, not even the template is looked at.
    m_profile->setValue(QStringLiteral("report/template"), QStringLiteral("gone"), true);
    QVERIFY(m_printer->store(QList<qint64>(), m_profile->dataDatabase(), DataStorage::StoreAtOnce));
    QCOMPARE(InformationLog::count(), 0);
}

void tst_Printing::qcSamples_data()
{
    QTest::addColumn<bool>("qcTemplate");
    QTest::addColumn<bool>("qcLast");
    QTest::addColumn<int>("pages");
    QTest::newRow("qc template") << true << false << 3;
    QTest::newRow("no qc template") << false << false << 2;
    // The page break before the skipped last sample has been made already.
    QTest::newRow("no qc template, qc sample last") << false << true << 2;
}

void tst_Printing::qcSamples()
{
    QFETCH(bool, qcTemplate);
    QFETCH(bool, qcLast);
    QFETCH(int, pages);
    saveTemplate(QStringLiteral("patients"), kv::PatientReport, {QStringLiteral("test:/paging")},
                 QStringLiteral("PATIENT SHEET"));
    if (qcTemplate)
        saveTemplate(QStringLiteral("qcsamples"), kv::PatientReport,
                     {QStringLiteral("field:/patient/sampleNo")}, QStringLiteral("QC SHEET"));
    m_profile->setValue(QStringLiteral("report/template"), QStringLiteral("patients"), true);
    m_profile->setValue(QStringLiteral("report/qc"), QStringLiteral("qcsamples"), true);
    const QList<qint64> patientIds = patients(false, 2);
    const QList<qint64> qcIds = patients(true, 2);
    const QList<qint64> ids = qcLast ? QList<qint64>{patientIds.at(0), qcIds.at(0)}
                                     : QList<qint64>{patientIds.at(0), qcIds.at(0), patientIds.at(1)};
    m_printer->setOutputFileName(outputFile(QStringLiteral("qcsamples")));

    QVERIFY(m_printer->store(ids, m_profile->dataDatabase(), DataStorage::StoreAtOnce));
    QCOMPARE(pdfPageCount(outputFile(QStringLiteral("qcsamples"))), pages);
    // The patient template served the patient samples only.
    QCOMPARE(seen().size(), qcLast ? 1 : 2);
    QCOMPARE(seen().constLast().patientId, int(patientIds.at(qcLast ? 0 : 1)));
    QCOMPARE(printTime(qcIds.at(0)).isEmpty(), !qcTemplate);
    QVERIFY(!printTime(patientIds.at(0)).isEmpty());
    // A failing QC-sample template is reported once per job, not once per sample.
    QCOMPARE(InformationLog::count(), qcTemplate ? 0 : 1);
    if (!qcTemplate)
        QVERIFY(InformationLog::last().text.startsWith(QStringLiteral("无法加载打印模板 qcsamples\n")));

    if (!hasPoppler())
        QSKIP("poppler-utils not installed");
    const QStringList texts = pdfPageTexts(outputFile(QStringLiteral("qcsamples")));
    QCOMPARE(texts.size(), pages);
    QVERIFY(texts.at(0).contains(QStringLiteral("PATIENT SHEET")));
    if (qcTemplate) {
        QVERIFY(texts.at(1).contains(QStringLiteral("QC SHEET")));
        QVERIFY(!texts.at(1).contains(QStringLiteral("PATIENT SHEET")));
    } else if (qcLast) {
        QVERIFY(texts.at(1).trimmed().isEmpty());
    }
    QVERIFY(texts.constLast().contains(QStringLiteral("PATIENT SHEET")) != qcLast);
}

void tst_Printing::qcSeriesPaging()
{
    saveTemplate(QStringLiteral("qc"), kv::QcReport,
                 {QStringLiteral("test:/paging"), QStringLiteral("prop:/page")});
    m_profile->setValue(QStringLiteral("report/qctemplate"), QStringLiteral("qc"), true);
    QcDataReader reader(m_profile);
    const QList<qint64> reagents = reader.reagentIds();
    QVERIFY(reagents.size() >= 2);
    auto first = reader.read(reagents.at(0));
    auto second = reader.read(reagents.at(1));
    QVERIFY(first && second);
    pagesNeeded().insert(reagents.at(0), 3);
    pagesNeeded().insert(reagents.at(1), 2);
    m_printer->setOutputFileName(outputFile(QStringLiteral("qcseries")));

    QVERIFY(m_printer->store(QList<QcExportData*>{first->data(), second->data()}, DataStorage::StoreAtOnce));
    QCOMPARE(pdfPageCount(outputFile(QStringLiteral("qcseries"))), 5);
    QCOMPARE(seen().size(), 5);
    const QList<QPair<qint64, int>> expected = {{reagents.at(0), 1},
                                                {reagents.at(0), 2},
                                                {reagents.at(0), 3},
                                                {reagents.at(1), 1},
                                                {reagents.at(1), 2}};
    for (int i = 0; i < 5; ++i) {
        QCOMPARE(seen().at(i).reagentId, expected.at(i).first);
        QCOMPARE(seen().at(i).currentPage, expected.at(i).second);
        QCOMPARE(seen().at(i).pageCount, pagesNeeded().value(expected.at(i).first));
    }
}

void tst_Printing::printDialog()
{
    saveTemplate(QStringLiteral("patients"), kv::PatientReport, {QStringLiteral("test:/paging")});
    m_profile->setValue(QStringLiteral("report/template"), QStringLiteral("patients"), true);
    const QList<qint64> ids = patients(false, 3);
    m_printer->setOutputFileName(outputFile(QStringLiteral("dialog")));

    bool pageRange = true;
    test::DialogAnswerer dialogs;
    dialogs.then([&](QDialog* dialog) {
        auto* print = qobject_cast<QPrintDialog*>(dialog);
        QVERIFY(print);
        QCOMPARE(print->parentWidget(), nullptr);
        pageRange = print->testOption(QAbstractPrintDialog::PrintPageRange);
        print->reject();
    });
    QVERIFY(m_printer->store(ids, m_profile->dataDatabase(), DataStorage::StoreWithDialog));
    QCOMPARE(dialogs.shown(), QStringList{"QPrintDialog"});
    QVERIFY(!pageRange);
    QVERIFY(!QFile::exists(outputFile(QStringLiteral("dialog"))));
    QVERIFY(seen().isEmpty());
    for (qint64 id : ids)
        QVERIFY(printTime(id).isEmpty());

    dialogs.accept();
    QVERIFY(m_printer->store(ids, m_profile->dataDatabase(), DataStorage::StoreWithDialog));
    QCOMPARE(pdfPageCount(outputFile(QStringLiteral("dialog"))), 3);
    for (qint64 id : ids)
        QVERIFY(!printTime(id).isEmpty());
}

void tst_Printing::preview()
{
    saveTemplate(QStringLiteral("patients"), kv::PatientReport, {QStringLiteral("test:/paging")});
    m_profile->setValue(QStringLiteral("report/template"), QStringLiteral("patients"), true);
    const QList<qint64> ids = patients(false, 2);
    m_printer->setOutputFileName(outputFile(QStringLiteral("preview")));
    QMainWindow window;
    setTopLevelWidget(&window);

    int rendered = 0;
    bool maximised = false;
    QWidget* parent = nullptr;
    int previewPages = 0;
    test::DialogAnswerer dialogs;
    dialogs.then([&](QDialog* dialog) {
        auto* preview = qobject_cast<QPrintPreviewDialog*>(dialog);
        QVERIFY(preview);
        maximised = preview->windowState() & Qt::WindowMaximized;
        parent = preview->parentWidget();
        rendered = seen().size();
        previewPages = preview->findChild<QPrintPreviewWidget*>()->pageCount();
        // A repaint runs the whole job again.
        preview->findChild<QPrintPreviewWidget*>()->updatePreview();
        preview->reject();
    });
    QVERIFY(m_printer->store(ids, m_profile->dataDatabase(), DataStorage::StorePreview));
    setTopLevelWidget(nullptr);
    QVERIFY(maximised);
    QCOMPARE(parent, &window);
    QCOMPARE(rendered, 2);
    QCOMPARE(previewPages, 2);
    QCOMPARE(seen().size(), 4);
    QCOMPARE(seen().at(2).patientId, int(ids.at(0)));
    for (qint64 id : ids)
        QVERIFY(!printTime(id).isEmpty());
    // A preview prints nothing by itself.
    QVERIFY(!QFile::exists(outputFile(QStringLiteral("preview"))));
}

// A job started while another one waits in its preview leaves the first job's members intact.
void tst_Printing::nestedJobKeepsItsMembers()
{
    saveTemplate(QStringLiteral("patients"), kv::PatientReport, {QStringLiteral("test:/paging")});
    saveTemplate(QStringLiteral("qc"), kv::QcReport, {QStringLiteral("test:/paging")});
    m_profile->setValue(QStringLiteral("report/template"), QStringLiteral("patients"), true);
    m_profile->setValue(QStringLiteral("report/qctemplate"), QStringLiteral("qc"), true);
    QcDataReader reader(m_profile);
    auto series = reader.read(reader.reagentIds().value(0));
    QVERIFY(series);
    const QList<qint64> ids = patients(false, 2);

    bool nestedResult = false;
    test::DialogAnswerer dialogs;
    dialogs.then([&](QDialog* dialog) {
        auto* preview = qobject_cast<QPrintPreviewDialog*>(dialog);
        QVERIFY(preview);
        m_printer->setOutputFileName(outputFile(QStringLiteral("nested")));
        nestedResult = m_printer->store(ids, m_profile->dataDatabase(), DataStorage::StoreAtOnce);
        preview->findChild<QPrintPreviewWidget*>()->updatePreview();
        preview->reject();
    });
    QVERIFY(m_printer->store(QList<QcExportData*>{series->data()}, DataStorage::StorePreview));
    QVERIFY(nestedResult);
    QCOMPARE(pdfPageCount(outputFile(QStringLiteral("nested"))), 2);
    QCOMPARE(seen().size(), 4);
    QCOMPARE(seen().at(0).reagentId, series->data()->reagentId);
    QCOMPARE(seen().at(1).patientId, int(ids.at(0)));
    QCOMPARE(seen().at(3).reagentId, series->data()->reagentId);
}

void tst_Printing::maintenance_data()
{
    QTest::addColumn<int>("orientation");
    QTest::newRow("landscape") << int(QPageLayout::Landscape);
    QTest::newRow("portrait") << int(QPageLayout::Portrait);
}

void tst_Printing::maintenance()
{
    QFETCH(int, orientation);
    saveTemplate(QStringLiteral("maintenance"), kv::MaintenanceRecordReport, {QStringLiteral("test:/paging")},
                 QString(), QPageLayout::Orientation(orientation));
    m_profile->setValue(QStringLiteral("report/maintenanceRecord"), QStringLiteral("maintenance"), true);
    Workbench workbench = MaintenanceRecords(m_profile).workbenches().value(0);
    MaintenanceExportData data{&workbench, QDate(2024, 6, 1), MaintenanceManager::WeeklyMaintenance};
    m_printer->setOutputFileName(outputFile(QStringLiteral("maintenance")));

    QVERIFY(m_printer->store(&data, DataStorage::StoreAtOnce));
    QCOMPARE(pdfPageCount(outputFile(QStringLiteral("maintenance"))), 1);
    QCOMPARE(seen().size(), 1);
    // Binding starts the record types from the first.
    QCOMPARE(int(data.recordType), 1);

    if (!hasPoppler())
        QSKIP("poppler-utils not installed");
    const QSizeF size = pdfPageSize(outputFile(QStringLiteral("maintenance")));
    QVERIFY(size.isValid());
    QCOMPARE(size.width() > size.height(), orientation == QPageLayout::Landscape);
}

void tst_Printing::searchableArchive_data()
{
    QTest::addColumn<int>("type");
    QTest::addColumn<QStringList>("keys");
    QTest::addColumn<QString>("family"); // of the template's own text
    QTest::newRow("patient") << int(kv::PatientReport)
                             << QStringList{QStringLiteral("field:/patient/name"),
                                            QStringLiteral("profile:/hospital")}
                             << QString();
    QTest::newRow("qc") << int(kv::QcReport)
                        << QStringList{QStringLiteral("field:/reagent/name"), QStringLiteral("QcChart")}
                        << QStringLiteral("Noto Serif CJK SC");
    QTest::newRow("maintenance") << int(kv::MaintenanceRecordReport)
                                 << QStringList{QStringLiteral("MaintenanceRecord")} << QString();
}

// What an archive finds again: the exact texts of template and data, title and author, vectors only.
void tst_Printing::searchableArchive()
{
    QFETCH(int, type);
    QFETCH(QStringList, keys);
    QFETCH(QString, family);
    if (!hasPoppler())
        QSKIP("poppler-utils not installed");
    // Digits in Latin text (drawn with substituted glyphs), characters whose glyphs the font shares
    // with radicals, the signs of a result, and a radical (U+2F39) the fonts draw apart from 彐.
    const QString marker = QStringLiteral("Bed 53 6/24 血女一二人民生白目石示比↑↓≥µ%\u2F39");
    const QString file = outputFile(QStringLiteral("archive"));
    m_printer->setOutputFileName(file);
    saveTemplate(QStringLiteral("archive"), kv::ReportType(type), keys, marker, QPageLayout::Portrait,
                 family);
    const QString hospital = m_profile->value(QStringLiteral("hospital")).toString();
    QVERIFY(!hospital.isEmpty());
    QStringList expected{marker};
    QString subject;
    if (type == kv::PatientReport) {
        m_profile->setValue(QStringLiteral("report/template"), QStringLiteral("archive"), true);
        const qint64 id = patients(false, 1).value(0);
        QSqlQuery query(m_profile->dataDatabase());
        QVERIFY(query.exec(QStringLiteral("select name, sampleNo from patient where id=%1").arg(id)) &&
                query.next());
        expected << query.value(0).toString() << hospital;
        subject = query.value(1).toString();
        QVERIFY(m_printer->store({id}, m_profile->dataDatabase(), DataStorage::StoreAtOnce));
    } else if (type == kv::QcReport) {
        m_profile->setValue(QStringLiteral("report/qctemplate"), QStringLiteral("archive"), true);
        QcDataReader reader(m_profile);
        const qint64 reagent = reader.reagentIds().value(0);
        auto series = reader.read(reagent);
        QVERIFY(series);
        QSqlQuery query(m_profile->qcDatabase());
        QVERIFY(query.exec(QStringLiteral("select name, lot from reagent where id=%1").arg(reagent)) &&
                query.next());
        expected << query.value(0).toString();
        subject = QStringList{query.value(0).toString(), query.value(1).toString()}
                      .join(QLatin1Char(' '))
                      .trimmed();
        QVERIFY(m_printer->store(QList<QcExportData*>{series->data()}, DataStorage::StoreAtOnce));
    } else {
        m_profile->setValue(QStringLiteral("report/maintenanceRecord"), QStringLiteral("archive"), true);
        Workbench workbench = MaintenanceRecords(m_profile).workbenches().value(0);
        QSqlQuery query(m_profile->qcDatabase());
        QVERIFY(query.exec(QStringLiteral("select date, operator from maintenanceRecord where workbench=%1 "
                                          "and recordType=1 order by date")
                               .arg(workbench.id())) &&
                query.next());
        const QDate month = query.value(0).toDate();
        expected << month.toString(QStringLiteral("MM-dd")) << query.value(1).toString();
        subject = month.toString(QStringLiteral("yyyy-MM"));
        MaintenanceExportData data{&workbench, month, MaintenanceManager::DailyMaintenance};
        QVERIFY(m_printer->store(&data, DataStorage::StoreAtOnce));
    }
    QCOMPARE(InformationLog::count(), 0);

    const QString text = pdfPageTexts(file).join(QString());
    const QStringList lines = text.split(QLatin1Char('\n'));
    QVERIFY2(lines.contains(marker), qPrintable(text));
    for (const QString& expectedText : expected)
        QVERIFY2(text.contains(expectedText), qPrintable(expectedText + QStringLiteral(" in\n") + text));
    // The one radical is the marker's.
    const QList<uint> codePoints = text.toUcs4();
    QCOMPARE(std::count_if(codePoints.cbegin(), codePoints.cend(),
                           [](uint c) { return c >= 0x2E80 && c <= 0x2FDF; }),
             1);
    // Text and lines only: no picture of a widget, and a page of modest size.
    QCOMPARE(poppler(QStringLiteral("pdfimages"), {QStringLiteral("-list"), file})
                 .trimmed()
                 .count(QLatin1Char('\n')),
             1);
    QVERIFY2(QFileInfo(file).size() < 300 * 1024, qPrintable(QString::number(QFileInfo(file).size())));
    QCOMPARE(pdfInfo(file, QStringLiteral("Title")),
             Report::typeName(kv::ReportType(type)) + QLatin1Char(' ') + subject);
    QCOMPARE(pdfInfo(file, QStringLiteral("Author")), hospital);
    QVERIFY(pdfInfo(file, QStringLiteral("Creator")).startsWith(QStringLiteral("CoagulationReport ")));
}

void tst_Printing::unwritableOutput()
{
    saveTemplate(QStringLiteral("patients"), kv::PatientReport, {QStringLiteral("test:/paging")});
    m_profile->setValue(QStringLiteral("report/template"), QStringLiteral("patients"), true);
    const QString fileName = m_lab.filePath(QStringLiteral("no/such/folder/out.pdf"));
    m_printer->setOutputFileName(fileName);
    const QList<qint64> ids = patients(false, 2);
    QTest::ignoreMessage(QtWarningMsg, QRegularExpression(QStringLiteral(".*")));
    QVERIFY(!m_printer->store(ids, m_profile->dataDatabase(), DataStorage::StoreAtOnce));
    QCOMPARE(InformationLog::count(), 1);
    QCOMPARE(InformationLog::last().text,
             QStringLiteral("无法写入文件 ") + QDir::toNativeSeparators(fileName));
    QVERIFY(seen().isEmpty());
    for (qint64 id : ids)
        QVERIFY(printTime(id).isEmpty());
}

void tst_Printing::incompleteOutput_data()
{
    QTest::addColumn<bool>("callerTransaction");
    QTest::newRow("own transaction") << false;
    QTest::newRow("caller's transaction") << true;
}

// Pages that cannot all be written fail the job and leave no print time behind, also within a
// transaction of the caller's, which stays open with its own changes.
void tst_Printing::incompleteOutput()
{
    QFETCH(bool, callerTransaction);
    saveTemplate(QStringLiteral("patients"), kv::PatientReport, {QStringLiteral("test:/paging")});
    saveTemplate(QStringLiteral("qc"), kv::QcReport, {QStringLiteral("test:/paging")});
    m_profile->setValue(QStringLiteral("report/template"), QStringLiteral("patients"), true);
    m_profile->setValue(QStringLiteral("report/qctemplate"), QStringLiteral("qc"), true);
    const QList<qint64> ids = patients(false, 3);
    QSqlDatabase db = m_profile->dataDatabase();
    QSqlQuery caller(db);
    if (callerTransaction) {
        QVERIFY(db.transaction());
        QVERIFY(
            caller.exec(QStringLiteral("update patient set printTime='mine' where id=%1").arg(ids.at(2))));
    }
    m_printer->setOutputFileName(QStringLiteral("/dev/full"));
    QVERIFY(!m_printer->store(ids.mid(0, 2), db, DataStorage::StoreAtOnce));
    QCOMPARE(InformationLog::last().text, QStringLiteral("文件 /dev/full 没有完整写出."));
    QCOMPARE(seen().size(), 2);
    QCOMPARE(printTime(ids.at(0)), QString());
    QCOMPARE(printTime(ids.at(1)), QString());
    QCOMPARE(printTime(ids.at(2)), callerTransaction ? QStringLiteral("mine") : QString());

    // Delivered pages within the caller's transaction are the caller's to commit.
    m_printer->setOutputFileName(outputFile(QStringLiteral("complete")));
    QVERIFY(m_printer->store(ids.mid(0, 1), db, DataStorage::StoreAtOnce));
    QVERIFY(!printTime(ids.at(0)).isEmpty());
    if (callerTransaction)
        QVERIFY(db.commit());
    QVERIFY(!printTime(ids.at(0)).isEmpty());

    QcDataReader reader(m_profile);
    auto series = reader.read(reader.reagentIds().value(0));
    QVERIFY(series);
    m_printer->setOutputFileName(QStringLiteral("/dev/full"));
    QVERIFY(!m_printer->store(QList<QcExportData*>{series->data()}, DataStorage::StoreAtOnce));
}

void tst_Printing::concurrentWriter_data()
{
    QTest::addColumn<int>("holdMs");
    QTest::addColumn<bool>("printed");
    QTest::newRow("waits for a short write") << 500 << true;
    QTest::newRow("gives up on a long one") << 60000 << false;
}

// Another writer delays the job; when it holds on, the job fails before printing anything.
void tst_Printing::concurrentWriter()
{
    QFETCH(int, holdMs);
    QFETCH(bool, printed);
    saveTemplate(QStringLiteral("patients"), kv::PatientReport, {QStringLiteral("test:/paging")});
    m_profile->setValue(QStringLiteral("report/template"), QStringLiteral("patients"), true);
    const QList<qint64> ids = patients(false, 2);
    const QString pdf = outputFile(QStringLiteral("locked"));
    QFile::remove(pdf);
    m_printer->setOutputFileName(pdf);
    Writer writer(m_profile->databasePath(QStringLiteral("data")), holdMs);
    writer.start();
    QVERIFY(writer.locked.tryAcquire(1, 10000));
    const bool stored = m_printer->store(ids, m_profile->dataDatabase(), DataStorage::StoreAtOnce);
    writer.release.release();
    QVERIFY(writer.wait(10000));
    QCOMPARE(stored, printed);
    QCOMPARE(QFile::exists(pdf), printed);
    for (qint64 id : ids)
        QCOMPARE(printTime(id).isEmpty(), !printed);
    if (!printed) {
        QVERIFY(seen().isEmpty());
        QCOMPARE(InformationLog::last().text,
                 QStringLiteral("数据库正被其他程序写入, 等待 5 秒后仍无法记录打印时间\n没有打印任何报告."));
    }
}

void tst_Printing::noPrinter()
{
    if (!QPrinterInfo::availablePrinterNames().isEmpty())
        QSKIP("this machine has printers");
    saveTemplate(QStringLiteral("patients"), kv::PatientReport, {QStringLiteral("test:/paging")});
    m_profile->setValue(QStringLiteral("report/template"), QStringLiteral("patients"), true);
    const QList<qint64> ids = patients(false, 2);
    QTest::ignoreMessage(QtWarningMsg, QRegularExpression(QStringLiteral(".*")));
    QVERIFY(!m_printer->store(ids, m_profile->dataDatabase(), DataStorage::StoreAtOnce));
    QCOMPARE(InformationLog::last().text, QStringLiteral("没有可用的打印机."));
    // The print dialog still opens; cancelled, it prints nothing.
    test::DialogAnswerer dialogs;
    dialogs.reject();
    QVERIFY(m_printer->store(ids, m_profile->dataDatabase(), DataStorage::StoreWithDialog));
    QCOMPARE(dialogs.shown(), QStringList{"QPrintDialog"});
    QCOMPARE(InformationLog::count(), 1);
    for (qint64 id : ids)
        QVERIFY(printTime(id).isEmpty());
}

void tst_Printing::noWorkspace()
{
    std::unique_ptr<DataStorage> printer(m_factory->create());
    QVERIFY(!qobject_cast<ReportPrinter*>(printer.get())->itemFactory());
    QTest::ignoreMessage(QtWarningMsg, QRegularExpression(QStringLiteral("no workspace")));
    QVERIFY(!printer->store(patients(false, 1), m_profile->dataDatabase(), DataStorage::StoreAtOnce));
}

void tst_Printing::translatedMessages()
{
    BracketTranslator translator("coagulation::ReportPrinter");
    QCoreApplication::installTranslator(&translator);
    saveTemplate(QStringLiteral("mine"), kv::PatientReport, {});
    QString label;
    test::DialogAnswerer dialogs;
    dialogs.then([&](QDialog* dialog) {
        if (auto* input = qobject_cast<QInputDialog*>(dialog))
            label = input->labelText();
        dialog->reject();
    });
    const QList<qint64> ids = patients(false, 1);
    QVERIFY(!m_printer->store(ids, m_profile->dataDatabase(), DataStorage::StoreAtOnce));
    QCOMPARE(label, QStringLiteral("[请选择一个[病人样本]打印模板:]"));

    m_profile->setValue(QStringLiteral("report/template"), QStringLiteral("gone"), true);
    QVERIFY(!m_printer->store(ids, m_profile->dataDatabase(), DataStorage::StoreAtOnce));
    QVERIFY2(InformationLog::last().text.startsWith(QStringLiteral("[无法加载打印模板 gone\n")),
             qPrintable(InformationLog::last().text));
    QCoreApplication::removeTranslator(&translator);
}

void tst_Printing::sqlFailuresDoNotStopTheJob()
{
    saveTemplate(QStringLiteral("patients"), kv::PatientReport, {QStringLiteral("test:/paging")});
    m_profile->setValue(QStringLiteral("report/template"), QStringLiteral("patients"), true);
    m_printer->setOutputFileName(outputFile(QStringLiteral("nopatients")));
    {
        // A database without a patient table.
        QSqlDatabase db = QSqlDatabase::addDatabase(QStringLiteral("QSQLITE"), QStringLiteral("empty"));
        db.setDatabaseName(QStringLiteral(":memory:"));
        QVERIFY(db.open());
        // Located from the library's folder on, whichever folder it was built in.
        const QRegularExpression located(
            QStringLiteral("^report/(reportprinter|printtimes)\\.cpp:\\d+: .*no such table"));
        QTest::ignoreMessage(QtWarningMsg, located);
        QTest::ignoreMessage(QtWarningMsg, located);
        // Then per patient: the select, the data binding and the update fail.
        for (int i = 0; i < 6; ++i)
            QTest::ignoreMessage(QtWarningMsg,
                                 QRegularExpression(QStringLiteral("^report/\\w+\\.cpp:\\d+: ")));
        QVERIFY(m_printer->store({1, 2}, db, DataStorage::StoreAtOnce));
        db.close();
    }
    QSqlDatabase::removeDatabase(QStringLiteral("empty"));
    QCOMPARE(pdfPageCount(outputFile(QStringLiteral("nopatients"))), 2);
    QCOMPARE(seen().size(), 2);
}

QTEST_MAIN(tst_Printing)
#include "tst_printing.moc"
