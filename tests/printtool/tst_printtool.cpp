// The print tool's own part: its commands and arguments, messages and exit codes, the files it
// writes or keeps, and the checks it makes before a job. What a print job puts on paper is the
// printing test's.
#include "../common/files.h"
#include "../common/pdf.h"
#include "../common/workspace.h"

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
#include <QTemporaryDir>
#include <QTest>

#include <csignal>
#include <sys/resource.h>

using namespace coagulation;
using test::fileBytes;
using test::pdfPageCount;

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

// Runs SQL on a workspace's database file through a connection of its own; rows gets the first
// column of every row.
bool sqlOn(const QString& databaseFile, const QString& sql, QStringList* rows = nullptr)
{
    bool ok = false;
    {
        QSqlDatabase db = QSqlDatabase::addDatabase(QStringLiteral("QSQLITE"), QStringLiteral("direct"));
        db.setDatabaseName(databaseFile);
        QSqlQuery query(db);
        ok = db.open() && query.exec(sql);
        if (!ok)
            qWarning("%s: %s", qPrintable(sql), qPrintable(query.lastError().text()));
        while (rows && query.next())
            rows->append(query.value(0).toString());
    }
    QSqlDatabase::removeDatabase(QStringLiteral("direct"));
    return ok;
}

} // namespace

class TestPrintTool : public QObject
{
    Q_OBJECT
private Q_SLOTS:
    void initTestCase();
    void jobs_data();
    void jobs();
    void messages_data();
    void messages();
    void damagedTemplateIsRefused();
    void brokenWorkspacesAreRefused_data();
    void brokenWorkspacesAreRefused();
    void failedWritesKeepTheEarlierFile_data();
    void failedWritesKeepTheEarlierFile();
    void demoKeepsAnExistingFolder();
    void sessionLanguage_data();
    void sessionLanguage();

private:
    QString path(const QString& name) const { return m_dir.filePath(name); }
    QString profile() const { return path(QStringLiteral("demo/profile.ini")); }
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
    // The demo remembers its templates, which the templates command lists with their keys.
    const Run listed = runTool({QStringLiteral("templates"), QStringLiteral("-p"), profile()});
    QVERIFY2(listed.exitCode == 0, qPrintable(listed.err));
    Profile workspace(profile());
    for (const DefaultTemplate& entry : DefaultTemplates::all()) {
        QCOMPARE(workspace.value(entry.settingKey).toString(), entry.name());
        QVERIFY(QFile::exists(path(QStringLiteral("demo/templates/%1.rpt").arg(entry.name()))));
        QVERIFY2(listed.out.contains(entry.name()) && listed.out.contains(entry.settingKey),
                 qPrintable(listed.out));
    }
    QSqlQuery query(workspace.dataDatabase());
    QVERIFY(query.exec(QStringLiteral("select count(*) from patient")) && query.next());
    QCOMPARE(query.value(0).toInt(), 40);
    // Patient 30 gets more results than the patient template has rows for.
    for (int i = 0; i < DefaultTemplates::patientResultRows; ++i)
        QVERIFY(
            query.exec(QStringLiteral("insert into result (patientId, item, subitem, abbr, code, result, "
                                      "unit, flag, lowerMarkLimit, upperMarkLimit, displayOrder) select 30, "
                                      "item, subitem, abbr, code, result, unit, flag, lowerMarkLimit, "
                                      "upperMarkLimit, displayOrder from result where patientId = 30 and "
                                      "abbr = 'PT-S' limit 1")));
}

