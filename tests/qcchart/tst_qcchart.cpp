#include "../common/files.h"
#include "../common/pdf.h"
#include "../common/viewdriver.h"
#include "../common/widgetitemtesting.h"
#include "../common/workspace.h"

#include <chartitems.h>
#include <core/profile.h>
#include <itemfactory.h>
#include <kvcore/qcdatareader.h>
#include <kvcore/qcexportdata.h>
#include <kvcore/qcplot.h>
#include <kvcore/qcscaledraw.h>
#include <kvcore/qcscalewidget.h>
#include <kvcore/westgardrules.h>
#include <labdata/labschema.h>
#include <multicoltableitems.h>
#include <recttracker.h>
#include <report.h>
#include <reportprinter.h>

#include <QDir>
#include <QPainter>
#include <QRegularExpression>
#include <QStandardPaths>
#include <QTemporaryDir>
#include <QTest>
#include <QWheelEvent>

#include <memory>

using namespace coagulation;

namespace {

// 2024-05-01 00:00 local time: a whole QcPoint day.
double day0()
{
    return QcPoint::fromDatetime(QDateTime(QDate(2024, 5, 1), QTime(0, 0)));
}

// Point i is measured at day0 + i/2 + 0.3: two runs a day, at 07:12 and 19:12.
QcExportData series(int points, int firstIndex, int count)
{
    QcExportData data;
    data.mean = 12.0;
    data.sd = 0.5;
    for (int i = 0; i < points; ++i)
        data.points.append(QcPoint{day0() + i * 0.5 + 0.3, 12.0 + 0.4 * ((i % 5) - 2), false});
    data.firstIndex = firstIndex;
    data.count = count;
    return data;
}

QStringList tickLabels(const QcPlot& plot, int axis)
{
    QStringList texts;
    for (const QcScaleDraw::Tick& tick : plot.axisScaleDraw(axis)->ticks())
        texts.append(tick.label);
    return texts;
}

} // namespace

class tst_QcChart : public QObject
{
    Q_OBJECT
private Q_SLOTS:
    void pageRange_data();
    void pageRange();
    void westgardRules_data();
    void westgardRules();
    void pointMarksAndLegend();
    void noQcData();
    void plotSurface();
    void qcPrintJob();
    void mouseStaysWithTheItem();
    void payloadRoundTrip();
};

void tst_QcChart::pageRange_data()
{
    QTest::addColumn<int>("points");
    QTest::addColumn<int>("resultCount");
    QTest::addColumn<int>("page");
    QTest::addColumn<double>("startTime");
    QTest::addColumn<double>("endTime");
    QTest::addColumn<bool>("indexAxis");
    QTest::addColumn<double>("lower"); // days after day0 on a time axis, point index on an index axis
    QTest::addColumn<double>("upper");

    // 50 points, points 5..44 printed, 15 per page: pages show 5..19, 20..34 and 35..44.
    const double start = 1.5;
    const double end = 30.25;
    QTest::newRow("first page, rounded") << 50 << 15 << 1 << 0.0 << 0.0 << false << 2.0 << 10.0;
    QTest::newRow("first page, fixed start") << 50 << 15 << 1 << start << end << false << start << 10.0;
    QTest::newRow("middle page") << 50 << 15 << 2 << start << end << true << 20.0 << 34.0;
    QTest::newRow("last page, fixed end") << 50 << 15 << 3 << start << end << false << 17.0 << end;
    QTest::newRow("last page, rounded") << 50 << 15 << 3 << 0.0 << 0.0 << false << 17.0 << 23.0;
    // One page: the fixed times when given, else the outer points rounded outward.
    QTest::newRow("one page, fixed") << 50 << 40 << 1 << start << end << false << start << end;
    QTest::newRow("one page, rounded") << 50 << 40 << 1 << 0.0 << 0.0 << false << 2.0 << 23.0;
    QTest::newRow("result count 0") << 50 << 0 << 1 << 0.0 << 0.0 << false << 2.0 << 23.0;
    QTest::newRow("result count 0, fixed") << 50 << 0 << 1 << start << end << false << start << end;
    // A series with fewer points than it claims: the index axis is not cut, the last page ends
    // at the last point there is.
    QTest::newRow("short series, middle page") << 30 << 10 << 2 << 0.0 << 0.0 << true << 15.0 << 24.0;
    QTest::newRow("short series, last page") << 30 << 10 << 3 << 0.0 << 0.0 << false << 12.0 << 15.0;
    // QC tables with extreme row counts: pages far beyond the points, skipped counts beyond int.
    QTest::newRow("extreme result count") << 50 << 100000000 << 30 << 0.0 << 0.0 << false << 24.0 << 25.0;
}

