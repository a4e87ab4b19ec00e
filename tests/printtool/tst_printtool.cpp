#include <core/profile.h>
#include <defaulttemplates.h>
#include <itemfactory.h>
#include <kvcore/sample.h>
#include <report.h>
#include <reportitem.h>

#include <QDir>
#include <QFile>
#include <QProcess>
#include <QRegularExpression>
#include <QSqlQuery>
#include <QStandardPaths>
#include <QTemporaryDir>
#include <QTest>

using namespace coagulation;

namespace {

struct Run
{
    int exitCode = -1;
    QString out;
    QString err;
};

Run runTool(const QStringList& arguments,
            const QProcessEnvironment& environment = QProcessEnvironment::systemEnvironment())
{
    QProcess process;
    process.setProcessEnvironment(environment);
    process.setProgram(QCoreApplication::applicationDirPath() + QStringLiteral("/coagulation-print"));
    process.setArguments(arguments);
    process.start();
    Run run;
    if (!process.waitForFinished(240000)) {
        process.kill();
        process.waitForFinished();
        run.err = QStringLiteral("timed out");
        return run;
    }
    run.exitCode = process.exitStatus() == QProcess::NormalExit ? process.exitCode() : -1;
    run.out = QString::fromLocal8Bit(process.readAllStandardOutput());
    run.err = QString::fromLocal8Bit(process.readAllStandardError());
    return run;
}

// Pages of a PDF written by Qt: one "/Type /Page" object per page.
int pdfPageCount(const QString& fileName)
{
    QFile file(fileName);
    if (!file.open(QIODevice::ReadOnly))
        return -1;
    const QString text = QString::fromLatin1(file.readAll());
    static const QRegularExpression page(QStringLiteral("/Type\\s*/Page(?![a-zA-Z])"));
    return int(text.count(page));
}

// Standard output of a PDF tool from poppler-utils or qpdf; empty when it is missing or fails.
QString pdfTool(const QString& tool, const QStringList& arguments)
{
    QProcess process;
    process.start(tool, arguments);
    if (!process.waitForFinished(60000) || process.exitStatus() != QProcess::NormalExit ||
        process.exitCode() != 0)
        return QString();
    return QString::fromUtf8(process.readAllStandardOutput());
}

// The text of a PDF as pdftotext finds it; empty when that fails.
QString pdfText(const QString& fileName)
{
    return pdfTool(QStringLiteral("pdftotext"), {fileName, QStringLiteral("-")});
}

// The print date's month as an English session writes it ("Monday, November 23, 2026").
QString englishMonth()
{
    return QLocale(QLocale::English).monthName(QDate::currentDate().month());
}

} // namespace

class TestPrintTool : public QObject
{
    Q_OBJECT
private Q_SLOTS:
    void initTestCase();
    void demoWorkspaceRemembersTheTemplates();
    void patientReportsGivePagePerPatient();
    void samplesArePrintedBySampleNumber();
    void qcReportPagesFollowTheResultTable();
    void maintenanceReportIsOnePage();
    void overflowIsWarnedOrRefused_data();
    void overflowIsWarnedOrRefused();
    void templatesAreListed();
    void badArgumentsAreRefused_data();
    void badArgumentsAreRefused();
    void missingDataFailsClearly_data();
    void missingDataFailsClearly();
    void helpDescribesTheCommands();
    void englishDemoHoldsNoChinese_data();
    void englishDemoHoldsNoChinese();
    void chineseTemplatePrintsInEnglishSession();

private:
    QString path(const QString& name) const { return m_dir.filePath(name); }
    QString profile() const { return path(QStringLiteral("demo/profile.ini")); }

    QTemporaryDir m_dir;
};

