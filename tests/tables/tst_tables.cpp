#include <core/analysisresult.h>
#include <core/profile.h>
#include <creators.h>
#include <itemfactory.h>
#include <kvcore/assayitem.h>
#include <kvcore/qcdatareader.h>
#include <kvcore/qcexportdata.h>
#include <labdata/labdatabasegenerator.h>
#include <report.h>
#include <reportitem.h>
#include <tracker.h>

#include <QDataStream>
#include <QFontMetricsF>
#include <QImage>
#include <QPainter>
#include <QSqlError>
#include <QSqlQuery>
#include <QTest>
#include <QUndoStack>

#include "../common/payload.h"
#include "../common/viewdriver.h"

#include <cmath>
#include <memory>

using namespace coagulation;
using test::loadPayload;
using test::payloadOf;

namespace {

// A patient that exists only in the result table, with rows written out of display order.
constexpr int testPatient = 900001;
constexpr int patientWithoutResults = 900002;

QStringList row(const GraphicsTableItem& table, int r)
{
    QStringList cells;
    for (int c = 0; c < table.columnCount(); ++c)
        cells.append(table.itemText(r, c));
    return cells;
}

// Rows filled in each block of a QC table.
QList<int> blockRows(const ReportQcTableItem& table)
{
    QList<int> counts;
    for (const GraphicsTableItem* block : table.blocks())
        counts.append(block->rowCount());
    return counts;
}

// A patient table in the report, reading through `profile`.
ReportPatientTableItem* patientTable(Report& report, Profile* profile)
{
    auto* table = new ReportPatientTableItem(profile);
    report.addItem(table);
    return table;
}

QString g4(double value)
{
    return QStringLiteral("%1").arg(value, 0, 'g', 4);
}

QFont testFont()
{
    QFont font(QStringLiteral("DejaVu Sans"));
    font.setPixelSize(13);
    return font;
}

int darkPixels(const QImage& image, const QRectF& area)
{
    int count = 0;
    const QRect r = area.toAlignedRect() & image.rect();
    for (int y = r.top(); y <= r.bottom(); ++y)
        for (int x = r.left(); x <= r.right(); ++x)
            count += qGray(image.pixel(x, y)) < 128;
    return count;
}

// The scene area [0, 0, size] at scale 1, without selection or handles.
QImage render(QGraphicsScene& scene, const QSize& size)
{
    scene.clearSelection();
    QImage image(size, QImage::Format_RGB32);
    image.fill(Qt::white);
    QPainter painter(&image);
    scene.render(&painter, QRectF(QPointF(0, 0), size), QRectF(QPointF(0, 0), size));
    return image;
}

// Points one hour apart from 2024-06-01 08:00, valued 10.0, 10.1, ...
QList<QcPoint> hourlyPoints(int count)
{
    QList<QcPoint> points;
    const QDateTime start(QDate(2024, 6, 1), QTime(8, 0));
    for (int i = 0; i < count; ++i)
        points.append({QcPoint::fromDatetime(start.addSecs(3600 * i)), 10.0 + i / 10.0, false});
    return points;
}

// A QC table with rows of 24 units, `rows` rows high and `blocks` blocks wide.
ReportQcTableItem* qcTable(Report& report, int rows, int blocks)
{
    auto* table = new ReportQcTableItem;
    table->setSize(QSizeF(200, rows * 24.0));
    table->setColumns(blocks);
    table->layout(blocks * 320.0 - 20); // 20 apart, the minimum gap
    report.addItem(table);
    return table;
}

// Both QC information tables on a QC report bound to data, filled for page 1.
std::pair<ReportQcInfoTableItem*, ReportQcInfoDetailsTableItem*> printedInfoTables(Report& report,
                                                                                   const QcExportData* data)
{
    auto* info = new ReportQcInfoTableItem;
    auto* details = new ReportQcInfoDetailsTableItem;
    report.addItem(info);
    report.addItem(details);
    report.prepareQcData(data);
    report.fetchQcData(data);
    return {info, details};
}

} // namespace

class TestTables : public QObject
{
    Q_OBJECT
private Q_SLOTS:
    void initTestCase();

    void tableItem();
    void tableGeometryChanges_data();
    void tableGeometryChanges();
    void tableCopy();

    void patientSample();
    void patientRows();
    void patientWithoutData();
    void patientHugePrecision();

    void qcInfoTables_data();
    void qcInfoTables();
    void detailsComputedValues();
    void detailsColumnWidths();

    void multiColumnBlocks_data();
    void multiColumnBlocks();
    void multiColumnLayout();
    void qcPaging_data();
    void qcPaging();
    void qcPagesFromDatabase();
    void qcTableRendered();
    void qcTableInDesigner();
    void drawnWithCreators();

    void payloadRoundTrips_data();
    void payloadRoundTrips();
    void multiColumnPayload();
    void brokenMultiColumnPayload_data();
    void brokenMultiColumnPayload();

private:
    Profile m_profile;
};

