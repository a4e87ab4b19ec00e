#include "../common/viewdriver.h"

#include <commands.h>
#include <report.h>
#include <reportitem.h>
#include <tableitems.h>
#include <tracker.h>

#include <QPixmap>
#include <QtTest>
#include <QUndoStack>

#include <cmath>

using namespace coagulation;

namespace {

// A report table with columns of the given widths.
ReportTableItem* newTable(const QList<double>& widths, int rows)
{
    auto* table = new ReportTableItem;
    for (int c = 0; c < widths.size(); ++c)
        table->setColumnWidth(c, widths.at(c));
    table->setRowCount(rows);
    table->adjustSize();
    return table;
}

QList<double> widthsOf(const GraphicsTableItem* table)
{
    QList<double> list;
    for (int c = 0; c < table->columnCount(); ++c)
        list.append(table->columnWidth(c));
    return list;
}

// A design-mode report in a real view, with its handles at hand.
struct Designer : test::DesignCanvas
{
    template <class Item> Item* add(Item* item, const QPointF& pos = QPointF())
    {
        item->setPos(pos);
        report.addItem(item);
        return item;
    }
    void select(ReportItem* item)
    {
        report.clearSelection();
        item->graphicsItem()->setSelected(true);
    }
    TrackerHandle* handle(int id) const
    {
        if (!report.tracker())
            return nullptr;
        const QList<TrackerHandle*> handles = report.tracker()->handles();
        for (TrackerHandle* h : handles)
            if (h->id() == id)
                return h;
        return nullptr;
    }
    QPointF handlePos(int id) const
    {
        return handle(id) ? handle(id)->graphicsItem()->scenePos() : QPointF();
    }
    int steps() const { return report.undoStack()->count(); }
};

bool isFinite(const QPolygonF& polygon)
{
    for (const QPointF& p : polygon)
        if (!std::isfinite(p.x()) || !std::isfinite(p.y()))
            return false;
    return true;
}

QPixmap filledPixmap(int w, int h)
{
    QPixmap pixmap(w, h);
    pixmap.fill(Qt::darkBlue);
    return pixmap;
}

} // namespace

class TestTrackers : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void trackerFollowsSelection();
    void rectHandles_data();
    void rectHandles();
    void liveReshapeIsOneStep();
    void lineEnds_data();
    void lineEnds();
    void textWidthHandles();
    void tableLines_data();
    void tableLines();
    void tableWithoutColumns();
    void imageScaledByTransform();
    void deletedItemLeavesNoTracker();
};

