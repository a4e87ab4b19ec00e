#include <core/profile.h>
#include <kvcore/assayitem.h>
#include <kvcore/maintenanceexportdata.h>
#include <kvcore/qcexportdata.h>
#include <reportitem.h>

#include <QFile>

#include <QLocale>
#include <QRegularExpression>
#include <QSqlQuery>
#include <QTemporaryDir>
#include <QTest>

using namespace coagulation;

namespace {

void exec(QSqlDatabase db, const QString& sql)
{
    QSqlQuery query(db);
    QVERIFY2(query.exec(sql), qPrintable(sql));
}

void createPatients(QSqlDatabase db)
{
    exec(db, "create table patient (id integer primary key, name text, age integer, collectTime DATETIME, "
             "birthday date, checkTime Time, stamp TIMESTAMP, reportTime DATETIME)");
    exec(db, "insert into patient values (1, '王芳', 47, '2026-11-23 08:30:15', '1979-04-02', "
             "'2026-11-23 09:45:00', '2026-11-23 10:00:00', NULL)");
    exec(db, "insert into patient values (2, '李强', 8, '2026-11-22 14:05:00', NULL, '16:20:00', NULL, "
             "'2026-11-22 18:00:00')");
}

// Counts refreshes, and takes the next maintenance record type the way a maintenance table does.
class ProbeItem : public ReportRectItem
{
public:
    int prepared = 0;
    int updated = 0;
    int recordType = 0;
    void prepareData() override { ++prepared; }
    void updateData() override
    {
        ++updated;
        if (const MaintenanceExportData* data = report()->maintenanceData()) {
            recordType = data->recordType;
            data->recordType = MaintenanceManager::RecordType(data->recordType + 1);
        }
    }
};

ReportFieldItem* addField(Report& report, Profile* profile, const QString& table, const QString& field)
{
    auto* item = new ReportFieldItem(profile, table, field);
    report.addItem(item);
    return item;
}

} // namespace

class tst_DataBinding : public QObject
{
    Q_OBJECT
private Q_SLOTS:
    void initTestCase() { QLocale::setDefault(QLocale(QLocale::Chinese, QLocale::China)); }
    void fieldTypes();
    void patientFieldsFormatted();
    void qcBinding();
    void maintenanceSequence();
    void brokenDatabases_data();
    void brokenDatabases();
};

void tst_DataBinding::fieldTypes()
{
    Profile profile;
    createPatients(profile.dataDatabase());
    Report report(&profile, nullptr);
    QCOMPARE(report.fieldType("patient", "collectTime"), QMetaType::QString); // nothing cached yet
    report.fetchData(1, profile.dataDatabase());
    QCOMPARE(report.fieldType("patient", "collectTime"), QMetaType::QDateTime);
    QCOMPARE(report.fieldType("patient", "birthday"), QMetaType::QDate);
    QCOMPARE(report.fieldType("patient", "checkTime"), QMetaType::QTime);
    QCOMPARE(report.fieldType("patient", "stamp"), QMetaType::QString);
    QCOMPARE(report.fieldType("patient", "age"), QMetaType::Int);
    QCOMPARE(report.fieldType("patient", "name"), QMetaType::QString);
    QCOMPARE(report.fieldType("patient", "nosuchcolumn"), QMetaType::QString);
    QCOMPARE(report.fieldType("nosuchtable", "name"), QMetaType::QString);
    QCOMPARE(report.record("patient").value("name").toString(), QStringLiteral("王芳"));
    QVERIFY(report.record("result").isEmpty());

    // The table changes its declared types: the report keeps what it read the first time.
    exec(profile.dataDatabase(), "drop table patient");
    exec(profile.dataDatabase(), "create table patient (id integer primary key, collectTime text)");
    exec(profile.dataDatabase(), "insert into patient values (1, '2026-01-01 10:00:00')");
    report.fetchData(1, profile.dataDatabase());
    QCOMPARE(report.fieldType("patient", "collectTime"), QMetaType::QDateTime);
    QCOMPARE(report.record("patient").value("collectTime").toString(), QStringLiteral("2026-01-01 10:00:00"));
}

