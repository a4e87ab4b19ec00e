#include "qcscaledraw.h"

#include <QFontInfo>
#include <QFontMetricsF>
#include <QPainter>
#include <QPalette>

namespace coagulation {

QcScaleDraw::QcScaleDraw(Alignment alignment) : m_alignment(alignment) {}

QFont QcScaleDraw::pixelFont(const QFont& font)
{
    if (font.pixelSize() > 0)
        return font;
    QFont pixels = font;
    pixels.setPixelSize(qMax(1, QFontInfo(font).pixelSize()));
    return pixels;
}

void QcScaleDraw::enableComponent(ScaleComponent component, bool enable)
{
    if (enable)
        m_components |= component;
    else
        m_components &= ~component;
}

void QcScaleDraw::setScale(double lower, double upper, const QList<Tick>& ticks)
{
    m_lower = lower;
    m_upper = upper;
    m_ticks = ticks;
}

double QcScaleDraw::transform(double value) const
{
    const double span = m_upper - m_lower;
    const double ratio = span != 0.0 ? (value - m_lower) / span : 0.0;
    // Vertical scales grow upwards.
    return isHorizontal() ? m_pos.x() + ratio * m_length : m_pos.y() + m_length - ratio * m_length;
}

int QcScaleDraw::extent() const
{
    const QFontMetricsF metrics(m_font);
    double labels = 0.0;
    if (hasComponent(Labels)) {
        if (isHorizontal()) {
            labels = metrics.height();
        } else {
            for (const Tick& tick : m_ticks)
                labels = qMax(labels, metrics.horizontalAdvance(tick.label));
        }
    }
    return int(std::ceil(tickLength + spacing + labels + 1));
}

int QcScaleDraw::labelOverhang() const
{
    const QFontMetricsF metrics(m_font);
    if (!isHorizontal())
        return int(std::ceil(metrics.height() / 2));
    double widest = 0.0;
    for (const Tick& tick : m_ticks)
        widest = qMax(widest, metrics.horizontalAdvance(tick.label));
    return int(std::ceil(widest / 2));
}

void QcScaleDraw::draw(QPainter* painter, const QPalette& palette) const
{
    painter->save();
    // Aliased, a printer's painter strokes thin lines as hairlines.
    painter->setRenderHint(QPainter::Antialiasing, true);
    painter->setPen(QPen(palette.color(QPalette::WindowText), 1.0));
    painter->setFont(m_font);
    // Ticks point away from the plotting area.
    const double out = (m_alignment == BottomScale || m_alignment == RightScale) ? 1.0 : -1.0;
    if (hasComponent(Backbone)) {
        const QPointF end = isHorizontal() ? m_pos + QPointF(m_length, 0) : m_pos + QPointF(0, m_length);
        painter->drawLine(m_pos, end);
    }
    const QFontMetricsF metrics(m_font);
    const double lower = qMin(m_lower, m_upper);
    const double upper = qMax(m_lower, m_upper);
    for (const Tick& tick : m_ticks) {
        if (tick.value < lower || tick.value > upper)
            continue;
        const double at = transform(tick.value);
        if (isHorizontal()) {
            const double y = m_pos.y();
            if (hasComponent(Ticks))
                painter->drawLine(QPointF(at, y), QPointF(at, y + out * tickLength));
            if (hasComponent(Labels)) {
                const double width = metrics.horizontalAdvance(tick.label) + 2;
                const double top =
                    out > 0 ? y + tickLength + spacing : y - tickLength - spacing - metrics.height();
                painter->drawText(QRectF(at - width / 2, top, width, metrics.height()), Qt::AlignCenter,
                                  tick.label);
            }
        } else {
            const double x = m_pos.x();
            if (hasComponent(Ticks))
                painter->drawLine(QPointF(x, at), QPointF(x + out * tickLength, at));
            if (hasComponent(Labels)) {
                const double width = metrics.horizontalAdvance(tick.label) + 2;
                const double left = out > 0 ? x + tickLength + spacing : x - tickLength - spacing - width;
                const Qt::Alignment align = (out > 0 ? Qt::AlignLeft : Qt::AlignRight) | Qt::AlignVCenter;
                painter->drawText(QRectF(left, at - metrics.height() / 2, width, metrics.height()), align,
                                  tick.label);
            }
        }
    }
    painter->restore();
}

} // namespace coagulation