void TestTrackers::trackerFollowsSelection()
{
    Designer d;
    auto* rect = d.add(new ReportRectItem, QPointF(100, 100));
    rect->setRect(10, 20, 80, 40);
    auto* line = d.add(new ReportLineItem);
    line->setLine(300, 300, 400, 350);
    auto* text = d.add(new ReportTextItem, QPointF(300, 100));
    text->setPlainText(QStringLiteral("凝血"));
    auto* image = d.add(new ReportImageItem, QPointF(500, 500));
    image->setPixmap(filledPixmap(30, 20));
    auto* table = d.add(newTable({60, 80}, 2), QPointF(100, 400));

    d.select(rect);
    auto* rectTracker = dynamic_cast<RectTracker*>(d.report.tracker());
    QVERIFY(rectTracker);
    QVERIFY(!dynamic_cast<TransformTracker*>(rectTracker));
    QCOMPARE(rectTracker->type(), 65537);
    QCOMPARE(rectTracker->scene(), &d.report);
    QCOMPARE(rectTracker->zValue(), 1.0);
    QCOMPARE(rectTracker->reportItem(), static_cast<ReportItem*>(rect));
    QCOMPARE(rectTracker->handles().size(), 8);
    const QPointF expected[8] = {{110, 120}, {150, 120}, {190, 120}, {190, 140},
                                 {190, 160}, {150, 160}, {110, 160}, {110, 140}};
    for (int id = 0; id < 8; ++id) {
        QCOMPARE(d.handle(id)->tracker(), rectTracker);
        QCOMPARE(d.handlePos(id), expected[id]);
        QVERIFY(d.handle(id)->graphicsItem()->flags() & QGraphicsItem::ItemIgnoresTransformations);
        QVERIFY(!ReportItem::fromGraphicsItem(d.handle(id)->graphicsItem()));
    }
    QCOMPARE(static_cast<QGraphicsRectItem*>(d.handle(0)->graphicsItem())->rect(), QRectF(-3.5, -3.5, 7, 7));
    QCOMPARE(d.handle(3)->graphicsItem()->cursor().shape(), Qt::SizeHorCursor);
    QCOMPARE(d.handle(2)->graphicsItem()->cursor().shape(), Qt::SizeBDiagCursor);

    // Moving the item by other means moves the handles along.
    rect->setPos(120, 100);
    QCOMPARE(d.handlePos(0), QPointF(130, 120));

    d.select(line);
    QVERIFY(dynamic_cast<LineTracker*>(d.report.tracker()));
    QCOMPARE(d.report.tracker()->handles().size(), 2);
    QCOMPARE(d.handlePos(1), QPointF(400, 350));
    d.select(text);
    QVERIFY(dynamic_cast<TextTracker*>(d.report.tracker()));
    QCOMPARE(d.report.tracker()->handles().size(), 3);
    QCOMPARE(d.handle(2)->graphicsItem()->toolTip(), QStringLiteral("自动调整大小"));
    d.select(image);
    QVERIFY(dynamic_cast<TransformTracker*>(d.report.tracker())); // no tracker of its own
    QCOMPARE(d.report.tracker()->handles().size(), 8);
    d.select(table);
    auto* tableTracker = dynamic_cast<TableTracker*>(d.report.tracker());
    QVERIFY(tableTracker);
    QCOMPARE(tableTracker->firstLineHandle(), 8);
    QCOMPARE(tableTracker->handles().size(), 11); // 8 + row line + 2 column borders
    auto* diamond = dynamic_cast<GraphicsDiamondItem*>(d.handle(9)->graphicsItem());
    QVERIFY(diamond);
    QCOMPARE(diamond->boundingRect(), QRectF(-3.5, -3.5, 7, 7));
    // A diamond through the edge midpoints: the tips are in, the corners out.
    QCOMPARE(diamond->shape().toFillPolygon(),
             QPolygonF({{-3.5, 0}, {0, -3.5}, {3.5, 0}, {0, 3.5}, {-3.5, 0}}));
    QCOMPARE(diamond->brush(), QBrush(Qt::yellow, Qt::SolidPattern));
    QCOMPARE(d.handle(8)->graphicsItem()->cursor().shape(), Qt::SizeVerCursor);
    QCOMPARE(d.handle(10)->graphicsItem()->cursor().shape(), Qt::SizeHorCursor);
    QCOMPARE(d.handlePos(8), QPointF(100, 424));
    QCOMPARE(d.handlePos(10), QPointF(240, 400));

    // Two selected items show no handles, nor does an empty selection.
    rect->setSelected(true);
    QCOMPARE(d.report.selectedItems().size(), 2);
    QVERIFY(!d.report.tracker());
    d.report.clearSelection();
    QVERIFY(!d.report.tracker());
    QVERIFY(!d.report.items().contains(tableTracker));

    // Outside design mode selection makes no tracker.
    d.report.setDesignMode(false);
    rect->setSelected(true);
    QVERIFY(!d.report.tracker());
}

