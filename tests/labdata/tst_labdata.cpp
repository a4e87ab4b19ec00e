#include <core/analysisresult.h>
#include <core/profile.h>
#include <kvcore/maintenancerecords.h>
#include <kvcore/qcdatareader.h>
#include <kvcore/sample.h>
#include <kvcore/statistic.h>
#include <labdata/assaycatalogue.h>
#include <labdata/columndisplaynames.h>
#include <labdata/labdatabasegenerator.h>

#include <QRegularExpression>
#include <QSet>
#include <QSqlQuery>
#include <QSqlRecord>
#include <QTemporaryDir>
#include <QTest>

#include <cmath>

using namespace coagulation;

namespace {

QString dump(QSqlDatabase db)
{
    QStringList lines;
    QSqlQuery objects(db);
    objects.exec(QStringLiteral("select type, name, sql from sqlite_master order by name"));
    while (objects.next()) {
        lines.append(objects.value(2).toString());
        if (objects.value(0).toString() != QLatin1String("table"))
            continue;
        QSqlQuery rows(db);
        rows.exec(QStringLiteral("select * from \"%1\" order by rowid").arg(objects.value(1).toString()));
        while (rows.next()) {
            QStringList fields;
            for (int i = 0; i < rows.record().count(); ++i)
                fields.append(rows.isNull(i) ? QStringLiteral("NULL") : rows.value(i).toString());
            lines.append(fields.join(QLatin1Char('|')));
        }
    }
    return lines.join(QLatin1Char('\n'));
}

QString dumpAll(Profile& profile)
{
    return dump(profile.database()) + QLatin1Char('\n') + dump(profile.dataDatabase()) + QLatin1Char('\n') +
           dump(profile.qcDatabase());
}

// The first value a query gives, as text.
QString scalar(QSqlDatabase db, const QString& sql)
{
    QSqlQuery query(db);
    return query.exec(sql) && query.next() ? query.value(0).toString() : QString();
}

int count(QSqlDatabase db, const QString& from)
{
    return scalar(db, QStringLiteral("select count(*) ") + from).toInt();
}

bool generate(Profile* profile, quint32 seed, int patients = 120, int points = 60, int months = 3)
{
    LabDatabaseGenerator generator(profile, seed);
    generator.setPatientCount(patients);
    generator.setQcPointCount(points);
    generator.setMaintenanceMonths(months);
    const bool ok = generator.generate();
    if (!ok)
        qWarning("%s", qPrintable(generator.errorString()));
    return ok;
}

} // namespace

class TestLabData : public QObject
{
    Q_OBJECT
private Q_SLOTS:
    void determinism();
    void declaredTypes();
    void storedDatesAndTimes();
    void patientsAndResults();
    void qcSeries();
    void maintenance();
    void displayNames();
    void optionsAndFailures();
};

void TestLabData::determinism()
{
    QTemporaryDir dirA;
    QString first;
    {
        Profile a(dirA.filePath(QStringLiteral("lab.ini")));
        Profile b; // in memory: the same data wherever it is stored
        Profile c;
        QVERIFY(generate(&a, 7) && generate(&b, 7) && generate(&c, 8));
        first = dumpAll(a);
        QVERIFY(first.size() > 10000);
        QCOMPARE(dumpAll(b), first);
        QVERIFY(dump(c.dataDatabase()) != dump(a.dataDatabase()));
        QVERIFY(dump(c.qcDatabase()) != dump(a.qcDatabase()));
        // Generating again replaces the tables instead of adding to them.
        QVERIFY(generate(&a, 7));
        QCOMPARE(dumpAll(a), first);
    }
    // Real files, reopened by a fresh profile.
    Profile reopened(dirA.filePath(QStringLiteral("lab.ini")));
    QCOMPARE(dumpAll(reopened), first);

    // Each kind of data has its own random stream: fewer patients leave the QC data alone.
    Profile fewer;
    QVERIFY(generate(&fewer, 7, 30));
    QCOMPARE(dump(fewer.qcDatabase()), dump(reopened.qcDatabase()));
    QCOMPARE(dump(fewer.database()), dump(reopened.database()));
}

