// Print jobs end to end: the printer comes from the plug-in, the data from the generated
// laboratory databases, the templates are saved by the test, and the output is a real PDF.
#include "../common/dialoganswerer.h"
#include "../common/files.h"
#include "../common/pdf.h"
#include "../common/workspace.h"

#include <core/information.h>
#include <core/toplevelwidget.h>
#include <drawingitems.h>
#include <itemfactory.h>
#include <keyfactories.h>
#include <kvcore/datastoragefactoryinterface.h>
#include <kvcore/maintenancerecords.h>
#include <kvcore/pluginlocator.h>
#include <kvcore/qcdatareader.h>
#include <report.h>
#include <reportprinter.h>

#include <QDateTime>
#include <QInputDialog>
#include <QMainWindow>
#include <QPrintDialog>
#include <QPrinterInfo>
#include <QPrintPreviewDialog>
#include <QPrintPreviewWidget>
#include <QSemaphore>
#include <QSettings>
#include <QSqlQuery>
#include <QSqlRecord>
#include <QTranslator>
#include <QtTest>

#include <algorithm>
#include <memory>
#include <thread>

using namespace coagulation;
using test::pdfPageCount;

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

const QString paging = QStringLiteral("test:/paging");

// The jobs a host prints, and the profile key under which each remembers its template.
enum Job { PatientJob, QcSampleJob, QcJob, MaintenanceJob };
const char* const jobKeys[] = {"report/template", "report/qc", "report/qctemplate",
                               "report/maintenanceRecord"};

kv::ReportType typeOf(int job)
{
    return job == QcJob            ? kv::QcReport
           : job == MaintenanceJob ? kv::MaintenanceRecordReport
                                   : kv::PatientReport;
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
    void unloadableTemplate_data();
    void unloadableTemplate();
    void cancelledPickAndTranslatedMessages();
    void patientJob_data();
    void patientJob();
    void qcSeriesPaging();
    void printDialog();
    void preview();
    void nestedJobKeepsItsMembers();
    void searchableArchive_data();
    void searchableArchive();
    void failedOutput_data();
    void failedOutput();
    void concurrentWriter_data();
    void concurrentWriter();
    void noWorkspace();
    void sqlFailuresDoNotStopTheJob();

private:
    QString templatePath(const QString& name) const { return m_lab.templatePath(name); }
    void saveTemplate(const QString& name, kv::ReportType type, const QStringList& keys = {paging},
                      const QString& marker = QString(),
                      QPageLayout::Orientation orientation = QPageLayout::Portrait,
                      const QString& markerFamily = QString());
    // Saves the template and makes it the profile's choice for the job.
    void choose(const QString& name, Job job, const QStringList& keys = {paging},
                const QString& marker = QString());
    bool print(const QList<qint64>& ids, DataStorage::StoreMode mode = DataStorage::StoreAtOnce)
    {
        return m_printer->store(ids, m_profile->dataDatabase(), mode);
    }
    // The first patient, QC sample or reagent, or the first workbench's June 2024 (asked from its
    // weekly records on, which binding starts again from the daily ones).
    bool run(Job job, DataStorage::StoreMode mode = DataStorage::StoreAtOnce);
    qint64 subjectOf(Job job) const;
    std::unique_ptr<QcSeries> series(int reagentIndex) const
    {
        QcDataReader reader(m_profile);
        return reader.read(reader.reagentIds().value(reagentIndex));
    }
    QString printTime(qint64 id) const;
    QList<qint64> patients(bool qcSamples, int count) const;
    QString outputFile(const QString& name) const { return m_lab.filePath(name + QStringLiteral(".pdf")); }

    test::DemoWorkspace m_lab;
    Profile* m_profile = nullptr;
    DataStorageFactoryInterface* m_factory = nullptr;
    std::unique_ptr<DataStorage> m_storage;
    ReportPrinter* m_printer = nullptr;
    int m_recordType = 0; // where the last maintenance job left its record type
};