void TestTables::initTestCase()
{
    LabDatabaseGenerator generator(&m_profile, 7);
    generator.setPatientCount(0);
    generator.setQcPointCount(40);
    QVERIFY2(generator.generate(), qPrintable(generator.errorString()));

    // Written in reverse display order, so only the query's ordering puts them right.
    QSqlQuery insert(m_profile.dataDatabase());
    QVERIFY2(insert.exec(
                 QStringLiteral(
                     "insert into result (id, patientId, item, subitem, abbr, code, result, unit, flag, "
                     "lowerMarkLimit, upperMarkLimit, displayOrder) values "
                     "(1000007, %1, 'PT', 'PT Act', 'PT%', '凝血酶原活动度', '85.4', 'u', 0, 70, 130, 7), "
                     "(1000006, %1, 'D-Dimer', 'DD Conc', 'D-D', 'D-二聚体', '0.3', 'u', 0, 0, 0.55, 6), "
                     "(1000005, %1, 'FIB', 'FIB Conc', 'FIB', '纤维蛋白原', '<0.35', 'u', %2, -1, 4, 5), "
                     "(1000004, %1, 'PT', 'PT INR', 'INR', '国际标准化比值', '2.5', 'u', %3, 0, 0, 4), "
                     "(1000003, %1, 'APTT', 'APTT Ratio', 'APTT-R', '活化部分凝血活酶时间比值', '1.1', "
                     "'u', 0, 0.8, 1.2, 3), "
                     "(1000002, %1, 'XYZ', 'XYZ Sec', 'XYZ', '未知项目', '9.9', 'u', 0, 1, 2, 2), "
                     "(1000001, %1, 'PT', 'PT Sec', 'PT-S', '凝血酶原时间', '13.46', 'u', %4, 11, 14.5, 1)")
                     .arg(testPatient)
                     .arg(int(AnalysisResult::BelowRange | AnalysisResult::Low | AnalysisResult::CriticalLow))
                     .arg(int(AnalysisResult::High | AnalysisResult::CriticalHigh))
                     .arg(int(AnalysisResult::High))),
             qPrintable(insert.lastError().text()));
}

// --- ReportTableItem ----------------------------------------------------------------------------

void TestTables::tableItem()
{
    ReportTableItem table;
    QCOMPARE(table.flags(), QGraphicsItem::ItemIsMovable | QGraphicsItem::ItemIsSelectable |
                                QGraphicsItem::ItemSendsScenePositionChanges);
    table.setColumnWidth(0, 60);
    table.setColumnWidth(1, 80);
    table.setColumnWidth(2, 40);
    table.setRowHeight(20);
    table.setSize(QSizeF(250, 90));
    QCOMPARE(table.geometry(), QPolygonF({QPointF(0, 0), QPointF(250, 90), QPointF(0, 20), QPointF(60, 0),
                                          QPointF(140, 0), QPointF(180, 0)}));

    // The Chinese fallback stays behind a chosen font.
    QVERIFY(table.font().families().contains(QStringLiteral("Noto Sans CJK SC")));
    table.setFont(testFont());
    QCOMPARE(table.font().families().first(), QStringLiteral("DejaVu Sans"));
    QVERIFY(table.font().families().contains(QStringLiteral("Noto Sans CJK SC")));
    QCOMPARE(static_cast<ReportItem&>(table).font(), table.GraphicsTableItem::font());
    // Its tracker is proven on selection in tst_trackers.
}

void TestTables::tableGeometryChanges_data()
{
    QTest::addColumn<QPolygonF>("polygon");
    QTest::addColumn<QList<double>>("widths");
    QTest::addColumn<double>("rowHeight");
    QTest::addColumn<QSizeF>("size");
    QTest::addColumn<QPointF>("pos");

    // The table starts at (10, 10) with columns 60, 80 and rows of 20 (2 rows), size 200 x 100.
    QTest::newRow("its own polygon changes nothing")
        << QPolygonF({QPointF(0, 0), QPointF(200, 100), QPointF(0, 20), QPointF(60, 0), QPointF(140, 0)})
        << QList<double>{60, 80} << 20.0 << QSizeF(200, 100) << QPointF(10, 10);
    QTest::newRow("empty polygon changes nothing")
        << QPolygonF() << QList<double>{60, 80} << 20.0 << QSizeF(200, 100) << QPointF(10, 10);
    QTest::newRow("two points only resize")
        << QPolygonF({QPointF(0, 0), QPointF(300, 150)}) << QList<double>{60, 80} << 20.0 << QSizeF(300, 150)
        << QPointF(10, 10);
    QTest::newRow("one point moves and shrinks to the preferred size")
        << QPolygonF({QPointF(5, -5)}) << QList<double>{60, 80} << 20.0 << QSizeF(140, 40) << QPointF(15, 5);
    QTest::newRow("smaller than the rows need")
        << QPolygonF({QPointF(0, 0), QPointF(50, 10), QPointF(0, 30)}) << QList<double>{60, 80} << 30.0
        << QSizeF(140, 60) << QPointF(10, 10);
    QTest::newRow("lines and borders moved with the origin")
        << QPolygonF({QPointF(20, 10), QPointF(320, 210), QPointF(20, 35), QPointF(70, 10), QPointF(190, 10)})
        << QList<double>{50, 120} << 25.0 << QSizeF(300, 200) << QPointF(30, 20);
    QTest::newRow("extra border points are ignored")
        << QPolygonF({QPointF(0, 0), QPointF(200, 100), QPointF(0, 20), QPointF(70, 0), QPointF(100, 0),
                      QPointF(400, 0)})
        << QList<double>{70, 30} << 20.0 << QSizeF(200, 100) << QPointF(10, 10);
    QTest::newRow("missing border points keep widths")
        << QPolygonF({QPointF(0, 0), QPointF(200, 100), QPointF(0, 20), QPointF(90, 0)})
        << QList<double>{90, 80} << 20.0 << QSizeF(200, 100) << QPointF(10, 10);
}