// The declared column types, which tell readers what a value holds.
void TestLabData::declaredTypes()
{
    Profile profile;
    QVERIFY(generate(&profile, 1, 10, 3));
    const QStringList columns = {
        "patient.id INTEGER",           "patient.sampleNo TEXT",        "patient.age INTEGER",
        "patient.collectTime DATETIME", "patient.receiveTime DATETIME", "patient.reportTime DATETIME",
        "patient.birthday DATE",        "patient.checkTime TIME",       "patient.printTime DATETIME",
        "result.flag INTEGER",          "result.result TEXT",           "result.lowerMarkLimit REAL",
        "result.displayOrder INTEGER",  "assayItem.precision INTEGER",  "assayItem.visible INTEGER",
        "reagent.expiry DATE",          "reagent.targetValue REAL",     "qcResult.time DATETIME",
        "maintenanceRecord.date DATE"};
    for (const QString& entry : columns) {
        const QString table = entry.section(QLatin1Char('.'), 0, 0);
        const QString column = entry.section(QLatin1Char('.'), 1).section(QLatin1Char(' '), 0, 0);
        QSqlQuery query(table == QLatin1String("assayItem") ? profile.database()
                        : table == QLatin1String("patient") || table == QLatin1String("result")
                            ? profile.dataDatabase()
                            : profile.qcDatabase());
        QVERIFY(query.exec(QStringLiteral("pragma table_info('%1')").arg(table)));
        QString declared;
        while (query.next()) {
            if (query.value(1).toString() == column)
                declared = query.value(2).toString();
        }
        QCOMPARE(table + QLatin1Char('.') + column + QLatin1Char(' ') + declared, entry);
    }
}

void TestLabData::storedDatesAndTimes()
{
    Profile profile;
    QVERIFY(generate(&profile, 3, 200));
    const QRegularExpression dateTime(QStringLiteral("^\\d{4}-\\d\\d-\\d\\d \\d\\d:\\d\\d:\\d\\d$"));
    const QRegularExpression date(QStringLiteral("^\\d{4}-\\d\\d-\\d\\d$"));
    const QRegularExpression time(QStringLiteral("^\\d\\d:\\d\\d:\\d\\d$"));
    QSqlQuery query(profile.dataDatabase());
    QVERIFY(query.exec(QStringLiteral("select collectTime, receiveTime, reportTime, birthday, checkTime, "
                                      "printTime from patient order by id")));
    int rows = 0;
    int nullBirthdays = 0;
    QDateTime previous;
    while (query.next()) {
        ++rows;
        for (int column : {0, 1, 2})
            QVERIFY2(dateTime.match(query.value(column).toString()).hasMatch(),
                     qPrintable(query.value(column).toString()));
        if (query.isNull(3))
            ++nullBirthdays;
        else
            QVERIFY(date.match(query.value(3).toString()).hasMatch());
        QVERIFY(time.match(query.value(4).toString()).hasMatch());
        QVERIFY(query.isNull(5));
        // The way report items read them back: a QVariant holding the text.
        const QDateTime collected = query.value(0).toDateTime();
        const QDateTime received = query.value(1).toDateTime();
        const QDateTime reported = query.value(2).toDateTime();
        QVERIFY(collected.isValid() && received.isValid() && reported.isValid());
        QVERIFY(collected < received && received < reported);
        QVERIFY(query.value(4).toTime().isValid());
        if (!query.isNull(3))
            QVERIFY(query.value(3).toDate() < collected.date());
        // Samples come day by day.
        QVERIFY(!previous.isValid() || previous.date() <= collected.date());
        previous = collected;
    }
    QCOMPARE(rows, 200);
    QVERIFY(nullBirthdays > 0 && nullBirthdays < rows / 4);
    QCOMPARE(previous.date(), QDate(2024, 6, 28));
    QCOMPARE(
        scalar(profile.dataDatabase(), QStringLiteral("select min(substr(collectTime, 1, 10)) from patient")),
        QStringLiteral("2024-06-24"));

    QSqlQuery qc(profile.qcDatabase());
    QVERIFY(qc.exec(QStringLiteral("select time from qcResult union all select expiry from reagent")));
    while (qc.next()) {
        const QString text = qc.value(0).toString();
        QVERIFY2(dateTime.match(text).hasMatch() || date.match(text).hasMatch(), qPrintable(text));
    }
}

