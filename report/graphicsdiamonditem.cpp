#include "graphicsdiamonditem.h"

#include <QPainter>

namespace coagulation {

GraphicsDiamondItem::GraphicsDiamondItem(QGraphicsItem* parent) : QAbstractGraphicsShapeItem(parent) {}

void GraphicsDiamondItem::setRect(const QRectF& rect)
{
    prepareGeometryChange();
    m_rect = rect;
}

QRectF GraphicsDiamondItem::boundingRect() const
{
    return m_rect;
}

QPainterPath GraphicsDiamondItem::shape() const
{
    const QPointF c = m_rect.center();
    QPainterPath path;
    path.moveTo(m_rect.left(), c.y());
    path.lineTo(c.x(), m_rect.top());
    path.lineTo(m_rect.right(), c.y());
    path.lineTo(c.x(), m_rect.bottom());
    path.closeSubpath();
    return path;
}

void GraphicsDiamondItem::paint(QPainter* painter, const QStyleOptionGraphicsItem*, QWidget*)
{
    painter->setPen(pen());
    painter->setBrush(brush());
    painter->drawPath(shape());
}

} // namespace coagulation