void TestTrackers::rectHandles_data()
{
    QTest::addColumn<QRectF>("start");
    QTest::addColumn<int>("id");
    QTest::addColumn<int>("modifiers");
    QTest::addColumn<QPointF>("target");
    QTest::addColumn<QPolygonF>("geometry");

    const QRectF square(QPointF(50, 50), QPointF(100, 100));
    const QRectF wide(QPointF(50, 50), QPointF(150, 100));
    const int ctrl = Qt::ControlModifier;
    const auto row = [](const char* name, const QRectF& start, int id, int modifiers, QPointF target,
                        QPointF a, QPointF b) {
        QTest::newRow(name) << start << id << modifiers << target << QPolygonF({a, b});
    };
    row("corner on the grid", square, 4, 0, {133, 127}, {50, 50}, {130, 130});
    row("corner with alt", square, 4, int(Qt::AltModifier), {133, 127}, {50, 50}, {133, 127});
    row("ctrl: wider scale wins", wide, 4, ctrl, {200, 110}, {50, 50}, {200, 125});
    row("ctrl: taller scale wins", wide, 4, ctrl, {160, 150}, {50, 50}, {250, 150});
    row("ctrl: top-left keeps the opposite corner", wide, 0, ctrl, {20, 40}, {20, 35}, {150, 100});
    row("ctrl: top-right", wide, 2, ctrl, {200, 40}, {50, 25}, {200, 100});
    row("ctrl: bottom-left", wide, 6, ctrl, {0, 110}, {0, 50}, {150, 125});
    row("edge handles ignore ctrl", wide, 3, ctrl, {182, 77}, {50, 50}, {180, 100});
    row("top edge", wide, 1, 0, {77, 20}, {50, 20}, {150, 100});
    row("bottom edge", wide, 5, 0, {10, 140}, {50, 50}, {150, 140});
    row("top-right corner", wide, 2, 0, {170, 30}, {50, 30}, {170, 100});
    row("bottom-left corner", wide, 6, 0, {30, 130}, {30, 50}, {150, 130});
    row("left edge past the right edge", wide, 7, 0, {250, 75}, {250, 50}, {150, 100});
    // No aspect to keep; of the handles on one point, the last made is on top.
    row("ctrl: no width", QRectF(QPointF(60, 60), QPointF(60, 120)), 6, ctrl, {30, 150}, {30, 60}, {60, 150});
    row("ctrl: no height", QRectF(QPointF(200, 60), QPointF(300, 60)), 4, ctrl, {320, 80}, {200, 60},
        {320, 80});
}

void TestTrackers::rectHandles()
{
    QFETCH(QRectF, start);
    QFETCH(int, id);
    QFETCH(int, modifiers);
    QFETCH(QPointF, target);
    QFETCH(QPolygonF, geometry);

    Designer d;
    auto* rect = d.add(new ReportRectItem);
    rect->setRect(start);
    d.select(rect);
    d.driver.drag(d.handlePos(id), target, Qt::KeyboardModifiers(modifiers));

    QCOMPARE(rect->geometry(), geometry);
    QCOMPARE(d.steps(), 1);
    QCOMPARE(d.handlePos(0), geometry.at(0));
    QCOMPARE(d.handlePos(4), geometry.at(1));
    d.report.undo();
    QCOMPARE(rect->rect(), start);
    d.report.redo();
    QCOMPARE(rect->geometry(), geometry);
}

void TestTrackers::liveReshapeIsOneStep()
{
    Designer d;
    auto* rect = d.add(new ReportRectItem, QPointF(40, 60));
    rect->setRect(0, 0, 80, 40);
    d.select(rect);
    // Other buttons start no drag and no command.
    for (Qt::MouseButton button : {Qt::RightButton, Qt::MiddleButton}) {
        d.driver.press(d.handlePos(4), button);
        d.driver.move({200, 200});
        d.driver.release({200, 200}, button);
    }
    QCOMPARE(rect->rect(), QRectF(0, 0, 80, 40));
    QCOMPARE(d.steps(), 0);
    rect->setGeometry({QPointF(0, 0), QPointF(100, 50)});
    QCOMPARE(d.handlePos(4), QPointF(140, 110)); // the handles follow the new shape

    d.driver.press(d.handlePos(4));
    QCOMPARE(d.steps(), 0);
    d.driver.move({170, 130});
    QCOMPARE(rect->rect(), QRectF(0, 0, 130, 70)); // live, snapped in scene space
    QCOMPARE(d.handlePos(4), QPointF(170, 130));
    d.driver.move({200, 150});
    QCOMPARE(rect->rect(), QRectF(0, 0, 160, 90));
    d.driver.move({241, 171});
    QCOMPARE(d.steps(), 0);
    d.driver.release({241, 171});
    QCOMPARE(rect->rect(), QRectF(0, 0, 200, 110));
    QCOMPARE(d.steps(), 1);
    QCOMPARE(rect->pos(), QPointF(40, 60));

    // Undo is one step back to the shape the left drag started from, whatever the number of moves.
    d.report.undo();
    QCOMPARE(rect->rect(), QRectF(0, 0, 100, 50));
    QVERIFY(rect->isSelected());
    QCOMPARE(d.handlePos(4), QPointF(140, 110));
}