void tst_Printing::initTestCase()
{
    PluginLocator locator;
    m_factory = locator.dataStorageFactory();
    QVERIFY2(m_factory, qPrintable(locator.errorString()));
    QVERIFY2(m_lab.create(), qPrintable(m_lab.errorString()));
    m_profile = m_lab.profile();
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
    m_printer->setWorkspace(m_lab.workspace());
    QVERIFY(m_printer->itemFactory());
    m_printer->itemFactory()->registerFactory(new PagingItemFactory(m_profile));
}

void tst_Printing::cleanup()
{
    m_storage.reset();
    m_profile->setValue(QStringLiteral("report/pdfa"), false);
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

void tst_Printing::choose(const QString& name, Job job, const QStringList& keys, const QString& marker)
{
    saveTemplate(name, typeOf(job), keys, marker);
    m_profile->setValue(QString::fromLatin1(jobKeys[job]), name, true);
}

qint64 tst_Printing::subjectOf(Job job) const
{
    if (job == QcJob)
        return QcDataReader(m_profile).reagentIds().value(0);
    if (job == MaintenanceJob)
        return MaintenanceRecords(m_profile).workbenches().value(0).id();
    return patients(job == QcSampleJob, 1).value(0);
}

bool tst_Printing::run(Job job, DataStorage::StoreMode mode)
{
    if (job == QcJob) {
        std::unique_ptr<QcSeries> qc = QcDataReader(m_profile).read(subjectOf(job));
        return qc && m_printer->store(QList<QcExportData*>{qc->data()}, mode);
    }
    if (job == MaintenanceJob) {
        Workbench workbench = MaintenanceRecords(m_profile).workbenches().value(0);
        MaintenanceExportData data{&workbench, QDate(2024, 6, 1), MaintenanceManager::WeeklyMaintenance};
        const bool stored = m_printer->store(&data, mode);
        m_recordType = data.recordType;
        return stored;
    }
    return print({subjectOf(job)}, mode);
}

QString tst_Printing::printTime(qint64 id) const
{
    QSqlQuery query(m_profile->dataDatabase());
    query.exec(QStringLiteral("select printTime from patient where id=%1").arg(id));
    return query.next() ? query.value(0).toString() : QStringLiteral("<no row>");
}

QList<qint64> tst_Printing::patients(bool qcSamples, int count) const
{
    QSqlQuery query(m_profile->dataDatabase());
    query.exec(QStringLiteral(
                   "select id from patient where (substr(sampleNo, 1, 2) = 'QC') = %1 order by id limit %2")
                   .arg(int(qcSamples))
                   .arg(count));
    QList<qint64> ids;
    while (query.next())
        ids.append(query.value(0).toLongLong());
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
    const QDir templates = m_lab.templateDirectory();
    QFile::copy(templatePath(QStringLiteral("a")), templates.filePath(QStringLiteral("c.txt")));
    QVERIFY(test::writeFile(templatePath(QStringLiteral("broken")), "not a template"));
    QVERIFY(test::writeFile(templatePath(QStringLiteral("empty")), QByteArray()));
    QVERIFY(templates.mkdir(QStringLiteral("folder.rpt")));

    QStringList listed = m_printer->enumTemplate(templates.path(), kv::ReportType(type));
    listed.sort();
    QCOMPARE(listed, names);
    QVERIFY(m_printer->enumTemplate(m_lab.filePath(QStringLiteral("missing")), kv::PatientReport).isEmpty());
}

void tst_Printing::pickDialog_data()
{
    QTest::addColumn<int>("job");
    QTest::addColumn<QString>("label");
    QTest::newRow("patient") << int(PatientJob) << "请选择一个病人样本打印模板:";
    QTest::newRow("qc sample") << int(QcSampleJob) << "请选择一个质控样本打印模板:";
    QTest::newRow("qc report") << int(QcJob) << "请选择一个质控报表打印模板:";
    QTest::newRow("maintenance") << int(MaintenanceJob) << "请选择一个维护记录打印模板:";
}

// The user is asked once, even with a single template; the choice is remembered in the profile's file.
void tst_Printing::pickDialog()
{
    QFETCH(int, job);
    QFETCH(QString, label);
    const QString key = QString::fromLatin1(jobKeys[job]);
    saveTemplate(QStringLiteral("mine"), typeOf(job));
    saveTemplate(QStringLiteral("other"), kv::ReportType((typeOf(job) + 1) % 3), {});
    if (job == QcSampleJob)
        choose(QStringLiteral("patients"), PatientJob, {});
    QMainWindow window;
    Workspace workspace(m_profile, m_lab.templateDirectory(), &window);
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
        QCOMPARE(items, job == QcSampleJob ? QStringList({"mine", "patients"}) : QStringList({"mine"}));
        QVERIFY(!input->isComboBoxEditable());
        input->setTextValue(QStringLiteral("mine"));
        input->accept();
    });
    m_printer->setOutputFileName(outputFile(QStringLiteral("picked")));
    QVERIFY(run(Job(job)));
    QCOMPARE(dialogs.shown(), QStringList{"QInputDialog"});
    QCOMPARE(m_profile->value(key).toString(), QStringLiteral("mine"));
    QCOMPARE(QSettings(m_profile->fileName(), QSettings::IniFormat).value(key).toString(),
             QStringLiteral("mine"));
    QCOMPARE(InformationLog::count(), 0);
    QVERIFY(!seen().isEmpty());
    if (job == MaintenanceJob)
        QCOMPARE(m_recordType, int(MaintenanceManager::DailyMaintenance)); // binding starts from the first

    // Remembered: the next job asks nothing.
    QVERIFY(run(Job(job)));
    QCOMPARE(dialogs.shown().size(), 1);
    m_printer->setWorkspace(m_lab.workspace());
}