void TestTables::tableGeometryChanges()
{
    QFETCH(QPolygonF, polygon);
    QFETCH(QList<double>, widths);
    QFETCH(double, rowHeight);
    QFETCH(QSizeF, size);
    QFETCH(QPointF, pos);

    ReportTableItem table;
    table.setColumnWidth(0, 60);
    table.setColumnWidth(1, 80);
    table.setRowHeight(20);
    table.setRowCount(2);
    table.setSize(QSizeF(200, 100));
    table.setPos(10, 10);
    table.setGeometry(polygon);
    QCOMPARE(table.columnCount(), 2);
    QCOMPARE((QList<double>{table.columnWidth(0), table.columnWidth(1)}), widths);
    QCOMPARE(table.rowHeight(), rowHeight);
    QCOMPARE(table.size(), size);
    QCOMPARE(table.pos(), pos);
}

void TestTables::tableCopy()
{
    Profile other;
    ReportPatientTableItem original(&other);
    original.setKey(QStringLiteral("Results"));
    original.setItemText(3, 1, QStringLiteral("copied"));
    original.setColumnWidth(4, 33);
    original.setSize(QSizeF(640, 120));

    ReportPatientTableItem copy(original);
    QCOMPARE(copy.profile(), &other);
    QCOMPARE(copy.key(), QStringLiteral("Results"));
    QCOMPARE(copy.flags(), original.flags());
    QCOMPARE(payloadOf(&copy), payloadOf(&original)); // texts, widths and size
    // The copy is a report item of its own, found through its scene item.
    QCOMPARE(ReportItem::fromGraphicsItem(&copy), static_cast<ReportItem*>(&copy));
}

// --- ReportPatientTableItem -----------------------------------------------------------------------

void TestTables::patientSample()
{
    ReportPatientTableItem table(&m_profile);
    QCOMPARE(table.columnCount(), 6);
    QCOMPARE(table.rowCount(), 2);
    QCOMPARE(row(table, 0), (QStringList{"代码", "项目名称", "结果", "单位", "标志", "参考值"}));
    QCOMPARE(row(table, 1), (QStringList{"PT-S", "凝血酶原时间", "12.3", "s", "↑↑", "10.0-13.0"}));
    for (int c = 0; c < 6; ++c)
        QCOMPARE(table.columnFlags(c), c == 2 ? int(Qt::AlignRight) : 0);

    // The mark follows the profile's flag style.
    Profile letters;
    letters.setValue(QStringLiteral("result/flagStyle"), QStringLiteral("letters"));
    QCOMPARE(ReportPatientTableItem(&letters).itemText(1, 4), QStringLiteral("HH"));

    // Outside a report there is nothing to print: the sample goes, no row comes.
    table.updateData();
    QCOMPARE(table.rowCount(), 0);
    QCOMPARE(table.columnCount(), 6);
}

void TestTables::patientRows()
{
    Report report(&m_profile, nullptr);
    ReportPatientTableItem* table = patientTable(report, &m_profile);
    table->setColumnWidth(1, 140);
    report.fetchData(testPatient, m_profile.dataDatabase());

    // The unknown assay (display order 2) and the hidden ratio (3) leave no gap.
    QCOMPARE(table->rowCount(), 5);
    QCOMPARE(row(*table, 0), (QStringList{"PT-S", "凝血酶原时间", "13.5", "u", "↑", "11.0-14.5"}));
    QCOMPARE(row(*table, 1), (QStringList{"INR", "国际标准化比值", "2.50", "u", "↑↑", ""}));
    QCOMPARE(row(*table, 2), (QStringList{"FIB", "纤维蛋白原", "<0.35", "u", "↓↓", "-1.00-4.00"}));
    QCOMPARE(row(*table, 3), (QStringList{"D-D", "D-二聚体", "0.30", "u", "", "0.00-0.55"}));
    QCOMPARE(row(*table, 4), (QStringList{"PT%", "凝血酶原活动度", "85", "u", "", "70-130"}));
    // Widths and flags are the template's; the size is not adjusted.
    QCOMPARE(table->columnWidth(1), 140.0);
    QCOMPARE(table->columnFlags(2), int(Qt::AlignRight));
    QCOMPARE(table->boundingRect(), QRectF(0, 0, 640, 5 * 24));

    // No transaction is left open on the catalogue (it would keep other programs from writing).
    QSqlDatabase catalogue = m_profile.database();
    QVERIFY(catalogue.transaction());
    QVERIFY(catalogue.rollback());

    // Inside the caller's transaction the look-ups see its changes, and it stays the caller's.
    QVERIFY(catalogue.transaction());
    QVERIFY(QSqlQuery(catalogue).exec("update assayItem set visible = 1 where name = 'APTT Ratio'"));
    report.fetchData(testPatient, m_profile.dataDatabase());
    QCOMPARE(table->rowCount(), 6);
    QVERIFY(catalogue.rollback());
    report.fetchData(testPatient, m_profile.dataDatabase());
    QCOMPARE(table->rowCount(), 5);

    // Printing the next patient replaces the rows.
    report.fetchData(patientWithoutResults, m_profile.dataDatabase());
    QCOMPARE(table->rowCount(), 0);
}

// A database that asks for 2147483647 decimals gets as many as a result shows at most.
void TestTables::patientHugePrecision()
{
    QSqlQuery update(m_profile.database());
    const QString set = QStringLiteral("update assayItem set precision = %1 where name = 'PT Sec'");
    QVERIFY(update.exec(set.arg(2147483647)));
    Report report(&m_profile, nullptr);
    ReportPatientTableItem* table = patientTable(report, &m_profile);
    report.fetchData(testPatient, m_profile.dataDatabase());
    QVERIFY(update.exec(set.arg(1))); // as the catalogue has it
    const QStringList first = row(*table, 0);
    QCOMPARE(first.at(2), QString::number(13.46, 'f', 32));
    QCOMPARE(first.at(5), QString::number(11.0, 'f', 32) + '-' + QString::number(14.5, 'f', 32));
}