void tst_DataBinding::patientFieldsFormatted()
{
    Profile profile;
    createPatients(profile.dataDatabase());
    Report report(&profile, nullptr);
    auto* name = addField(report, &profile, "patient", "name");
    auto* age = addField(report, &profile, "patient", "age");
    auto* collect = addField(report, &profile, "patient", "collectTime");
    auto* birthday = addField(report, &profile, "patient", "birthday");
    auto* check = addField(report, &profile, "patient", "checkTime");
    auto* reportTime = addField(report, &profile, "patient", "reportTime");
    auto* probe = new ProbeItem;
    report.addItem(probe);
    name->setAlignment(Qt::AlignRight);
    QCOMPARE(name->toPlainText(), QStringLiteral("[name]"));

    const QLocale zh;
    report.fetchData(1, profile.dataDatabase());
    QCOMPARE(name->toPlainText(), QStringLiteral("王芳"));
    QCOMPARE(name->alignment(), Qt::Alignment(Qt::AlignRight));
    QCOMPARE(age->toPlainText(), QStringLiteral("47"));
    QCOMPARE(collect->toPlainText(),
             zh.toString(QDateTime(QDate(2026, 11, 23), QTime(8, 30, 15)), QLocale::ShortFormat));
    QCOMPARE(birthday->toPlainText(), zh.toString(QDate(1979, 4, 2), QLocale::ShortFormat));
    // A time column holding date-times shows the time part.
    QCOMPARE(check->toPlainText(), zh.toString(QTime(9, 45), QLocale::ShortFormat));
    QCOMPARE(reportTime->toPlainText(), QString()); // NULL: empty, not a placeholder

    report.fetchData(2, profile.dataDatabase());
    QCOMPARE(name->toPlainText(), QStringLiteral("李强"));
    QCOMPARE(birthday->toPlainText(), QString());
    QCOMPARE(check->toPlainText(), zh.toString(QTime(16, 20), QLocale::ShortFormat));
    QCOMPARE(reportTime->toPlainText(),
             zh.toString(QDateTime(QDate(2026, 11, 22), QTime(18, 0)), QLocale::ShortFormat));

    // A patient that is not there still refreshes every item, to empty values.
    report.fetchData(99, profile.dataDatabase());
    QVERIFY(report.record("patient").isEmpty());
    QCOMPARE(name->toPlainText(), QString());
    QCOMPARE(probe->updated, 3);
    QCOMPARE(probe->prepared, 0);
}

void tst_DataBinding::qcBinding()
{
    Profile profile;
    exec(profile.qcDatabase(), "create table reagent (id integer primary key, lot text, expiry DATE)");
    exec(profile.qcDatabase(), "insert into reagent values (7, 'L2026-11A', '2027-05-31')");
    exec(profile.qcDatabase(), "insert into reagent values (8, 'L2026-12B', '2027-06-30')");
    Report report(&profile, nullptr);
    auto* lot = addField(report, &profile, "reagent", "lot");
    auto* expiry = addField(report, &profile, "reagent", "expiry");
    auto* abbr = new ReportPropItem(&profile, "qc/abbr");
    report.addItem(abbr);
    auto* probe = new ProbeItem;
    report.addItem(probe);

    AssayItem assay(1, "PT-S", "PT-S", "s", 1);
    QcExportData series;
    series.reagentId = 7;
    series.assayItem = &assay;
    QcExportData other;
    other.reagentId = 8;
    report.setCurrentPage(3);
    report.setPageCount(4);
    report.prepareQcData(&series);
    QCOMPARE(report.currentPage(), 1);
    QCOMPARE(report.pageCount(), 1);
    QCOMPARE(probe->prepared, 1);
    QCOMPARE(probe->updated, 0);
    QCOMPARE(report.fieldType("reagent", "expiry"), QMetaType::QDate);

    report.fetchQcData(nullptr); // the argument is ignored: the prepared series stays
    QCOMPARE(probe->updated, 1);
    QCOMPARE(lot->toPlainText(), QStringLiteral("L2026-11A"));
    QCOMPARE(expiry->toPlainText(), QLocale().toString(QDate(2027, 5, 31), QLocale::ShortFormat));
    QCOMPARE(abbr->toPlainText(), QStringLiteral("PT-S"));
    report.fetchQcData(&other);
    QCOMPARE(lot->toPlainText(), QStringLiteral("L2026-11A"));
    QCOMPARE(report.qcData(), &series);
}

