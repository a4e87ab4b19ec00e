// One handle drag in the designer (press, moves, release through a real view, with the repaint
// after every move) with few and with many items on the page. Beside it, the same gesture making
// the same scene changes with plain Qt items: what Qt itself costs.
#include "benchmarks.h"

#include <drawingitems.h>
#include <report.h>
#include <tracker.h>

#include <QApplication>
#include <QGraphicsRectItem>
#include <QGraphicsSceneMouseEvent>
#include <QGraphicsView>
#include <QMouseEvent>
#include <QUndoStack>

#include <cmath>

namespace coagulation::bench {
namespace {

// The rectangles of a page with `count` items: the first is the one to drag, alone in a clear
// square at the page centre, so that a drag repaints the same few pixels whatever the count; the
// others fill the rest of the page in a regular grid.
QList<QRectF> pageOfRects(const QRectF& page, int count)
{
    const QRectF clear(page.center() - QPointF(150, 150), QSizeF(300, 300));
    QList<QRectF> rects{QRectF(page.center() - QPointF(40, 25), QSizeF(80, 50))};
    const int others = count - 1;
    // Enough cells that those outside the clear square hold all the others.
    const double share = 1.0 - clear.width() * clear.height() / (page.width() * page.height());
    int columns = qMax(1, int(std::ceil(std::sqrt(others / share * page.width() / page.height()))));
    while (int(rects.size()) < count) {
        rects.resize(1);
        const int rows = int(std::ceil(others / share / columns));
        const double cellW = page.width() / columns;
        const double cellH = page.height() / qMax(1, rows);
        for (int i = 0; i < columns * rows && int(rects.size()) < count; ++i) {
            const QRectF cell(page.left() + (i % columns) * cellW, page.top() + (i / columns) * cellH,
                              cellW * 0.8, cellH * 0.8);
            if (!cell.intersects(clear))
                rects.append(cell);
        }
        ++columns;
    }
    return rects;
}

// A view on a scene that a mouse drags through.
class DragView
{
public:
    explicit DragView(QGraphicsScene* scene) : m_view(scene)
    {
        m_view.setAlignment(Qt::AlignLeft | Qt::AlignTop);
        m_view.resize(900, 1200);
        m_view.show();
        QApplication::processEvents();
    }

    // Each move crosses a 10-unit grid line, so that every move changes the dragged shape and
    // repaints; the path stays within 40 x 30 units of the start. Not inlined, so that a profile
    // (callgrind --toggle-collect) can count the gesture alone.
    Q_NEVER_INLINE void drag(const QPointF& from, int moves)
    {
        send(QEvent::MouseButtonPress, from, Qt::LeftButton, Qt::LeftButton);
        QPointF at = from;
        for (int i = 1; i <= moves; ++i) {
            at = from + QPointF(10.0 * (i % 4 + 1), 10.0 * (i % 3 + 1));
            send(QEvent::MouseMove, at, Qt::NoButton, Qt::LeftButton);
            repaint();
        }
        send(QEvent::MouseButtonRelease, at, Qt::LeftButton, Qt::NoButton);
        repaint();
    }

    // The repaint the user waits for: the scene hands its dirty region to the view, and the view
    // paints it now instead of at the window system's next frame.
    void repaint()
    {
        QApplication::processEvents();
        QEvent request(QEvent::UpdateRequest);
        QApplication::sendEvent(&m_view, &request);
    }

private:
    void send(QEvent::Type type, const QPointF& scenePos, Qt::MouseButton button, Qt::MouseButtons buttons)
    {
        const QPoint local = m_view.mapFromScene(scenePos);
        QMouseEvent event(type, local, m_view.viewport()->mapToGlobal(local), button, buttons,
                          Qt::NoModifier);
        QApplication::sendEvent(m_view.viewport(), &event);
    }

