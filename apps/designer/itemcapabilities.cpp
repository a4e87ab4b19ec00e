#include "itemcapabilities.h"

#include <drawingitems.h>
#include <graphicstableitem.h>

namespace coagulation {

ItemCapabilities ItemCapabilities::of(const ReportItem* item)
{
    ItemCapabilities caps;
    if (!item)
        return caps;
    const QGraphicsItem* graphics = item->graphicsItem();
    if (dynamic_cast<const QGraphicsTextItem*>(graphics)) {
        caps.font = caps.alignment = true;
    } else if (dynamic_cast<const ReportLineItem*>(item)) {
        caps.pen = true;
    } else if (dynamic_cast<const ReportRectItem*>(item)) {
        caps.pen = caps.brush = true;
    } else if (dynamic_cast<const ReportImageItem*>(item)) {
        // a picture has no style of its own
    } else if (dynamic_cast<const GraphicsTableItem*>(graphics)) {
        caps.font = caps.alignment = caps.pen = caps.brush = true;
    } else {
        caps.pen = caps.brush = true; // charts and other composite items
    }
    return caps;
}

} // namespace coagulation