void TestPrintTool::initTestCase()
{
    QVERIFY(m_dir.isValid());
    const Run run = runTool({QStringLiteral("demo"), path(QStringLiteral("demo")),
                             QStringLiteral("--patients"), QStringLiteral("40")});
    QVERIFY2(run.exitCode == 0, qPrintable(run.err));
    QVERIFY2(run.out.contains(QDir::toNativeSeparators(profile())), qPrintable(run.out));
    // Patient 30 gets more results than the patient template has rows for.
    Profile workspace(profile());
    QSqlQuery query(workspace.dataDatabase());
    for (int i = 0; i < DefaultTemplates::patientResultRows; ++i)
        QVERIFY(
            query.exec(QStringLiteral("insert into result (patientId, item, subitem, abbr, code, result, "
                                      "unit, flag, lowerMarkLimit, upperMarkLimit, displayOrder) select 30, "
                                      "item, subitem, abbr, code, result, unit, flag, lowerMarkLimit, "
                                      "upperMarkLimit, displayOrder from result where patientId = 30 and "
                                      "abbr = 'PT-S' limit 1")));
}

void TestPrintTool::demoWorkspaceRemembersTheTemplates()
{
    Profile workspace(profile());
    for (const DefaultTemplate& entry : DefaultTemplates::all()) {
        QCOMPARE(workspace.value(entry.settingKey).toString(), entry.name());
        QVERIFY(QFile::exists(path(QStringLiteral("demo/templates/%1.rpt").arg(entry.name()))));
    }
    QSqlQuery query(workspace.dataDatabase());
    QVERIFY(query.exec(QStringLiteral("select count(*) from patient")));
    QVERIFY(query.next());
    QCOMPARE(query.value(0).toInt(), 40);
}

void TestPrintTool::patientReportsGivePagePerPatient()
{
    const QString pdf = path(QStringLiteral("out/patients.pdf"));
    const Run run =
        runTool({QStringLiteral("patients"), QStringLiteral("1"), QStringLiteral("2"), QStringLiteral("4"),
                 QStringLiteral("-p"), profile(), QStringLiteral("-o"), pdf});
    QVERIFY2(run.exitCode == 0, qPrintable(run.err));
    QVERIFY(run.out.contains(QDir::toNativeSeparators(pdf)));
    QCOMPARE(pdfPageCount(pdf), 3);

    Profile workspace(profile());
    QSqlQuery query(workspace.dataDatabase());
    QVERIFY(query.exec(QStringLiteral("select id from patient where printTime is not null order by id")));
    QList<qint64> printed;
    while (query.next())
        printed.append(query.value(0).toLongLong());
    QCOMPARE(printed, (QList<qint64>{1, 2, 4}));

    // Found again by what a laboratory searches for.
    const QString text = pdfText(pdf);
    if (text.isEmpty())
        QSKIP("pdftotext is not installed");
    for (const QString& searched : {QStringLiteral("示例市第一人民医院"), QStringLiteral("凝血酶原时间"),
                                    QStringLiteral("凝血检验报告单")})
        QCOMPARE(text.count(searched), 3);
}

