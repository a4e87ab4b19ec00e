#pragma once

#include "report_global.h"

#include <QAbstractGraphicsShapeItem>

namespace coagulation {

// A diamond inscribed in a rectangle: the marker of table line handles.
class REPORT_EXPORT GraphicsDiamondItem : public QAbstractGraphicsShapeItem
{
public:
    explicit GraphicsDiamondItem(QGraphicsItem* parent = nullptr);

    QRectF rect() const { return m_rect; }
    void setRect(const QRectF& rect);

    QRectF boundingRect() const override;
    QPainterPath shape() const override;
    void paint(QPainter* painter, const QStyleOptionGraphicsItem* option, QWidget* widget) override;

private:
    QRectF m_rect;
};

} // namespace coagulation
