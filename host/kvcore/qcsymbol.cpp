#include "qcsymbol.h"

#include <QPainter>
#include <QPolygonF>

namespace coagulation {

void QcSymbol::draw(QPainter* painter, const QPointF& at, double r) const
{
    if (style == NoSymbol)
        return;
    painter->save();
    painter->setRenderHint(QPainter::Antialiasing, true);
    painter->setPen(QPen(color, 1.0));
    painter->setBrush(color);
    switch (style) {
    case Disc:
        painter->drawEllipse(at, r, r);
        break;
    case Square:
        painter->drawRect(QRectF(at - QPointF(r, r), at + QPointF(r, r)));
        break;
    case TriangleUp:
        painter->drawPolygon(QPolygonF{at + QPointF(0, -1.2 * r), at + QPointF(1.1 * r, 0.8 * r),
                                       at + QPointF(-1.1 * r, 0.8 * r)});
        break;
    case TriangleDown:
        painter->drawPolygon(QPolygonF{at + QPointF(0, 1.2 * r), at + QPointF(1.1 * r, -0.8 * r),
                                       at + QPointF(-1.1 * r, -0.8 * r)});
        break;
    case Diamond:
        painter->drawPolygon(QPolygonF{at + QPointF(0, -1.3 * r), at + QPointF(1.3 * r, 0),
                                       at + QPointF(0, 1.3 * r), at + QPointF(-1.3 * r, 0)});
        break;
    case Ring:
        painter->setPen(QPen(color, 1.5));
        painter->setBrush(Qt::NoBrush);
        painter->drawEllipse(at, r, r);
        break;
    case Cross:
        painter->setPen(QPen(color, 1.2));
        painter->drawLine(at + QPointF(-r, -r), at + QPointF(r, r));
        painter->drawLine(at + QPointF(-r, r), at + QPointF(r, -r));
        break;
    case NoSymbol:
        break;
    }
    painter->restore();
}

} // namespace coagulation
