#include <core/profile.h>
#include <kvcore/assayitem.h>
#include <kvcore/assaytemplate.h>
#include <kvcore/qcdatareader.h>
#include <kvcore/qcpoint.h>
#include <kvcore/statistic.h>
#include <labdata/labschema.h>

#include <QRandomGenerator>
#include <QSqlQuery>
#include <QTest>

#include <cmath>
#include <ctime>

using namespace coagulation;

class TestQcData : public QObject
{
    Q_OBJECT
private Q_SLOTS:
    void initTestCase();
    void timeRoundTrip_data();
    void timeRoundTrip();
    void timeUnit();
    void statisticValues_data();
    void statisticValues();
    void statisticAgainstLongDouble();
    void valueString_data();
    void valueString();
    void reader();
    void readerFailures();

private:
    static void exec(QSqlDatabase db, const QString& sql);
};

void TestQcData::exec(QSqlDatabase db, const QString& sql)
{
    QSqlQuery query(db);
    QVERIFY2(query.exec(sql), qPrintable(sql));
}

void TestQcData::initTestCase()
{
    // A zone with daylight saving, so that the day arithmetic meets 23- and 25-hour days.
    qputenv("TZ", "Europe/Berlin");
    tzset();
    QCOMPARE(QDateTime(QDate(2024, 7, 1), QTime(12, 0)).offsetFromUtc(), 7200);
}

void TestQcData::timeRoundTrip_data()
{
    QTest::addColumn<QDateTime>("datetime");
    QTest::newRow("epoch") << QDateTime(QDate(1970, 1, 1), QTime(0, 0));
    QTest::newRow("morning run") << QDateTime(QDate(2024, 6, 28), QTime(8, 30, 15, 123));
    QTest::newRow("last millisecond") << QDateTime(QDate(2024, 6, 28), QTime(23, 59, 59, 999));
    QTest::newRow("before epoch") << QDateTime(QDate(1969, 12, 31), QTime(23, 59, 59, 999));
    QTest::newRow("leap day") << QDateTime(QDate(2000, 2, 29), QTime(12, 0));
    QTest::newRow("spring forward day") << QDateTime(QDate(2024, 3, 31), QTime(12, 0));
    QTest::newRow("after the change") << QDateTime(QDate(2024, 3, 31), QTime(3, 30));
    QTest::newRow("fall back day") << QDateTime(QDate(2024, 10, 27), QTime(23, 0));
    QTest::newRow("far future") << QDateTime(QDate(2399, 12, 31), QTime(18, 45, 1, 7));
}

void TestQcData::timeRoundTrip()
{
    QFETCH(QDateTime, datetime);
    const double time = QcPoint::fromDatetime(datetime);
    QCOMPARE(QcPoint::toDatetime(time), datetime);
    // floor and ceil are the local midnights around the point: whole days on a chart axis.
    QCOMPARE(QcPoint::toDatetime(std::floor(time)), QDateTime(datetime.date(), QTime(0, 0)));
    if (datetime.time() != QTime(0, 0))
        QCOMPARE(QcPoint::toDatetime(std::ceil(time)), QDateTime(datetime.date().addDays(1), QTime(0, 0)));
}

void TestQcData::timeUnit()
{
    QCOMPARE(QcPoint::fromDatetime(QDateTime(QDate(1970, 1, 2), QTime(12, 0))), 1.5);
    QCOMPARE(QcPoint::fromDatetime(QDateTime(QDate(2024, 6, 28), QTime(6, 0))), 19902.25);
    QCOMPARE(QcPoint::toDatetime(19902.75), QDateTime(QDate(2024, 6, 28), QTime(18, 0)));
    QCOMPARE(QcPoint::toDatetime(-0.5), QDateTime(QDate(1969, 12, 31), QTime(12, 0)));
    // A fraction that rounds up to a whole day moves to the next midnight.
    QCOMPARE(QcPoint::toDatetime(1.0 - 1e-12), QDateTime(QDate(1970, 1, 2), QTime(0, 0)));
    QVERIFY(!QcPoint::toDatetime(qQNaN()).isValid());
    QVERIFY(!QcPoint::toDatetime(qInf()).isValid());
    QVERIFY(!QcPoint::toDatetime(1e300).isValid());
    QCOMPARE(QcPoint::fromDatetime(QDateTime()), 0.0);
    // A UTC date-time counts by its local wall-clock time.
    const QDateTime utc(QDate(2024, 1, 15), QTime(10, 0), Qt::UTC);
    QCOMPARE(QcPoint::toDatetime(QcPoint::fromDatetime(utc)), utc.toLocalTime());
}

