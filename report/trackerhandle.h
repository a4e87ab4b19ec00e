#pragma once

#include "report_global.h"
#include "trackerbase.h"

#include <QBrush>
#include <QCursor>
#include <QGraphicsSceneMouseEvent>
#include <QPen>

namespace coagulation {

// What a drag handle adds to its shape: its number within the tracker and the tracker that
// turns its drags into item changes.
class REPORT_EXPORT TrackerHandle
{
public:
    enum { DefaultSize = 7 };

    TrackerHandle(int id, Tracker* tracker);
    virtual ~TrackerHandle();

    int id() const { return m_id; }
    Tracker* tracker() const { return m_tracker; }

    virtual QGraphicsItem* graphicsItem() = 0;
    // Makes the shape an n x n square centred on the handle's position.
    virtual void setSize(int size) = 0;

protected:
    void begin();
    void move(QPointF& point, Qt::KeyboardModifiers modifiers);
    void end();

private:
    int m_id;
    Tracker* m_tracker;
};

// A handle drawn as a Shape (rectangle, ellipse or diamond item), child of its tracker. It keeps
// its pixel size whatever the zoom or the item's transform.
template <class Shape, class Handle = TrackerHandle> class TrackerHandleT : public Shape, public Handle
{
public:
    TrackerHandleT(int id, Tracker* tracker) : Shape(tracker), Handle(id, tracker)
    {
        Shape::setFlags(QGraphicsItem::ItemIsMovable | QGraphicsItem::ItemIgnoresTransformations);
        Shape::setPen(QPen(Qt::black));
        Shape::setBrush(QBrush(Qt::green, Qt::SolidPattern));
    }

    QGraphicsItem* graphicsItem() override { return this; }
    void setSize(int size) override { Shape::setRect(QRectF(-size / 2.0, -size / 2.0, size, size)); }

protected:
    // The shape's own press, move and release handling would move the handle by itself.
    void mousePressEvent(QGraphicsSceneMouseEvent* event) override
    {
        if (event->button() != Qt::LeftButton) {
            event->ignore();
            return;
        }
        grabDelta = Shape::pos() - toTracker(event->scenePos());
        Handle::begin();
    }

    void mouseMoveEvent(QGraphicsSceneMouseEvent* event) override
    {
        if (!(event->buttons() & Qt::LeftButton))
            return;
        QPointF point = toTracker(event->scenePos()) + grabDelta;
        Handle::move(point, event->modifiers());
    }

    void mouseReleaseEvent(QGraphicsSceneMouseEvent* event) override
    {
        if (event->button() == Qt::LeftButton)
            Handle::end();
    }

private:
    QPointF toTracker(const QPointF& scenePoint) const
    {
        const QGraphicsItem* parent = Shape::parentItem();
        return parent ? parent->mapFromScene(scenePoint) : scenePoint;
    }

    QPointF grabDelta;
};

// A new handle of the tracker with the usual size and the given hover cursor.
template <class Shape> TrackerHandle* createTrackerHandle(int id, Tracker* tracker, Qt::CursorShape cursor)
{
    auto* handle = new TrackerHandleT<Shape>(id, tracker);
    handle->setSize(TrackerHandle::DefaultSize);
    handle->setCursor(cursor);
    return handle;
}

} // namespace coagulation
