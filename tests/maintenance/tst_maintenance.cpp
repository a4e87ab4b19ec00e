#include <core/profile.h>
#include <kvcore/maintenanceexportdata.h>
#include <kvcore/maintenancerecords.h>
#include <labdata/labschema.h>

#include <QSqlQuery>
#include <QTest>

using namespace coagulation;

class TestMaintenance : public QObject
{
    Q_OBJECT
private Q_SLOTS:
    void records();
};

void TestMaintenance::records()
{
    Profile profile;
    // No tables: a warning and nothing else.
    const MaintenanceRecords noTables(&profile);
    QVERIFY(noTables.workbenches().isEmpty());
    const Workbench stray(1, QStringLiteral("1号凝血分析仪"));
    QVERIFY(noTables.records(&stray, QDate(2024, 6, 1), MaintenanceManager::DailyMaintenance).isEmpty());

    QVERIFY(LabSchema::create(profile.qcDatabase(), LabSchema::QcDatabase));
    QSqlQuery query(profile.qcDatabase());
    QVERIFY(query.exec(QStringLiteral(
        "insert into workbench (id, name) values (2, '2号凝血分析仪'), (1, '1号凝血分析仪')")));
    QVERIFY(query.exec(QStringLiteral(
        "insert into maintenanceRecord (id, workbench, recordType, date, task, operator, result, remark) "
        "values "
        "(1, 1, 1, '2024-05-31', '清洗探针', '李娜', '已完成', ''),"
        "(2, 1, 1, '2024-06-03', '检查试剂位温度', '王磊', '异常', '试剂位温度偏高，已通知工程师'),"
        "(3, 1, 1, '2024-06-01', '清洗探针', '张敏', '已完成', ''),"
        "(4, 1, 1, '2024-06-01', '检查试剂位温度', '张敏', '正常', ''),"
        "(5, 1, 2, '2024-06-03', '更换清洗液', '王磊', '已完成', ''),"
        "(6, 2, 1, '2024-06-02', '清洗探针', '刘洋', '已完成', ''),"
        "(7, 1, 1, '2024-06-30', '排空废液', '李娜', '已完成', null),"
        "(8, 1, 1, '2024-07-01', '排空废液', '李娜', '已完成', '')")));

    const MaintenanceRecords reader(&profile);
    const QList<Workbench> workbenches = reader.workbenches();
    QCOMPARE(workbenches.size(), 2);
    QCOMPARE(workbenches.at(0).id(), 1);
    QCOMPARE(workbenches.at(0).name(), QStringLiteral("1号凝血分析仪"));

    // Any day names its month; records come by date, then as recorded.
    const QList<MaintenanceRecord> june =
        reader.records(&workbenches.at(0), QDate(2024, 6, 17), MaintenanceManager::DailyMaintenance);
    QStringList rows;
    for (const MaintenanceRecord& r : june)
        rows.append(QStringLiteral("%1 %2 %3 %4 %5 %6")
                        .arg(r.id)
                        .arg(r.date.toString(Qt::ISODate), r.task, r.operatorName, r.result, r.remark));
    QCOMPARE(rows, (QStringList{
                       QStringLiteral("3 2024-06-01 清洗探针 张敏 已完成 "),
                       QStringLiteral("4 2024-06-01 检查试剂位温度 张敏 正常 "),
                       QStringLiteral("2 2024-06-03 检查试剂位温度 王磊 异常 试剂位温度偏高，已通知工程师"),
                       QStringLiteral("7 2024-06-30 排空废液 李娜 已完成 ")}));
    QCOMPARE(june.first().workbenchId, 1);
    QCOMPARE(june.first().recordType, MaintenanceManager::DailyMaintenance);

    const QList<MaintenanceRecord> weekly =
        reader.records(&workbenches.at(0), QDate(2024, 6, 1), MaintenanceManager::WeeklyMaintenance);
    QCOMPARE(weekly.size(), 1);
    QCOMPARE(weekly.first().task, QStringLiteral("更换清洗液"));
    QVERIFY(reader.records(&workbenches.at(0), QDate(2024, 6, 1), MaintenanceManager::MonthlyMaintenance)
                .isEmpty());

    const QList<MaintenanceRecord> second =
        reader.records(&workbenches.at(1), QDate(2024, 6, 1), MaintenanceManager::DailyMaintenance);
    QCOMPARE(second.size(), 1);
    QCOMPARE(second.first().operatorName, QStringLiteral("刘洋"));

    // December to January crosses the year.
    QVERIFY(
        query.exec(QStringLiteral("insert into maintenanceRecord (workbench, recordType, date, task) values "
                                  "(1, 3, '2023-12-31', 'a'), (1, 3, '2024-01-01', 'b')")));
    const QList<MaintenanceRecord> december =
        reader.records(&workbenches.at(0), QDate(2023, 12, 5), MaintenanceManager::MonthlyMaintenance);
    QCOMPARE(december.size(), 1);
    QCOMPARE(december.first().task, QStringLiteral("a"));

    // Nothing for no workbench, no day or no record type.
    QVERIFY(reader.records(nullptr, QDate(2024, 6, 1), MaintenanceManager::DailyMaintenance).isEmpty());
    QVERIFY(reader.records(&workbenches.at(0), QDate(), MaintenanceManager::DailyMaintenance).isEmpty());
    QVERIFY(
        reader.records(&workbenches.at(0), QDate(2024, 6, 1), MaintenanceManager::RecordType(0)).isEmpty());
    QVERIFY(MaintenanceRecords(nullptr).workbenches().isEmpty());

    // The stored record types 1 to 3 are named on the printed tables (tst_maintenancerecord); others
    // have no name.
    QVERIFY(MaintenanceManager::recordTypeName(0).isEmpty());
    QVERIFY(MaintenanceManager::recordTypeName(4).isEmpty());
}

QTEST_GUILESS_MAIN(TestMaintenance)
#include "tst_maintenance.moc"
