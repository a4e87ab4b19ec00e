#pragma once

#include "trackerbase.h"

namespace coagulation {

class ReportTextItem;

// Two handles set a fixed text width; the yellow one, shown only in fixed-width mode, switches
// the text back to automatic width when clicked.
class REPORT_EXPORT TextTracker : public Tracker
{
public:
    enum { LeftHandle = 0, RightHandle = 1, AutoSizeHandle = 2 };

    explicit TextTracker(ReportTextItem* item);

    ReportTextItem* textItem() const { return m_textItem; }

protected:
    void move(int id, QPointF& point, Qt::KeyboardModifiers modifiers) override;
    void end(int id, const QPointF& point) override;
    QList<TrackerHandle*> createHandle() override;
    void updateHandlePos() override;

private:
    ReportTextItem* m_textItem;
};

} // namespace coagulation