void TestPrintTool::samplesArePrintedBySampleNumber()
{
    QString sampleNo;
    QString qcSampleNo;
    QString qcTemplate;
    {
        Profile workspace(profile());
        QSqlQuery query(workspace.dataDatabase());
        QVERIFY(query.exec(QStringLiteral("select sampleNo from patient where id = 7")));
        QVERIFY(query.next());
        sampleNo = query.value(0).toString();
        QVERIFY(query.exec(QStringLiteral("select sampleNo from patient order by id")));
        while (qcSampleNo.isEmpty() && query.next()) {
            if (Sample::sampleTypeOf(query.value(0).toString(), &workspace) == kv::QcSample)
                qcSampleNo = query.value(0).toString();
        }
        QVERIFY(!qcSampleNo.isEmpty());
        // No template chosen for QC samples.
        qcTemplate = workspace.value(QStringLiteral("report/qc")).toString();
        workspace.setValue(QStringLiteral("report/qc"), QString(), true);
    }
    const QString pdf = path(QStringLiteral("out/sample.pdf"));
    const Run run = runTool(
        {QStringLiteral("samples"), sampleNo, QStringLiteral("-p"), profile(), QStringLiteral("-o"), pdf});
    QVERIFY2(run.exitCode == 0, qPrintable(run.err));
    QCOMPARE(pdfPageCount(pdf), 1);

    // Nobody can pick the QC samples' template: the tool says so and does not wait for an answer.
    const Run mixed = runTool({QStringLiteral("samples"), qcSampleNo, sampleNo, QStringLiteral("-p"),
                               profile(), QStringLiteral("-o"), pdf});
    Profile(profile()).setValue(QStringLiteral("report/qc"), qcTemplate, true);
    QVERIFY2(mixed.exitCode == 0, qPrintable(mixed.err));
    QVERIFY2(mixed.err.contains(qcSampleNo + QStringLiteral(" will be left out")), qPrintable(mixed.err));
    QCOMPARE(pdfPageCount(pdf), 1);
}

void TestPrintTool::qcReportPagesFollowTheResultTable()
{
    // Points per page as the QC template's result table holds them.
    Profile workspace(profile());
    ItemFactory factory(&workspace);
    Report report(&workspace, &factory);
    QVERIFY(report.load(path(QStringLiteral("demo/templates/室内质控报告.rpt"))));
    int perPage = 0;
    for (ReportItem* item : report.reportItems()) {
        if (auto* table = dynamic_cast<ReportQcTableItem*>(item))
            perPage = table->rowsPerBlock() * table->columns();
    }
    QVERIFY(perPage > 0);
    QSqlQuery query(workspace.qcDatabase());
    QVERIFY(query.exec(QStringLiteral("select reagentId, count(*) from qcResult group by reagentId "
                                      "order by reagentId limit 2")));
    int expected = 0;
    QStringList reagents;
    while (query.next()) {
        reagents.append(query.value(0).toString());
        expected += qMax(1, (query.value(1).toInt() + perPage - 1) / perPage);
    }
    QCOMPARE(reagents.size(), 2);

    const QString pdf = path(QStringLiteral("out/qc.pdf"));
    const Run run = runTool(QStringList{QStringLiteral("qc")} + reagents +
                            QStringList{QStringLiteral("-p"), profile(), QStringLiteral("--output"), pdf});
    QVERIFY2(run.exitCode == 0, qPrintable(run.err));
    QCOMPARE(pdfPageCount(pdf), expected);
}

void TestPrintTool::maintenanceReportIsOnePage()
{
    const QString pdf = path(QStringLiteral("out/maintenance.pdf"));
    const Run run =
        runTool({QStringLiteral("maintenance"), QStringLiteral("--month"), QStringLiteral("2024-06"),
                 QStringLiteral("--pdfa"), QStringLiteral("-p"), profile(), QStringLiteral("-o"), pdf});
    QVERIFY2(run.exitCode == 0, qPrintable(run.err));
    QCOMPARE(pdfPageCount(pdf), 1);

    // Archival: PDF/A-1b said in the XMP metadata, which agrees with the document information,
    // every font embedded, and a file qpdf finds sound.
    const QString meta = pdfTool(QStringLiteral("pdfinfo"), {QStringLiteral("-meta"), pdf});
    const QString fonts = pdfTool(QStringLiteral("pdffonts"), {pdf});
    const QString check = pdfTool(QStringLiteral("qpdf"), {QStringLiteral("--check"), pdf});
    if (meta.isEmpty() || fonts.isEmpty() || check.isEmpty())
        QSKIP("poppler-utils or qpdf is not installed");
    QVERIFY2(meta.contains(QStringLiteral("<pdfaid:part>1</pdfaid:part>")) &&
                 meta.contains(QStringLiteral("<pdfaid:conformance>B</pdfaid:conformance>")),
             qPrintable(meta));
    QVERIFY(meta.contains(QStringLiteral("<rdf:li xml:lang=\"x-default\">维护记录报告单 2024-06</rdf:li>")));
    QVERIFY(meta.contains(QStringLiteral("<rdf:li>示例市第一人民医院</rdf:li>")));
    QVERIFY(pdfTool(QStringLiteral("pdfinfo"), {pdf}).contains(QStringLiteral("维护记录报告单 2024-06")));
    const QStringList fontRows = fonts.trimmed().split(QLatin1Char('\n')).mid(2);
    QVERIFY(!fontRows.isEmpty());
    for (const QString& row : fontRows) {
        // Columns from the end: emb sub uni object generation.
        const QStringList columns = row.split(QLatin1Char(' '), Qt::SkipEmptyParts);
        QVERIFY2(columns.size() > 5 && columns.at(columns.size() - 5) == QLatin1String("yes"),
                 qPrintable(fonts));
    }
    QVERIFY2(check.contains(QStringLiteral("No syntax or stream encoding errors")), qPrintable(check));
}