void TestLabData::patientsAndResults()
{
    Profile profile;
    QVERIFY(generate(&profile, 5, 400));
    const QSqlDatabase data = profile.dataDatabase();

    // Sample numbers: QC samples carry the file number of a known control, emergency samples
    // come from the emergency department.
    const QSet<int> controls = [&] {
        QSet<int> set;
        QSqlQuery q(profile.qcDatabase());
        q.exec(QStringLiteral("select controlNo from reagent"));
        while (q.next())
            set.insert(q.value(0).toInt());
        return set;
    }();
    QSet<QString> qcNames;
    for (int controlNo : controls)
        qcNames.insert(Sample::qcName(controlNo, &profile));
    int counts[3] = {0, 0, 0};
    QSqlQuery patients(data);
    QVERIFY(
        patients.exec(QStringLiteral("select sampleNo, department, name, sex, age, ageUnit from patient")));
    while (patients.next()) {
        const QString sampleNo = patients.value(0).toString();
        const kv::SampleType type = Sample::sampleTypeOf(sampleNo, &profile);
        ++counts[type];
        if (type == kv::QcSample)
            QVERIFY2(qcNames.contains(sampleNo), qPrintable(sampleNo));
        else
            QVERIFY(!patients.value(2).toString().isEmpty() && !patients.value(5).toString().isEmpty());
        QCOMPARE(type == kv::EmergencySample, patients.value(1).toString() == QStringLiteral("急诊科"));
    }
    QCOMPARE(counts[kv::QcSample], 16); // every 25th sample
    // A control's result is judged against its own target (+-2 SD), never against patient ranges.
    QSqlQuery controlResults(data);
    QVERIFY(controlResults.exec(QStringLiteral(
        "select p.sampleNo, r.item, r.subitem, r.lowerMarkLimit, r.upperMarkLimit, r.flag from result r "
        "join patient p on p.id = r.patientId where p.sampleKind = '质控血浆'")));
    int judged = 0;
    while (controlResults.next()) {
        QPair<double, double> range(0, 0);
        for (const QcMaterial& m : AssayCatalogue::qcMaterials()) {
            if (Sample::qcName(m.controlNo, &profile) == controlResults.value(0).toString() &&
                m.templateName == controlResults.value(1).toString() &&
                m.itemName == controlResults.value(2).toString())
                range = {m.target - 2 * m.sd, m.target + 2 * m.sd};
        }
        judged += range.second > 0;
        QVERIFY(std::fabs(controlResults.value(3).toDouble() - range.first) < 0.051);
        QVERIFY(std::fabs(controlResults.value(4).toDouble() - range.second) < 0.051);
        QCOMPARE(controlResults.value(5).toInt() &
                     (AnalysisResult::CriticalHigh | AnalysisResult::CriticalLow),
                 0);
    }
    QCOMPARE(judged, 16);
    QVERIFY(counts[kv::EmergencySample] > 10);
    QVERIFY(counts[kv::PatientSample] > 300);

    // Every result finds its assay the way the patient table looks it up, hidden ones included.
    QSqlQuery lookup(profile.database());
    QVERIFY(lookup.prepare(QStringLiteral("select precision, visible from assayItem, assayTemplate where "
                                          "assayTemplate.id = assayItem.assayTemplateId "
                                          "and  assayTemplate.name = :item and  assayItem.name = :subitem")));
    QSqlQuery results(data);
    QVERIFY(results.exec(QStringLiteral(
        "select item, subitem, result, flag, lowerMarkLimit, upperMarkLimit, abbr from result order by id")));
    int hidden = 0;
    int flagged[4] = {0, 0, 0, 0};
    int outOfRange = 0;
    int noReference = 0;
    while (results.next()) {
        lookup.bindValue(QStringLiteral(":item"), results.value(0));
        lookup.bindValue(QStringLiteral(":subitem"), results.value(1));
        QVERIFY(lookup.exec());
        QVERIFY2(lookup.next(), qPrintable(results.value(1).toString()));
        if (!lookup.value(1).toBool())
            ++hidden;
        const int precision = lookup.value(0).toInt();
        const QString text = results.value(2).toString();
        const int flags = results.value(3).toInt();
        const double low = results.value(4).toDouble();
        const double high = results.value(5).toDouble();
        if (low == 0 && high == 0)
            ++noReference;
        const AnalysisResult result(text, &profile);
        if (!result.isNumeric()) {
            // Only values beyond the measuring range are written as text.
            QVERIFY2(text.startsWith(QLatin1Char('>')) || text.startsWith(QLatin1Char('<')),
                     qPrintable(text));
            QVERIFY(flags & (AnalysisResult::AboveRange | AnalysisResult::BelowRange));
            ++outOfRange;
            continue;
        }
        // Stored with the assay's decimals, and flagged exactly when outside the reference range.
        QCOMPARE(result.toString(&profile, 1, 'f', precision), text);
        if (high > low) {
            QCOMPARE(bool(flags & AnalysisResult::High),
                     result.value() > high || (flags & AnalysisResult::CriticalHigh));
            QCOMPARE(bool(flags & AnalysisResult::Low),
                     result.value() < low || (flags & AnalysisResult::CriticalLow));
        }
        flagged[0] += bool(flags & AnalysisResult::High);
        flagged[1] += bool(flags & AnalysisResult::Low);
        flagged[2] += bool(flags & AnalysisResult::CriticalHigh);
        flagged[3] += bool(flags & AnalysisResult::CriticalLow);
    }
    QVERIFY(hidden > 0);
    QVERIFY(noReference > 0);
    QVERIFY(outOfRange > 0);
    for (int count : flagged)
        QVERIFY(count > 0);
    // Most results are normal: abnormal ones are the exception.
    const int total = count(data, QStringLiteral("from result"));
    QVERIFY(flagged[0] + flagged[1] < total / 3);
    QCOMPARE(count(data, QStringLiteral("from result where flag & 4 and flag & 1 = 0")), 0);
    QCOMPARE(count(data, QStringLiteral(
                             "from result r left join patient p on p.id = r.patientId where p.id is null")),
             0);
    QCOMPARE(count(profile.database(), QStringLiteral("from assayItem where visible = 0")), 2);
    // Anticoagulation clinic samples ask for the PT alone.
    const QString monitoring = QStringLiteral("from result r join patient p on p.id = r.patientId "
                                              "where p.diagnosis = '华法林用药监测'");
    QVERIFY(count(data, monitoring) > 0);
    QCOMPARE(count(data, monitoring + QStringLiteral(" and r.item != 'PT'")), 0);
}