void tst_QcChart::pageRange()
{
    QFETCH(int, points);
    QFETCH(int, resultCount);
    QFETCH(int, page);
    QFETCH(double, startTime);
    QFETCH(double, endTime);
    QFETCH(bool, indexAxis);
    QFETCH(double, lower);
    QFETCH(double, upper);

    Profile profile;
    QVERIFY(LabSchema::create(profile.qcDatabase(), LabSchema::QcDatabase));
    Report report(&profile, nullptr);
    auto* chart = new ReportQcChartItem;
    report.addItem(chart);

    QcExportData data = series(points, 5, 40);
    data.startTime = startTime == 0.0 ? 0.0 : day0() + startTime;
    data.endTime = endTime == 0.0 ? 0.0 : day0() + endTime;
    report.prepareQcData(&data);
    report.setResultCount(resultCount);
    report.setPageCount(3);
    report.setCurrentPage(page);
    report.fetchQcData(nullptr);

    QcPlot* plot = chart->plot();
    QCOMPARE(plot->data(), &data);
    QCOMPARE(plot->isIndexScale(), indexAxis);
    const double offset = indexAxis ? 0.0 : day0();
    QCOMPARE(plot->xScale().lowerBound(), offset + lower);
    QCOMPARE(plot->xScale().upperBound(), offset + upper);
    // One value axis for the whole series: mean +-3.5 SD, whatever the page's points.
    QCOMPARE(plot->yScale(), QcPlotScale(12.0 - 3.5 * 0.5, 12.0 + 3.5 * 0.5));
}

void tst_QcChart::westgardRules_data()
{
    // Values in SD from the centre; a value of 99 is a rejected run, which takes no part.
    QTest::addColumn<QList<double>>("z");
    QTest::addColumn<QList<int>>("expected"); // the rules of each point
    const int w = WestgardRules::Rule12s;
    QTest::newRow("exactly one 2-2s") << QList<double>{0.5, 2.5, 2.3, 0.2, -2.1, 0.4}
                                      << QList<int>{0, w, w | WestgardRules::Rule22s, 0, w, 0};
    QTest::newRow("2-2s across a rejected run")
        << QList<double>{-2.2, 99, -2.6} << QList<int>{w, 0, w | WestgardRules::Rule22s};
    QTest::newRow("R-4s pair") << QList<double>{0.1, 2.4, -2.2, 0.3}
                               << QList<int>{0, w, w | WestgardRules::RuleR4s, 0};
    QTest::newRow("1-3s") << QList<double>{-0.2, -3.3, 1.0} << QList<int>{0, w | WestgardRules::Rule13s, 0};
    QTest::newRow("4-1s") << QList<double>{1.2, 1.5, 1.1, 1.8, 0.5}
                          << QList<int>{0, 0, 0, WestgardRules::Rule41s, 0};
    QTest::newRow("4-1s broken by a side change")
        << QList<double>{1.2, 1.5, -1.1, 1.8, 1.3} << QList<int>{0, 0, 0, 0, 0};
    QList<double> run(11, -0.4);
    run.prepend(0.3);
    QList<int> tenX(12, 0);
    tenX[10] = tenX[11] = WestgardRules::Rule10x;
    QTest::newRow("10-x run") << run << tenX;
    QList<double> nine(9, 0.6);
    nine << 0.0 << 0.6;
    QTest::newRow("10-x broken by the centre") << nine << QList<int>(11, 0);
}