void TestPrintTool::overflowIsWarnedOrRefused_data()
{
    QTest::addColumn<QStringList>("arguments");
    QTest::addColumn<int>("exitCode");
    QTest::addColumn<bool>("warned");
    const QStringList overfull = {QStringLiteral("patients"), QStringLiteral("30")};
    // Patient 11 is the demo's worst case: every assay twice and a long remark.
    QTest::newRow("worst demo patient fits")
        << QStringList{QStringLiteral("patients"), QStringLiteral("11")} << 0 << false;
    QTest::newRow("full month fits") << QStringList{QStringLiteral("maintenance"), QStringLiteral("--month"),
                                                    QStringLiteral("2024-06")}
                                     << 0 << false;
    QTest::newRow("strict refuses") << overfull + QStringList{QStringLiteral("--strict")} << 1 << true;
    QTest::newRow("warns and prints") << overfull << 0 << true;
}

void TestPrintTool::overflowIsWarnedOrRefused()
{
    QFETCH(QStringList, arguments);
    QFETCH(int, exitCode);
    QFETCH(bool, warned);
    const QString pdf = path(QStringLiteral("out/overflow.pdf"));
    QFile::remove(pdf);
    const Run run =
        runTool(arguments + QStringList{QStringLiteral("-p"), profile(), QStringLiteral("-o"), pdf});
    QCOMPARE(run.exitCode, exitCode);
    QCOMPARE(QFile::exists(pdf), exitCode == 0);
    QCOMPARE(run.err.contains(QStringLiteral("警告")), warned);
    Profile workspace(profile());
    QSqlQuery query(workspace.dataDatabase());
    QVERIFY(query.exec(QStringLiteral("select name, sampleNo, printTime from patient where id = 30")));
    QVERIFY(query.next());
    if (warned) {
        // Names the patient, the item and how far it overflows.
        const QString expected = QStringLiteral("病人 %1（样本号 %2）：表格 Results 有")
                                     .arg(query.value(0).toString(), query.value(1).toString());
        QVERIFY2(run.err.contains(expected), qPrintable(run.err));
        QCOMPARE(query.value(2).isNull(), exitCode != 0); // refused: not recorded as printed
    } else {
        QVERIFY2(run.err.isEmpty(), qPrintable(run.err));
    }
}

void TestPrintTool::templatesAreListed()
{
    const Run run = runTool({QStringLiteral("templates"), QStringLiteral("-p"), profile()});
    QVERIFY2(run.exitCode == 0, qPrintable(run.err));
    for (const DefaultTemplate& entry : DefaultTemplates::all()) {
        QVERIFY2(run.out.contains(entry.name()), qPrintable(run.out));
        QVERIFY2(run.out.contains(entry.settingKey), qPrintable(run.out));
    }
}