void tst_DataBinding::maintenanceSequence()
{
    Profile profile;
    Report report(&profile, nullptr);
    ProbeItem* probes[3];
    for (int i = 0; i < 3; ++i) {
        probes[i] = new ProbeItem;
        probes[i]->setZValue(10 - i); // probes[0] is the topmost
        report.addItem(probes[i]);
    }
    MaintenanceExportData data;
    data.month = QDate(2026, 10, 1);
    data.recordType = MaintenanceManager::RecordType(3);
    report.setPageCount(5);
    report.prepareMaintenanceData(&data);
    QCOMPARE(report.pageCount(), 1);
    QCOMPARE(probes[0]->recordType, 1);
    QCOMPARE(probes[1]->recordType, 2);
    QCOMPARE(probes[2]->recordType, 3);
    QCOMPARE(int(data.recordType), 4);
    QCOMPARE(report.maintenanceData(), &data);
}

void tst_DataBinding::brokenDatabases_data()
{
    QTest::addColumn<bool>("garbage");
    QTest::addColumn<QString>("warning");
    QTest::addColumn<int>("warnings");
    QTest::newRow("no tables") << false << "^report/reportdata\\.cpp:\\d+: no such table: patient" << 1;
    QTest::newRow("not a database") << true << "reportdata.cpp:\\d+: file is not a database" << 2;
}

// Warnings and empty values, and the report goes on.
void tst_DataBinding::brokenDatabases()
{
    QFETCH(bool, garbage);
    QFETCH(QString, warning);
    QFETCH(int, warnings);
    QTemporaryDir dir;
    QVERIFY(dir.isValid());
    QFile file(dir.filePath(QStringLiteral("data.db")));
    QVERIFY(!garbage || (file.open(QIODevice::WriteOnly) && file.write(QByteArray(4096, '\x5a')) == 4096));
    file.close();
    Profile profile(dir.filePath(QStringLiteral("profile.ini")));
    Report report(&profile, nullptr);
    auto* name = addField(report, &profile, "patient", "name");
    auto* probe = new ProbeItem;
    report.addItem(probe);
    for (int i = 0; i < warnings; ++i)
        QTest::ignoreMessage(QtWarningMsg, QRegularExpression(warning));
    report.fetchData(1, profile.dataDatabase());
    QCOMPARE(name->toPlainText(), QString());
    QCOMPARE(probe->updated, 1);
    QVERIFY(report.record("patient").isEmpty());
    QCOMPARE(report.fieldType("patient", "name"), QMetaType::QString);
    if (garbage)
        return;

    QcExportData series;
    series.reagentId = 1;
    QTest::ignoreMessage(QtWarningMsg, QRegularExpression("reportdata.cpp:\\d+: .*reagent"));
    QTest::ignoreMessage(QtWarningMsg, QRegularExpression("reportdata.cpp:\\d+: .*"));
    report.prepareQcData(&series);
    QCOMPARE(probe->prepared, 1);

    // An invalid database and a report without a profile do not crash either.
    Report bare(nullptr, nullptr);
    QTest::ignoreMessage(QtWarningMsg, QRegularExpression("reportdata.cpp:\\d+: .*"));
    bare.fetchData(1, QSqlDatabase());
    QTest::ignoreMessage(QtWarningMsg, QRegularExpression("reportdata.cpp:\\d+: .*"));
    QTest::ignoreMessage(QtWarningMsg, QRegularExpression("reportdata.cpp:\\d+: .*"));
    bare.prepareQcData(&series);
    bare.prepareQcData(nullptr);
    bare.prepareMaintenanceData(nullptr);
    QVERIFY(bare.record("patient").isEmpty());
}

QTEST_MAIN(tst_DataBinding)
#include "tst_databinding.moc"