void TestTables::patientWithoutData()
{
    // No result database at all: the queries fail, are logged, and the table stays empty.
    Profile empty;
    Report report(&empty, nullptr);
    ReportPatientTableItem* table = patientTable(report, &empty);
    QTest::ignoreMessage(QtWarningMsg, QRegularExpression("tableitems.cpp:\\d+: .*result"));
    QTest::ignoreMessage(QtWarningMsg, QRegularExpression("tableitems.cpp:\\d+: .*assayItem"));
    QTest::failOnWarning(QRegularExpression("tableitems.cpp"));
    report.fetchData(testPatient, empty.dataDatabase());
    QCOMPARE(table->rowCount(), 0);

    // No profile: no databases to read, nothing printed.
    Report orphanReport(&m_profile, nullptr);
    ReportPatientTableItem* orphan = patientTable(orphanReport, nullptr);
    QTest::failOnWarning(QRegularExpression(".*"));
    orphan->updateData();
    QCOMPARE(orphan->rowCount(), 0);
}

// --- QC information tables --------------------------------------------------------------------

void TestTables::qcInfoTables_data()
{
    QTest::addColumn<int>("hasLimits");
    QTest::addColumn<double>("mean");
    QTest::addColumn<double>("sd");
    QTest::addColumn<int>("firstIndex");
    QTest::addColumn<QStringList>("info");
    QTest::addColumn<QStringList>("details");

    // Points 1 to 8 of 20 are printed, values 10.1 to 10.8.
    QTest::newRow("limits") << 1 << 12.35 << 0.3 << 1
                            << QStringList{"上停止限|18.6", "上标记限|16.25", "靶值|12.2", "下标记限|8.2",
                                           "下停止限|6.123"}
                            << QStringList{"质控数量|8", "上停止限|18.6", "上标记限|16.25",
                                           "靶值|12.2",  "下标记限|8.2",  "下停止限|6.123"};
    QTest::newRow("no limits") << 0 << 12.35 << 0.3 << 1 << QStringList{"平均值|12.35", "SD|0.3", "CV|2.429%"}
                               << QStringList{"质控数量|8",     "平均值|12.35",  "SD|0.3",       "CV|2.429%",
                                              "计算均值|10.45", "计算SD|0.2449", "计算CV|2.344%"};
    QTest::newRow("nothing to compute from")
        << 0 << 0.0 << 0.0 << 25 << QStringList{"平均值|0", "SD|0", "CV|nan%"}
        << QStringList{"质控数量|8", "平均值|0", "SD|0", "CV|nan%", "计算均值|0", "计算SD|0", "计算CV|nan%"};
    QTest::newRow("zero mean with a spread")
        << 0 << 0.0 << 0.5 << 25 << QStringList{"平均值|0", "SD|0.5", "CV|inf%"}
        << QStringList{"质控数量|8", "平均值|0", "SD|0.5",     "CV|inf%",
                       "计算均值|0", "计算SD|0", "计算CV|nan%"};
}

void TestTables::qcInfoTables()
{
    QFETCH(int, hasLimits);
    QFETCH(double, mean);
    QFETCH(double, sd);
    QFETCH(int, firstIndex);
    QFETCH(QStringList, info);
    QFETCH(QStringList, details);

    QcExportData data;
    data.hasLimits = hasLimits;
    data.upperStopLimit = 18.6;
    data.upperMarkLimit = 16.25;
    data.targetValue = 12.2;
    data.lowerMarkLimit = 8.2;
    data.lowerStopLimit = 6.1234;
    data.mean = mean;
    data.sd = sd;
    data.points = hourlyPoints(20);
    data.firstIndex = firstIndex;
    data.count = 8;

    Report report(&m_profile, nullptr);
    const auto [infoTable, detailsTable] = printedInfoTables(report, &data);

    const auto rows = [](const GraphicsTableItem& table) {
        QStringList list;
        for (int r = 0; r < table.rowCount(); ++r)
            list.append(row(table, r).join(QLatin1Char('|')));
        return list;
    };
    QCOMPARE(rows(*infoTable), info);
    QCOMPARE(rows(*detailsTable), details);
    QCOMPARE(infoTable->columnFlags(1), int(Qt::AlignRight));
    QCOMPARE(detailsTable->columnFlags(0), 0);
    render(report, QSize(300, 300)); // whatever the numbers, they paint

    // Without QC data (a patient report) both print empty.
    Report patientReport(&m_profile, nullptr);
    auto* emptyInfo = new ReportQcInfoTableItem;
    auto* emptyDetails = new ReportQcInfoDetailsTableItem;
    patientReport.addItem(emptyInfo);
    patientReport.addItem(emptyDetails);
    patientReport.fetchData(testPatient, m_profile.dataDatabase());
    QCOMPARE(emptyInfo->rowCount(), 0);
    QCOMPARE(emptyDetails->rowCount(), 0);
}

