#include "linetracker.h"

#include "drawingitems.h"
#include "trackerhandle.h"

#include <QGraphicsRectItem>

namespace coagulation {

LineTracker::LineTracker(ReportLineItem* item) : Tracker(item) {}

QList<TrackerHandle*> LineTracker::createHandle()
{
    return {createTrackerHandle<QGraphicsRectItem>(0, this, Qt::SizeAllCursor),
            createTrackerHandle<QGraphicsRectItem>(1, this, Qt::SizeAllCursor)};
}

void LineTracker::updateHandlePos()
{
    const QPolygonF p = polygon();
    const QList<TrackerHandle*> list = handles();
    for (TrackerHandle* handle : list)
        handle->graphicsItem()->setPos(pointAt(p, handle->id()));
}

void LineTracker::move(int id, QPointF& point, Qt::KeyboardModifiers modifiers)
{
    snapGrid(point, modifiers);
    if (id != 0 && id != 1)
        return;
    QPolygonF p = polygon();
    if (p.size() < 2)
        p.resize(2);
    snapAngle(point, p.at(1 - id), modifiers);
    p[id] = point;
    setPolygon(p);
}

} // namespace coagulation
