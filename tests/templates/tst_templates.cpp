#include <core/profile.h>
#include <defaulttemplates.h>
#include <itemfactory.h>
#include <kvcore/maintenanceexportdata.h>
#include <kvcore/maintenancerecords.h>
#include <kvcore/qcdatareader.h>
#include <labdata/columndisplaynames.h>
#include <labdata/labdatabasegenerator.h>
#include <overflowcheck.h>
#include <report.h>
#include <reportitem.h>

#include <QDataStream>
#include <QDir>
#include <QFile>
#include <QSet>
#include <QSqlQuery>
#include <QSqlRecord>
#include <QTest>

using namespace coagulation;

namespace {

QString templateFolder()
{
    return QStringLiteral(TESTS_SOURCE_DIR "/../templates");
}

// Stores under `id` a row of `table` made of the longest value of each of its columns.
bool insertLongest(QSqlDatabase db, const QString& table, qint64 id)
{
    const QSqlRecord columns = db.record(table);
    QStringList marks;
    QVariantList values;
    for (int c = 0; c < columns.count(); ++c) {
        QSqlQuery query(db);
        if (!query.exec(QStringLiteral("select %1 from %2 order by length(%1) desc limit 1")
                            .arg(columns.fieldName(c), table)) ||
            !query.next())
            return false;
        values.append(c == 0 ? QVariant(id) : query.value(0));
        marks.append(QStringLiteral("?"));
    }
    QSqlQuery insert(db);
    insert.prepare(QStringLiteral("insert into %1 values (%2)").arg(table, marks.join(QLatin1Char(','))));
    for (const QVariant& value : std::as_const(values))
        insert.addBindValue(value);
    return insert.exec();
}

// Pairs of items that would print over each other, and items off the page.
QStringList collisions(const Report& report)
{
    QStringList found;
    const QList<ReportItem*> items = report.reportItems();
    for (int i = 0; i < items.size(); ++i) {
        const QRectF a = OverflowCheck::inkRect(items.at(i)->graphicsItem());
        if (!report.sceneRect().contains(items.at(i)->graphicsItem()->sceneBoundingRect()))
            found.append(items.at(i)->key() + QStringLiteral(" off the page"));
        for (int j = i + 1; j < items.size(); ++j) {
            if (OverflowCheck::overlap(a, OverflowCheck::inkRect(items.at(j)->graphicsItem())))
                found.append(QStringLiteral("%1 at %2,%3 / %4")
                                 .arg(items.at(i)->key(), QString::number(a.x()), QString::number(a.y()),
                                      items.at(j)->key()));
        }
    }
    return found;
}

} // namespace

class TestTemplates : public QObject
{
    Q_OBJECT
private Q_SLOTS:
    void initTestCase();
    void committedTemplates_data();
    void committedTemplates();
    void defaultTemplatesFit();

private:
    static constexpr qint64 longest = 100000;
    Profile m_profile;
};

void TestTemplates::initTestCase()
{
    LabDatabaseGenerator generator(&m_profile);
    QVERIFY2(generator.generate(), qPrintable(generator.errorString())); // the demo's data
    // The longest value of every column in one patient with the most results, and one reagent.
    QSqlDatabase data = m_profile.dataDatabase();
    QVERIFY(insertLongest(data, QStringLiteral("patient"), longest));
    const QString columns = QStringLiteral("item, subitem, abbr, code, result, unit, flag, lowerMarkLimit, "
                                           "upperMarkLimit, displayOrder");
    QVERIFY(QSqlQuery(data).exec(
        QStringLiteral("insert into result (patientId, %1) select %2, %1 from result where "
                       "patientId = (select patientId from result group by patientId "
                       "order by count(*) desc limit 1)")
            .arg(columns)
            .arg(longest)));
    QVERIFY(insertLongest(m_profile.qcDatabase(), QStringLiteral("reagent"), longest));
}

void TestTemplates::committedTemplates_data()
{
    QTest::addColumn<QString>("name");
    QTest::addColumn<QString>("keys"); // besides those of every template
    const QString sample = QStringLiteral("Results field:/patient/name field:/patient/sampleNo "
                                          "field:/patient/collectTime ");
    const QHash<QString, QString> keys = {
        {QStringLiteral("凝血检验报告单"),
         sample +
             "field:/patient/sex field:/patient/age field:/patient/ageUnit field:/patient/department "
             "field:/patient/bed field:/patient/doctor field:/patient/sampleKind field:/patient/diagnosis "
             "field:/patient/receiveTime field:/patient/reportTime field:/patient/remark"},
        {QStringLiteral("质控样本报告单"), sample},
        {QStringLiteral("室内质控报告"),
         "QcChart QcTable QcControlInfoDetails field:/reagent/name field:/reagent/lot field:/reagent/level "
         "field:/reagent/expiry prop:/qc/item prop:/qc/abbr prop:/qc/unit prop:/qc/fileno"},
        {QStringLiteral("维护保养记录"), "MaintenanceMonth MaintenanceRecord MaintenanceOperator"}};
    for (const DefaultTemplate& entry : DefaultTemplates::all())
        QTest::newRow(qPrintable(entry.settingKey)) << entry.name() << keys.value(entry.name());
}

