#pragma once

#include "trackerbase.h"

namespace coagulation {

class ReportLineItem;

// One handle per end point; Shift keeps the line at a multiple of 45 degrees around the other end.
class REPORT_EXPORT LineTracker : public Tracker
{
public:
    explicit LineTracker(ReportLineItem* item);

protected:
    void move(int id, QPointF& point, Qt::KeyboardModifiers modifiers) override;
    QList<TrackerHandle*> createHandle() override;
    void updateHandlePos() override;
};

} // namespace coagulation