void TestTrackers::lineEnds_data()
{
    QTest::addColumn<int>("id");
    QTest::addColumn<int>("modifiers");
    QTest::addColumn<QPointF>("target");
    QTest::addColumn<QLineF>("line");

    const double length = std::hypot(100.0, 40.0);
    QTest::newRow("end on the grid") << 1 << 0 << QPointF(151, 92) << QLineF(50, 50, 150, 90);
    QTest::newRow("end with shift") << 1 << int(Qt::ShiftModifier) << QPointF(151, 92)
                                    << QLineF(50, 50, 50 + length, 50);
    // Snapped to (100, -30), then to 135 degrees around the other end.
    const double slant = std::hypot(50.0, 80.0) / std::sqrt(2.0);
    QTest::newRow("start with shift")
        << 0 << int(Qt::ShiftModifier) << QPointF(98, -28) << QLineF(150 - slant, 50 - slant, 150, 50);
    QTest::newRow("start with alt") << 0 << int(Qt::AltModifier) << QPointF(47, 63)
                                    << QLineF(47, 63, 150, 50);
}

void TestTrackers::lineEnds()
{
    QFETCH(int, id);
    QFETCH(int, modifiers);
    QFETCH(QPointF, target);
    QFETCH(QLineF, line);

    Designer d;
    auto* item = d.add(new ReportLineItem);
    item->setLine(50, 50, 150, 50);
    d.select(item);
    d.driver.drag(d.handlePos(id), target, Qt::KeyboardModifiers(modifiers));
    QCOMPARE(item->line().p1(), line.p1());
    QCOMPARE(item->line().p2(), line.p2());
    QCOMPARE(d.handlePos(id), id == 0 ? line.p1() : line.p2());
    QCOMPARE(d.steps(), 1);
    d.report.undo();
    QCOMPARE(item->line(), QLineF(50, 50, 150, 50));
}

void TestTrackers::textWidthHandles()
{
    Designer d;
    auto* text = d.add(new ReportTextItem, QPointF(100, 100));
    text->setPlainText(QStringLiteral("Hello report"));
    d.select(text);
    QCOMPARE(text->textWidth(), -1.0);
    const QRectF bounds = text->boundingRect();
    QVERIFY(!d.handle(2)->graphicsItem()->isVisible()); // automatic width
    QCOMPARE(d.handlePos(1), QPointF(100 + bounds.right(), 100 + bounds.center().y()));
    // A longer text widens the item, and the handles go with it.
    text->setPlainText(QStringLiteral("Hello report, longer"));
    QVERIFY(text->boundingRect().width() > bounds.width());
    QCOMPARE(d.handlePos(1).x(), 100 + text->boundingRect().right());
    text->setPlainText(QStringLiteral("Hello report"));

    // The right handle fixes the width and shows the auto-size handle.
    const QPointF right = d.handlePos(1);
    d.driver.drag(right, right + QPointF(40, 17), Qt::AltModifier);
    QCOMPARE(text->textWidth(), bounds.width() + 40);
    QCOMPARE(text->pos(), QPointF(100, 100));
    QVERIFY(d.handle(2)->graphicsItem()->isVisible());
    QCOMPARE(d.handlePos(1).y(), right.y()); // only the width changed
    QCOMPARE(d.steps(), 1);

    // The left handle moves the left edge; the right edge stays.
    const QPointF left = d.handlePos(0);
    d.driver.drag(left, left + QPointF(20, 0), Qt::AltModifier);
    QCOMPARE(text->pos(), QPointF(120, 100));
    QCOMPARE(text->textWidth(), bounds.width() + 20);
    QCOMPARE(d.steps(), 2);

    // A click on the yellow handle goes back to automatic width, as one step.
    const QPointF autoSize = d.handlePos(2);
    QCOMPARE(autoSize, QPointF(120 + bounds.width() + 20, 100 + text->boundingRect().bottom()));
    d.driver.press(autoSize);
    d.driver.move(autoSize + QPointF(30, 30)); // the yellow handle cannot be dragged
    QCOMPARE(text->textWidth(), bounds.width() + 20);
    d.driver.release(autoSize + QPointF(30, 30));
    QCOMPARE(text->textWidth(), -1.0);
    QVERIFY(!d.handle(2)->graphicsItem()->isVisible());
    QCOMPARE(d.steps(), 3);

    d.report.undo();
    QCOMPARE(text->textWidth(), bounds.width() + 20);
    QVERIFY(d.handle(2)->graphicsItem()->isVisible()); // a fresh tracker after the undo
    d.report.undo();
    d.report.undo();
    QCOMPARE(text->textWidth(), -1.0);
    QCOMPARE(text->pos(), QPointF(100, 100));
}