void tst_Printing::unloadableTemplate_data()
{
    QTest::addColumn<QString>("choice");   // empty: the user picks from an empty list
    QTest::addColumn<QByteArray>("bytes"); // of the chosen template; null: there is no such file
    QTest::addColumn<QString>("reason");   // null: why the file cannot be opened
    QTest::newRow("no template of the type") << QString() << QByteArray() << QString();
    QTest::newRow("missing file") << "gone" << QByteArray() << QString();
    QTest::newRow("not a template") << "gone" << QByteArray(64, 'x') << "错误的文件格式";
}

// One message names the template and nothing is printed or recorded; the choice stays, so the same
// template is tried (or the user asked) again next time.
void tst_Printing::unloadableTemplate()
{
    QFETCH(QString, choice);
    QFETCH(QByteArray, bytes);
    QFETCH(QString, reason);
    saveTemplate(QStringLiteral("qc"), kv::QcReport, {});
    if (!choice.isEmpty())
        m_profile->setValue(QStringLiteral("report/template"), choice, true);
    if (!bytes.isNull())
        QVERIFY(test::writeFile(templatePath(choice), bytes));
    QFile file(templatePath(choice));
    if (reason.isNull()) {
        QVERIFY(!file.open(QIODevice::ReadOnly));
        reason = file.errorString();
    }
    test::DialogAnswerer dialogs;
    dialogs.then([](QDialog* dialog) {
        auto* input = qobject_cast<QInputDialog*>(dialog);
        QVERIFY(input);
        QCOMPARE(input->comboBoxItems(), QStringList());
        input->accept();
    });
    m_printer->setOutputFileName(outputFile(QStringLiteral("failed")));
    QVERIFY(print({})); // no ids: nothing happens, not even the template is looked at
    QCOMPARE(InformationLog::count(), 0);
    const QList<qint64> ids = patients(false, 1);
    QVERIFY(!print(ids));
    QCOMPARE(dialogs.shown(), choice.isEmpty() ? QStringList{"QInputDialog"} : QStringList());
    QCOMPARE(InformationLog::count(), 1);
    QCOMPARE(InformationLog::last().text, QStringLiteral("无法加载打印模板 %1\n").arg(choice) + reason);
    QCOMPARE(InformationLog::last().buttons, QMessageBox::StandardButtons(QMessageBox::Ok));
    QCOMPARE(m_profile->value(QStringLiteral("report/template")).toString(), choice);
    QVERIFY(!QFile::exists(outputFile(QStringLiteral("failed"))));
    QVERIFY(printTime(ids.at(0)).isEmpty());
}