// The computed rows against a plain two-pass mean and sample SD over the printed, counted points.
void TestTables::detailsComputedValues()
{
    QcDataReader reader(&m_profile);
    const QList<qint64> reagents = reader.reagentIds();
    QVERIFY(reagents.size() >= 14);
    int checked = 0;
    for (qint64 reagent : reagents) {
        std::unique_ptr<QcSeries> series = reader.read(reagent);
        QVERIFY2(series, qPrintable(reader.errorString()));
        QcExportData* data = series->data();
        if (data->hasLimits)
            continue;
        data->firstIndex = 3;
        data->count = 25;
        QVERIFY(data->points.size() >= 28);

        double sum = 0;
        int n = 0;
        for (int i = 3; i < 28; ++i) {
            if (!data->points.at(i).rejected) {
                sum += data->points.at(i).value;
                ++n;
            }
        }
        const double mean = sum / n;
        double squares = 0;
        for (int i = 3; i < 28; ++i) {
            if (!data->points.at(i).rejected)
                squares += std::pow(data->points.at(i).value - mean, 2);
        }
        const double sd = std::sqrt(squares / (n - 1));

        Report report(&m_profile, nullptr);
        ReportQcInfoDetailsTableItem* table = printedInfoTables(report, data).second;
        QCOMPARE(table->rowCount(), 7);
        QCOMPARE(table->itemText(0, 1), QStringLiteral("25"));
        QCOMPARE(table->itemText(1, 1), g4(data->mean));
        QCOMPARE(table->itemText(4, 1), g4(mean));
        QCOMPARE(table->itemText(5, 1), g4(sd));
        QCOMPARE(table->itemText(6, 1), g4(sd * 100 / mean) + QLatin1Char('%'));
        ++checked;
    }
    QCOMPARE(checked, 6);
}

void TestTables::detailsColumnWidths()
{
    ReportQcInfoDetailsTableItem table;
    table.setFont(testFont());
    const QFontMetricsF metrics(table.font());
    double label = 0;
    for (const char* text : {"质控数量", "平均值", "SD", "CV", "计算均值", "计算SD", "计算CV"})
        label = qMax(label, metrics.boundingRect(QString::fromUtf8(text)).width());
    const double first = qMax(label + 16, 50.0);

    // Built with the invalid size: the value column starts at its minimum.
    QCOMPARE(ReportQcInfoDetailsTableItem().columnWidth(1), 50.0);
    QCOMPARE(table.rowCount(), 7);
    QCOMPARE(row(table, 6), (QStringList{"计算CV", "1%"}));

    table.setGeometry(QPolygonF({QPointF(0, 0), QPointF(300, 200)}));
    QCOMPARE(table.columnWidth(0), first);
    QCOMPARE(table.columnWidth(1), 300 - first);

    // Moved by its polygon without resizing: point 1 is taken as it stands, so the value column
    // widens by the move.
    table.setGeometry(QPolygonF({QPointF(40, 30), QPointF(340, 230)}));
    QCOMPARE(table.columnWidth(1), 340 - first);

    // Narrower than label + 50: the value column keeps 50 and the table outgrows the request.
    table.setGeometry(QPolygonF({QPointF(0, 0), QPointF(first + 10, 200)}));
    QCOMPARE(table.columnWidth(1), 50.0);
    QVERIFY(table.boundingRect().width() >= first + 50);

    // Fewer than two points size the value column from nothing.
    table.setGeometry(QPolygonF());
    QCOMPARE(table.columnWidth(1), 50.0);

    // Long labels widen the label column when the data arrives.
    QcExportData data;
    data.hasLimits = 1;
    Report report(&m_profile, nullptr);
    auto* filled = new ReportQcInfoDetailsTableItem;
    filled->setFont(testFont());
    filled->setSize(QSizeF(400, 200));
    report.addItem(filled);
    report.prepareQcData(&data);
    report.fetchQcData(&data);
    double limitLabel = 0;
    for (int r = 0; r < filled->rowCount(); ++r)
        limitLabel = qMax(limitLabel, metrics.boundingRect(filled->itemText(r, 0)).width());
    QCOMPARE(filled->columnWidth(0), qMax(limitLabel + 16, 50.0));
    QCOMPARE(filled->columnWidth(1), 400 - filled->columnWidth(0));
}

// --- Multi-column and QC result tables ------------------------------------------------------------

void TestTables::multiColumnBlocks_data()
{
    QTest::addColumn<double>("width");
    QTest::addColumn<int>("blocks");

    // The QC table's first block is 300 wide; blocks keep a gap of at least 20.
    QTest::newRow("exactly three") << 3 * 320.0 - 20 << 3;
    QTest::newRow("one unit short of three") << 3 * 320.0 - 21 << 2;
    QTest::newRow("exactly one") << 300.0 << 1;
    QTest::newRow("narrower than one block") << 120.0 << 1;
    QTest::newRow("zero width") << 0.0 << 1;
    QTest::newRow("absurdly wide stays bounded") << 1e12 << 100;
}

void TestTables::multiColumnBlocks()
{
    QFETCH(double, width);
    QFETCH(int, blocks);

    ReportQcTableItem table;
    table.setPos(50, 60);
    table.setGeometry(QPolygonF({QPointF(0, 0), QPointF(width, 100)}));
    QCOMPARE(table.columns(), blocks);
    QCOMPARE(table.pos(), QPointF(50, 60));
    QCOMPARE(table.size(), QSizeF(qMax(width, 300.0), 100));
    // New blocks are copies of the first, sample texts included.
    const GraphicsTableItem* last = table.blocks().last();
    QCOMPARE(last->parentItem(), &table);
    QCOMPARE(row(*last, 1), (QStringList{"2017-05-03", "14:10:27", "10.3"}));
    if (blocks > 1 && blocks < 1000) {
        // Spread over the width exactly: the last block ends at the right edge.
        QCOMPARE(last->pos().x() + 300, width);
    }
}

