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
#include <QSqlError>
#include <QSqlQuery>
#include <QStandardPaths>
#include <QTemporaryDir>
#include <QTest>

#include <csignal>
#include <sys/resource.h>

using namespace coagulation;

namespace {

struct Run
{
    int exitCode = -1;
    QString out;
    QString err;
};

// fileSizeLimit > 0: the tool may write no file beyond that many bytes (writes fail past it).
Run runTool(const QStringList& arguments,
            const QProcessEnvironment& environment = QProcessEnvironment::systemEnvironment(),
            qint64 fileSizeLimit = 0)
{
    QProcess process;
    process.setProcessEnvironment(environment);
    process.setProgram(QCoreApplication::applicationDirPath() + QStringLiteral("/coagulation-print"));
    process.setArguments(arguments);
    if (fileSizeLimit > 0) {
        process.setChildProcessModifier([fileSizeLimit] {
            std::signal(SIGXFSZ, SIG_IGN);
            const rlimit limit{rlim_t(fileSizeLimit), rlim_t(fileSizeLimit)};
            setrlimit(RLIMIT_FSIZE, &limit);
        });
    }
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

QByteArray fileBytes(const QString& fileName)
{
    QFile file(fileName);
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
}

// Runs SQL on a workspace's database file through a connection of its own.
bool execOn(const QString& databaseFile, const QString& sql)
{
    bool ok = false;
    {
        QSqlDatabase db = QSqlDatabase::addDatabase(QStringLiteral("QSQLITE"), QStringLiteral("direct"));
        db.setDatabaseName(databaseFile);
        QSqlQuery query(db);
        ok = db.open() && query.exec(sql);
        if (!ok)
            qWarning("%s: %s", qPrintable(sql), qPrintable(query.lastError().text()));
    }
    QSqlDatabase::removeDatabase(QStringLiteral("direct"));
    return ok;
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

// The print date as an English session writes it ("Monday, November 23, 2026").
QString englishDate()
{
    return QLocale(QLocale::English).toString(QDate::currentDate(), QLocale::LongFormat);
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
    void damagedTemplatesAreRefused_data();
    void damagedTemplatesAreRefused();
    void brokenWorkspacesAreRefused_data();
    void brokenWorkspacesAreRefused();
    void failedWritesKeepTheEarlierFile_data();
    void failedWritesKeepTheEarlierFile();
    void lockedDatabaseFailsTheJob();
    void demoKeepsAnExistingFolder();
    void englishDemoHoldsNoChinese_data();
    void englishDemoHoldsNoChinese();
    void chineseTemplatePrintsInEnglishSession();

private:
    QString path(const QString& name) const { return m_dir.filePath(name); }
    QString profile() const { return path(QStringLiteral("demo/profile.ini")); }
    // A copy of the demo workspace to damage; returns its profile.
    QString copyWorkspace(const QString& name) const;
    QStringList printTimes() const;

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
    QVERIFY2(mixed.err.contains(QStringLiteral("样本 %1 不会打印").arg(qcSampleNo)), qPrintable(mixed.err));
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
    QTest::newRow("no command") << QStringList() << QStringLiteral("没有给出命令");
    QTest::newRow("unknown command") << QStringList{QStringLiteral("print")}
                                     << QStringLiteral("未知的命令 'print'");
    QTest::newRow("unknown option") << QStringList{QStringLiteral("patients"), QStringLiteral("--colour")}
                                    << QStringLiteral("未知的选项 'colour'");
    QTest::newRow("no ids") << QStringList{QStringLiteral("patients"), p}
                            << QStringLiteral("至少给出一个病人编号");
    QTest::newRow("not an id") << QStringList{QStringLiteral("patients"), QStringLiteral("12a"), p}
                               << QStringLiteral("'12a' 不是病人编号");
    QTest::newRow("no profile") << QStringList{QStringLiteral("patients"), QStringLiteral("1")}
                                << QStringLiteral("需要配置文件");
    QTest::newRow("two destinations") << QStringList{QStringLiteral("qc"), p, QStringLiteral("-o"),
                                                     QStringLiteral("a.pdf"), QStringLiteral("--preview")}
                                      << QStringLiteral("只能给出 --output, --dialog 和 --preview 中的一个");
    QTest::newRow("bad month") << QStringList{QStringLiteral("maintenance"), p, QStringLiteral("--month"),
                                              QStringLiteral("2024-13")}
                               << QStringLiteral("--month '2024-13' 不是 yyyy-MM 格式的月份");
    QTest::newRow("no month") << QStringList{QStringLiteral("maintenance"), p}
                              << QStringLiteral("需要 --month");
    QTest::newRow("reversed range") << QStringList{QStringLiteral("qc"),     p,
                                                   QStringLiteral("--from"), QStringLiteral("2024-06-30"),
                                                   QStringLiteral("--to"),   QStringLiteral("2024-06-01")}
                                    << QStringLiteral("--from 2024-06-30 晚于 --to 2024-06-01");
    QTest::newRow("option of another command")
        << QStringList{QStringLiteral("patients"), QStringLiteral("1"), p, QStringLiteral("--month"),
                       QStringLiteral("2024-06")}
        << QStringLiteral("选项 --month 不适用于命令 'patients'");
    QTest::newRow("unknown language") << QStringList{QStringLiteral("demo"), QStringLiteral("x"),
                                                     QStringLiteral("--language"), QStringLiteral("fr")}
                                      << QStringLiteral("--language 'fr' 不是 zh_CN 或 en");
    QTest::newRow("demo without folder")
        << QStringList{QStringLiteral("demo")} << QStringLiteral("需要且只需要一个文件夹");
    QTest::newRow("option without value")
        << QStringList{QStringLiteral("patients"), QStringLiteral("1"), p, QStringLiteral("-o")}
        << QStringLiteral("选项 -o 需要一个值");
    QTest::newRow("check without templates")
        << QStringList{QStringLiteral("check")} << QStringLiteral("命令 'check' 需要模板文件");
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
                                     << QStringLiteral("没有编号为 99999 的病人");
    QTest::newRow("unknown sample") << QStringList{QStringLiteral("samples"), QStringLiteral("X-1")} + pdf
                                    << QStringLiteral("没有样本号为 'X-1' 的样本");
    QTest::newRow("unknown reagent") << QStringList{QStringLiteral("qc"), QStringLiteral("999")} + pdf
                                     << QStringLiteral("没有编号为 999 的试剂");
    QTest::newRow("unknown workbench")
        << QStringList{QStringLiteral("maintenance"), QStringLiteral("--month"), QStringLiteral("2024-06"),
                       QStringLiteral("--workbench"), QStringLiteral("9")} +
               pdf
        << QStringLiteral("没有编号为 9 的工作台");
    QTest::newRow("unknown template")
        << QStringList{QStringLiteral("patients"), QStringLiteral("1"), QStringLiteral("--template"),
                       QStringLiteral("无此模板")} +
               pdf
        << QStringLiteral("中没有名为 '无此模板' 的病人结果报告模板");
    QTest::newRow("preview without display")
        << QStringList{QStringLiteral("patients"), QStringLiteral("1"), QStringLiteral("--preview")}
        << QStringLiteral("--dialog 和 --preview 需要图形显示");
    // Neither a platform nor a display named: nothing the platform plug-in could abort on.
    QTest::newRow("dialog without any display")
        << QStringList{QStringLiteral("patients"), QStringLiteral("1"), QStringLiteral("--dialog"),
                       QStringLiteral("--no-platform")}
        << QStringLiteral("--dialog 和 --preview 需要图形显示");
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
    QVERIFY2(missing.err.contains(
                 QStringLiteral("配置文件 %1 不存在").arg(path(QStringLiteral("nowhere/profile.ini")))),
             qPrintable(missing.err));
    QVERIFY(!QFile::exists(path(QStringLiteral("nowhere/profile.ini"))));
}

void TestPrintTool::helpDescribesTheCommands()
{
    const Run run = runTool({QStringLiteral("--help")});
    QCOMPARE(run.exitCode, 0);
    for (const char* word :
         {"patients", "samples", "qc", "maintenance", "templates", "check", "demo", "--help", "--version"})
        QVERIFY2(run.out.contains(QLatin1String(word)), word);
    // Each command's help shows its own options only.
    const Run patients = runTool({QStringLiteral("patients"), QStringLiteral("--help")});
    QCOMPARE(patients.exitCode, 0);
    QVERIFY2(patients.out.startsWith(QStringLiteral("用法: coagulation-print patients")),
             qPrintable(patients.out));
    for (const char* word : {"--profile", "--output", "--preview", "--dialog", "--template", "--pdfa"})
        QVERIFY2(patients.out.contains(QLatin1String(word)), word);
    QVERIFY(!patients.out.contains(QLatin1String("--month")));
    const Run demo = runTool({QStringLiteral("demo"), QStringLiteral("-h")});
    QVERIFY(demo.out.contains(QLatin1String("--force")) && !demo.out.contains(QLatin1String("--output")));
    const Run version = runTool({QStringLiteral("--version")});
    QCOMPARE(version.exitCode, 0);
    QVERIFY2(version.out.startsWith(QStringLiteral("coagulation-print 1.")), qPrintable(version.out));
}

QString TestPrintTool::copyWorkspace(const QString& name) const
{
    const QDir source(path(QStringLiteral("demo")));
    QDir target(path(name));
    target.removeRecursively();
    QDir().mkpath(target.filePath(QStringLiteral("templates")));
    for (const QString& file : source.entryList(QDir::Files))
        QFile::copy(source.filePath(file), target.filePath(file));
    const QDir templates(source.filePath(QStringLiteral("templates")));
    for (const QString& file : templates.entryList(QDir::Files))
        QFile::copy(templates.filePath(file), target.filePath(QStringLiteral("templates/") + file));
    return target.filePath(QStringLiteral("profile.ini"));
}

// Every patient's print time, in id order (empty when the table cannot be read).
QStringList TestPrintTool::printTimes() const
{
    QStringList times;
    {
        QSqlDatabase db = QSqlDatabase::addDatabase(QStringLiteral("QSQLITE"), QStringLiteral("times"));
        db.setDatabaseName(path(QStringLiteral("demo/data.db")));
        QSqlQuery query(db);
        if (db.open() && query.exec(QStringLiteral("select printTime from patient order by id"))) {
            while (query.next())
                times.append(query.value(0).toString());
        }
    }
    QSqlDatabase::removeDatabase(QStringLiteral("times"));
    return times;
}

void TestPrintTool::damagedTemplatesAreRefused_data()
{
    QTest::addColumn<QByteArray>("bytes");
    QTest::addColumn<QString>("message");
    QByteArray good;
    for (const DefaultTemplate& entry : DefaultTemplates::all()) {
        if (entry.settingKey == QLatin1String("report/template"))
            good = fileBytes(path(QStringLiteral("demo/templates/%1.rpt").arg(entry.name())));
    }
    QVERIFY(good.size() > 1000);
    QTest::newRow("cut after the header") << good.left(41) << QStringLiteral("文件在第 1 个项目处被截断");
    QTest::newRow("cut in the middle") << good.left(good.size() / 2) << QStringLiteral("已损坏: 文件在第");
    QTest::newRow("one byte short") << good.left(good.size() - 1) << QStringLiteral("或该项目已损坏");
    QTest::newRow("dpi 0") << QByteArray(good).replace(5, 4, QByteArray(4, 0))
                           << QStringLiteral("分辨率无效");
    // The result table's row count: after its key, position (16 bytes), transform (72) and version.
    QByteArray key;
    QDataStream out(&key, QIODevice::WriteOnly);
    out << QStringLiteral("Results");
    const int at = good.indexOf(key);
    QVERIFY(at > 0);
    QTest::newRow("grid count") << QByteArray(good).replace(at + key.size() + 16 + 72 + 1, 4,
                                                            QByteArray::fromHex("7fffffff"))
                                << QStringLiteral("(Results): 模板超出限制");
}

// Nothing printed, nothing recorded; the check command finds the same damage.
void TestPrintTool::damagedTemplatesAreRefused()
{
    QFETCH(QByteArray, bytes);
    QFETCH(QString, message);
    const QString bad = path(QStringLiteral("damaged/坏.rpt"));
    QDir().mkpath(path(QStringLiteral("damaged")));
    QFile file(bad);
    QVERIFY(file.open(QIODevice::WriteOnly | QIODevice::Truncate));
    file.write(bytes);
    file.close();
    const QStringList before = printTimes();
    const QString pdf = path(QStringLiteral("out/damaged.pdf"));
    const Run run =
        runTool({QStringLiteral("patients"), QStringLiteral("1"), QStringLiteral("2"), QStringLiteral("-p"),
                 profile(), QStringLiteral("--template-dir"), path(QStringLiteral("damaged")),
                 QStringLiteral("--template"), QStringLiteral("坏"), QStringLiteral("-o"), pdf});
    QCOMPARE(run.exitCode, 1);
    QVERIFY2(run.err.contains(QStringLiteral("模板 %1 已损坏: ").arg(bad)) && run.err.contains(message),
             qPrintable(run.err));
    QVERIFY(!QFile::exists(pdf));
    QCOMPARE(printTimes(), before);

    const QString good = path(QStringLiteral("demo/templates/室内质控报告.rpt"));
    const Run check = runTool({QStringLiteral("check"), good, bad});
    QCOMPARE(check.exitCode, 1);
    QVERIFY2(check.out.contains(good + QStringLiteral(": 完好")), qPrintable(check.out));
    QVERIFY2(check.err.contains(message), qPrintable(check.err));
    // The demo's own templates are all complete.
    const Run all = runTool({QStringLiteral("check"), QStringLiteral("-p"), profile()});
    QCOMPARE(all.exitCode, 0);
    QCOMPARE(all.out.count(QStringLiteral(": 完好")), DefaultTemplates::all().size());
}

void TestPrintTool::brokenWorkspacesAreRefused_data()
{
    QTest::addColumn<QString>("database");
    QTest::addColumn<QString>("sql"); // empty: the file is removed
    QTest::addColumn<QStringList>("job");
    QTest::addColumn<QString>("message");
    const QStringList patients = {QStringLiteral("patients"), QStringLiteral("1"), QStringLiteral("2")};
    QTest::newRow("no result table") << "data.db"
                                     << "drop table result" << patients << "中没有表 \"result\"";
    QTest::newRow("no display order")
        << "data.db"
        << "drop index result_patient; alter table result drop column displayOrder" << patients
        << "的表 \"result\" 中没有列 \"displayOrder\"";
    QTest::newRow("no assay items") << "config.db"
                                    << "drop table assayItem" << patients << "中没有表 \"assayItem\"";
    QTest::newRow("no print time") << "data.db"
                                   << "alter table patient drop column printTime" << patients
                                   << "的表 \"patient\" 中没有列 \"printTime\"";
    QTest::newRow("no data database") << "data.db" << QString() << patients << "不存在";
    QTest::newRow("no QC results") << "qc.db"
                                   << "drop table qcResult" << QStringList{QStringLiteral("qc")}
                                   << "中没有表 \"qcResult\"";
    QTest::newRow("no QC database") << "qc.db" << QString()
                                    << QStringList{QStringLiteral("maintenance"), QStringLiteral("--month"),
                                                   QStringLiteral("2024-06")}
                                    << "不存在";
}

// A job whose data is not all there prints nothing and records nothing; no database is created.
void TestPrintTool::brokenWorkspacesAreRefused()
{
    QFETCH(QString, database);
    QFETCH(QString, sql);
    QFETCH(QStringList, job);
    QFETCH(QString, message);
    const QString workspace = copyWorkspace(QStringLiteral("broken"));
    const QString file = path(QStringLiteral("broken/") + database);
    if (sql.isEmpty()) {
        QVERIFY(QFile::remove(file));
    } else {
        for (const QString& statement : sql.split(QStringLiteral("; ")))
            QVERIFY(execOn(file, statement));
    }
    const QByteArray before = fileBytes(path(QStringLiteral("broken/data.db")));
    const QString pdf = path(QStringLiteral("out/broken.pdf"));
    const Run run = runTool(job + QStringList{QStringLiteral("-p"), workspace, QStringLiteral("-o"), pdf});
    QCOMPARE(run.exitCode, 1);
    QVERIFY2(run.err.contains(QStringLiteral("数据库")) && run.err.contains(file) &&
                 run.err.contains(message),
             qPrintable(run.err));
    QVERIFY(!QFile::exists(pdf));
    QCOMPARE(fileBytes(path(QStringLiteral("broken/data.db"))), before);
    QCOMPARE(QFile::exists(file), !sql.isEmpty());
}

void TestPrintTool::failedWritesKeepTheEarlierFile_data()
{
    QTest::addColumn<QString>("target");
    QTest::addColumn<qint64>("sizeLimit");
    QTest::newRow("file size limit") << path(QStringLiteral("out/limited.pdf")) << qint64(20000);
    QTest::newRow("full device") << QStringLiteral("/dev/full") << qint64(0);
}

// A PDF that cannot be written whole fails the job: the earlier file stays, no print time is written.
void TestPrintTool::failedWritesKeepTheEarlierFile()
{
    QFETCH(QString, target);
    QFETCH(qint64, sizeLimit);
    if (!QFileInfo::exists(target) || QFileInfo(target).isFile()) {
        QDir().mkpath(QFileInfo(target).absolutePath());
        QFile earlier(target);
        QVERIFY(earlier.open(QIODevice::WriteOnly));
        earlier.write("earlier report");
    }
    const QStringList before = printTimes();
    const Run run =
        runTool({QStringLiteral("patients"), QStringLiteral("5"), QStringLiteral("6"), QStringLiteral("7"),
                 QStringLiteral("-p"), profile(), QStringLiteral("-o"), target},
                QProcessEnvironment::systemEnvironment(), sizeLimit);
    QCOMPARE(run.exitCode, 1);
    QVERIFY2(run.err.contains(QStringLiteral("没有完整写出")) &&
                 run.err.contains(QStringLiteral("没有写出 %1; 没有记录打印时间").arg(target)),
             qPrintable(run.err));
    QCOMPARE(printTimes(), before);
    if (QFileInfo(target).isFile()) {
        QCOMPARE(fileBytes(target), QByteArray("earlier report"));
        // No temporary file is left beside it.
        QCOMPARE(QDir(QFileInfo(target).absolutePath())
                     .entryList(QDir::Files | QDir::Hidden)
                     .filter(QStringLiteral("limited")),
                 QStringList{QStringLiteral("limited.pdf")});
    }
}

// Another program's write lock delays the job, then fails it before anything is printed.
void TestPrintTool::lockedDatabaseFailsTheJob()
{
    const QStringList before = printTimes();
    const QString pdf = path(QStringLiteral("out/locked.pdf"));
    Run run;
    {
        QSqlDatabase db = QSqlDatabase::addDatabase(QStringLiteral("QSQLITE"), QStringLiteral("writer"));
        db.setDatabaseName(path(QStringLiteral("demo/data.db")));
        QVERIFY(db.open());
        QSqlQuery lock(db);
        QVERIFY(lock.exec(QStringLiteral("begin immediate")));
        run = runTool({QStringLiteral("patients"), QStringLiteral("3"), QStringLiteral("-p"), profile(),
                       QStringLiteral("-o"), pdf});
        QVERIFY(lock.exec(QStringLiteral("rollback")));
    }
    QSqlDatabase::removeDatabase(QStringLiteral("writer"));
    QCOMPARE(run.exitCode, 1);
    QVERIFY2(run.err.contains(QStringLiteral("数据库正被其他程序写入")), qPrintable(run.err));
    QVERIFY(!QFile::exists(pdf));
    QCOMPARE(printTimes(), before);
}

void TestPrintTool::demoKeepsAnExistingFolder()
{
    const QByteArray data = fileBytes(path(QStringLiteral("demo/data.db")));
    const QByteArray settings = fileBytes(profile());
    const Run run = runTool({QStringLiteral("demo"), path(QStringLiteral("demo"))});
    QCOMPARE(run.exitCode, 1);
    QVERIFY2(run.err.contains(QStringLiteral("文件夹 %1 不是空的").arg(path(QStringLiteral("demo")))) &&
                 run.err.contains(QStringLiteral("--force")),
             qPrintable(run.err));
    QCOMPARE(fileBytes(path(QStringLiteral("demo/data.db"))), data);
    QCOMPARE(fileBytes(profile()), settings);

    const QString again = copyWorkspace(QStringLiteral("again"));
    const Run forced =
        runTool({QStringLiteral("demo"), path(QStringLiteral("again")), QStringLiteral("--force"),
                 QStringLiteral("--patients"), QStringLiteral("3")});
    QVERIFY2(forced.exitCode == 0, qPrintable(forced.err));
    QVERIFY(fileBytes(path(QStringLiteral("again/data.db"))) != data);
    QVERIFY(QFile::exists(again));
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
                                             QStringLiteral("Prothrombin time"), QStringLiteral("Bed 53")};
    QTest::newRow("qc") << QStringList{QStringLiteral("qc"),     QStringLiteral("1"),
                                       QStringLiteral("--from"), QStringLiteral("2024-06-01"),
                                       QStringLiteral("--to"),   QStringLiteral("2024-06-28")}
                        << QStringList{QStringLiteral("Internal QC Report"),
                                       QStringLiteral("Coagulation control plasma"),
                                       QStringLiteral("Upper stop limit"),
                                       QStringLiteral("QC count"),
                                       QStringLiteral("N240261"),
                                       QStringLiteral("QC file no."),
                                       QStringLiteral("1-2s")};
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
    QVERIFY2(text.contains(englishDate()), qPrintable(text.right(200)));
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
    QVERIFY2(text.contains(englishDate()), qPrintable(text.right(200)));
}

#include "tst_printtool.moc"
