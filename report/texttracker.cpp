#include "texttracker.h"

#include "drawingitems.h"
#include "trackerhandle.h"

#include <QGraphicsEllipseItem>
#include <QGraphicsRectItem>

namespace coagulation {

namespace {

// The polygon with all three points: top-left, bottom-right and the width marker.
QPolygonF textPolygon(QPolygonF p)
{
    if (p.size() < 3)
        p.resize(3);
    return p;
}

} // namespace

TextTracker::TextTracker(ReportTextItem* item) : Tracker(item), m_textItem(item) {}

QList<TrackerHandle*> TextTracker::createHandle()
{
    auto* autoSize = new TrackerHandleT<QGraphicsEllipseItem>(AutoSizeHandle, this);
    autoSize->setSize(TrackerHandle::DefaultSize);
    autoSize->setBrush(QBrush(Qt::yellow, Qt::SolidPattern));
    autoSize->setToolTip(Report::tr("自动调整大小"));
    return {createTrackerHandle<QGraphicsRectItem>(LeftHandle, this, Qt::SizeHorCursor),
            createTrackerHandle<QGraphicsRectItem>(RightHandle, this, Qt::SizeHorCursor), autoSize};
}

void TextTracker::updateHandlePos()
{
    const QPolygonF p = polygon();
    const QPointF p0 = pointAt(p, 0);
    const QPointF p1 = pointAt(p, 1);
    const QPointF p2 = pointAt(p, 2);
    const double ym = (p0.y() + p1.y()) * 0.5;
    const QList<TrackerHandle*> list = handles();
    for (TrackerHandle* handle : list) {
        QGraphicsItem* g = handle->graphicsItem();
        switch (handle->id()) {
        case LeftHandle:
            g->setPos(p0.x(), ym);
            break;
        case RightHandle:
            g->setPos(p1.x(), ym);
            break;
        case AutoSizeHandle:
            g->setPos(p2);
            g->setVisible(p2.x() > p0.x());
            break;
        }
    }
}

// The side handles change only the width, and fix it.
void TextTracker::move(int id, QPointF& point, Qt::KeyboardModifiers modifiers)
{
    if (id != LeftHandle && id != RightHandle)
        return;
    snapGrid(point, modifiers);
    QPolygonF p = textPolygon(polygon());
    p[id].setX(point.x());
    p[2].setX(p.at(1).x());
    setPolygon(p);
}

void TextTracker::end(int id, const QPointF& point)
{
    if (id == AutoSizeHandle) {
        QPolygonF p = textPolygon(polygon());
        p[2].setX(p.at(0).x() - 1.0); // below the left edge: automatic width
        setPolygon(p);
    }
    Tracker::end(id, point);
}

} // namespace coagulation
