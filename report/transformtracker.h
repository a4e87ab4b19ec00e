#pragma once

#include "recttracker.h"

#include <QRectF>

namespace coagulation {

// Box handles on the bounding rectangle of an item that has no shape of its own to edit:
// resizing scales the item's transform instead of changing its geometry.
class REPORT_EXPORT TransformTracker : public RectTracker
{
public:
    explicit TransformTracker(ReportItem* item);

    void updateReportItem() override;
    void updateGeometry() override;

protected:
    void begin(int id) override;

private:
    QRectF m_bounds;
};

} // namespace coagulation