void TestTables::multiColumnLayout()
{
    ReportQcTableItem table;
    GraphicsTableItem* first = table.blocks().first();
    first->setPos(7, 3);
    table.layout(900); // one block is never moved
    QCOMPARE(first->pos(), QPointF(7, 3));

    table.setColumns(3);
    table.layout(1000);
    QCOMPARE(table.blocks().at(0)->pos(), QPointF(0, 0));
    QCOMPARE(table.blocks().at(1)->pos(), QPointF(350, 0));
    QCOMPARE(table.blocks().at(2)->pos(), QPointF(700, 0));
    // No room: the blocks overflow to the right with the minimum gap.
    table.layout(500);
    QCOMPARE(table.blocks().at(2)->pos(), QPointF(640, 0));
    table.setColumns(0);
    QCOMPARE(table.columns(), 1);

    // Geometry: the first block's polygon with the stored size; lines reach every block.
    table.setColumns(2);
    table.setSize(QSizeF(640, 240));
    QCOMPARE(table.geometry(), QPolygonF({QPointF(0, 0), QPointF(640, 240), QPointF(0, 24), QPointF(100, 0),
                                          QPointF(200, 0), QPointF(300, 0)}));
    table.setGeometry(QPolygonF({QPointF(0, 0), QPointF(640, 240), QPointF(0, 30), QPointF(120, 0),
                                 QPointF(200, 0), QPointF(260, 0)}));
    QCOMPARE(table.columns(), 2);
    for (const GraphicsTableItem* block : table.blocks()) {
        QCOMPARE(block->rowHeight(), 30.0);
        QCOMPARE((QList<double>{block->columnWidth(0), block->columnWidth(1), block->columnWidth(2)}),
                 (QList<double>{120, 80, 60}));
    }
    QCOMPARE(table.blocks().at(1)->pos(), QPointF(380, 0));
    QCOMPARE(table.boundingRect(), QRectF(0, 0, 640, 240));

    // The font reaches every block and keeps the Chinese fallback.
    table.setFont(testFont());
    for (const GraphicsTableItem* block : table.blocks()) {
        QCOMPARE(block->font().pixelSize(), 13);
        QVERIFY(block->font().families().contains(QStringLiteral("Noto Sans CJK SC")));
    }
    table.clear();
    for (const GraphicsTableItem* block : table.blocks())
        QCOMPARE(block->rowCount(), 0);
}

void TestTables::qcPaging_data()
{
    QTest::addColumn<int>("points");
    QTest::addColumn<int>("rows");
    QTest::addColumn<int>("blocks");
    QTest::addColumn<int>("page");
    QTest::addColumn<int>("pages");
    QTest::addColumn<QList<int>>("filled"); // rows per block on that page
    QTest::addColumn<int>("firstValue");    // index of the point in the first cell

    QTest::newRow("25 points page 1") << 25 << 10 << 2 << 1 << 2 << QList<int>{10, 10} << 0;
    QTest::newRow("25 points page 2") << 25 << 10 << 2 << 2 << 2 << QList<int>{3, 2} << 20;
    QTest::newRow("5 left over 3 blocks") << 35 << 10 << 3 << 2 << 2 << QList<int>{2, 2, 1} << 30;
    QTest::newRow("exactly full") << 20 << 10 << 2 << 1 << 1 << QList<int>{10, 10} << 0;
    QTest::newRow("no points") << 0 << 10 << 2 << 1 << 1 << QList<int>{0, 0} << -1;
    QTest::newRow("lower than a row counts as one row") << 3 << 0 << 1 << 2 << 3 << QList<int>{1} << 1;
}

void TestTables::qcPaging()
{
    QFETCH(int, points);
    QFETCH(int, rows);
    QFETCH(int, blocks);
    QFETCH(int, page);
    QFETCH(int, pages);
    QFETCH(QList<int>, filled);
    QFETCH(int, firstValue);

    AssayItem assay(1, QStringLiteral("PT Sec"), QStringLiteral("PT-S"), QStringLiteral("s"), 1);
    QcExportData data;
    data.points = hourlyPoints(points + 5);
    data.firstIndex = 5;
    data.count = points;
    data.assayItem = &assay;

    Report report(&m_profile, nullptr);
    ReportQcTableItem* table = qcTable(report, rows, blocks);
    if (rows == 0)
        table->setSize(QSizeF(200, 10)); // below one row of 24
    report.prepareQcData(&data);
    QCOMPARE(report.pageCount(), pages);
    QCOMPARE(report.resultCount(), qMax(rows, 1) * blocks);
    report.setCurrentPage(page);
    report.fetchQcData(&data);

    QCOMPARE(blockRows(*table), filled);
    if (firstValue < 0)
        return;
    // The points flow down the first block, then on in the next, in order.
    int index = data.firstIndex + firstValue;
    for (const GraphicsTableItem* block : table->blocks()) {
        for (int r = 0; r < block->rowCount(); ++r, ++index) {
            const QDateTime time = QcPoint::toDatetime(data.points.at(index).time);
            QCOMPARE(row(*block, r), (QStringList{time.toString("yyyy-MM-dd"), time.toString("HH:mm:ss"),
                                                  QString::number(data.points.at(index).value, 'f', 1)}));
        }
    }
}

