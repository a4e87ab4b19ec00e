#pragma once

#include "trackerbase.h"

namespace coagulation {

// Eight handles on the corners and edge midpoints of a two-point box (top-left, bottom-right).
// Ctrl on a corner keeps the box's proportions at the start of the drag.
class REPORT_EXPORT RectTracker : public Tracker
{
public:
    explicit RectTracker(ReportItem* item);

protected:
    void begin(int id) override;
    void move(int id, QPointF& point, Qt::KeyboardModifiers modifiers) override;
    QList<TrackerHandle*> createHandle() override;
    void updateHandlePos() override;

    const QPolygonF& initPolygon() const { return m_initPolygon; }

private:
    void lockAspect(int id, QPointF& point) const;

    QPolygonF m_initPolygon;
};

} // namespace coagulation