    QGraphicsView m_view;
};

// Ours: the bottom-right handle of the middle rectangle item of a design-mode report.
void dragHandle(benchmark::State& state, int count, int moves)
{
    Report report(nullptr, nullptr);
    report.setDesignMode(true);
    const QList<QRectF> rects = pageOfRects(report.sceneRect(), count);
    QList<ReportRectItem*> items;
    for (const QRectF& rect : rects) {
        auto* item = new ReportRectItem;
        item->setGeometry(QPolygonF({rect.topLeft(), rect.bottomRight()}));
        report.addItem(item);
        items.append(item);
    }
    DragView view(&report);
    items.constFirst()->setSelected(true);
    TrackerHandle* corner = nullptr;
    if (report.tracker())
        for (TrackerHandle* handle : report.tracker()->handles())
            if (handle->id() == 4)
                corner = handle;
    if (!corner) {
        state.SkipWithError("the selected item shows no corner handle");
        return;
    }
    const QPointF from = corner->graphicsItem()->scenePos();
    view.repaint();

    for (auto _ : state) {
        view.drag(from, moves);
        state.PauseTiming();
        if (report.undoStack()->count() != 1)
            state.SkipWithError("a drag must push exactly one undo command");
        report.undo(); // the same start for the next drag
        report.undoStack()->clear();
        view.repaint();
        state.ResumeTiming();
    }
    state.counters[counter::items] = count;
}

// Qt alone: the scene changes and pixels a handle drag makes (the selected rectangle resized, eight
// green handles that ignore transformations moved around it), made by plain Qt items without our code.
class PlainCornerHandle : public QGraphicsRectItem
{
public:
    PlainCornerHandle(QGraphicsRectItem* target, QGraphicsItem* container)
        : QGraphicsRectItem(container), m_target(target)
    {
        setRect(-3.5, -3.5, 7, 7);
        setFlags(QGraphicsItem::ItemIsMovable | QGraphicsItem::ItemIgnoresTransformations);
        paintLikeHandle(this);
        for (int i = 0; i < 7; ++i) {
            auto* other = new QGraphicsRectItem(-3.5, -3.5, 7, 7, container);
            other->setFlag(QGraphicsItem::ItemIgnoresTransformations);
            paintLikeHandle(other);
            m_others.append(other);
        }
        place();
    }

    void reset(const QRectF& rect)
    {
        m_target->setRect(rect);
        place();
    }

protected:
    void mousePressEvent(QGraphicsSceneMouseEvent*) override {}
    void mouseMoveEvent(QGraphicsSceneMouseEvent* event) override
    {
        QPointF corner = event->scenePos();
        corner = QPointF(std::round(corner.x() / 10) * 10, std::round(corner.y() / 10) * 10); // the grid
        m_target->setRect(QRectF(m_target->rect().topLeft(), corner));
        place();
    }

private:
    // The pixels of a designer handle: a green square with a black outline.
    static void paintLikeHandle(QGraphicsRectItem* handle)
    {
        handle->setPen(QPen(Qt::black));
        handle->setBrush(QBrush(Qt::green, Qt::SolidPattern));
    }

    void place()
    {
        const QRectF r = m_target->rect();
        const QList<QPointF> points = {r.topLeft(),
                                       QPointF(r.center().x(), r.top()),
                                       r.topRight(),
                                       QPointF(r.right(), r.center().y()),
                                       QPointF(r.center().x(), r.bottom()),
                                       r.bottomLeft(),
                                       QPointF(r.left(), r.center().y())};
        setPos(r.bottomRight());
        for (int i = 0; i < m_others.size(); ++i)
            m_others.at(i)->setPos(points.at(i));
    }

    QGraphicsRectItem* m_target;
    QList<QGraphicsRectItem*> m_others;
};

void dragPlainHandle(benchmark::State& state, int count, int moves)
{
    QGraphicsScene scene(QRectF(QPointF(0, 0), Report(nullptr, nullptr).sceneRect().size()));
    const QList<QRectF> rects = pageOfRects(scene.sceneRect(), count);
    QList<QGraphicsRectItem*> items;
    for (const QRectF& rect : rects) {
        items.append(scene.addRect(rect));
        items.last()->setCursor(Qt::SizeAllCursor); // as report items have
    }
    // Selected, as the item whose handles are dragged is: Qt paints its dashed selection outline.
    QGraphicsRectItem* target = items.constFirst();
    target->setFlag(QGraphicsItem::ItemIsSelectable);
    target->setSelected(true);
    auto* container = new QGraphicsRectItem; // holds the handles, like our tracker
    container->setFlag(QGraphicsItem::ItemHasNoContents);
    container->setZValue(1.0);
    auto* corner = new PlainCornerHandle(target, container);
    scene.addItem(container);
    DragView view(&scene);
    const QRectF start = target->rect();
    const QPointF from = corner->scenePos();

    for (auto _ : state) {
        view.drag(from, moves);
        state.PauseTiming();
        corner->reset(start);
        view.repaint();
        state.ResumeTiming();
    }
    state.counters[counter::items] = count;
}

} // namespace

void registerDragBenchmarks(const BenchConfig& config)
{
    for (int count : {config.dragSmall, config.dragLarge}) {
        benchmark::RegisterBenchmark(name::drag("ours", count).c_str(), dragHandle, count, config.dragMoves)
            ->Unit(benchmark::kMillisecond)
            ->UseRealTime()
            ->MinTime(0.2)
            ->Repetitions(config.repetitions);
        benchmark::RegisterBenchmark(name::drag("qt", count).c_str(), dragPlainHandle, count,
                                     config.dragMoves)
            ->Unit(benchmark::kMillisecond)
            ->UseRealTime()
            ->MinTime(0.2)
            ->Repetitions(config.repetitions);
    }
}

} // namespace coagulation::bench
