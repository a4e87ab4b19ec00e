#include "trackerbase.h"

#include "commands.h"
#include "reportitembase.h"

#include <QUndoStack>

namespace coagulation {

Tracker::Tracker(ReportItem* item) : QGraphicsItem(nullptr), item(item)
{
    // Only the handles draw. Without this flag the scene repaints the tracker's empty rectangle at
    // the origin whenever it comes or goes, and one repaint then spans from the origin to the item.
    setFlag(QGraphicsItem::ItemHasNoContents);
}

Tracker::~Tracker()
{
    delete command;
}

QRectF Tracker::boundingRect() const
{
    return QRectF();
}

void Tracker::paint(QPainter*, const QStyleOptionGraphicsItem*, QWidget*) {}

void Tracker::followItem()
{
    QGraphicsItem* g = item->graphicsItem();
    setPos(g->pos());
    setTransform(g->transform());
}

void Tracker::ensureHandles()
{
    if (handleList.isEmpty())
        handleList = createHandle();
}

void Tracker::updateGeometry()
{
    followItem();
    m_polygon = item->geometry();
    ensureHandles();
    updateHandlePos();
}

void Tracker::updateReportItem()
{
    item->setGeometry(mapToItem(item->graphicsItem(), m_polygon));
}

void Tracker::begin(int)
{
    if (!command)
        command = new GeometryCommand(item, nullptr);
}

void Tracker::move(int, QPointF& point, Qt::KeyboardModifiers modifiers)
{
    snapGrid(point, modifiers);
}

void Tracker::end(int, const QPointF&)
{
    QUndoCommand* done = command;
    command = nullptr;
    if (!done)
        return;
    if (Report* report = item->report())
        report->undoStack()->push(done);
    else
        delete done;
}

void Tracker::snapGrid(QPointF& point, Qt::KeyboardModifiers modifiers)
{
    Report* report = item->report();
    if (!report)
        return;
    QPointF scenePoint = mapToScene(point);
    report->snapGrid(scenePoint, modifiers);
    point = mapFromScene(scenePoint);
}

void Tracker::snapAngle(QPointF& point, const QPointF& anchor, Qt::KeyboardModifiers modifiers)
{
    if (Report* report = item->report())
        report->snapAngle(point, anchor, modifiers);
}

} // namespace coagulation
