#pragma once

#include <QPolygonF>
#include <QRectF>

namespace coagulation {

class ReportItem;

// The box an item occupies: the rectangle spanned by its first two geometry points (corners, a
// line's end points, a table's origin and size), which is what the user aligns and sizes.
class ItemBox
{
public:
    static QRectF rect(const ReportItem* item);      // item coordinates
    static QRectF sceneRect(const ReportItem* item); // scene coordinates
    // Items sized through their geometry; the others (pictures) are sized by scaling.
    static bool isSizedByGeometry(const ReportItem* item);
    // The geometry with the box made w x h item units, in the direction the item was drawn in.
    static QPolygonF resized(const ReportItem* item, double width, double height);
};

} // namespace coagulation