void TestPrintTool::badArgumentsAreRefused_data()
{
    QTest::addColumn<QStringList>("arguments");
    QTest::addColumn<QString>("message");
    const QString p = QStringLiteral("--profile=") + QStringLiteral("x.ini");
    QTest::newRow("no command") << QStringList() << QStringLiteral("No command given");
    QTest::newRow("unknown command") << QStringList{QStringLiteral("print")}
                                     << QStringLiteral("Unknown command 'print'");
    QTest::newRow("unknown option") << QStringList{QStringLiteral("patients"), QStringLiteral("--colour")}
                                    << QStringLiteral("Unknown option 'colour'");
    QTest::newRow("no ids") << QStringList{QStringLiteral("patients"), p}
                            << QStringLiteral("Give at least one patient id");
    QTest::newRow("not an id") << QStringList{QStringLiteral("patients"), QStringLiteral("12a"), p}
                               << QStringLiteral("'12a' is not a patient id");
    QTest::newRow("no profile") << QStringList{QStringLiteral("patients"), QStringLiteral("1")}
                                << QStringLiteral("needs a profile");
    QTest::newRow("two destinations") << QStringList{QStringLiteral("qc"), p, QStringLiteral("-o"),
                                                     QStringLiteral("a.pdf"), QStringLiteral("--preview")}
                                      << QStringLiteral("Give only one of --output, --dialog and --preview");
    QTest::newRow("bad month") << QStringList{QStringLiteral("maintenance"), p, QStringLiteral("--month"),
                                              QStringLiteral("2024-13")}
                               << QStringLiteral("--month '2024-13' is not a month");
    QTest::newRow("no month") << QStringList{QStringLiteral("maintenance"), p}
                              << QStringLiteral("needs --month");
    QTest::newRow("reversed range") << QStringList{QStringLiteral("qc"),     p,
                                                   QStringLiteral("--from"), QStringLiteral("2024-06-30"),
                                                   QStringLiteral("--to"),   QStringLiteral("2024-06-01")}
                                    << QStringLiteral("--from 2024-06-30 lies after --to 2024-06-01");
    QTest::newRow("option of another command")
        << QStringList{QStringLiteral("patients"), QStringLiteral("1"), p, QStringLiteral("--month"),
                       QStringLiteral("2024-06")}
        << QStringLiteral("--month does not apply to the command 'patients'");
    QTest::newRow("unknown language") << QStringList{QStringLiteral("demo"), QStringLiteral("x"),
                                                     QStringLiteral("--language"), QStringLiteral("fr")}
                                      << QStringLiteral("--language 'fr' is not one of zh_CN and en");
    QTest::newRow("demo without folder")
        << QStringList{QStringLiteral("demo")} << QStringLiteral("needs exactly one folder");
}

void TestPrintTool::badArgumentsAreRefused()
{
    QFETCH(QStringList, arguments);
    QFETCH(QString, message);
    const Run run = runTool(arguments);
    QCOMPARE(run.exitCode, 2);
    QVERIFY2(run.err.contains(message), qPrintable(run.err));
    QVERIFY2(run.err.contains(QStringLiteral("--help")), qPrintable(run.err));
}

