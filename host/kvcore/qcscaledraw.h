#pragma once

#include "kvcore_global.h"
#include "qcsymbol.h"

#include <QFont>
#include <QList>
#include <QPointF>
#include <QString>

class QPainter;
class QPalette;

namespace coagulation {

// Draws one axis of a QcPlot (backbone, ticks, tick labels) onto any painter, so that the plot
// can be printed as vectors. pos() is where the backbone starts, in the coordinates of the
// painter; values map linearly onto the backbone's length.
class KVCORE_EXPORT QcScaleDraw
{
public:
    enum ScaleComponent { Backbone = 0x01, Ticks = 0x02, Labels = 0x04 };
    enum Alignment { BottomScale, TopScale, LeftScale, RightScale };

    struct Tick
    {
        Tick() = default;
        Tick(double value, const QString& label, const QColor& color = QColor(), const QcSymbol& symbol = {})
            : value(value), label(label), color(color), symbol(symbol)
        {}

        double value = 0.0;
        QString label;
        QColor color;     // of the label; invalid: the palette's text colour
        QcSymbol symbol;  // drawn before the label (a legend entry)
        double shift = 0; // moves the label along the axis, in pixels, off a crowded neighbour
    };

    explicit QcScaleDraw(Alignment alignment);

    Alignment alignment() const { return m_alignment; }
    bool isHorizontal() const { return m_alignment == BottomScale || m_alignment == TopScale; }

    void enableComponent(ScaleComponent component, bool enable = true);
    bool hasComponent(ScaleComponent component) const { return m_components & component; }

    void setScale(double lower, double upper, const QList<Tick>& ticks);
    double lowerBound() const { return m_lower; }
    double upperBound() const { return m_upper; }
    const QList<Tick>& ticks() const { return m_ticks; }

    void move(const QPointF& pos) { m_pos = pos; }
    QPointF pos() const { return m_pos; }
    void setLength(double length) { m_length = length; }
    double length() const { return m_length; }

    QFont font() const { return m_font; }
    // Kept in pixels (see pixelFont).
    void setFont(const QFont& font) { m_font = pixelFont(font); }

    // The font with its size in pixels of the plot. A point size would be resolved against the
    // painter's device: on a 1200 dpi printer the labels would come out twelve times too large.
    static QFont pixelFont(const QFont& font);

    // Position of a value along the backbone, in painter coordinates (x or y).
    double transform(double value) const;
    // Room the ticks and labels need across the backbone.
    int extent() const;
    // How far the outermost labels may reach beyond the ends of the backbone.
    int labelOverhang() const;

    void draw(QPainter* painter, const QPalette& palette) const;

    // Width of a label with its symbol.
    double labelWidth(const Tick& tick) const;

    static constexpr int tickLength = 5;
    static constexpr int spacing = 3;

private:
    Alignment m_alignment;
    int m_components = Backbone | Ticks | Labels;
    double m_lower = 0.0;
    double m_upper = 0.0;
    QList<Tick> m_ticks;
    QPointF m_pos;
    double m_length = 0.0;
    QFont m_font;
};

} // namespace coagulation