void TestPrintTool::jobs_data()
{
    QTest::addColumn<QStringList>("arguments");
    QTest::addColumn<QString>("unset"); // a template choice the workspace forgets for the job
    QTest::addColumn<int>("exitCode");
    QTest::addColumn<int>("pages");            // -1: no file
    QTest::addColumn<QString>("printed");      // ids of the patients recorded as printed
    QTest::addColumn<QStringList>("messages"); // on standard error; none: it stays empty

    Profile workspace(profile());
    QSqlQuery query(workspace.dataDatabase());
    QStringList sampleNos, names;
    QVERIFY(query.exec(QStringLiteral("select sampleNo, name from patient order by id")));
    while (query.next()) {
        sampleNos << query.value(0).toString();
        names << query.value(1).toString();
    }
    QString qcSampleNo;
    for (const QString& sampleNo : sampleNos) {
        if (qcSampleNo.isEmpty() && Sample::sampleTypeOf(sampleNo, &workspace) == kv::QcSample)
            qcSampleNo = sampleNo;
    }
    QVERIFY(!qcSampleNo.isEmpty());
    // QC pages: the points of each series over the rows of the QC template's result table.
    ItemFactory factory(&workspace);
    Report report(&workspace, &factory);
    QVERIFY(report.load(path(QStringLiteral("demo/templates/室内质控报告.rpt"))));
    int perPage = 0;
    for (ReportItem* item : report.reportItems()) {
        if (auto* table = dynamic_cast<ReportQcTableItem*>(item))
            perPage = table->rowsPerBlock() * table->columns();
    }
    QVERIFY(perPage > 0);
    QSqlQuery series(workspace.qcDatabase());
    QVERIFY(
        series.exec(QStringLiteral("select reagentId, count(*) from qcResult group by reagentId limit 2")));
    QStringList qc = {QStringLiteral("qc")};
    int qcPages = 0;
    while (series.next()) {
        qc << series.value(0).toString();
        qcPages += qMax(1, (series.value(1).toInt() + perPage - 1) / perPage);
    }
    QCOMPARE(qc.size(), 3);

    const QStringList patients = {QStringLiteral("patients"), QStringLiteral("30")};
    const QStringList overflow = {
        QStringLiteral("警告"),
        QStringLiteral("病人 %1（样本号 %2）：表格 Results 有").arg(names.at(29), sampleNos.at(29))};
    QTest::newRow("patients by id") << QStringList{"patients", "1", "2", "4"} << "" << 0 << 3 << "1 2 4"
                                    << QStringList();
    QTest::newRow("sample by number")
        << QStringList{"samples", sampleNos.at(6)} << "" << 0 << 1 << "7" << QStringList();
    // Nobody can pick the QC samples' template: the tool says so and does not wait for an answer.
    QTest::newRow("qc sample without a template")
        << QStringList{"samples", qcSampleNo, sampleNos.at(6)} << "report/qc" << 0 << 1 << "7"
        << QStringList{
               QStringLiteral("没有为质控样本选择模板 (配置项 report/qc): 样本 %1 不会打印").arg(qcSampleNo)};
    QTest::newRow("qc series") << qc << "" << 0 << qcPages << "" << QStringList();
    QTest::newRow("qc series, one day")
        << QStringList{"qc", "1", "2", "--from", "2024-06-28", "--to", "2024-06-28"} << "" << 0 << 2 << ""
        << QStringList();
    QTest::newRow("maintenance month, archival")
        << QStringList{"maintenance", "--month", "2024-06", "--pdfa"} << "" << 0 << 1 << "" << QStringList();
    // Patient 11 is the demo's worst case: every assay twice and a long remark; it fits.
    QTest::newRow("worst demo patient")
        << QStringList{"patients", "11"} << "" << 0 << 1 << "11" << QStringList();
    QTest::newRow("overflow warned") << patients << "" << 0 << 1 << "30" << overflow;
    QTest::newRow("overflow refused")
        << patients + QStringList{"--strict"} << "" << 1 << -1 << "" << overflow;
}

// Each command prints what it names, records print times for exactly those patients and says
// where the file is; what outgrows its template is warned about, or refused with --strict.
void TestPrintTool::jobs()
{
    QFETCH(QStringList, arguments);
    QFETCH(QString, unset);
    QFETCH(int, exitCode);
    QFETCH(int, pages);
    QFETCH(QString, printed);
    QFETCH(QStringList, messages);
    const QString data = path(QStringLiteral("demo/data.db"));
    QVERIFY(sqlOn(data, QStringLiteral("update patient set printTime = null")));
    const QString pdf = path(QStringLiteral("out/job.pdf"));
    QFile::remove(pdf);
    QString choice;
    if (!unset.isEmpty()) {
        choice = Profile(profile()).value(unset).toString();
        Profile(profile()).setValue(unset, QString(), true);
    }
    const Run run =
        runTool(arguments + QStringList{QStringLiteral("-p"), profile(), QStringLiteral("-o"), pdf});
    if (!unset.isEmpty())
        Profile(profile()).setValue(unset, choice, true);
    QCOMPARE(run.exitCode, exitCode);
    QCOMPARE(pdfPageCount(pdf), pages);
    QCOMPARE(run.out.contains(QDir::toNativeSeparators(pdf)), exitCode == 0);
    QStringList ids;
    QVERIFY(
        sqlOn(data, QStringLiteral("select id from patient where printTime is not null order by id"), &ids));
    QCOMPARE(ids.join(QLatin1Char(' ')), printed);
    if (messages.isEmpty())
        QVERIFY2(run.err.isEmpty(), qPrintable(run.err));
    for (const QString& message : messages)
        QVERIFY2(run.err.contains(message), qPrintable(run.err));
    if (arguments.contains(QStringLiteral("--pdfa"))) {
        const QString meta = test::pdfTool(QStringLiteral("pdfinfo"), {QStringLiteral("-meta"), pdf});
        QVERIFY2(meta.contains(QStringLiteral("<pdfaid:part>1</pdfaid:part>")), qPrintable(meta));
    }
}