void tst_QcChart::westgardRules()
{
    QFETCH(QList<double>, z);
    QFETCH(QList<int>, expected);
    QList<QcPoint> points;
    for (int i = 0; i < z.size(); ++i)
        points.append({day0() + i, z.at(i) == 99 ? 20.0 : 10.0 + 0.5 * z.at(i), z.at(i) == 99});
    const QList<WestgardRules::Rules> rules = WestgardRules::evaluate(points, 10.0, 0.5);
    QList<int> got;
    for (const WestgardRules::Rules r : rules)
        got.append(int(r));
    QCOMPARE(got, expected);
    // Without a usable SD nothing is evaluated.
    for (const WestgardRules::Rules r : WestgardRules::evaluate(points, 10.0, 0.0))
        QCOMPARE(int(r), 0);
}

void tst_QcChart::pointMarksAndLegend()
{
    // A series with limits: target 10, mark limits at 2 SD, stop limits at 3 SD (SD 0.5).
    QcExportData data;
    data.hasLimits = 1;
    data.targetValue = 10.0;
    data.upperMarkLimit = 11.0;
    data.lowerMarkLimit = 9.0;
    data.upperStopLimit = 11.5;
    data.lowerStopLimit = 8.5;
    for (const double value : {10.1, 11.2, 11.3, 9.9, 13.0, 9.8})
        data.points.append({day0() + data.points.size(), value, false});
    data.points[4].rejected = true; // far off the scale, and excluded
    data.count = int(data.points.size());
    QcPlot plot;
    plot.resize(600, 300);
    plot.setData(&data);
    QCOMPARE(plot.yScale(), QcPlotScale(8.25, 11.75)); // from the limits, not from the outlier
    QCOMPARE(int(plot.symbol(0).style), int(QcSymbol::Disc));
    QCOMPARE(int(plot.symbol(1).style), int(QcSymbol::Disc)); // the 1-2s warning
    QVERIFY(plot.symbol(1).color != plot.symbol(0).color);
    QCOMPARE(int(plot.symbol(2).style), int(QcSymbol::TriangleUp)); // 2-2s
    QCOMPARE(int(plot.symbol(4).style), int(QcSymbol::Cross));      // excluded, not a violation
    QCOMPARE(int(plot.rules(4)), 0);

    // The limits are named in the right margin, the marks explained along the top.
    QVERIFY(plot.axisEnabled(QcPlot::yRight) && plot.axisEnabled(QcPlot::xTop));
    QCOMPARE(tickLabels(plot, QcPlot::yRight),
             (QStringList{QStringLiteral("上停止限"), QStringLiteral("上标记限"), QStringLiteral("靶值"),
                          QStringLiteral("下标记限"), QStringLiteral("下停止限")}));
    QCOMPARE(tickLabels(plot, QcPlot::xTop),
             (QStringList{QStringLiteral("1-2s"), QStringLiteral("1-3s"), QStringLiteral("2-2s"),
                          QStringLiteral("R-4s"), QStringLiteral("4-1s"), QStringLiteral("10-x"),
                          QStringLiteral("已剔除")}));
    QVERIFY(plot.axisWidget(QcPlot::yRight)->geometry().left() > plot.canvas()->geometry().right());
    // Close limits on a small chart: their names are moved apart rather than printed over each other.
    plot.resize(300, 90);
    plot.replot();
    const QcScaleDraw* right = plot.axisScaleDraw(QcPlot::yRight);
    const double lineHeight = QFontMetricsF(right->font()).height();
    for (int i = 1; i < right->ticks().size(); ++i) {
        const double above =
            right->transform(right->ticks().at(i - 1).value) + right->ticks().at(i - 1).shift;
        const double below = right->transform(right->ticks().at(i).value) + right->ticks().at(i).shift;
        QVERIFY2(below - above >= lineHeight - 0.01, qPrintable(QString::number(below - above)));
    }
}

