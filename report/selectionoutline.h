#pragma once

#include "report_global.h"

#include <functional>

class QPainter;
class QStyleOptionGraphicsItem;

namespace coagulation {

// Selection feedback drawn by the items themselves: draw() runs twice, first with a solid
// cosmetic pen in the contrast of the palette's window text, then with a dashed one.
REPORT_EXPORT void paintSelectionOutline(QPainter* painter, const QStyleOptionGraphicsItem* option,
                                         const std::function<void(QPainter*)>& draw);

} // namespace coagulation