void TestPrintTool::messages_data()
{
    QTest::addColumn<QStringList>("arguments");
    QTest::addColumn<int>("exitCode"); // 2: bad arguments, which point to --help; 1: the job cannot be done
    QTest::addColumn<QStringList>("present"); // in what the tool writes
    QTest::addColumn<QStringList>("absent");
    auto row = [](const char* name, const QStringList& arguments, int exitCode, const QStringList& present,
                  const QStringList& absent = QStringList()) {
        QTest::newRow(name) << arguments << exitCode << present << absent;
    };
    row("help", {"--help"}, 0,
        {"patients", "samples", "qc", "maintenance", "templates", "check", "demo", "--help", "--version"});
    // Each command's help shows its own options only.
    row("command help", {"patients", "--help"}, 0,
        {"用法: coagulation-print patients", "--profile", "--output", "--preview", "--dialog", "--template",
         "--pdfa"},
        {"--month"});
    row("demo help", {"demo", "-h"}, 0, {"--force"}, {"--output"});
    row("version", {"--version"}, 0, {"coagulation-print 1."});

    const QString p = QStringLiteral("--profile=x.ini");
    row("no command", {}, 2, {"没有给出命令"});
    row("unknown command", {"print"}, 2, {"未知的命令 'print'"});
    row("unknown option", {"patients", "--colour"}, 2, {"未知的选项 'colour'"});
    row("no ids", {"patients", p}, 2, {"至少给出一个病人编号"});
    row("not an id", {"patients", "12a", p}, 2, {"'12a' 不是病人编号"});
    row("no profile", {"patients", "1"}, 2, {"需要配置文件"});
    row("two destinations", {"qc", p, "-o", "a.pdf", "--preview"}, 2,
        {"只能给出 --output, --dialog 和 --preview 中的一个"});
    row("bad month", {"maintenance", p, "--month", "2024-13"}, 2,
        {"--month '2024-13' 不是 yyyy-MM 格式的月份"});
    row("no month", {"maintenance", p}, 2, {"需要 --month"});
    row("reversed range", {"qc", p, "--from", "2024-06-30", "--to", "2024-06-01"}, 2,
        {"--from 2024-06-30 晚于 --to 2024-06-01"});
    row("option of another command", {"patients", "1", p, "--month", "2024-06"}, 2,
        {"选项 --month 不适用于命令 'patients'"});
    row("unknown language", {"demo", "x", "--language", "fr"}, 2, {"--language 'fr' 不是 zh_CN 或 en"});
    row("demo without folder", {"demo"}, 2, {"需要且只需要一个文件夹"});
    row("option without value", {"patients", "1", p, "-o"}, 2, {"选项 -o 需要一个值"});
    row("check without templates", {"check"}, 2, {"命令 'check' 需要模板文件"});

    const QString workspace = QStringLiteral("--profile=") + profile();
    const QString pdf = QStringLiteral("--output=") + path(QStringLiteral("out/never.pdf"));
    const QString nowhere = path(QStringLiteral("nowhere/profile.ini"));
    row("missing profile", {"patients", "1", "-p", nowhere}, 1,
        {QStringLiteral("配置文件 %1 不存在").arg(nowhere)});
    row("unknown patient", {"patients", "99999", workspace, pdf}, 1, {"没有编号为 99999 的病人"});
    row("unknown sample", {"samples", "X-1", workspace, pdf}, 1, {"没有样本号为 'X-1' 的样本"});
    row("unknown reagent", {"qc", "999", workspace, pdf}, 1, {"没有编号为 999 的试剂"});
    row("unknown workbench", {"maintenance", "--month", "2024-06", "--workbench", "9", workspace, pdf}, 1,
        {"没有编号为 9 的工作台"});
    row("unknown template", {"patients", "1", "--template", "无此模板", workspace, pdf}, 1,
        {"中没有名为 '无此模板' 的病人结果报告模板"});
    row("preview without display", {"patients", "1", "--preview", workspace}, 1,
        {"--dialog 和 --preview 需要图形显示"});
    // Neither a platform nor a display named: nothing the platform plug-in could abort on.
    row("dialog without any display", {"patients", "1", "--dialog", "--no-platform", workspace}, 1,
        {"--dialog 和 --preview 需要图形显示"});
}

