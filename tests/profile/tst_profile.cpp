#include "../common/files.h"

#include <core/information.h>
#include <core/profile.h>
#include <core/waitcursor.h>

#include <QApplication>
#include <QFile>
#include <QSqlQuery>
#include <QTemporaryDir>
#include <QTest>

using namespace coagulation;

class tst_Profile : public QObject
{
    Q_OBJECT
private Q_SLOTS:
    void settingsPersist();
    void databases();
    void hostFacilities();
};

void tst_Profile::settingsPersist()
{
    QTemporaryDir dir;
    const QString ini = dir.filePath("lab/profile.ini");
    {
        Profile profile(ini);
        QVERIFY(!profile.value("report/template").isValid());
        QCOMPARE(profile.value("missing", 5).toInt(), 5);
        profile.setValue("report/template", "patient", true);
        profile.setValue("session/only", "temporary", false);
        profile.setValue("patient/name", QStringLiteral("姓名"), true);
        QCOMPARE(profile.fileName(), QFileInfo(ini).absoluteFilePath());
    }
    Profile again(ini);
    QCOMPARE(again.value("report/template").toString(), QStringLiteral("patient"));
    QCOMPARE(again.value("patient/name").toString(), QStringLiteral("姓名"));
    QVERIFY(!again.value("session/only").isValid());
    // A transient value shadows the stored one until it is persisted.
    again.setValue("report/template", "other");
    QCOMPARE(again.value("report/template").toString(), QStringLiteral("other"));
    again.setValue("report/template", "third", true);
    QCOMPARE(Profile(ini).value("report/template").toString(), QStringLiteral("third"));
}

void tst_Profile::databases()
{
    QTemporaryDir dir;
    const QString ini = dir.filePath("profile.ini");
    QVERIFY(test::writeFile(ini, "[database]\ndata=lab-data.db\n"));
    {
        Profile profile(ini);
        QSqlQuery query(profile.dataDatabase());
        QVERIFY(query.exec("create table patient (id integer primary key, name text)"));
        QVERIFY(query.exec("insert into patient (name) values ('李娜')"));
        QVERIFY(QSqlQuery(profile.qcDatabase()).exec("create table reagent (id integer primary key)"));
        QVERIFY(profile.database().isOpen());
        QCOMPARE(profile.databasePath("data"), dir.filePath("lab-data.db"));
    }
    QVERIFY(QFile::exists(dir.filePath("lab-data.db")));
    QVERIFY(QFile::exists(dir.filePath("qc.db")));
    QVERIFY(QFile::exists(dir.filePath("config.db")));
    Profile reopened(ini);
    QSqlQuery query(reopened.dataDatabase());
    QVERIFY(query.exec("select name from patient"));
    QVERIFY(query.next());
    QCOMPARE(query.value(0).toString(), QStringLiteral("李娜"));
    QVERIFY(!QSqlQuery(reopened.database()).exec("select * from patient")); // separate databases

    // Without a file each profile has databases of its own, in memory.
    Profile a;
    Profile b;
    QVERIFY(a.dataDatabase().isOpen());
    QVERIFY(QSqlQuery(a.dataDatabase()).exec("create table t (x)"));
    QVERIFY(!QSqlQuery(b.dataDatabase()).exec("select * from t"));
    QVERIFY(!QSqlQuery(a.qcDatabase()).exec("select * from t"));
    a.setValue("hospital", QStringLiteral("示例医院"), true);
    QCOMPARE(a.value("hospital").toString(), QStringLiteral("示例医院"));
    QVERIFY(a.fileName().isEmpty());
}

// Messages a test can observe, and the wait cursor.
void tst_Profile::hostFacilities()
{
    InformationLog::clear();
    QVERIFY(!InformationLog::isInteractive());
    QCOMPARE(information(QStringLiteral("无法加载打印模板 a\nb"), QMessageBox::Ok, QMessageBox::Ok),
             QMessageBox::Ok);
    QCOMPARE(information(QStringLiteral("second"), QMessageBox::Yes | QMessageBox::No, QMessageBox::No),
             QMessageBox::No);
    QCOMPARE(InformationLog::count(), 2);
    QCOMPARE(InformationLog::entries().first().text, QStringLiteral("无法加载打印模板 a\nb"));
    QCOMPARE(InformationLog::last().text, QStringLiteral("second"));
    QCOMPARE(InformationLog::last().buttons, QMessageBox::Yes | QMessageBox::No);
    QCOMPARE(InformationLog::last().defaultButton, QMessageBox::No);
    InformationLog::clear();
    QCOMPARE(InformationLog::count(), 0);

    QVERIFY(!QGuiApplication::overrideCursor());
    {
        WaitCursor busy;
        QVERIFY(QGuiApplication::overrideCursor());
        QCOMPARE(QGuiApplication::overrideCursor()->shape(), Qt::WaitCursor);
    }
    QVERIFY(!QGuiApplication::overrideCursor());
}

QTEST_MAIN(tst_Profile)
#include "tst_profile.moc"
