#include <core/profile.h>
#include <defaulttemplates.h>
#include <itemfactory.h>
#include <labdata/columndisplaynames.h>
#include <labdata/labdatabasegenerator.h>
#include <report.h>
#include <reportitem.h>

#include <QBuffer>
#include <QDataStream>
#include <QDir>
#include <QFile>
#include <QSet>
#include <QSqlRecord>
#include <QTest>

using namespace coagulation;

namespace {

QString templateFolder()
{
    return QStringLiteral(TESTS_SOURCE_DIR "/../templates");
}

QSet<QString> keysOf(const Report& report)
{
    QSet<QString> keys;
    for (ReportItem* item : report.reportItems())
        keys.insert(item->key());
    return keys;
}

} // namespace

class TestTemplates : public QObject
{
    Q_OBJECT
private Q_SLOTS:
    void initTestCase();
    void committedTemplatesAreTheGeneratedOnes_data();
    void committedTemplatesAreTheGeneratedOnes();
    void templatesLoadWithTheirItems_data();
    void templatesLoadWithTheirItems();
    void fieldsNameExistingColumns();
    void itemsStayOnThePage();

private:
    Profile m_profile;
};

void TestTemplates::initTestCase()
{
    LabDatabaseGenerator generator(&m_profile);
    generator.setPatientCount(12);
    generator.setQcPointCount(10);
    QVERIFY2(generator.generate(), qPrintable(generator.errorString()));
}

void TestTemplates::committedTemplatesAreTheGeneratedOnes_data()
{
    QTest::addColumn<QString>("name");
    for (const DefaultTemplate& entry : DefaultTemplates::all())
        QTest::newRow(qPrintable(entry.settingKey)) << entry.name();
}

void TestTemplates::committedTemplatesAreTheGeneratedOnes()
{
    QFETCH(QString, name);
    const DefaultTemplate* entry = DefaultTemplates::find(name);
    QVERIFY(entry);

    Profile designer;
    ColumnDisplayNames::write(&designer);
    Report report(&designer, nullptr);
    DefaultTemplates::build(*entry, &report);
    QByteArray generated;
    QBuffer buffer(&generated);
    QVERIFY(buffer.open(QIODevice::WriteOnly));
    QDataStream out(&buffer);
    QVERIFY2(report.save(out), qPrintable(report.errorString()));

    QFile committed(QDir(templateFolder()).filePath(name + QStringLiteral(".rpt")));
    QVERIFY2(committed.open(QIODevice::ReadOnly), qPrintable(committed.fileName()));
    // Rebuild with: build/default/bin/coagulation-templategen templates
    QVERIFY2(committed.readAll() == generated,
             "templates/ is out of date: run coagulation-templategen templates and commit the result");
}

void TestTemplates::templatesLoadWithTheirItems_data()
{
    QTest::addColumn<QString>("name");
    QTest::addColumn<int>("type");
    QTest::addColumn<QStringList>("keys");
    const QStringList common = {
        QStringLiteral("profile:/hospital"), QStringLiteral("prop:/date"), QStringLiteral("prop:/time"),
        QStringLiteral("prop:/page"),        QStringLiteral("Text"),       QStringLiteral("Line")};
    QTest::newRow("patient") << QStringLiteral("凝血检验报告单") << int(kv::PatientReport)
                             << common + QStringList{QStringLiteral("Results"),
                                                     QStringLiteral("field:/patient/name"),
                                                     QStringLiteral("field:/patient/sex"),
                                                     QStringLiteral("field:/patient/age"),
                                                     QStringLiteral("field:/patient/ageUnit"),
                                                     QStringLiteral("field:/patient/sampleNo"),
                                                     QStringLiteral("field:/patient/department"),
                                                     QStringLiteral("field:/patient/bed"),
                                                     QStringLiteral("field:/patient/doctor"),
                                                     QStringLiteral("field:/patient/sampleKind"),
                                                     QStringLiteral("field:/patient/diagnosis"),
                                                     QStringLiteral("field:/patient/collectTime"),
                                                     QStringLiteral("field:/patient/receiveTime"),
                                                     QStringLiteral("field:/patient/reportTime"),
                                                     QStringLiteral("field:/patient/remark")};
    QTest::newRow("qc sample") << QStringLiteral("质控样本报告单") << int(kv::PatientReport)
                               << common + QStringList{QStringLiteral("Results"),
                                                       QStringLiteral("field:/patient/name"),
                                                       QStringLiteral("field:/patient/sampleNo"),
                                                       QStringLiteral("field:/patient/collectTime")};
    QTest::newRow("qc") << QStringLiteral("室内质控报告") << int(kv::QcReport)
                        << common + QStringList{QStringLiteral("QcChart"),
                                                QStringLiteral("QcTable"),
                                                QStringLiteral("QcControlInfoDetails"),
                                                QStringLiteral("field:/reagent/name"),
                                                QStringLiteral("field:/reagent/lot"),
                                                QStringLiteral("field:/reagent/level"),
                                                QStringLiteral("field:/reagent/expiry"),
                                                QStringLiteral("prop:/qc/item"),
                                                QStringLiteral("prop:/qc/abbr"),
                                                QStringLiteral("prop:/qc/unit"),
                                                QStringLiteral("prop:/qc/fileno")};
    QTest::newRow("maintenance") << QStringLiteral("维护保养记录") << int(kv::MaintenanceRecordReport)
                                 << common + QStringList{QStringLiteral("MaintenanceMonth"),
                                                         QStringLiteral("MaintenanceRecord"),
                                                         QStringLiteral("MaintenanceOperator")};
}