// Refused jobs print nothing and create no profile or database.
void TestPrintTool::messages()
{
    QFETCH(QStringList, arguments);
    QFETCH(int, exitCode);
    QFETCH(QStringList, present);
    QFETCH(QStringList, absent);
    QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
    if (arguments.removeAll(QStringLiteral("--no-platform"))) {
        for (const char* name : {"QT_QPA_PLATFORM", "DISPLAY", "WAYLAND_DISPLAY"})
            environment.remove(QString::fromLatin1(name));
    }
    const Run run = runTool(arguments, environment);
    QCOMPARE(run.exitCode, exitCode);
    const QString written = exitCode == 0 ? run.out : run.err;
    for (const QString& text : present)
        QVERIFY2(written.contains(text), qPrintable(text + QLatin1Char('\n') + written));
    for (const QString& text : absent)
        QVERIFY2(!written.contains(text), qPrintable(text));
    if (exitCode == 2)
        QVERIFY2(run.err.contains(QStringLiteral("--help")), qPrintable(run.err));
    QVERIFY(!QFile::exists(path(QStringLiteral("out/never.pdf"))));
    QVERIFY(!QFile::exists(path(QStringLiteral("nowhere"))));
}

// Every patient's print time, in id order (empty when the table cannot be read).
QStringList TestPrintTool::printTimes() const
{
    QStringList times;
    sqlOn(path(QStringLiteral("demo/data.db")), QStringLiteral("select printTime from patient order by id"),
          &times);
    return times;
}

// A damaged template prints and records nothing; the check command finds the same damage.
void TestPrintTool::damagedTemplateIsRefused()
{
    const QString patientTemplate = path(QStringLiteral("demo/templates/凝血检验报告单.rpt"));
    const QByteArray good = fileBytes(patientTemplate);
    QVERIFY(good.size() > 1000);
    const QString bad = path(QStringLiteral("damaged/坏.rpt"));
    QDir().mkpath(path(QStringLiteral("damaged")));
    QVERIFY(test::writeFile(bad, good.left(good.size() / 2)));
    const QStringList before = printTimes();
    const QString pdf = path(QStringLiteral("out/damaged.pdf"));
    const Run run =
        runTool({QStringLiteral("patients"), QStringLiteral("1"), QStringLiteral("2"), QStringLiteral("-p"),
                 profile(), QStringLiteral("--template-dir"), path(QStringLiteral("damaged")),
                 QStringLiteral("--template"), QStringLiteral("坏"), QStringLiteral("-o"), pdf});
    const QString message = QStringLiteral("模板 %1 已损坏: 文件在第").arg(bad);
    QCOMPARE(run.exitCode, 1);
    QVERIFY2(run.err.contains(message), qPrintable(run.err));
    QVERIFY(!QFile::exists(pdf));
    QCOMPARE(printTimes(), before);

    const Run check = runTool({QStringLiteral("check"), patientTemplate, bad});
    QCOMPARE(check.exitCode, 1);
    QVERIFY2(check.out.contains(patientTemplate + QStringLiteral(": 完好")), qPrintable(check.out));
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
    test::DemoWorkspace broken;
    QVERIFY2(broken.create(test::LabSize(), test::DemoWorkspace::DefaultTemplates),
             qPrintable(broken.errorString()));
    const QString file = broken.filePath(database);
    if (sql.isEmpty()) {
        QVERIFY(QFile::remove(file));
    } else {
        for (const QString& statement : sql.split(QStringLiteral("; ")))
            QVERIFY(sqlOn(file, statement));
    }
    const QByteArray before = fileBytes(broken.filePath(QStringLiteral("data.db")));
    const QString pdf = path(QStringLiteral("out/broken.pdf"));
    const Run run =
        runTool(job + QStringList{QStringLiteral("-p"), broken.profileFile(), QStringLiteral("-o"), pdf});
    QCOMPARE(run.exitCode, 1);
    QVERIFY2(run.err.contains(QStringLiteral("数据库")) && run.err.contains(file) &&
                 run.err.contains(message),
             qPrintable(run.err));
    QVERIFY(!QFile::exists(pdf));
    QCOMPARE(fileBytes(broken.filePath(QStringLiteral("data.db"))), before);
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
        QVERIFY(test::writeFile(target, "earlier report"));
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

    // Forced, it makes the demo again in an existing workspace.
    test::DemoWorkspace again;
    QVERIFY2(again.create(), qPrintable(again.errorString()));
    const QByteArray earlier = fileBytes(again.filePath(QStringLiteral("data.db")));
    const Run forced = runTool({QStringLiteral("demo"), again.filePath(QString()), QStringLiteral("--force"),
                                QStringLiteral("--patients"), QStringLiteral("3")});
    QVERIFY2(forced.exitCode == 0, qPrintable(forced.err));
    QVERIFY(fileBytes(again.filePath(QStringLiteral("data.db"))) != earlier);
    QCOMPARE(Profile(again.profileFile()).value(QStringLiteral("report/qctemplate")).toString(),
             QStringLiteral("室内质控报告"));
}