void TestLabData::qcSeries()
{
    Profile profile;
    QVERIFY(generate(&profile, 11, 20, 300));
    QcDataReader reader(&profile);
    const QList<qint64> ids = reader.reagentIds();
    QCOMPARE(ids.size(), 14);
    int rejectedTotal = 0;
    for (qint64 id : ids) {
        std::unique_ptr<QcSeries> series = reader.read(id);
        QVERIFY2(series, qPrintable(reader.errorString()));
        const QcExportData* data = series->data();
        QCOMPARE(data->points.size(), 300);
        QCOMPARE(data->count, 300);
        QVERIFY(data->assayTemplate && data->assayItem);
        QVERIFY(!data->assayItem->unit().isNull());
        QVERIFY(data->sd > 0);
        QCOMPARE(QcPoint::toDatetime(data->points.last().time).date(), QDate(2024, 6, 28));
        QCOMPARE(QcPoint::toDatetime(data->points.first().time).date(), QDate(2024, 6, 28).addDays(-99));
        for (int i = 1; i < data->points.size(); ++i)
            QVERIFY(data->points.at(i - 1).time < data->points.at(i).time);
        for (const QcPoint& point : data->points) {
            QCOMPARE(point.rejected, std::fabs(point.value - data->targetValue) > 3 * data->sd);
            rejectedTotal += point.rejected;
        }
        // Lots: "N" for the normal or low level, "P" for the pathological or high one.
        const QString lot =
            scalar(profile.qcDatabase(), QStringLiteral("select lot from reagent where id = %1").arg(id));
        QCOMPARE(lot.at(0), data->controlNo % 2 ? QLatin1Char('N') : QLatin1Char('P'));
        if (data->hasLimits) {
            QVERIFY(data->lowerStopLimit < data->lowerMarkLimit && data->lowerMarkLimit < data->targetValue);
            QVERIFY(data->targetValue < data->upperMarkLimit && data->upperMarkLimit < data->upperStopLimit);
        } else {
            QCOMPARE(data->upperStopLimit, 0.0);
        }
        // The runs scatter around the material's mean with about its SD.
        double mean = 0;
        double sd = 0;
        QVERIFY(statistic(data->points, &mean, &sd));
        QVERIFY2(std::fabs(mean - data->mean) < 0.5 * data->sd, qPrintable(QString::number(id)));
        QVERIFY2(sd > 0.7 * data->sd && sd < 1.4 * data->sd, qPrintable(QString::number(id)));

        // One day's runs.
        std::unique_ptr<QcSeries> day = reader.read(id, QDate(2024, 6, 27), QDate(2024, 6, 27));
        QVERIFY(day);
        QCOMPARE(day->data()->count, 3);
    }
    QVERIFY(rejectedTotal > 0);
    QVERIFY(rejectedTotal < 14 * 300 / 20);
}