void tst_QcChart::noQcData()
{
    // Made outside a scene, the chart is empty.
    ReportQcChartItem loose;
    QVERIFY(!loose.plot()->data());
    QVERIFY(loose.plot()->xScale().isNull());

    // In a patient report (no QC data) a chart that showed a series is cleared.
    Profile profile;
    Report report(&profile, nullptr);
    auto* chart = new ReportQcChartItem;
    report.addItem(chart);
    QcExportData data = series(10, 0, 10);
    chart->plot()->setData(&data);
    QVERIFY(!chart->plot()->xScale().isNull());
    chart->updateData();
    QVERIFY(!chart->plot()->data());
    QVERIFY(chart->plot()->xScale().isNull());
    QVERIFY(chart->plot()->yScale().isNull());

    // A series without points: no axis range to speak of, and nothing breaks.
    QVERIFY(LabSchema::create(profile.qcDatabase(), LabSchema::QcDatabase));
    QcExportData empty;
    report.prepareQcData(&empty);
    report.fetchQcData(&empty);
    QCOMPARE(chart->plot()->data(), &empty);
    QVERIFY(!chart->plot()->isIndexScale());
    QVERIFY(chart->plot()->xScale().isNull());
    QImage image(400, 300, QImage::Format_ARGB32);
    QPainter painter(&image);
    report.render(&painter);
}

void tst_QcChart::plotSurface()
{
    ReportQcChartItem chart;
    QcPlot* plot = chart.plot();
    QVERIFY(!plot->isCursorVisible());
    QVERIFY(plot->testAttribute(Qt::WA_NoSystemBackground));
    QCOMPARE(plot->cursor().shape(), Qt::SizeAllCursor);
    QCOMPARE(plot->canvas()->cursor().shape(), Qt::SizeAllCursor);
    QCOMPARE(qobject_cast<QFrame*>(plot->canvas())->frameStyle(), 1);
    QVERIFY(!plot->axisScaleDraw(QcPlot::xBottom)->hasComponent(QcScaleDraw::Backbone));
    QVERIFY(plot->axisScaleDraw(QcPlot::yLeft)->hasComponent(QcScaleDraw::Backbone));
    QCOMPARE(chart.focusPolicy(), Qt::NoFocus);
    QCOMPARE(chart.flags() & (QGraphicsItem::ItemIsMovable | QGraphicsItem::ItemIsSelectable |
                              QGraphicsItem::ItemSendsScenePositionChanges),
             QGraphicsItem::ItemIsMovable | QGraphicsItem::ItemIsSelectable |
                 QGraphicsItem::ItemSendsScenePositionChanges);
    QVERIFY(!plot->axisWidget(4));
    QVERIFY(!plot->axisWidget(-1));

    // The axes follow the scale: day labels on a time axis, run numbers on an index axis, values
    // covering the +-3 SD lines on the y axis.
    QcExportData data = series(50, 5, 40);
    plot->resize(600, 300);
    plot->setData(&data);
    plot->setTimeScale(QcPlotScale(day0() + 2, day0() + 4));
    QCOMPARE(tickLabels(*plot, QcPlot::xBottom),
             (QStringList{QStringLiteral("05-03"), QStringLiteral("05-04"), QStringLiteral("05-05")}));
    plot->setAxisXScaleIndex(20, 34);
    const QStringList labels = tickLabels(*plot, QcPlot::xBottom);
    QVERIFY2(labels.first() == QStringLiteral("16") && labels.last() == QStringLiteral("30"),
             qPrintable(labels.join(QLatin1Char(' '))));
    QVERIFY(plot->yScale().lowerBound() < 12.0 - 3 * 0.5);
    QVERIFY(plot->yScale().upperBound() > 12.0 + 3 * 0.5);
}

