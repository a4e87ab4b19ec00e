#pragma once

#include <QPolygonF>
#include <QSizeF>

namespace coagulation {

class GraphicsTableItem;

// The handle polygon of every report table: origin, lower-right corner of `size`, the row line
// point on the left edge, then the right border of each column on the top edge.
QPolygonF tableHandlePolygon(const GraphicsTableItem& grid, const QSizeF& size);

// Applies the row line and the column borders of a handle polygon whose origin is (0, 0).
// Widths are differences of consecutive border x values; columns without a point keep theirs.
void applyTableLines(GraphicsTableItem& grid, const QPolygonF& polygon);

} // namespace coagulation