void TestLabData::maintenance()
{
    Profile profile;
    QVERIFY(generate(&profile, 2, 0, 0, 2));

    const MaintenanceRecords reader(&profile);
    const QList<Workbench> workbenches = reader.workbenches();
    QCOMPARE(workbenches.size(), 2);
    const QSet<QString> daily = {QStringLiteral("检查试剂位温度"), QStringLiteral("检查清洗液余量"),
                                 QStringLiteral("排空废液"), QStringLiteral("清洗探针"),
                                 QStringLiteral("检查反应杯余量")};
    for (const Workbench& workbench : workbenches) {
        const QList<MaintenanceRecord> june =
            reader.records(&workbench, QDate(2024, 6, 1), MaintenanceManager::DailyMaintenance);
        QSet<QDate> days;
        for (const MaintenanceRecord& record : june) {
            QVERIFY(daily.contains(record.task));
            QVERIFY(!record.operatorName.isEmpty());
            QVERIFY(record.result == QStringLiteral("正常") || record.result == QStringLiteral("异常") ||
                    record.result == QStringLiteral("已完成"));
            if (record.result == QStringLiteral("异常"))
                QVERIFY(!record.remark.isEmpty());
            days.insert(record.date);
        }
        // Five tasks on every day that was done, nothing after the last day.
        QCOMPARE(june.size(), days.size() * 5);
        QVERIFY(days.size() >= 22 && days.size() <= 28);
        QVERIFY(
            std::all_of(days.cbegin(), days.cend(), [](const QDate& d) { return d <= QDate(2024, 6, 28); }));

        for (const MaintenanceRecord& record :
             reader.records(&workbench, QDate(2024, 5, 20), MaintenanceManager::WeeklyMaintenance))
            QCOMPARE(record.date.dayOfWeek(), int(Qt::Monday));
        const QList<MaintenanceRecord> monthly =
            reader.records(&workbench, QDate(2024, 6, 20), MaintenanceManager::MonthlyMaintenance);
        for (const MaintenanceRecord& record : monthly)
            QCOMPARE(record.date, QDate(2024, 6, 1)); // the first Saturday of June 2024
        // Nothing before the first month.
        QVERIFY(
            reader.records(&workbench, QDate(2024, 4, 1), MaintenanceManager::DailyMaintenance).isEmpty());
    }
}