// Cancelling the question prints, records and says nothing; the question and the messages are
// translated.
void tst_Printing::cancelledPickAndTranslatedMessages()
{
    BracketTranslator translator("coagulation::ReportPrinter");
    QCoreApplication::installTranslator(&translator);
    saveTemplate(QStringLiteral("mine"), kv::PatientReport);
    QString label;
    test::DialogAnswerer dialogs;
    dialogs.then([&](QDialog* dialog) {
        if (auto* input = qobject_cast<QInputDialog*>(dialog))
            label = input->labelText();
        dialog->reject();
    });
    m_printer->setOutputFileName(outputFile(QStringLiteral("cancelled")));
    const QList<qint64> ids = patients(false, 2);
    QVERIFY(!print(ids));
    QCOMPARE(dialogs.shown(), QStringList{"QInputDialog"});
    QCOMPARE(label, QStringLiteral("[请选择一个[病人样本]打印模板:]"));
    QCOMPARE(InformationLog::count(), 0);
    QCOMPARE(m_profile->value(QStringLiteral("report/template")).toString(), QString());
    QVERIFY(!QFile::exists(outputFile(QStringLiteral("cancelled"))));
    QVERIFY(seen().isEmpty());
    QVERIFY(printTime(ids.at(0)).isEmpty());

    m_profile->setValue(QStringLiteral("report/template"), QStringLiteral("gone"), true);
    QVERIFY(!print(ids));
    QVERIFY2(InformationLog::last().text.startsWith(QStringLiteral("[无法加载打印模板 gone\n")),
             qPrintable(InformationLog::last().text));
    QCoreApplication::removeTranslator(&translator);
}

void tst_Printing::patientJob_data()
{
    QTest::addColumn<bool>("qcTemplate");
    QTest::addColumn<bool>("qcLast");
    QTest::addColumn<int>("pages");
    QTest::newRow("qc template") << true << false << 3;
    QTest::newRow("no qc template") << false << false << 2;
    // The page break before the skipped last sample has been made already.
    QTest::newRow("no qc template, qc sample last") << false << true << 2;
}