void TestTrackers::tableLines_data()
{
    QTest::addColumn<int>("id");
    QTest::addColumn<QPointF>("delta");
    QTest::addColumn<QList<double>>("widths");
    QTest::addColumn<double>("rowHeight");
    QTest::addColumn<QPointF>("pos");

    // Columns 60, 80 and 100 wide, rows 24 high, the table at (100, 100).
    const auto row = [](const char* name, int id, QPointF delta, const QList<double>& widths,
                        double rowHeight, QPointF pos) {
        QTest::newRow(name) << id << delta << widths << rowHeight << pos;
    };
    row("column line drags the lines to its right", 9, {30, 13}, {90, 80, 100}, 24.0, {100, 100});
    row("column line stops at the line before it", 10, {-120, 0}, {60, 0, 100}, 24.0, {100, 100});
    row("first column line stops at the left edge", 9, {-200, 0}, {0, 80, 100}, 24.0, {100, 100});
    row("last column line", 11, {-25, 40}, {60, 80, 75}, 24.0, {100, 100});
    row("row line moves vertically only", 8, {35, 16}, {60, 80, 100}, 40.0, {100, 100});
    row("row line stops at the top edge", 8, {0, -60}, {60, 80, 100}, 0.0, {100, 100});
    row("top-left corner takes the lines along", 0, {21, 9}, {60, 80, 100}, 24.0, {120, 110});
    row("bottom-right corner leaves the lines", 4, {50, 50}, {60, 80, 100}, 24.0, {100, 100});
}

void TestTrackers::tableLines()
{
    QFETCH(int, id);
    QFETCH(QPointF, delta);
    QFETCH(QList<double>, widths);
    QFETCH(double, rowHeight);
    QFETCH(QPointF, pos);

    Designer d;
    auto* table = d.add(newTable({60, 80, 100}, 4), QPointF(100, 100));
    d.select(table);
    const QPointF from = d.handlePos(id);
    d.driver.drag(from, from + delta);

    QCOMPARE(widthsOf(table), widths);
    QCOMPARE(table->rowHeight(), rowHeight);
    QCOMPARE(table->pos(), pos);
    QCOMPARE(d.steps(), 1);
    // The handles sit on the new lines.
    const QPolygonF g = table->geometry();
    for (int i = 2; i < g.size(); ++i)
        QCOMPARE(d.handlePos(8 + i - 2), table->mapToScene(g.at(i)));

    d.report.undo();
    QCOMPARE(widthsOf(table), (QList<double>{60, 80, 100}));
    QCOMPARE(table->rowHeight(), 24.0);
    QCOMPARE(table->pos(), QPointF(100, 100));
}

// A table with a row line but no column border: a corner move shifts the row line sideways only.
void TestTrackers::tableWithoutColumns()
{
    Designer d;
    auto* table = d.add(newTable({}, 2), QPointF(100, 100));
    table->setSize(QSizeF(120, 60));
    d.select(table);
    QCOMPARE(table->geometry().size(), 3);
    QCOMPARE(d.report.tracker()->handles().size(), 9);

    d.driver.drag(d.handlePos(0), QPointF(121, 79));
    QVERIFY(isFinite(table->geometry()));
    QCOMPARE(table->pos(), QPointF(120, 80));
    QCOMPARE(table->rowHeight(), 44.0); // the row line kept its scene height
    QCOMPARE(d.steps(), 1);
}

