#pragma once

#include "report_global.h"

#include <QGraphicsItem>
#include <QList>
#include <QPolygonF>

class QUndoCommand;

namespace coagulation {

class ReportItem;
class TrackerHandle;

// The drag handles shown around the one selected item. Invisible itself; the handles are its
// children. It copies the item's position and transform, so its coordinates are the item's.
class REPORT_EXPORT Tracker : public QGraphicsItem
{
public:
    enum { Type = QGraphicsItem::UserType + 1 };

    explicit Tracker(ReportItem* item);
    ~Tracker() override;

    QRectF boundingRect() const override;
    void paint(QPainter* painter, const QStyleOptionGraphicsItem* option, QWidget* widget) override;
    int type() const override { return Type; }

    ReportItem* reportItem() const { return item; }
    QList<TrackerHandle*> handles() const { return handleList; }

    virtual void updateReportItem();
    virtual void updateGeometry();

protected:
    friend class TrackerHandle;

    virtual void begin(int id);
    virtual void move(int id, QPointF& point, Qt::KeyboardModifiers modifiers);
    virtual void end(int id, const QPointF& point);
    virtual void snapGrid(QPointF& point, Qt::KeyboardModifiers modifiers);
    virtual void snapAngle(QPointF& point, const QPointF& anchor, Qt::KeyboardModifiers modifiers);
    virtual QList<TrackerHandle*> createHandle() = 0;
    virtual void updateHandlePos() = 0;

    QPolygonF polygon() const { return m_polygon; }
    void setPolygon(const QPolygonF& polygon) { m_polygon = polygon; }
    // Copies the item's position and transform; the shared first half of updateGeometry.
    void followItem();
    void ensureHandles();

    QUndoCommand* command = nullptr; // the drag in progress; owned until pushed

private:
    QPolygonF m_polygon;
    QList<TrackerHandle*> handleList;
    ReportItem* item;
};

} // namespace coagulation