// A QC report over generated runs: page count, the page boundary and the value format.
void TestTables::qcPagesFromDatabase()
{
    QcDataReader reader(&m_profile);
    std::unique_ptr<QcSeries> series = reader.read(reader.reagentIds().first());
    QVERIFY(series);
    QcExportData* data = series->data();
    QCOMPARE(data->count, 40);
    QVERIFY(data->assayItem);

    Report report(&m_profile, nullptr);
    ReportQcTableItem* table = qcTable(report, 7, 3);
    auto* second = qcTable(report, 5, 1); // needs 8 pages and so decides the count
    report.prepareQcData(data);
    QCOMPARE(report.pageCount(), 8);

    report.setCurrentPage(2);
    report.fetchQcData(nullptr);
    // Page 2 spreads the 19 points after the first 21 at up to 7 a block.
    QCOMPARE(blockRows(*table), (QList<int>{7, 7, 5}));
    const QcPoint& firstOnPage2 = data->points.at(21);
    QCOMPARE(table->blocks().first()->itemText(0, 2), data->assayItem->valueString(firstOnPage2.value));
    QCOMPARE(table->blocks().first()->itemText(0, 1),
             QcPoint::toDatetime(firstOnPage2.time).toString(QStringLiteral("HH:mm:ss")));
    QCOMPARE(second->blocks().first()->rowCount(), 5);

    // A count that overstates the list prints what there is.
    data->firstIndex = 30;
    data->count = 20;
    report.setCurrentPage(1);
    report.fetchQcData(nullptr);
    QCOMPARE(blockRows(*table), (QList<int>{7, 3, 0}));
    QCOMPARE(table->blocks().at(1)->itemText(2, 2), data->assayItem->valueString(data->points.at(39).value));
    // No assay item: the values still print.
    data->assayItem = nullptr;
    report.fetchQcData(nullptr);
    QCOMPARE(table->blocks().first()->itemText(0, 2), QString::number(data->points.at(30).value));
}

void TestTables::qcTableRendered()
{
    AssayItem assay(1, QStringLiteral("PT Sec"), QStringLiteral("PT-S"), QStringLiteral("s"), 1);
    QcExportData data;
    data.points = hourlyPoints(25);
    data.count = 25;
    data.assayItem = &assay;

    Report report(&m_profile, nullptr);
    ReportQcTableItem* table = qcTable(report, 10, 2);
    table->setFont(testFont());
    table->setPos(10, 10);
    report.prepareQcData(&data);
    report.setCurrentPage(2);
    report.fetchQcData(&data);

    const QImage image = render(report, QSize(700, 300));
    const double secondX = 10 + table->blocks().at(1)->pos().x();
    QCOMPARE(secondX, 10 + 320.0);
    // Block 1: three rows; block 2: two rows; nothing after them.
    for (int r = 0; r < 3; ++r)
        QVERIFY(darkPixels(image, QRectF(10, 10 + r * 24, 300, 24)) > 0);
    QCOMPARE(darkPixels(image, QRectF(10, 10 + 3 * 24, 300, 200)), 0);
    for (int r = 0; r < 2; ++r)
        QVERIFY(darkPixels(image, QRectF(secondX, 10 + r * 24, 300, 24)) > 0);
    QCOMPARE(darkPixels(image, QRectF(secondX, 10 + 2 * 24, 300, 200)), 0);
    // Nothing between the blocks, the item itself paints nothing.
    QCOMPARE(darkPixels(image, QRectF(10 + 300, 0, 20, 300)), 0);
    // The value column is right-aligned: "12.2" at the right of the block's third column.
    QVERIFY(darkPixels(image, QRectF(10 + 260, 10, 32, 24)) > 0);
    QCOMPARE(darkPixels(image, QRectF(10 + 200, 10, 40, 24)), 0);
}

// Selected by a click on any block, widened by its tracker into more blocks as one undo step.
void TestTables::qcTableInDesigner()
{
    Report report(nullptr, nullptr);
    report.setDesignMode(true);
    test::ViewDriver driver(&report);
    auto* table = new ReportQcTableItem;
    report.addItem(table);
    table->setPos(100, 100);
    table->setGeometry(QPolygonF({QPointF(0, 0), QPointF(620, 240)}));
    QCOMPARE(table->columns(), 2);

    driver.press(QPointF(100 + 320 + 50, 100 + 10));
    driver.release(QPointF(100 + 320 + 50, 100 + 10));
    QVERIFY(table->isSelected());
    QVERIFY(dynamic_cast<TableTracker*>(report.tracker()));

    // The right edge handle (id 3) pulled out by one block.
    driver.drag(QPointF(720, 220), QPointF(1040 - 200, 220));
    QCOMPARE(table->size().width(), 740.0);
    QCOMPARE(table->columns(), 2);
    driver.drag(QPointF(840, 220), QPointF(100 + 940, 220), Qt::AltModifier);
    QCOMPARE(table->columns(), 3);
    QCOMPARE(table->blocks().at(2)->scenePos(), QPointF(100 + 640, 100));
    QCOMPARE(report.undoStack()->count(), 2);
    report.undo();
    QCOMPARE(table->columns(), 2);
    QCOMPARE(table->size().width(), 740.0);
}

// The palette's table tools draw their tables as one undoable creation each.
void TestTables::drawnWithCreators()
{
    ItemFactory factory(&m_profile);
    Report report(&m_profile, &factory);
    report.setDesignMode(true);
    test::ViewDriver driver(&report);

    const std::pair<const char*, QLineF> drags[] = {{"QcTable", QLineF(50, 300, 690, 540)},
                                                    {"结果", QLineF(50, 40, 700, 100)}};
    for (const auto& [key, drag] : drags) {
        ReportItemCreator* creator = factory.creator(QString::fromUtf8(key));
        QVERIFY(creator);
        creator->enter(&driver.view);
        driver.drag(drag.p1(), drag.p2());
        creator->leave();
    }
    QCOMPARE(report.undoStack()->count(), 2);

    const QList<ReportItem*> items = report.reportItems(); // the last drawn on top
    QCOMPARE(items.size(), 2);
    auto* results = dynamic_cast<ReportPatientTableItem*>(items.at(0));
    auto* table = dynamic_cast<ReportQcTableItem*>(items.at(1));
    QVERIFY(table && results);
    QCOMPARE(table->key(), QStringLiteral("QcTable"));
    QCOMPARE(table->pos(), QPointF(50, 300));
    QCOMPARE(table->size(), QSizeF(640, 240));
    QCOMPARE(table->columns(), 2);
    QCOMPARE(table->blocks().at(1)->pos(), QPointF(340, 0));
    QCOMPARE(results->key(), QStringLiteral("Results"));
    QCOMPARE(results->profile(), &m_profile);
    QCOMPARE(results->size(), QSizeF(650, 60));

    report.undo();
    report.undo();
    QCOMPARE(report.reportItems().size(), 0);
}