void TestTrackers::imageScaledByTransform()
{
    Designer d;
    auto* image = d.add(new ReportImageItem, QPointF(100, 100));
    image->setPixmap(filledPixmap(50, 40));
    d.select(image);
    QVERIFY(dynamic_cast<TransformTracker*>(d.report.tracker()));
    const QPolygonF geometry = image->geometry();
    const QRectF bounds = image->boundingRect();
    QCOMPARE(d.handlePos(3), QPointF(100 + bounds.right(), 100 + bounds.center().y()));

    // The right edge dragged to twice the width.
    const QPointF edge = d.handlePos(3);
    d.driver.drag(edge, edge + QPointF(bounds.width(), 0), Qt::AltModifier);
    QCOMPARE(image->transform().m11(), 2.0);
    QCOMPARE(image->transform().m22(), 1.0);
    QCOMPARE(image->geometry(), geometry); // resized by the transform only
    QCOMPARE(image->pixmap().size(), QSize(50, 40));
    QCOMPARE(image->pos(), QPointF(100, 100));
    QCOMPARE(d.steps(), 1);
    QCOMPARE(d.handlePos(3), QPointF(100 + 2 * bounds.right(), edge.y())); // scaled about the origin

    d.report.undo();
    QVERIFY(image->transform().isIdentity());
    QVERIFY(image->isSelected());
    d.report.redo();
    QCOMPARE(image->transform().m11(), 2.0);

    // The bottom edge, in one move, to the grid line at 180: the item (41 units high with its
    // selection margin) is scaled about its origin.
    d.select(image);
    const QPointF bottom = d.handlePos(5);
    d.driver.press(bottom);
    d.driver.move(QPointF(bottom.x(), 181));
    d.driver.release(QPointF(bottom.x(), 181));
    QCOMPARE(image->transform().m11(), 2.0);
    QCOMPARE(image->transform().m22(), (180.0 - 100 + 0.5) / 41);
    QCOMPARE(d.steps(), 2);
    d.report.undo();
    QCOMPARE(image->transform().m22(), 1.0);

    // The left edge moves the origin: the transform is translated, then scaled.
    auto* other = d.add(new ReportImageItem, QPointF(300, 100));
    other->setPixmap(filledPixmap(50, 40));
    d.select(other);
    const QPointF left = d.handlePos(7);
    d.driver.drag(left, left + QPointF(25, 0), Qt::AltModifier);
    QCOMPARE(other->transform().m11(), (bounds.width() - 25) / bounds.width());
    QCOMPARE(other->transform().dx(), 25.0);
    QCOMPARE(other->transform().m22(), 1.0);
    QCOMPARE(other->transform().dy(), 0.0);
    QCOMPARE(other->pos(), QPointF(300, 100));
    d.report.undo();
    QVERIFY(other->transform().isIdentity());

    // An image without a pixmap has empty bounds: nothing to scale, nothing becomes NaN.
    auto* empty = d.add(new ReportImageItem, QPointF(400, 400));
    d.select(empty);
    d.driver.drag(QPointF(400, 400), QPointF(450, 440));
    QVERIFY(empty->transform().isIdentity());
}

void TestTrackers::deletedItemLeavesNoTracker()
{
    Designer d;
    auto* first = d.add(new ReportRectItem);
    first->setRect(50, 50, 100, 50);
    d.select(first);
    QVERIFY(d.report.tracker());
    delete first;
    QVERIFY(!d.report.tracker());

    auto* second = d.add(new ReportRectItem);
    second->setRect(50, 50, 100, 50);
    d.select(second);
    d.report.addUndoCommand(new DeleteCommand(second));
    QVERIFY(!d.report.tracker());
    QVERIFY(d.report.reportItems().isEmpty());
    d.report.undo();
    d.select(second);
    QVERIFY(d.report.tracker());

    // Deleted in the middle of a handle drag: the drag's pending command goes with the tracker.
    d.driver.press(d.handlePos(4));
    d.driver.move({200, 150});
    d.report.addUndoCommand(new DeleteCommand(second));
    QVERIFY(!d.report.tracker());
    d.driver.move({220, 170});
    d.driver.release({220, 170});
    QCOMPARE(d.steps(), 1);
    d.report.undo();
    QCOMPARE(second->rect(), QRectF(50, 50, 150, 100));
}

QTEST_MAIN(TestTrackers)
#include "tst_trackers.moc"