void TestTemplates::templatesLoadWithTheirItems()
{
    QFETCH(QString, name);
    QFETCH(int, type);
    QFETCH(QStringList, keys);
    const QString path = QDir(templateFolder()).filePath(name + QStringLiteral(".rpt"));
    QCOMPARE(int(Report::fileType(path)), type);

    ItemFactory factory(&m_profile);
    Report report(&m_profile, &factory);
    QVERIFY2(report.load(path), qPrintable(report.errorString()));
    QCOMPARE(int(report.type()), type);
    QCOMPARE(report.pageSize(), QPageSize::A4);
    const QSet<QString> present = keysOf(report);
    for (const QString& key : keys)
        QVERIFY2(present.contains(key), qPrintable(key));
    // Every item was read back: none was lost to a payload the reader did not understand.
    Profile designer;
    ColumnDisplayNames::write(&designer);
    Report built(&designer, nullptr);
    DefaultTemplates::build(*DefaultTemplates::find(name), &built);
    QCOMPARE(report.reportItems().size(), built.reportItems().size());
}

void TestTemplates::fieldsNameExistingColumns()
{
    const QHash<QString, QSqlDatabase> databases = {{QStringLiteral("patient"), m_profile.dataDatabase()},
                                                    {QStringLiteral("reagent"), m_profile.qcDatabase()}};
    Profile designer;
    ColumnDisplayNames::write(&designer);
    for (const DefaultTemplate& entry : DefaultTemplates::all()) {
        Report report(&designer, nullptr);
        DefaultTemplates::build(entry, &report);
        for (ReportItem* item : report.reportItems()) {
            if (!item->key().startsWith(QLatin1String("field:/")))
                continue;
            const QStringList parts = item->key().mid(7).split(QLatin1Char('/'));
            QCOMPARE(parts.size(), 2);
            QVERIFY2(databases.contains(parts.at(0)), qPrintable(item->key()));
            const QSqlRecord columns = databases.value(parts.at(0)).record(parts.at(0));
            QVERIFY2(columns.contains(parts.at(1)),
                     qPrintable(entry.name() + QLatin1Char(' ') + item->key()));
            // The designer shows the column's display name, not its raw name.
            auto* field = dynamic_cast<ReportFieldItem*>(item);
            QVERIFY(field);
            QVERIFY2(!field->toPlainText().contains(parts.at(1)), qPrintable(field->toPlainText()));
        }
    }
}

void TestTemplates::itemsStayOnThePage()
{
    Profile designer;
    ColumnDisplayNames::write(&designer);
    for (const DefaultTemplate& entry : DefaultTemplates::all()) {
        Report report(&designer, nullptr);
        DefaultTemplates::build(entry, &report);
        const QRectF page = report.sceneRect();
        for (ReportItem* item : report.reportItems()) {
            const QRectF bounds = item->graphicsItem()->sceneBoundingRect();
            QVERIFY2(page.contains(bounds), qPrintable(QStringLiteral("%1: %2 at %3,%4 %5x%6")
                                                           .arg(entry.name(), item->key())
                                                           .arg(bounds.x())
                                                           .arg(bounds.y())
                                                           .arg(bounds.width())
                                                           .arg(bounds.height())));
        }
    }
}

QTEST_MAIN(TestTemplates)
#include "tst_templates.moc"