// Patient samples on the patient template, QC samples on theirs, a page each, in order; the time of
// the job is recorded for exactly the samples printed.
void tst_Printing::patientJob()
{
    QFETCH(bool, qcTemplate);
    QFETCH(bool, qcLast);
    QFETCH(int, pages);
    choose(QStringLiteral("patients"), PatientJob, {paging}, QStringLiteral("PATIENT SHEET"));
    if (qcTemplate)
        saveTemplate(QStringLiteral("qcsamples"), kv::PatientReport,
                     {QStringLiteral("field:/patient/sampleNo")}, QStringLiteral("QC SHEET"));
    m_profile->setValue(QStringLiteral("report/qc"), QStringLiteral("qcsamples"), true);
    const QList<qint64> patientIds = patients(false, 4);
    const qint64 qcId = patients(true, 1).value(0);
    const QList<qint64> ids = qcLast ? QList<qint64>{patientIds.at(0), qcId}
                                     : QList<qint64>{patientIds.at(0), qcId, patientIds.at(1)};
    const QString pdf = outputFile(QStringLiteral("patients"));
    m_printer->setOutputFileName(pdf);

    const QDateTime before = QDateTime::currentDateTime().addSecs(-1);
    QVERIFY(print(ids));
    const QDateTime after = QDateTime::currentDateTime().addSecs(1);
    QCOMPARE(pdfPageCount(pdf), pages);
    // The patient template served the patient samples only.
    QList<qint64> served;
    for (const Seen& page : seen())
        served << page.patientId;
    QCOMPARE(served, ids.mid(0, 1) + (qcLast ? QList<qint64>() : ids.mid(2)));
    for (qint64 id : {patientIds.at(0), qcId, patientIds.at(1), patientIds.at(3)}) {
        const QString written = printTime(id);
        if (!(served.contains(id) || (id == qcId && qcTemplate))) {
            QVERIFY2(written.isEmpty(), qPrintable(written));
            continue;
        }
        static const QRegularExpression iso(QStringLiteral("^\\d{4}-\\d\\d-\\d\\dT\\d\\d:\\d\\d:\\d\\d$"));
        QVERIFY2(iso.match(written).hasMatch(), qPrintable(written));
        const QDateTime time = QDateTime::fromString(written, Qt::ISODate);
        QVERIFY(time >= before && time <= after);
    }
    // A failing QC-sample template is reported once per job, not once per sample.
    QCOMPARE(InformationLog::count(), qcTemplate ? 0 : 1);
    if (!qcTemplate)
        QVERIFY(InformationLog::last().text.startsWith(QStringLiteral("无法加载打印模板 qcsamples\n")));

    const QStringList texts = test::pdfPageTexts(pdf);
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
    choose(QStringLiteral("qc"), QcJob, {paging, QStringLiteral("prop:/page")});
    auto first = series(0);
    auto second = series(1);
    QVERIFY(first && second);
    const qint64 a = first->data()->reagentId, b = second->data()->reagentId;
    QVERIFY(a != b);
    pagesNeeded().insert(a, 3);
    pagesNeeded().insert(b, 2);
    m_printer->setOutputFileName(outputFile(QStringLiteral("qcseries")));

    QVERIFY(m_printer->store(QList<QcExportData*>{first->data(), second->data()}, DataStorage::StoreAtOnce));
    QCOMPARE(pdfPageCount(outputFile(QStringLiteral("qcseries"))), 5);
    // Reagent, page and page count as each page was refreshed.
    QStringList pages;
    for (const Seen& page : seen())
        pages << QStringLiteral("%1 %2/%3").arg(page.reagentId).arg(page.currentPage).arg(page.pageCount);
    QCOMPARE(pages, QStringList({QStringLiteral("%1 1/3").arg(a), QStringLiteral("%1 2/3").arg(a),
                                 QStringLiteral("%1 3/3").arg(a), QStringLiteral("%1 1/2").arg(b),
                                 QStringLiteral("%1 2/2").arg(b)}));
}

// Without printers a job fails, but the print dialog still opens; cancelled, it prints nothing.
void tst_Printing::printDialog()
{
    choose(QStringLiteral("patients"), PatientJob);
    const QList<qint64> ids = patients(false, 3);
    test::DialogAnswerer dialogs;
    if (QPrinterInfo::availablePrinterNames().isEmpty()) {
        QTest::ignoreMessage(QtWarningMsg, QRegularExpression(QStringLiteral(".*")));
        QVERIFY(!print(ids));
        QCOMPARE(InformationLog::last().text, QStringLiteral("没有可用的打印机."));
        dialogs.reject();
        QVERIFY(print(ids, DataStorage::StoreWithDialog));
        QCOMPARE(dialogs.shown(), QStringList{"QPrintDialog"});
        QCOMPARE(InformationLog::count(), 1);
    }
    m_printer->setOutputFileName(outputFile(QStringLiteral("dialog")));
    bool pageRange = true;
    dialogs.then([&](QDialog* dialog) {
        auto* print = qobject_cast<QPrintDialog*>(dialog);
        QVERIFY(print);
        QCOMPARE(print->parentWidget(), nullptr);
        pageRange = print->testOption(QAbstractPrintDialog::PrintPageRange);
        print->reject();
    });
    QVERIFY(print(ids, DataStorage::StoreWithDialog));
    QCOMPARE(dialogs.shown().constLast(), QStringLiteral("QPrintDialog"));
    QVERIFY(!pageRange);
    QVERIFY(!QFile::exists(outputFile(QStringLiteral("dialog"))));
    QVERIFY(seen().isEmpty());
    for (qint64 id : ids)
        QVERIFY(printTime(id).isEmpty());

    dialogs.accept();
    QVERIFY(print(ids, DataStorage::StoreWithDialog));
    QCOMPARE(pdfPageCount(outputFile(QStringLiteral("dialog"))), 3);
    for (qint64 id : ids)
        QVERIFY(!printTime(id).isEmpty());
}