void TestPrintTool::missingDataFailsClearly_data()
{
    QTest::addColumn<QStringList>("arguments");
    QTest::addColumn<QString>("message");
    const QStringList pdf = {QStringLiteral("-o"), path(QStringLiteral("out/never.pdf"))};
    QTest::newRow("unknown patient") << QStringList{QStringLiteral("patients"), QStringLiteral("99999")} + pdf
                                     << QStringLiteral("No patient with id 99999");
    QTest::newRow("unknown sample") << QStringList{QStringLiteral("samples"), QStringLiteral("X-1")} + pdf
                                    << QStringLiteral("No sample with the number 'X-1'");
    QTest::newRow("unknown reagent") << QStringList{QStringLiteral("qc"), QStringLiteral("999")} + pdf
                                     << QStringLiteral("No reagent with id 999");
    QTest::newRow("unknown workbench")
        << QStringList{QStringLiteral("maintenance"), QStringLiteral("--month"), QStringLiteral("2024-06"),
                       QStringLiteral("--workbench"), QStringLiteral("9")} +
               pdf
        << QStringLiteral("No workbench with id 9");
    QTest::newRow("unknown template")
        << QStringList{QStringLiteral("patients"), QStringLiteral("1"), QStringLiteral("--template"),
                       QStringLiteral("无此模板")} +
               pdf
        << QStringLiteral("No template '无此模板' for patient result reports");
    QTest::newRow("preview without display")
        << QStringList{QStringLiteral("patients"), QStringLiteral("1"), QStringLiteral("--preview")}
        << QStringLiteral("--dialog and --preview need a display");
    // Neither a platform nor a display named: nothing the platform plug-in could abort on.
    QTest::newRow("dialog without any display")
        << QStringList{QStringLiteral("patients"), QStringLiteral("1"), QStringLiteral("--dialog"),
                       QStringLiteral("--no-platform")}
        << QStringLiteral("--dialog and --preview need a display");
}

void TestPrintTool::missingDataFailsClearly()
{
    QFETCH(QStringList, arguments);
    QFETCH(QString, message);
    QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
    if (arguments.removeAll(QStringLiteral("--no-platform"))) {
        for (const char* name : {"QT_QPA_PLATFORM", "DISPLAY", "WAYLAND_DISPLAY"})
            environment.remove(QString::fromLatin1(name));
    }
    const Run run = runTool(arguments + QStringList{QStringLiteral("-p"), profile()}, environment);
    QCOMPARE(run.exitCode, 1);
    QVERIFY2(run.err.contains(message), qPrintable(run.err));
    QVERIFY(!QFile::exists(path(QStringLiteral("out/never.pdf"))));

    const Run missing = runTool({QStringLiteral("patients"), QStringLiteral("1"), QStringLiteral("-p"),
                                 path(QStringLiteral("nowhere/profile.ini"))});
    QCOMPARE(missing.exitCode, 1);
    QVERIFY2(missing.err.contains(QStringLiteral("does not exist")), qPrintable(missing.err));
    QVERIFY(!QFile::exists(path(QStringLiteral("nowhere/profile.ini"))));
}

void TestPrintTool::helpDescribesTheCommands()
{
    const Run run = runTool({QStringLiteral("--help")});
    QCOMPARE(run.exitCode, 0);
    for (const char* word : {"patients", "samples", "qc", "maintenance", "templates", "demo", "--output",
                             "--preview", "--dialog", "--month", "--profile", "--pdfa"})
        QVERIFY2(run.out.contains(QLatin1String(word)), word);
}

QTEST_MAIN(TestPrintTool)
void TestPrintTool::englishDemoHoldsNoChinese_data()
{
    QTest::addColumn<QStringList>("job");
    QTest::addColumn<QStringList>("expected"); // English texts of template, data and locale
    // Patients 1 to 3 and the first QC sample (its own template) of the English demo.
    QTest::newRow("patients") << QStringList{QStringLiteral("patients"), QStringLiteral("1"),
                                             QStringLiteral("2"), QStringLiteral("3"),
                                             QStringLiteral("qcsample")}
                              << QStringList{QStringLiteral("Coagulation Test Report"),
                                             QStringLiteral("QC Sample Test Report"),
                                             QStringLiteral("Example City General Hospital"),
                                             QStringLiteral("Prothrombin time")};
    QTest::newRow("qc") << QStringList{QStringLiteral("qc"),     QStringLiteral("1"),
                                       QStringLiteral("--from"), QStringLiteral("2024-06-01"),
                                       QStringLiteral("--to"),   QStringLiteral("2024-06-28")}
                        << QStringList{QStringLiteral("Internal QC Report"),
                                       QStringLiteral("Coagulation control plasma"),
                                       QStringLiteral("Upper stop limit"), QStringLiteral("QC count")};
    QTest::newRow("maintenance") << QStringList{QStringLiteral("maintenance"), QStringLiteral("--month"),
                                                QStringLiteral("2024-06")}
                                 << QStringList{QStringLiteral("Coagulation Analyser Maintenance Record"),
                                                QStringLiteral("Daily maintenance"),
                                                QStringLiteral("Weekly maintenance")};
}