void TestQcData::statisticValues_data()
{
    QTest::addColumn<QList<double>>("values");
    QTest::addColumn<QList<bool>>("rejected");
    QTest::addColumn<bool>("ok");
    QTest::addColumn<double>("mean");
    QTest::addColumn<double>("sd");

    const double untouched = -1.0;
    QTest::newRow("textbook") << QList<double>{2, 4, 4, 4, 5, 5, 7, 9} << QList<bool>() << true << 5.0
                              << 2.138089935299395;
    QTest::newRow("two points") << QList<double>{11.0, 13.0} << QList<bool>() << true << 12.0
                                << std::sqrt(2.0);
    QTest::newRow("rejected left out")
        << QList<double>{10, 12, 100} << QList<bool>{false, false, true} << true << 11.0 << std::sqrt(2.0);
    QTest::newRow("nan left out") << QList<double>{10, qQNaN(), 12} << QList<bool>() << true << 11.0
                                  << std::sqrt(2.0);
    QTest::newRow("large offset") << QList<double>{1e9 + 1, 1e9 + 2, 1e9 + 3} << QList<bool>() << true
                                  << 1e9 + 2 << 1.0;
    QTest::newRow("all equal") << QList<double>{3.5, 3.5, 3.5} << QList<bool>() << true << 3.5 << 0.0;
    QTest::newRow("one point") << QList<double>{5.0} << QList<bool>() << false << untouched << untouched;
    QTest::newRow("empty") << QList<double>() << QList<bool>() << false << untouched << untouched;
    QTest::newRow("one left after rejection")
        << QList<double>{5.0, 7.0} << QList<bool>{true, false} << false << untouched << untouched;
}

void TestQcData::statisticValues()
{
    QFETCH(QList<double>, values);
    QFETCH(QList<bool>, rejected);
    QFETCH(bool, ok);
    QFETCH(double, mean);
    QFETCH(double, sd);

    QList<QcPoint> points;
    for (int i = 0; i < values.size(); ++i)
        points.append({double(i), values.at(i), rejected.value(i, false)});
    double m = -1.0;
    double s = -1.0;
    QCOMPARE(statistic(points, &m, &s), ok);
    QCOMPARE(m, mean);
    QVERIFY2(std::fabs(s - sd) <= 1e-12 * qMax(1.0, sd), qPrintable(QString::number(s, 'g', 17)));
    QCOMPARE(statistic(points, nullptr, nullptr), ok);
}

void TestQcData::statisticAgainstLongDouble()
{
    QRandomGenerator random(42);
    QList<QcPoint> points;
    for (int i = 0; i < 10000; ++i)
        points.append({double(i), 12.2 + random.generateDouble() * 0.9, random.bounded(50) == 0});
    long double sum = 0;
    long double squares = 0;
    long double n = 0;
    for (const QcPoint& p : points) {
        if (p.rejected)
            continue;
        sum += p.value;
        squares += static_cast<long double>(p.value) * p.value;
        n += 1;
    }
    const long double mean = sum / n;
    const double sd = double(std::sqrt((squares - n * mean * mean) / (n - 1)));
    double m = 0;
    double s = 0;
    QVERIFY(statistic(points, &m, &s));
    QVERIFY(std::fabs(m - double(mean)) < 1e-12);
    QVERIFY(std::fabs(s - sd) < 1e-9);
}

void TestQcData::valueString_data()
{
    QTest::addColumn<int>("precision");
    QTest::addColumn<double>("value");
    QTest::addColumn<QString>("expected");
    QTest::newRow("one decimal") << 1 << 12.34 << "12.3";
    QTest::newRow("two decimals pad") << 2 << 2.5 << "2.50";
    QTest::newRow("none") << 0 << 98.6 << "99";
    QTest::newRow("no exponent") << 2 << 123456789.0 << "123456789.00";
    QTest::newRow("negative precision") << -3 << 7.7 << "8";
    QTest::newRow("negative value") << 1 << -0.24 << "-0.2";
}

void TestQcData::valueString()
{
    QFETCH(int, precision);
    QFETCH(double, value);
    QFETCH(QString, expected);
    const AssayItem item(3, QStringLiteral("PT Sec"), QStringLiteral("PT-S"), QStringLiteral("s"), precision);
    QCOMPARE(item.valueString(value), expected);
}