void tst_Printing::preview()
{
    choose(QStringLiteral("patients"), PatientJob);
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
    QVERIFY(print(ids, DataStorage::StorePreview));
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
    choose(QStringLiteral("patients"), PatientJob);
    choose(QStringLiteral("qc"), QcJob);
    auto qc = series(0);
    QVERIFY(qc);
    const QList<qint64> ids = patients(false, 2);

    bool nestedResult = false;
    test::DialogAnswerer dialogs;
    dialogs.then([&](QDialog* dialog) {
        auto* preview = qobject_cast<QPrintPreviewDialog*>(dialog);
        QVERIFY(preview);
        m_printer->setOutputFileName(outputFile(QStringLiteral("nested")));
        nestedResult = print(ids);
        preview->findChild<QPrintPreviewWidget*>()->updatePreview();
        preview->reject();
    });
    QVERIFY(m_printer->store(QList<QcExportData*>{qc->data()}, DataStorage::StorePreview));
    QVERIFY(nestedResult);
    QCOMPARE(pdfPageCount(outputFile(QStringLiteral("nested"))), 2);
    QCOMPARE(seen().size(), 4);
    QCOMPARE(seen().at(0).reagentId, qc->data()->reagentId);
    QCOMPARE(seen().at(1).patientId, int(ids.at(0)));
    QCOMPARE(seen().at(3).reagentId, qc->data()->reagentId);
}

void tst_Printing::searchableArchive_data()
{
    QTest::addColumn<int>("job");
    QTest::addColumn<QStringList>("keys");
    QTest::addColumn<QString>("family"); // of the template's own text
    QTest::addColumn<QString>("sql");    // texts of the job's subject (%1) to find, then the title's subject
    QTest::addColumn<bool>("archival");  // PDF/A-1b, on a landscape page
    QTest::newRow("patient") << int(PatientJob)
                             << QStringList{QStringLiteral("field:/patient/name"),
                                            QStringLiteral("profile:/hospital")}
                             << QString() << "select name, sampleNo from patient where id=%1" << false;
    QTest::newRow("qc") << int(QcJob)
                        << QStringList{QStringLiteral("field:/reagent/name"), QStringLiteral("QcChart")}
                        << QStringLiteral("Noto Serif CJK SC")
                        << "select name, trim(name || ' ' || coalesce(lot, '')) from reagent where id=%1"
                        << false;
    QTest::newRow("maintenance, archival")
        << int(MaintenanceJob) << QStringList{QStringLiteral("MaintenanceRecord")} << QString()
        << "select strftime('%m-%d', date), operator, '2024-06' from maintenanceRecord where workbench=%1 "
           "and "
           "recordType=1 and date >= '2024-06-01' order by date"
        << true;
}