// A QC report template with a small result table and the chart, printed by the printing service:
// every page gets the chart of its own points, drawn as vectors inside the chart's frame.
void tst_QcChart::qcPrintJob()
{
    test::DemoWorkspace lab(5);
    QVERIFY2(lab.create({0, 45, 0}), qPrintable(lab.errorString()));
    Profile* profile = lab.profile();
    ReportPrinter printer;
    printer.setWorkspace(lab.workspace());
    QcDataReader reader(profile);
    const std::unique_ptr<QcSeries> series = reader.read(reader.reagentIds().first());
    QVERIFY(series);

    QRectF canvas; // where page 1 draws its points, in scene units
    QSizeF page;
    {
        Report report(profile, printer.itemFactory());
        report.setType(kv::QcReport);
        auto* table =
            dynamic_cast<ReportQcTableItem*>(printer.itemFactory()->create(QStringLiteral("QcTable")));
        auto* chart =
            dynamic_cast<ReportQcChartItem*>(printer.itemFactory()->create(QStringLiteral("QcChart")));
        QVERIFY(table && chart);
        table->setKey(QStringLiteral("QcTable"));
        chart->setKey(QStringLiteral("QcChart"));
        report.addItem(table);
        report.addItem(chart);
        table->setPos(40, 40);
        table->setSize(QSizeF(200, 9 * 24.0));
        table->setColumns(2);
        table->layout(700);
        chart->setPos(40, 320);
        chart->setGeometry(QPolygonF({QPointF(0, 0), QPointF(700, 300)}));
        chart->setPen(QPen(QColor(0, 0, 255), 1.5));
        chart->setBrush(QColor(0, 0, 255));
        QVERIFY(report.save(lab.templatePath(QStringLiteral("qc"))));
        report.prepareQcData(series->data());
        report.fetchQcData(nullptr);
        canvas = chart->mapRectToScene(QRectF(chart->plot()->canvas()->geometry()));
        page = report.sceneRect().size();
    }
    profile->setValue(QStringLiteral("report/qctemplate"), QStringLiteral("qc"));
    QTemporaryDir tmp;
    const QString pdfPath =
        QDir(test::outputDir(QStringLiteral("qcchart"), tmp)).filePath(QStringLiteral("qcreport.pdf"));
    printer.setOutputFileName(pdfPath);
    QVERIFY(printer.store(QList<QcExportData*>{series->data()}, DataStorage::StoreAtOnce));

    QVERIFY2(test::pdfPageCount(pdfPath) >= 3, qPrintable(QString::number(test::pdfPageCount(pdfPath))));
    QVERIFY(!test::fileBytes(pdfPath).contains("/Subtype /Image"));
    if (!test::hasPdfTools() || QStandardPaths::findExecutable(QStringLiteral("pdftoppm")).isEmpty())
        QSKIP("poppler-utils are not installed");
    // One polyline per page through that page's points, each point a Bezier circle (qpdf
    // uncompresses the content streams).
    const QString contents =
        test::pdfTool(QStringLiteral("qpdf"),
                      {QStringLiteral("--qdf"), QStringLiteral("--object-streams=disable"), pdfPath, "-"});
    const qsizetype points = series->data()->points.size();
    QVERIFY2(contents.count(QLatin1String(" l\n")) >= points,
             qPrintable(QString::number(contents.count(" l\n"))));
    QVERIFY2(contents.count(QLatin1String(" c\n")) >= 4 * points,
             qPrintable(QString::number(contents.count(" c\n"))));

    // The axis labels print as large as they show: a printer's resolution must not scale them.
    const QString boxes =
        test::pdfTool(QStringLiteral("pdftotext"), {QStringLiteral("-bbox"), pdfPath, QStringLiteral("-")});
    // Words below the table, in points (the chart starts 320 pixels down, 240 points).
    static const QRegularExpression word(
        QStringLiteral("yMin=\"([-0-9.]+)\" xMax=\"[-0-9.]+\" yMax=\"([-0-9.]+)\">([^<]*)</word>"));
    QStringList labels;
    for (auto it = word.globalMatch(boxes); it.hasNext();) {
        const QRegularExpressionMatch m = it.next();
        if (m.captured(1).toDouble() < 230)
            continue;
        labels.append(m.captured(3));
        QVERIFY2(m.captured(2).toDouble() - m.captured(1).toDouble() < 16, qPrintable(m.captured(0)));
    }
    QVERIFY2(labels.contains(QStringLiteral("上标记限")) && labels.contains(QStringLiteral("06-14")),
             qPrintable(labels.join(QLatin1Char(' '))));

    // On paper: the blue of the points and line lies inside the chart's frame only.
    const QImage png = test::pdfToPng(pdfPath);
    QVERIFY(!png.isNull());
    const double sx = png.width() / page.width();
    const double sy = png.height() / page.height();
    int blueInside = 0;
    int blueOutside = 0;
    for (int y = 0; y < png.height(); ++y) {
        for (int x = 0; x < png.width(); ++x) {
            const QColor c = png.pixelColor(x, y);
            if (c.blue() > 180 && c.red() < 90 && c.green() < 90)
                (canvas.adjusted(-2, -2, 2, 2).contains(QPointF(x / sx, y / sy)) ? blueInside
                                                                                 : blueOutside)++;
        }
    }
    QVERIFY2(blueInside > 200, qPrintable(QString::number(blueInside)));
    QCOMPARE(blueOutside, 0);
}