// --- Payloads ---------------------------------------------------------------------------------------

void TestTables::payloadRoundTrips_data()
{
    QTest::addColumn<QString>("kind");
    for (const char* kind : {"table", "patient", "info", "details", "qc"})
        QTest::newRow(kind) << QString::fromLatin1(kind);
}

void TestTables::payloadRoundTrips()
{
    QFETCH(QString, kind);
    const auto make = [&]() -> ReportItem* {
        if (kind == "table")
            return new ReportTableItem;
        if (kind == "patient")
            return new ReportPatientTableItem(&m_profile);
        if (kind == "info")
            return new ReportQcInfoTableItem;
        if (kind == "details")
            return new ReportQcInfoDetailsTableItem;
        return new ReportQcTableItem;
    };
    std::unique_ptr<ReportItem> original(make());
    original->setFont(testFont());
    QPolygonF polygon = original->geometry();
    polygon[1] = QPointF(700, 300);
    polygon[2] = QPointF(0, 30);
    if (polygon.size() > 3)
        polygon[3].rx() = 70;
    original->setGeometry(polygon);
    if (auto* grid = dynamic_cast<GraphicsTableItem*>(original.get()))
        grid->setItemText(9, 0, QStringLiteral("beyond the count"));
    const QByteArray bytes = payloadOf(original.get());

    std::unique_ptr<ReportItem> copy(make());
    QVERIFY(loadPayload(copy.get(), bytes));
    QCOMPARE(payloadOf(copy.get()), bytes);
    QCOMPARE(copy->geometry(), original->geometry());
    QCOMPARE(copy->font().pixelSize(), 13);
    QVERIFY(copy->font().families().contains(QStringLiteral("Noto Sans CJK SC")));

    // A grid table's payload is the grid payload and nothing else.
    if (auto* grid = dynamic_cast<GraphicsTableItem*>(original.get())) {
        QCOMPARE(bytes, test::written([grid](QDataStream& out) { grid->save(out); }));
        QCOMPARE(dynamic_cast<GraphicsTableItem*>(copy.get())->itemText(9, 0),
                 QStringLiteral("beyond the count"));
    }
}

void TestTables::multiColumnPayload()
{
    ReportQcTableItem original;
    original.setGeometry(QPolygonF({QPointF(0, 0), QPointF(3 * 320 - 20, 240), QPointF(0, 20)}));
    QCOMPARE(original.columns(), 3);
    for (int b = 0; b < 3; ++b) {
        original.blocks().at(b)->setItemText(2, 0, QStringLiteral("block %1").arg(b));
        original.blocks().at(b)->setColumnWidth(1, 90 + b);
    }
    original.layout(original.width());
    const QByteArray bytes = payloadOf(&original);

    // Version, block count, gap and size come first, then the blocks' grid payloads.
    QByteArray expected = test::streamed(qint8(1), qint32(3), 20.0, QSizeF(940, 240));
    for (const GraphicsTableItem* block : original.blocks())
        expected += test::written([block](QDataStream& out) { block->save(out); });
    QCOMPARE(bytes.toHex(), expected.toHex());

    ReportQcTableItem copy;
    QVERIFY(loadPayload(&copy, bytes));
    QCOMPARE(copy.columns(), 3);
    QCOMPARE(copy.size(), QSizeF(940, 240));
    for (int b = 0; b < 3; ++b) {
        const GraphicsTableItem* block = copy.blocks().at(b);
        QCOMPARE(block->parentItem(), &copy);
        QCOMPARE(block->pos(), original.blocks().at(b)->pos());
    }
    QCOMPARE(payloadOf(&copy), bytes); // each block's texts, widths and row height

    // Loading a one-block table into a three-block one leaves one block.
    ReportQcTableItem single;
    QVERIFY(loadPayload(&original, payloadOf(&single)));
    QCOMPARE(original.columns(), 1);
    QCOMPARE(original.blocks().first()->itemText(2, 0), QString());
}

void TestTables::brokenMultiColumnPayload_data()
{
    QTest::addColumn<qint32>("blocks");
    QTest::addColumn<int>("grids");
    QTest::addColumn<int>("columns");

    QTest::newRow("zero blocks, no grid") << 0 << 0 << 1;
    QTest::newRow("negative count") << -4 << 0 << 1;
    QTest::newRow("largest count, two grids") << 100 << 2 << 3;
    QTest::newRow("three claimed, one written") << 3 << 1 << 2;
}

void TestTables::brokenMultiColumnPayload()
{
    QFETCH(qint32, blocks);
    QFETCH(int, grids);
    QFETCH(int, columns);

    const ReportQcTableItem source;
    QByteArray bytes = test::streamed(qint8(1), blocks, 20.0, QSizeF(300, 100));
    for (int i = 0; i < grids; ++i)
        bytes += test::written([&](QDataStream& out) { source.blocks().first()->save(out); });

    ReportQcTableItem table;
    QVERIFY(!loadPayload(&table, bytes)); // the stream records the short read
    QCOMPARE(table.columns(), columns);
    // Still usable: it lays out, saves and fills.
    table.setGeometry(table.geometry());
    QVERIFY(!payloadOf(&table).isEmpty());
}

QTEST_MAIN(TestTables)
#include "tst_tables.moc"
