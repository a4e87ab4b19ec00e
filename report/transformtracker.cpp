#include "transformtracker.h"

#include "commands.h"
#include "reportitembase.h"

namespace coagulation {

TransformTracker::TransformTracker(ReportItem* item) : RectTracker(item) {}

void TransformTracker::updateGeometry()
{
    m_bounds = reportItem()->graphicsItem()->boundingRect();
    followItem();
    setPolygon(QPolygonF({m_bounds.topLeft(), m_bounds.bottomRight()}));
    ensureHandles();
    updateHandlePos();
}

void TransformTracker::begin(int id)
{
    if (!command)
        command = new TransformCommand({reportItem()->graphicsItem()}, nullptr);
    RectTracker::begin(id);
}

void TransformTracker::updateReportItem()
{
    // Nothing to scale from: an empty item keeps its transform.
    if (qFuzzyIsNull(m_bounds.width()) || qFuzzyIsNull(m_bounds.height()))
        return;
    const QPolygonF p = polygon();
    const QPointF p0 = pointAt(p, 0);
    const QPointF p1 = pointAt(p, 1);
    const double sx = (p1.x() - p0.x()) / m_bounds.width();
    const double sy = (p1.y() - p0.y()) / m_bounds.height();
    QTransform t = transform();
    t.translate(p0.x() - m_bounds.left(), p0.y() - m_bounds.top());
    t.scale(sx, sy);
    reportItem()->graphicsItem()->setTransform(t);
}

} // namespace coagulation