void tst_QcChart::mouseStaysWithTheItem()
{
    Profile profile;
    Report report(&profile, nullptr);
    report.setDesignMode(true);
    auto* chart = new ReportQcChartItem;
    report.addItem(chart);
    chart->setPos(90, 80);
    // The origin point moves the item; the polygon is in item coordinates.
    chart->setGeometry(QPolygonF({QPointF(10, 20), QPointF(310, 220)}));
    QCOMPARE(chart->pos(), QPointF(100, 100));
    QCOMPARE(chart->geometry(), QPolygonF({QPointF(0, 0), QPointF(300, 200)}));
    QCOMPARE(chart->plot()->size(), QSize(300, 200));
    test::MouseCounter counter;
    chart->plot()->installEventFilter(&counter);
    chart->plot()->canvas()->installEventFilter(&counter);

    test::ViewDriver driver(&report);
    const QPointF inside = chart->mapToScene(QRectF(chart->plot()->canvas()->geometry()).center());
    driver.press(inside);
    driver.release(inside);
    QVERIFY(chart->isSelected());
    QVERIFY(dynamic_cast<RectTracker*>(report.tracker()));
    QPoint local = driver.view.mapFromScene(inside);
    QWheelEvent wheel(local, driver.view.viewport()->mapToGlobal(local), QPoint(), QPoint(0, 120),
                      Qt::NoButton, Qt::NoModifier, Qt::NoScrollPhase, false);
    QApplication::sendEvent(driver.view.viewport(), &wheel);
    QTest::mouseDClick(driver.view.viewport(), Qt::LeftButton, Qt::NoModifier, local);
    QCOMPARE(counter.count, 0);

    // Dragging moves the item like any other.
    const QPointF before = chart->pos();
    driver.drag(inside, inside + QPointF(40, 30));
    QCOMPARE(counter.count, 0);
    QVERIFY(chart->pos() != before);
    // A missing point counts as the origin.
    chart->setGeometry(QPolygonF({QPointF(0, 0)}));
    QCOMPARE(chart->pos(), before + QPointF(40, 30));
}

void tst_QcChart::payloadRoundTrip()
{
    ReportQcChartItem chart;
    chart.setGeometry(QPolygonF({QPointF(0, 0), QPointF(420, 260)}));
    chart.setPen(QPen(QColor(10, 20, 30), 2.5, Qt::DashLine));
    chart.setBrush(QBrush(QColor(200, 100, 50)));
    QFont font(QStringLiteral("Noto Sans CJK SC"));
    font.setPointSize(13);
    chart.setFont(font);

    const QByteArray bytes = test::payloadOf(&chart);
    QCOMPARE(bytes,
             test::streamed(qint8(1), QRectF(0, 0, 420, 260), QPen(QColor(10, 20, 30), 2.5, Qt::DashLine),
                            QBrush(QColor(200, 100, 50)), font));
    ReportQcChartItem copy;
    QVERIFY(test::loadPayload(&copy, bytes));
    QCOMPARE(test::payloadOf(&copy), bytes);
    QCOMPARE(copy.plot()->font().pointSize(), 13); // the plot's labels follow the item's font
    QCOMPARE(copy.plot()->size(), QSize(420, 260));
}

QTEST_MAIN(tst_QcChart)
#include "tst_qcchart.moc"