void TestLabData::displayNames()
{
    QTemporaryDir dir;
    const QString ini = dir.filePath(QStringLiteral("lab.ini"));
    {
        Profile profile(ini);
        QVERIFY(generate(&profile, 1, 5, 2));
    }
    Profile reopened(ini);
    QCOMPARE(reopened.value(QStringLiteral("hospital")).toString(), QStringLiteral("示例市第一人民医院"));
    QCOMPARE(reopened.value(QStringLiteral("patient/name")).toString(), QStringLiteral("姓名"));
    QCOMPARE(reopened.value(QStringLiteral("patient/sampleNo")).toString(), QStringLiteral("样本号"));
    QCOMPARE(reopened.value(QStringLiteral("patient/doctor")).toString(), QStringLiteral("送检医生"));
    QCOMPARE(reopened.value(QStringLiteral("reagent/lot")).toString(), QStringLiteral("批号"));
    QCOMPARE(reopened.value(QStringLiteral("reagent/expiry")).toString(), QStringLiteral("有效期"));
    // Every named column exists, so a designer offers only real fields.
    for (const auto& entry : ColumnDisplayNames::entries()) {
        const QString table = entry.first.section(QLatin1Char('/'), 0, 0);
        const QString column = entry.first.section(QLatin1Char('/'), 1);
        if (column.isEmpty())
            continue;
        const QSqlDatabase db =
            table == QLatin1String("patient") ? reopened.dataDatabase() : reopened.qcDatabase();
        QVERIFY2(db.record(table).contains(column), qPrintable(entry.first));
        QCOMPARE(reopened.value(entry.first).toString(), entry.second);
    }
    QVERIFY(!reopened.value(QStringLiteral("patient/id")).isValid());
}

void TestLabData::optionsAndFailures()
{
    Profile profile;
    LabDatabaseGenerator generator(&profile, 9);
    QCOMPARE(generator.patientCount(), 200);
    QCOMPARE(generator.qcPointCount(), 90);
    QCOMPARE(generator.lastDay(), QDate(2024, 6, 28));
    generator.setPatientCount(-5);
    generator.setQcPointCount(7);
    generator.setLastDay(QDate(2023, 1, 2));
    generator.setLastDay(QDate()); // ignored
    QVERIFY(generator.generate());
    QCOMPARE(count(profile.dataDatabase(), QStringLiteral("from patient")), 0);
    QCOMPARE(count(profile.qcDatabase(), QStringLiteral("from qcResult")), 14 * 7);
    QCOMPARE(scalar(profile.qcDatabase(), QStringLiteral("select max(time) from qcResult")).left(10),
             QStringLiteral("2023-01-02"));
    QCOMPARE(scalar(profile.qcDatabase(), QStringLiteral("select min(date) from maintenanceRecord")),
             QStringLiteral("2022-11-01"));

    // No profile, or a closed database: nothing to generate.
    QVERIFY(!LabDatabaseGenerator(nullptr).generate());

    Profile closed;
    closed.dataDatabase().close();
    LabDatabaseGenerator noData(&closed);
    QVERIFY(!noData.generate());
    QCOMPARE(noData.errorString(), QStringLiteral("The data database is not open"));

    // A failing statement rolls the database back to what it held before.
    Profile rolled;
    QVERIFY(generate(&rolled, 4, 30, 5));
    QSqlQuery query(rolled.dataDatabase());
    QVERIFY(query.exec(QStringLiteral("drop index patient_sampleNo")));
    QVERIFY(query.exec(QStringLiteral("create table patient_sampleNo (x)")));
    const QString before = dump(rolled.dataDatabase());
    LabDatabaseGenerator blocked(&rolled, 5);
    QVERIFY(!blocked.generate());
    QVERIFY2(
        blocked.errorString().startsWith(QLatin1String("The data database: CREATE INDEX patient_sampleNo")),
        qPrintable(blocked.errorString()));
    QCOMPARE(dump(rolled.dataDatabase()), before);
}

QTEST_GUILESS_MAIN(TestLabData)
#include "tst_labdata.moc"
