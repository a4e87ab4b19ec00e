#include "tablegeometry.h"

#include "graphicstableitem.h"

namespace coagulation {

namespace {

enum { RowLinePoint = 2, FirstBorderPoint = 3 };

} // namespace

QPolygonF tableHandlePolygon(const GraphicsTableItem& grid, const QSizeF& size)
{
    QPolygonF polygon({QPointF(0, 0), QPointF(size.width(), size.height()), QPointF(0, grid.rowHeight())});
    double x = 0.0;
    for (int c = 0; c < grid.columnCount(); ++c) {
        x += grid.columnWidth(c);
        polygon.append(QPointF(x, 0));
    }
    return polygon;
}

void applyTableLines(GraphicsTableItem& grid, const QPolygonF& polygon)
{
    if (polygon.size() <= RowLinePoint)
        return;
    grid.setRowHeight(polygon.at(RowLinePoint).y());
    double previous = 0.0;
    for (int c = 0; c < grid.columnCount() && c + FirstBorderPoint < polygon.size(); ++c) {
        const double x = polygon.at(c + FirstBorderPoint).x();
        grid.setColumnWidth(c, x - previous);
        previous = x;
    }
}

} // namespace coagulation
