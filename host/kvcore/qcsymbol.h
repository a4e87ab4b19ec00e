#pragma once

#include "kvcore_global.h"

#include <QColor>
#include <QPointF>

class QPainter;

namespace coagulation {

// The marks of a QC chart: ordinary points, warnings, each rule violation and excluded runs
// look different, in colour and in shape, so that they stay apart on a black-and-white print.
struct KVCORE_EXPORT QcSymbol
{
    enum Style { NoSymbol, Disc, Square, TriangleUp, Diamond, TriangleDown, Ring, Cross };

    Style style = NoSymbol;
    QColor color;

    bool isNull() const { return style == NoSymbol; }
    // Draws the mark centred on `at` with the given radius, in plot pixels.
    void draw(QPainter* painter, const QPointF& at, double radius) const;
};

} // namespace coagulation
