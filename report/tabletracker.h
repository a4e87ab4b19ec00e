#pragma once

#include "recttracker.h"

namespace coagulation {

// The box handles of a table plus one diamond per table line: point 2 is the row line (moved
// vertically), points 3 and later are the column borders (moved horizontally).
class REPORT_EXPORT TableTracker : public RectTracker
{
public:
    explicit TableTracker(ReportItem* item);

    int firstLineHandle() const { return m_firstLineHandle; }

protected:
    void move(int id, QPointF& point, Qt::KeyboardModifiers modifiers) override;
    QList<TrackerHandle*> createHandle() override;
    void updateHandlePos() override;

private:
    void moveBox(int id, QPointF& point, Qt::KeyboardModifiers modifiers);
    void moveRowLine(QPointF& point);
    void moveColumnLine(int j, QPointF& point);

    int m_firstLineHandle = 8;
};

} // namespace coagulation
