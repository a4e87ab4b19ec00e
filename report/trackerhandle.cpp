#include "trackerhandle.h"

namespace coagulation {

TrackerHandle::TrackerHandle(int id, Tracker* tracker) : m_id(id), m_tracker(tracker) {}

TrackerHandle::~TrackerHandle() = default;

void TrackerHandle::begin()
{
    m_tracker->begin(m_id);
}

// Every step of the drag reaches the item at once, and the handles follow what it made of it.
void TrackerHandle::move(QPointF& point, Qt::KeyboardModifiers modifiers)
{
    m_tracker->move(m_id, point, modifiers);
    m_tracker->updateReportItem();
    m_tracker->updateGeometry();
}

void TrackerHandle::end()
{
    m_tracker->end(m_id, graphicsItem()->pos());
    m_tracker->updateReportItem();
    m_tracker->updateGeometry();
}

} // namespace coagulation
