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

namespace {
double symbolRadius(const QFontMetricsF& metrics)
{
    return metrics.ascent() * 0.32;
}
} // namespace

double QcScaleDraw::labelWidth(const Tick& tick) const
{
    const QFontMetricsF metrics(m_font);
    const double symbol = tick.symbol.isNull() ? 0.0 : 2 * symbolRadius(metrics) + spacing + 2;
    return symbol + metrics.horizontalAdvance(tick.label);
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
                labels = qMax(labels, labelWidth(tick));
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
        widest = qMax(widest, labelWidth(tick));
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
        const double labelAt = at + tick.shift;
        const double width = labelWidth(tick) + 2;
        QRectF box;
        Qt::Alignment align = Qt::AlignCenter;
        if (isHorizontal()) {
            const double y = m_pos.y();
            if (hasComponent(Ticks))
                painter->drawLine(QPointF(at, y), QPointF(at, y + out * tickLength));
            const double top =
                out > 0 ? y + tickLength + spacing : y - tickLength - spacing - metrics.height();
            box = QRectF(labelAt - width / 2, top, width, metrics.height());
        } else {
            const double x = m_pos.x();
            if (hasComponent(Ticks))
                painter->drawLine(QPointF(x, at), QPointF(x + out * tickLength, at));
            const double left = out > 0 ? x + tickLength + spacing : x - tickLength - spacing - width;
            align = (out > 0 ? Qt::AlignLeft : Qt::AlignRight) | Qt::AlignVCenter;
            box = QRectF(left, labelAt - metrics.height() / 2, width, metrics.height());
        }
        if (!hasComponent(Labels))
            continue;
        if (!tick.symbol.isNull()) {
            const double r = symbolRadius(metrics);
            tick.symbol.draw(painter, QPointF(box.left() + 1 + r, box.center().y()), r);
            box.setLeft(box.left() + 2 * r + spacing + 2);
        }
        painter->setPen(QPen(tick.color.isValid() ? tick.color : palette.color(QPalette::WindowText), 1.0));
        painter->drawText(box, align, tick.label);
        painter->setPen(QPen(palette.color(QPalette::WindowText), 1.0));
    }
    painter->restore();
}

} // namespace coagulation