void TestPrintTool::englishDemoHoldsNoChinese()
{
    QFETCH(QStringList, job);
    QFETCH(QStringList, expected);
    if (QStandardPaths::findExecutable(QStringLiteral("pdftotext")).isEmpty())
        QSKIP("pdftotext is not installed");
    const QString folder = path(QStringLiteral("english"));
    const QString english = QDir(folder).filePath(QStringLiteral("profile.ini"));
    if (!QFile::exists(english)) {
        const Run demo = runTool({QStringLiteral("demo"), folder, QStringLiteral("--patients"),
                                  QStringLiteral("30"), QStringLiteral("--language"), QStringLiteral("en")});
        QVERIFY2(demo.exitCode == 0, qPrintable(demo.err));
    }
    const int qcSample = job.indexOf(QStringLiteral("qcsample"));
    if (qcSample >= 0) {
        Profile workspace(english);
        QSqlQuery query(workspace.dataDatabase());
        QVERIFY(query.exec(QStringLiteral("select min(id) from patient where department = 'Laboratory'")));
        QVERIFY(query.next() && !query.value(0).isNull());
        job[qcSample] = query.value(0).toString();
    }

    const QString pdf = QDir(folder).filePath(job.first() + QStringLiteral(".pdf"));
    const Run run = runTool(job + QStringList{QStringLiteral("-p"), english, QStringLiteral("-o"), pdf,
                                              QStringLiteral("--language"), QStringLiteral("en")});
    QVERIFY2(run.exitCode == 0, qPrintable(run.err));
    const QString text = pdfText(pdf);
    static const QRegularExpression cjk(QStringLiteral("[\\x{2e80}-\\x{9fff}\\x{ff00}-\\x{ffef}]"));
    const QRegularExpressionMatch chinese = cjk.match(text);
    QVERIFY2(!chinese.hasMatch(), qPrintable(text.mid(qMax(0, int(chinese.capturedStart()) - 40), 80)));
    for (const QString& phrase : expected)
        QVERIFY2(text.contains(phrase), qPrintable(phrase));
    QVERIFY2(text.contains(englishMonth()), qPrintable(text.right(200)));
}

// A template keeps its own captions whatever the session's language; the data and the date are the
// workspace's and the session's.
void TestPrintTool::chineseTemplatePrintsInEnglishSession()
{
    const QString pdf = path(QStringLiteral("out/chinese-template.pdf"));
    const Run run = runTool({QStringLiteral("patients"), QStringLiteral("1"), QStringLiteral("-p"), profile(),
                             QStringLiteral("-o"), pdf, QStringLiteral("--language"), QStringLiteral("en")});
    QVERIFY2(run.exitCode == 0, qPrintable(run.err));
    if (QStandardPaths::findExecutable(QStringLiteral("pdftotext")).isEmpty())
        QSKIP("pdftotext is not installed");
    const QString text = pdfText(pdf);
    for (const QString& caption : {QStringLiteral("凝血检验报告单"), QStringLiteral("姓名："),
                                   QStringLiteral("检验者："), QStringLiteral("本报告仅对所检测标本负责")})
        QVERIFY2(text.contains(caption), qPrintable(caption + QLatin1Char('\n') + text));
    QVERIFY2(text.contains(englishMonth()), qPrintable(text.right(200)));
}

#include "tst_printtool.moc"