// The files in templates/ are what the generator makes, and load whole with their items.
void TestTemplates::committedTemplates()
{
    QFETCH(QString, name);
    QFETCH(QString, keys);
    const DefaultTemplate* entry = DefaultTemplates::find(name);
    QVERIFY(entry);
    Profile designer;
    ColumnDisplayNames::write(&designer);
    Report built(&designer, nullptr);
    DefaultTemplates::build(*entry, &built);
    QByteArray generated;
    QDataStream out(&generated, QIODevice::WriteOnly);
    QVERIFY2(built.save(out), qPrintable(built.errorString()));

    const QString path = QDir(templateFolder()).filePath(name + QStringLiteral(".rpt"));
    QFile committed(path);
    QVERIFY2(committed.open(QIODevice::ReadOnly), qPrintable(committed.fileName()));
    // Rebuild with: build/default/bin/coagulation-templategen templates
    QVERIFY2(committed.readAll() == generated,
             "templates/ is out of date: run coagulation-templategen templates and commit the result");

    QCOMPARE(Report::fileType(path), entry->type);
    ItemFactory factory(&m_profile);
    Report report(&m_profile, &factory);
    QVERIFY2(report.load(path), qPrintable(report.errorString()));
    QCOMPARE(report.type(), entry->type);
    QCOMPARE(report.pageSize(), QPageSize::A4);
    QSet<QString> present;
    for (ReportItem* item : report.reportItems())
        present.insert(item->key());
    keys += QStringLiteral(" profile:/hospital prop:/date prop:/time prop:/page Text Line");
    for (const QString& key : keys.split(QLatin1Char(' '), Qt::SkipEmptyParts))
        QVERIFY2(present.contains(key), qPrintable(key));
    // Every item was read back: none was lost to a payload the reader did not understand.
    QCOMPARE(report.reportItems().size(), built.reportItems().size());
}

void TestTemplates::defaultTemplatesFit()
{
    // As the designer shows them (placeholders) and bound to the longest demo values, no item of
    // a default template covers another or leaves the page.
    ItemFactory factory(&m_profile);
    Profile designer;
    ColumnDisplayNames::write(&designer);
    const QHash<QString, QSqlDatabase> databases = {{QStringLiteral("patient"), m_profile.dataDatabase()},
                                                    {QStringLiteral("reagent"), m_profile.qcDatabase()}};
    for (const DefaultTemplate& entry : DefaultTemplates::all()) {
        Report built(&designer, nullptr);
        DefaultTemplates::build(entry, &built);
        QVERIFY2(collisions(built).isEmpty(),
                 qPrintable(entry.name() + QLatin1Char(' ') + collisions(built).join(QStringLiteral(", "))));
        // Fields name existing columns, and the designer shows their display names.
        for (ReportItem* item : built.reportItems()) {
            if (!item->key().startsWith(QLatin1String("field:/")))
                continue;
            const QStringList parts = item->key().mid(7).split(QLatin1Char('/'));
            QCOMPARE(parts.size(), 2);
            QVERIFY2(databases.value(parts.at(0)).record(parts.at(0)).contains(parts.at(1)),
                     qPrintable(entry.name() + QLatin1Char(' ') + item->key()));
            auto* field = dynamic_cast<ReportFieldItem*>(item);
            QVERIFY(field);
            QVERIFY2(!field->toPlainText().contains(parts.at(1)), qPrintable(field->toPlainText()));
        }

        Report report(&m_profile, &factory);
        QVERIFY(report.load(QDir(templateFolder()).filePath(entry.name() + QStringLiteral(".rpt"))));
        std::unique_ptr<QcSeries> series = QcDataReader(&m_profile).read(1);
        QVERIFY(series);
        series->data()->reagentId = longest;
        // A full month (31 days) of each workbench, or the last page of a series.
        for (Workbench workbench : MaintenanceRecords(&m_profile).workbenches()) {
            MaintenanceExportData month{&workbench, QDate(2024, 5, 1)};
            if (entry.type == kv::PatientReport) {
                report.fetchData(longest, m_profile.dataDatabase());
            } else if (entry.type == kv::QcReport) {
                report.prepareQcData(series->data());
                QVERIFY(report.pageCount() >= 2);
                report.setCurrentPage(report.pageCount());
                report.fetchQcData(series->data());
            } else {
                report.prepareMaintenanceData(&month);
            }
            QVERIFY2(collisions(report).isEmpty(), qPrintable(entry.name() + QLatin1Char(' ') +
                                                              collisions(report).join(QStringLiteral(", "))));
        }
        for (ReportItem* item : report.reportItems()) {
            if (auto* table = dynamic_cast<ReportPatientTableItem*>(item)) {
                // Every visible assay of the catalogue, each measured twice, and not a row more.
                QCOMPARE(table->rowCount(), DefaultTemplates::patientResultRows);
                QCOMPARE(table->size().height(), DefaultTemplates::patientResultRows * table->rowHeight());
            }
        }
    }
}

QTEST_MAIN(TestTemplates)
#include "tst_templates.moc"