// What an archive finds again: the exact texts of template and data, title and author, vectors only,
// every font embedded; archival copies say so in their metadata.
void tst_Printing::searchableArchive()
{
    QFETCH(int, job);
    QFETCH(QStringList, keys);
    QFETCH(QString, family);
    QFETCH(QString, sql);
    QFETCH(bool, archival);
    // Digits in Latin text (drawn with substituted glyphs), characters whose glyphs the font shares
    // with radicals, the signs of a result, and a radical (U+2F39) the fonts draw apart from 彐.
    const QString marker = QStringLiteral("Bed 53 6/24 血女一二人民生白目石示比↑↓≥µ%\u2F39");
    const QString file = outputFile(QStringLiteral("archive"));
    m_printer->setOutputFileName(file);
    m_profile->setValue(QStringLiteral("report/pdfa"), archival);
    saveTemplate(QStringLiteral("archive"), typeOf(job), keys, marker,
                 archival ? QPageLayout::Landscape : QPageLayout::Portrait, family);
    m_profile->setValue(QString::fromLatin1(jobKeys[job]), QStringLiteral("archive"), true);
    const QString hospital = m_profile->value(QStringLiteral("hospital")).toString();
    QVERIFY(!hospital.isEmpty());
    QSqlQuery query(job == PatientJob ? m_profile->dataDatabase() : m_profile->qcDatabase());
    QVERIFY(query.exec(sql.arg(subjectOf(Job(job)))) && query.next());
    QStringList expected{marker};
    for (int i = 0; i + 1 < query.record().count(); ++i)
        expected << query.value(i).toString();
    if (keys.contains(QStringLiteral("profile:/hospital")))
        expected << hospital;
    const QString title =
        Report::typeName(typeOf(job)) + QLatin1Char(' ') + query.value(query.record().count() - 1).toString();
    QVERIFY(run(Job(job)));
    QCOMPARE(InformationLog::count(), 0);

    const QString text = test::pdfPageTexts(file).join(QString());
    QVERIFY2(text.split(QLatin1Char('\n')).contains(marker), qPrintable(text));
    for (const QString& expectedText : expected)
        QVERIFY2(text.contains(expectedText), qPrintable(expectedText + QStringLiteral(" in\n") + text));
    // The one radical is the marker's.
    const QList<uint> codePoints = text.toUcs4();
    QCOMPARE(std::count_if(codePoints.cbegin(), codePoints.cend(),
                           [](uint c) { return c >= 0x2E80 && c <= 0x2FDF; }),
             1);
    // Text and lines only: no picture of a widget, and a page of modest size.
    QCOMPARE(test::pdfTool(QStringLiteral("pdfimages"), {QStringLiteral("-list"), file})
                 .trimmed()
                 .count(QLatin1Char('\n')),
             1);
    QVERIFY2(QFileInfo(file).size() < 300 * 1024, qPrintable(QString::number(QFileInfo(file).size())));
    QCOMPARE(pdfPageCount(file), 1);
    const QStringList size = test::pdfInfo(file, QStringLiteral("Page size")).split(QLatin1Char(' '));
    QVERIFY(size.size() > 2 && size.at(1) == QLatin1String("x"));
    QCOMPARE(size.at(0).toDouble() > size.at(2).toDouble(), archival);
    QCOMPARE(test::pdfInfo(file, QStringLiteral("Title")), title);
    QCOMPARE(test::pdfInfo(file, QStringLiteral("Author")), hospital);
    QVERIFY(test::pdfInfo(file, QStringLiteral("Creator")).startsWith(QStringLiteral("CoagulationReport ")));
    const QString fonts = test::pdfTool(QStringLiteral("pdffonts"), {file});
    const QStringList fontRows = fonts.trimmed().split(QLatin1Char('\n')).mid(2);
    QVERIFY(!fontRows.isEmpty());
    for (const QString& row : fontRows) {
        // Columns from the end: emb sub uni object generation.
        const QStringList columns = row.split(QLatin1Char(' '), Qt::SkipEmptyParts);
        QVERIFY2(columns.size() > 5 && columns.at(columns.size() - 5) == QLatin1String("yes"),
                 qPrintable(fonts));
    }
    const QString check = test::pdfTool(QStringLiteral("qpdf"), {QStringLiteral("--check"), file});
    QVERIFY2(check.contains(QStringLiteral("No syntax or stream encoding errors")), qPrintable(check));
    // An archival copy says so in its XMP metadata, which agrees with the document information.
    const QString meta = test::pdfTool(QStringLiteral("pdfinfo"), {QStringLiteral("-meta"), file});
    QCOMPARE(meta.contains(QStringLiteral("<pdfaid:part>1</pdfaid:part>")) &&
                 meta.contains(QStringLiteral("<pdfaid:conformance>B</pdfaid:conformance>")),
             archival);
    if (archival) {
        QVERIFY2(meta.contains(QStringLiteral("<rdf:li xml:lang=\"x-default\">%1</rdf:li>").arg(title)) &&
                     meta.contains(QStringLiteral("<rdf:li>%1</rdf:li>").arg(hospital)),
                 qPrintable(meta));
    }
}