void TestQcData::reader()
{
    Profile profile;
    QVERIFY(LabSchema::create(profile.database(), LabSchema::ConfigDatabase));
    QVERIFY(LabSchema::create(profile.qcDatabase(), LabSchema::QcDatabase));
    exec(profile.database(),
         QStringLiteral("insert into assayTemplate (id, name) values (4, 'APTT'), (5, 'PT')"));
    exec(profile.database(),
         QStringLiteral("insert into assayItem (id, assayTemplateId, name, abbr, unit, precision) values "
                        "(8, 4, 'PT Sec', 'WRONG', 's', 3), (9, 5, 'PT Sec', 'PT-S', 's', 1)"));
    exec(profile.qcDatabase(),
         QStringLiteral(
             "insert into reagent (id, name, controlNo, assayTemplate, assayItem, hasLimits, targetValue, "
             "upperMarkLimit, upperStopLimit, lowerMarkLimit, lowerStopLimit, mean, sd) values "
             "(7, '凝血质控血浆', 3, 'PT', 'PT Sec', 1, 12.2, 12.8, 13.1, 11.6, 11.3, 12.25, 0.3),"
             "(8, 'x', 4, 'PT', 'missing', 0, 0, null, null, null, null, 1.5, 0.1)"));
    exec(profile.qcDatabase(),
         QStringLiteral("insert into qcResult (id, reagentId, time, value, rejected) values "
                        "(1, 7, '2024-06-02 14:05:00', 12.4, 0),"
                        "(2, 7, '2024-06-01 08:00:00', 12.1, 0),"
                        "(3, 7, '2024-06-03 23:59:59', 13.5, 1),"
                        "(4, 7, '2024-06-04 00:00:00', 12.0, 0),"
                        "(5, 8, '2024-06-02 09:00:00', 1.4, 0),"
                        "(6, 7, 'not a time', 12.0, 0)"));

    QcDataReader reader(&profile);
    QCOMPARE(reader.reagentIds(), (QList<qint64>{7, 8}));

    std::unique_ptr<QcSeries> all = reader.read(7);
    QVERIFY2(all, qPrintable(reader.errorString()));
    const QcExportData* data = all->data();
    QCOMPARE((QList<qint64>{data->reagentId, data->controlNo, data->hasLimits}), (QList<qint64>{7, 3, 1}));
    QCOMPARE((QList<double>{data->targetValue, data->upperMarkLimit, data->upperStopLimit,
                            data->lowerMarkLimit, data->lowerStopLimit, data->mean, data->sd}),
             (QList<double>{12.2, 12.8, 13.1, 11.6, 11.3, 12.25, 0.3}));
    QVERIFY(data->assayTemplate && data->assayItem);
    // The item of the PT template (9), not the APTT one of the same name.
    QCOMPARE((QList<qint64>{data->assayTemplate->id(), data->assayItem->id(), data->assayItem->precision()}),
             (QList<qint64>{5, 9, 1}));
    QCOMPARE((QStringList{data->assayTemplate->name(), data->assayItem->abbr(), data->assayItem->unit()}),
             (QStringList{"PT", "PT-S", "s"}));
    // In time order, the unreadable time left out.
    QCOMPARE(data->points.size(), 4);
    QCOMPARE(QcPoint::toDatetime(data->points.at(0).time), QDateTime(QDate(2024, 6, 1), QTime(8, 0)));
    QCOMPARE(QcPoint::toDatetime(data->points.at(1).time), QDateTime(QDate(2024, 6, 2), QTime(14, 5)));
    QCOMPARE(data->points.at(1).value, 12.4);
    QVERIFY(data->points.at(2).rejected);
    QVERIFY(!data->points.at(3).rejected);
    QCOMPARE((QList<double>{double(data->firstIndex), double(data->count), data->startTime, data->endTime}),
             (QList<double>{0, 4, 0, 0}));

    // June 2 to June 3: both ends included as whole days.
    std::unique_ptr<QcSeries> range = reader.read(7, QDate(2024, 6, 2), QDate(2024, 6, 3));
    QVERIFY(range);
    QCOMPARE(range->data()->points.at(1).value, 13.5);
    // The range selects points; it does not fix the chart's axis ends.
    QCOMPARE((QList<double>{double(range->data()->count), range->data()->startTime, range->data()->endTime}),
             (QList<double>{2, 0, 0}));

    std::unique_ptr<QcSeries> open = reader.read(7, QDate(), QDate(2024, 6, 1));
    QVERIFY(open);
    QCOMPARE(open->data()->count, 1);

    // An assay that the configuration does not know leaves the pointers null.
    std::unique_ptr<QcSeries> unknownAssay = reader.read(8);
    QVERIFY(unknownAssay);
    QVERIFY(unknownAssay->data()->assayTemplate);
    QVERIFY(!unknownAssay->data()->assayItem);
    QCOMPARE(unknownAssay->data()->upperStopLimit, 0.0);
    QCOMPARE(unknownAssay->data()->points.size(), 1);
}

void TestQcData::readerFailures()
{
    Profile empty;
    QcDataReader noTables(&empty);
    QVERIFY(noTables.reagentIds().isEmpty());
    QVERIFY(!noTables.read(1));
    QVERIFY(noTables.errorString().contains(QLatin1String("reagent")));

    Profile profile;
    QVERIFY(LabSchema::create(profile.qcDatabase(), LabSchema::QcDatabase));
    QcDataReader reader(&profile);
    QVERIFY(!reader.read(99));
    QCOMPARE(reader.errorString(), QStringLiteral("No reagent with id 99"));

    QcDataReader noProfile(nullptr);
    QVERIFY(noProfile.reagentIds().isEmpty());
    QVERIFY(!noProfile.read(1));
}

QTEST_GUILESS_MAIN(TestQcData)
#include "tst_qcdata.moc"