void TestPrintTool::sessionLanguage_data()
{
    QTest::addColumn<bool>("englishDemo"); // else the Chinese demo
    QTest::addColumn<QStringList>("job");
    QTest::addColumn<QStringList>("expected"); // texts of template, data and locale
    // Patients 1 to 3 and the first QC sample (its own template) of the English demo.
    QTest::newRow("english patients")
        << true << QStringList{"patients", "1", "2", "3", "qcsample"}
        << QStringList{"Coagulation Test Report", "QC Sample Test Report", "Example City General Hospital",
                       "Prothrombin time", "Bed 53"};
    QTest::newRow("english qc") << true
                                << QStringList{"qc", "1", "--from", "2024-06-01", "--to", "2024-06-28"}
                                << QStringList{"Internal QC Report",
                                               "Coagulation control plasma",
                                               "Upper stop limit",
                                               "QC count",
                                               "N240261",
                                               "QC file no.",
                                               "1-2s"};
    QTest::newRow("english maintenance")
        << true << QStringList{"maintenance", "--month", "2024-06"}
        << QStringList{"Coagulation Analyser Maintenance Record", "Daily maintenance", "Weekly maintenance"};
    // A template keeps its own captions whatever the session's language.
    QTest::newRow("chinese template")
        << false << QStringList{"patients", "1"}
        << QStringList{"凝血检验报告单", "姓名：", "检验者：", "本报告仅对所检测标本负责"};
}

// An English session prints English texts and dates; an English demo holds no Chinese at all.
void TestPrintTool::sessionLanguage()
{
    QFETCH(bool, englishDemo);
    QFETCH(QStringList, job);
    QFETCH(QStringList, expected);
    const QString folder = path(englishDemo ? QStringLiteral("english") : QStringLiteral("demo"));
    const QString workspace = QDir(folder).filePath(QStringLiteral("profile.ini"));
    if (!QFile::exists(workspace)) {
        const Run demo = runTool({QStringLiteral("demo"), folder, QStringLiteral("--patients"),
                                  QStringLiteral("30"), QStringLiteral("--language"), QStringLiteral("en")});
        QVERIFY2(demo.exitCode == 0, qPrintable(demo.err));
    }
    const int qcSample = job.indexOf(QStringLiteral("qcsample"));
    if (qcSample >= 0) {
        Profile profile(workspace);
        QSqlQuery query(profile.dataDatabase());
        QVERIFY(query.exec(QStringLiteral("select min(id) from patient where department = 'Laboratory'")));
        QVERIFY(query.next() && !query.value(0).isNull());
        job[qcSample] = query.value(0).toString();
    }
    const QString pdf = path(QStringLiteral("out/%1.pdf").arg(QString::fromLatin1(QTest::currentDataTag())));
    const Run run = runTool(job + QStringList{QStringLiteral("-p"), workspace, QStringLiteral("-o"), pdf,
                                              QStringLiteral("--language"), QStringLiteral("en")});
    QVERIFY2(run.exitCode == 0, qPrintable(run.err));
    const QString text = test::pdfPageTexts(pdf).join(QString());
    static const QRegularExpression cjk(QStringLiteral("[\\x{2e80}-\\x{9fff}\\x{ff00}-\\x{ffef}]"));
    const QRegularExpressionMatch chinese = cjk.match(text);
    QVERIFY2(!englishDemo || !chinese.hasMatch(),
             qPrintable(text.mid(qMax(0, int(chinese.capturedStart()) - 40), 80)));
    for (const QString& phrase : expected)
        QVERIFY2(text.contains(phrase), qPrintable(phrase + QLatin1Char('\n') + text));
    // The print date as an English session writes it ("Monday, November 23, 2026").
    const QString date = QLocale(QLocale::English).toString(QDate::currentDate(), QLocale::LongFormat);
    QVERIFY2(text.contains(date), qPrintable(text.right(200)));
}

QTEST_MAIN(TestPrintTool)
#include "tst_printtool.moc"
