#include "selectionoutline.h"

#include <QPainter>
#include <QStyleOptionGraphicsItem>

namespace coagulation {

namespace {

// Black on a light palette, white on a dark one: the selection stays visible either way.
QColor contrastColor(const QColor& c)
{
    return QColor(c.red() > 127 ? 0 : 255, c.green() > 127 ? 0 : 255, c.blue() > 127 ? 0 : 255, 255);
}

} // namespace

void paintSelectionOutline(QPainter* painter, const QStyleOptionGraphicsItem* option,
                           const std::function<void(QPainter*)>& draw)
{
    const QBrush windowText = option->palette.brush(QPalette::Current, QPalette::WindowText);
    painter->setPen(
        QPen(QBrush(contrastColor(windowText.color())), 0, Qt::SolidLine, Qt::SquareCap, Qt::BevelJoin));
    draw(painter);
    painter->setPen(QPen(windowText, 0, Qt::DashLine, Qt::SquareCap, Qt::BevelJoin));
    draw(painter);
}

} // namespace coagulation
