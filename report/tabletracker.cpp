#include "tabletracker.h"

#include "graphicsdiamonditem.h"
#include "reportitembase.h"
#include "trackerhandle.h"

namespace coagulation {

namespace {

enum { RowLinePoint = 2 };

} // namespace

TableTracker::TableTracker(ReportItem* item) : RectTracker(item) {}

QList<TrackerHandle*> TableTracker::createHandle()
{
    QList<TrackerHandle*> list = RectTracker::createHandle();
    m_firstLineHandle = list.size();
    const int points = polygon().size();
    for (int i = RowLinePoint; i < points; ++i) {
        const Qt::CursorShape cursor = i == RowLinePoint ? Qt::SizeVerCursor : Qt::SizeHorCursor;
        TrackerHandle* handle =
            createTrackerHandle<GraphicsDiamondItem>(m_firstLineHandle + i - RowLinePoint, this, cursor);
        static_cast<GraphicsDiamondItem*>(handle->graphicsItem())
            ->setBrush(QBrush(Qt::yellow, Qt::SolidPattern));
        list.append(handle);
    }
    return list;
}

void TableTracker::updateHandlePos()
{
    RectTracker::updateHandlePos();
    const QPolygonF p = polygon();
    const QList<TrackerHandle*> list = handles();
    // Handles are made once; a line that disappeared later hides its handle.
    for (int index = m_firstLineHandle; index < list.size(); ++index) {
        const int i = index - m_firstLineHandle + RowLinePoint;
        QGraphicsItem* handle = list.at(index)->graphicsItem();
        handle->setVisible(i < p.size());
        if (i < p.size())
            handle->setPos(p.at(i));
    }
}

void TableTracker::move(int id, QPointF& point, Qt::KeyboardModifiers modifiers)
{
    if (id < m_firstLineHandle)
        moveBox(id, point, modifiers);
    else if (id == m_firstLineHandle)
        moveRowLine(point);
    else
        moveColumnLine(id - m_firstLineHandle + RowLinePoint, point);
}

// The table lines follow the top-left corner: the row line sits on the left edge and the first
// column border on the top edge, so their offsets from p0 give the corner's shift.
void TableTracker::moveBox(int id, QPointF& point, Qt::KeyboardModifiers modifiers)
{
    RectTracker::move(id, point, modifiers);
    QPolygonF p = polygon();
    if (p.size() < 3)
        return;
    const double dx = p.at(0).x() - p.at(2).x();
    const double dy = p.size() > 3 ? p.at(0).y() - p.at(3).y() : 0.0; // no column border, no shift
    for (int i = RowLinePoint; i < p.size(); ++i)
        p[i] += QPointF(dx, dy);
    setPolygon(p);
}

void TableTracker::moveRowLine(QPointF& point)
{
    QPolygonF p = polygon();
    if (p.size() <= RowLinePoint)
        return;
    point.setY(qMax(point.y(), p.at(0).y()));
    p[RowLinePoint].setY(point.y());
    point.setX(p.at(RowLinePoint).x());
    setPolygon(p);
}

// The columns to the right keep their widths: every later border moves along.
void TableTracker::moveColumnLine(int j, QPointF& point)
{
    QPolygonF p = polygon();
    if (j <= RowLinePoint || j >= p.size())
        return;
    point.setX(qMax(point.x(), p.at(j - 1).x()));
    const double dx = point.x() - p.at(j).x();
    p[j].setX(point.x());
    point.setY(p.at(j).y());
    for (int i = j + 1; i < p.size(); ++i)
        p[i].rx() += dx;
    setPolygon(p);
}

} // namespace coagulation
