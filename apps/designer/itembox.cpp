#include "itembox.h"

#include <drawingitems.h>
#include <reportitembase.h>

namespace coagulation {

QRectF ItemBox::rect(const ReportItem* item)
{
    const QPolygonF geometry = item->geometry();
    return QRectF(pointAt(geometry, 0), pointAt(geometry, 1)).normalized();
}

QRectF ItemBox::sceneRect(const ReportItem* item)
{
    return item->graphicsItem()->mapToScene(rect(item)).boundingRect();
}

bool ItemBox::isSizedByGeometry(const ReportItem* item)
{
    // A picture's geometry is its pixmap's size; setting it rewrites the transform.
    return !dynamic_cast<const ReportImageItem*>(item) && item->geometry().size() >= 2;
}

QPolygonF ItemBox::resized(const ReportItem* item, double width, double height)
{
    QPolygonF geometry = item->geometry();
    if (geometry.size() < 2)
        return geometry;
    const QPointF origin = geometry.at(0);
    const QPointF oldEnd = geometry.at(1);
    const double w = width * (oldEnd.x() < origin.x() ? -1 : 1);
    const double h = height * (oldEnd.y() < origin.y() ? -1 : 1);
    geometry[1] = origin + QPointF(w, h);
    if (dynamic_cast<const ReportTextItem*>(item)) // a text's width marker follows its right edge
        geometry[2].setX(origin.x() + w);
    return geometry;
}

} // namespace coagulation
