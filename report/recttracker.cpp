#include "recttracker.h"

#include "reportitembase.h"
#include "trackerhandle.h"

#include <QGraphicsRectItem>

namespace coagulation {

namespace {

enum { TopLeft, Top, TopRight, Right, BottomRight, Bottom, BottomLeft, Left, HandleCount };

const Qt::CursorShape handleCursors[HandleCount] = {
    Qt::SizeFDiagCursor, Qt::SizeVerCursor, Qt::SizeBDiagCursor, Qt::SizeHorCursor,
    Qt::SizeFDiagCursor, Qt::SizeVerCursor, Qt::SizeBDiagCursor, Qt::SizeHorCursor,
};

} // namespace

RectTracker::RectTracker(ReportItem* item) : Tracker(item) {}

QList<TrackerHandle*> RectTracker::createHandle()
{
    QList<TrackerHandle*> list;
    for (int id = 0; id < HandleCount; ++id)
        list.append(createTrackerHandle<QGraphicsRectItem>(id, this, handleCursors[id]));
    return list;
}

void RectTracker::updateHandlePos()
{
    const QPolygonF p = polygon();
    const QPointF p0 = pointAt(p, 0);
    const QPointF p1 = pointAt(p, 1);
    const double xm = (p0.x() + p1.x()) * 0.5;
    const double ym = (p0.y() + p1.y()) * 0.5;
    const QPointF positions[HandleCount] = {
        {p0.x(), p0.y()}, {xm, p0.y()}, {p1.x(), p0.y()}, {p1.x(), ym},
        {p1.x(), p1.y()}, {xm, p1.y()}, {p0.x(), p1.y()}, {p0.x(), ym},
    };
    const QList<TrackerHandle*> list = handles();
    for (TrackerHandle* handle : list) {
        if (handle->id() >= 0 && handle->id() < HandleCount)
            handle->graphicsItem()->setPos(positions[handle->id()]);
    }
}

void RectTracker::begin(int id)
{
    Tracker::begin(id);
    m_initPolygon = polygon();
}

// The larger of the two scales wins; the opposite corner of the start box stays put.
void RectTracker::lockAspect(int id, QPointF& point) const
{
    const QPointF i0 = pointAt(m_initPolygon, 0);
    const QPointF i1 = pointAt(m_initPolygon, 1);
    const double w = i1.x() - i0.x();
    const double h = i1.y() - i0.y();
    if (qFuzzyIsNull(w) || qFuzzyIsNull(h)) // a flat box has no proportions to keep
        return;
    const bool right = id == TopRight || id == BottomRight;
    const bool bottom = id == BottomRight || id == BottomLeft;
    const double sx = (right ? point.x() - i0.x() : i1.x() - point.x()) / w;
    const double sy = (bottom ? point.y() - i0.y() : i1.y() - point.y()) / h;
    if (sx > sy)
        point.setY(bottom ? i0.y() + h * sx : i1.y() - h * sx);
    else if (sy > sx)
        point.setX(right ? i0.x() + w * sy : i1.x() - w * sy);
}

void RectTracker::move(int id, QPointF& point, Qt::KeyboardModifiers modifiers)
{
    if (id < 0 || id >= HandleCount)
        return;
    snapGrid(point, modifiers);
    if (id % 2 == 0 && (modifiers & Qt::ControlModifier))
        lockAspect(id, point);

    QPolygonF p = polygon();
    if (p.size() < 2)
        p.resize(2);
    QPointF& p0 = p[0];
    QPointF& p1 = p[1];
    switch (id) {
    case TopLeft:
        p0 = point;
        break;
    case Top:
        p0.setY(point.y());
        break;
    case TopRight:
        p0.setY(point.y());
        p1.setX(point.x());
        break;
    case Right:
        p1.setX(point.x());
        break;
    case BottomRight:
        p1 = point;
        break;
    case Bottom:
        p1.setY(point.y());
        break;
    case BottomLeft:
        p0.setX(point.x());
        p1.setY(point.y());
        break;
    case Left:
        p0.setX(point.x());
        break;
    }
    setPolygon(p);
}

} // namespace coagulation