void tst_Printing::failedOutput_data()
{
    QTest::addColumn<QString>("target");
    QTest::addColumn<bool>("callerTransaction");
    QTest::addColumn<QString>("message"); // %1: the target
    QTest::addColumn<int>("rendered");    // pages rendered before the failure showed
    QTest::newRow("no such folder") << "no/such/folder/out.pdf" << false << "无法写入文件 %1" << 0;
    QTest::newRow("full device") << "/dev/full" << false << "文件 %1 没有完整写出." << 2;
    QTest::newRow("full device, caller's transaction") << "/dev/full" << true << "文件 %1 没有完整写出." << 2;
}

// Pages that cannot all be written fail the job and leave no print time behind, also within a
// transaction of the caller's, which stays open with its own changes.
void tst_Printing::failedOutput()
{
    QFETCH(QString, target);
    QFETCH(bool, callerTransaction);
    QFETCH(QString, message);
    QFETCH(int, rendered);
    if (QDir::isRelativePath(target))
        target = m_lab.filePath(target);
    choose(QStringLiteral("patients"), PatientJob);
    choose(QStringLiteral("qc"), QcJob);
    const QList<qint64> ids = patients(false, 3);
    QSqlDatabase db = m_profile->dataDatabase();
    QSqlQuery caller(db);
    if (callerTransaction) {
        QVERIFY(db.transaction());
        QVERIFY(
            caller.exec(QStringLiteral("update patient set printTime='mine' where id=%1").arg(ids.at(2))));
    }
    if (rendered == 0)
        QTest::ignoreMessage(QtWarningMsg, QRegularExpression(QStringLiteral(".*")));
    m_printer->setOutputFileName(target);
    QVERIFY(!m_printer->store(ids.mid(0, 2), db, DataStorage::StoreAtOnce));
    QCOMPARE(InformationLog::count(), 1);
    QCOMPARE(InformationLog::last().text, message.arg(QDir::toNativeSeparators(target)));
    QCOMPARE(seen().size(), rendered);
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

    if (rendered == 0)
        QTest::ignoreMessage(QtWarningMsg, QRegularExpression(QStringLiteral(".*")));
    m_printer->setOutputFileName(target);
    QVERIFY(!run(QcJob));
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
    choose(QStringLiteral("patients"), PatientJob);
    const QList<qint64> ids = patients(false, 2);
    const QString pdf = outputFile(QStringLiteral("locked"));
    QFile::remove(pdf);
    m_printer->setOutputFileName(pdf);
    // Another program writing to the database: holds its write lock until released or for holdMs.
    QSemaphore locked, release;
    std::thread writer([&, file = m_profile->databasePath(QStringLiteral("data"))] {
        {
            QSqlDatabase db = QSqlDatabase::addDatabase(QStringLiteral("QSQLITE"), QStringLiteral("writer"));
            db.setDatabaseName(file);
            QSqlQuery query(db);
            if (db.open() && query.exec(QStringLiteral("begin immediate")))
                locked.release();
            release.tryAcquire(1, holdMs);
            query.exec(QStringLiteral("rollback"));
        }
        QSqlDatabase::removeDatabase(QStringLiteral("writer"));
    });
    const bool writing = locked.tryAcquire(1, 10000);
    const bool stored = writing && print(ids);
    release.release();
    writer.join();
    QVERIFY(writing);
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

void tst_Printing::noWorkspace()
{
    std::unique_ptr<DataStorage> printer(m_factory->create());
    QVERIFY(!qobject_cast<ReportPrinter*>(printer.get())->itemFactory());
    QTest::ignoreMessage(QtWarningMsg, QRegularExpression(QStringLiteral("no workspace")));
    QVERIFY(!printer->store(patients(false, 1), m_profile->dataDatabase(), DataStorage::StoreAtOnce));
}

void tst_Printing::sqlFailuresDoNotStopTheJob()
{
    choose(QStringLiteral("patients"), PatientJob);
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
