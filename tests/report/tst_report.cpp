#include <commands.h>
#include <core/profile.h>
#include <drawingitems.h>
#include <report.h>

#include <QMetaMethod>
#include <QPrinter>
#include <QTest>
#include <QUndoStack>

using namespace coagulation;

class tst_Report : public QObject
{
    Q_OBJECT
private Q_SLOTS:
    void pageSetup_data();
    void pageSetup();
    void snapGrid_data();
    void snapGrid();
    void snapAngle_data();
    void snapAngle();
    void metaObjectInterface();
    void movesAreSnappedAndRecordedOnce();
    void reportItemsSkipsForeignItems();
};

void tst_Report::pageSetup_data()
{
    QTest::addColumn<int>("pageSize"); // Custom: set by its size in mm
    QTest::addColumn<int>("orientation");
    QTest::addColumn<QSizeF>("pageMM");
    QTest::addColumn<QSizeF>("sceneMM");
    const int portrait = QPageLayout::Portrait;
    const int landscape = QPageLayout::Landscape;
    QTest::newRow("A4 portrait") << int(QPageSize::A4) << portrait << QSizeF(210, 297) << QSizeF(210, 297);
    QTest::newRow("A4 landscape") << int(QPageSize::A4) << landscape << QSizeF(210, 297) << QSizeF(297, 210);
    QTest::newRow("A5 portrait") << int(QPageSize::A5) << portrait << QSizeF(148, 210) << QSizeF(148, 210);
    QTest::newRow("B5 landscape") << int(QPageSize::B5) << landscape << QSizeF(176, 250) << QSizeF(250, 176);
    QTest::newRow("custom landscape")
        << int(QPageSize::Custom) << landscape << QSizeF(100, 50) << QSizeF(50, 100);
}

// The scene is the page at 96 dpi, and a printer gets the page as it is.
void tst_Report::pageSetup()
{
    QFETCH(int, pageSize);
    QFETCH(int, orientation);
    QFETCH(QSizeF, pageMM);
    QFETCH(QSizeF, sceneMM);
    Report report(nullptr, nullptr);
    QCOMPARE(report.sceneRect(), QRectF(0, 0, 210 * 96 / 25.4, 297 * 96 / 25.4)); // A4 portrait
    if (pageSize == QPageSize::Custom)
        report.setPageSizeF(pageMM);
    else
        report.setPageSize(QPageSize::PageSizeId(pageSize));
    report.setOrientation(QPageLayout::Orientation(orientation));
    QCOMPARE(int(report.pageSize()), pageSize);
    QCOMPARE(report.pageSizeF(), pageMM);
    QCOMPARE(report.sceneRect(), QRectF(QPointF(0, 0), sceneMM * 96 / 25.4));

    QPrinter printer(QPrinter::HighResolution);
    printer.setOutputFormat(QPrinter::PdfFormat);
    printer.setResolution(300);
    report.setupPrinter(&printer);
    QCOMPARE(printer.pageLayout().pageSize().size(QPageSize::Millimeter), pageMM);
    QCOMPARE(int(printer.pageLayout().orientation()), orientation);
    QVERIFY(printer.fullPage());
    QCOMPARE(printer.resolution(), 300); // left alone
}

void tst_Report::snapGrid_data()
{
    QTest::addColumn<QSizeF>("grid");
    QTest::addColumn<QPointF>("point");
    QTest::addColumn<int>("modifiers");
    QTest::addColumn<QPointF>("expected");
    QTest::newRow("down and away") << QSizeF(10, 10) << QPointF(14.9, -15.0) << 0 << QPointF(10, -20);
    QTest::newRow("half up") << QSizeF(10, 10) << QPointF(15.0, 4.9) << 0 << QPointF(20, 0);
    QTest::newRow("alt") << QSizeF(10, 10) << QPointF(14.9, -15.0) << int(Qt::AltModifier)
                         << QPointF(14.9, -15.0);
    QTest::newRow("shift snaps") << QSizeF(10, 10) << QPointF(3, 7) << int(Qt::ShiftModifier)
                                 << QPointF(0, 10);
    QTest::newRow("uneven grid") << QSizeF(4, 25) << QPointF(-6, 37.5) << 0 << QPointF(-8, 50);
}

void tst_Report::snapGrid()
{
    QFETCH(QSizeF, grid);
    QFETCH(QPointF, point);
    QFETCH(int, modifiers);
    QFETCH(QPointF, expected);
    Report report(nullptr, nullptr);
    report.setGridSize(grid);
    report.snapGrid(point, Qt::KeyboardModifiers(modifiers));
    QCOMPARE(point, expected);
}

void tst_Report::snapAngle_data()
{
    QTest::addColumn<double>("angle");
    QTest::addColumn<int>("modifiers");
    QTest::addColumn<double>("expected");
    QTest::newRow("30 to 45") << 30.0 << int(Qt::ShiftModifier) << 45.0;
    QTest::newRow("22.4 to 0") << 22.4 << int(Qt::ShiftModifier) << 0.0;
    QTest::newRow("67.6 to 90") << 67.6 << int(Qt::ShiftModifier) << 90.0;
    QTest::newRow("200 to 180") << 200.0 << int(Qt::ShiftModifier) << 180.0;
    QTest::newRow("340 to 0") << 340.0 << int(Qt::ShiftModifier) << 0.0;
    QTest::newRow("no shift") << 30.0 << 0 << 30.0;
    QTest::newRow("alt only") << 30.0 << int(Qt::AltModifier) << 30.0;
}

