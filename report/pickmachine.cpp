#include "pickmachine.h"

#include <QGraphicsSceneMouseEvent>

namespace coagulation {

namespace {

bool isLeftPress(const QEvent* event)
{
    return event->type() == QEvent::GraphicsSceneMousePress &&
           static_cast<const QGraphicsSceneMouseEvent*>(event)->button() == Qt::LeftButton;
}

} // namespace

PickMachine::~PickMachine() = default;

QList<int> ClickPointMachine::pick(const QEvent* event)
{
    if (event && isLeftPress(event))
        return {Begin, Append, End};
    return {};
}

QList<int> DragRectMachine::pick(const QEvent* event)
{
    if (!event)
        return {};
    if (state() == Idle) {
        if (!isLeftPress(event))
            return {};
        setState(Dragging);
        return {Begin, Append, Append};
    }
    if (state() == Dragging) {
        switch (event->type()) {
        case QEvent::GraphicsSceneMouseMove:
            return {Move};
        case QEvent::GraphicsSceneMouseRelease: // any button ends the drag
            setState(Idle);
            return {End};
        default:
            break;
        }
    }
    return {};
}

} // namespace coagulation