void tst_Report::snapAngle()
{
    QFETCH(double, angle);
    QFETCH(int, modifiers);
    QFETCH(double, expected);
    Report report(nullptr, nullptr);
    const QPointF anchor(100, 100);
    QLineF line(anchor, anchor + QPointF(50, 0));
    line.setAngle(angle);
    QPointF point = line.p2();
    report.snapAngle(point, anchor, Qt::KeyboardModifiers(modifiers));
    const QLineF result(anchor, point);
    QVERIFY2(qAbs(result.length() - 50) < 1e-9, qPrintable(QString::number(result.length())));
    QVERIFY2(qAbs(std::remainder(result.angle() - expected, 360.0)) < 1e-9,
             qPrintable(QString::number(result.angle())));
}

void tst_Report::metaObjectInterface()
{
    const QMetaObject& meta = Report::staticMetaObject;
    QCOMPARE(meta.className(), "coagulation::Report");
    QStringList methods;
    for (int i = meta.methodOffset(); i < meta.methodCount(); ++i) {
        const QMetaMethod m = meta.method(i);
        QCOMPARE(m.methodType(), QMetaMethod::Slot);
        methods << QString::fromLatin1(m.methodSignature()) +
                       (m.access() == QMetaMethod::Private ? QStringLiteral(" private") : QString());
    }
    QCOMPARE(methods, QStringList({"undo()", "redo()", "onSelectionChanged() private"}));
}

// In design mode a move of a selected item snaps to the grid and is one undo step; a replay
// records nothing.
void tst_Report::movesAreSnappedAndRecordedOnce()
{
    Report report(nullptr, nullptr);
    auto* line = new ReportLineItem;
    report.addItem(line);
    line->setSelected(true);
    line->setPos(13, 17); // not in design mode: neither snapped nor recorded
    QCOMPARE(line->pos(), QPointF(13, 17));
    QCOMPARE(report.undoStack()->count(), 0);
    QVERIFY(!report.tracker());

    report.setDesignMode(true);
    line->setSelected(false);
    line->setPos(3, 4); // not selected: neither snapped nor recorded
    QCOMPARE(line->pos(), QPointF(3, 4));
    QCOMPARE(report.undoStack()->count(), 0);
    line->setSelected(true);
    for (int i = 1; i <= 5; ++i)
        line->setPos(QPointF(3 + 7 * i, 4 + 6 * i));
    QCOMPARE(line->pos(), QPointF(40, 30)); // the last move was to (38, 34)
    QCOMPARE(report.undoStack()->count(), 1);
    report.undo();
    QCOMPARE(line->pos(), QPointF(3, 4));
    report.redo();
    QCOMPARE(line->pos(), QPointF(40, 30));
    QCOMPARE(report.undoStack()->count(), 1);
    QCOMPARE(report.undoStack()->index(), 1);

    // An undo that moves the item to an off-grid position: no snap, no new command.
    report.undoStack()->clear();
    line->setSelected(false);
    line->setPos(3, 3);
    line->setSelected(true);
    report.undoStack()->push(new PositionCommand({line}));
    line->setSelected(false);
    line->setPos(50, 50);
    line->setSelected(true);
    report.undo();
    QCOMPARE(line->pos(), QPointF(3, 3));
    QCOMPARE(report.undoStack()->count(), 1);
    QCOMPARE(report.undoStack()->index(), 0);

    // Commands made as a side effect of a replay are dropped.
    struct Probe : QUndoCommand
    {
        Report* report;
        explicit Probe(Report* r) : report(r) {}
        void undo() override
        {
            report->addUndoCommand(new SetupPageCommand(report, QPageSize::A3, QPageLayout::Portrait, {}));
        }
    };
    report.undoStack()->clear();
    report.addUndoCommand(new Probe(&report));
    QCOMPARE(report.undoStack()->index(), 1);
    report.undo();
    QCOMPARE(report.undoStack()->index(), 0);
    QCOMPARE(report.undoStack()->count(), 1);
    QCOMPARE(report.pageSize(), QPageSize::A4);
    report.addUndoCommand(new SetupPageCommand(&report, QPageSize::A3, QPageLayout::Portrait, {}));
    QCOMPARE(report.pageSize(), QPageSize::A3);
}

void tst_Report::reportItemsSkipsForeignItems()
{
    Report report(nullptr, nullptr);
    auto* low = new ReportRectItem;
    auto* high = new ReportLineItem;
    high->setZValue(2);
    report.addItem(low);
    report.addItem(high);
    auto* foreign = report.addRect(0, 0, 5, 5);
    foreign->setData(1, 42);    // an int is not an item address
    new QGraphicsRectItem(low); // a child of an item
    const QList<ReportItem*> items = report.reportItems();
    QCOMPARE(items.size(), 2);
    QCOMPARE(items.at(0), static_cast<ReportItem*>(high));
    QCOMPARE(items.at(1), static_cast<ReportItem*>(low));
    QVERIFY(!ReportItem::fromGraphicsItem(foreign));
    QVERIFY(!ReportItem::fromGraphicsItem(nullptr));
}

QTEST_MAIN(tst_Report)
#include "tst_report.moc"
