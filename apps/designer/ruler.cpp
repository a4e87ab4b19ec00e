#include "ruler.h"

#include <QGraphicsView>
#include <QPainter>

#include <cmath>
#include <limits>

namespace coagulation {

namespace {
constexpr double steps[] = {1, 2, 5, 10, 20, 50, 100, 200, 500};

// The smallest step (in millimetres) whose ticks lie at least minPixels apart.
double stepFor(double pixelsPerMm, double minPixels)
{
    for (double step : steps)
        if (step * pixelsPerMm >= minPixels)
            return step;
    return steps[std::size(steps) - 1];
}
} // namespace

Ruler::Ruler(Qt::Orientation orientation, QGraphicsView* view)
    : QWidget(view), m_orientation(orientation), m_view(view),
      m_cursor(std::numeric_limits<double>::quiet_NaN())
{
    setAutoFillBackground(true);
    setBackgroundRole(QPalette::Window);
    QFont small = font();
    small.setPixelSize(9);
    setFont(small);
}

QSize Ruler::sizeHint() const
{
    return m_orientation == Qt::Horizontal ? QSize(100, breadth) : QSize(breadth, 100);
}

void Ruler::setUnitsPerMm(double units)
{
    m_unitsPerMm = units;
    update();
}

void Ruler::setCursorPosition(double scene)
{
    m_cursor = scene;
    update();
}

double Ruler::toWidget(double scene) const
{
    const QPointF p = m_view->mapFromScene(QPointF(scene, scene));
    return m_orientation == Qt::Horizontal ? p.x() : p.y();
}

double Ruler::toScene(double widget) const
{
    const QPointF p = m_view->mapToScene(QPoint(int(widget), int(widget)));
    return m_orientation == Qt::Horizontal ? p.x() : p.y();
}

double Ruler::labelStep() const
{
    return stepFor(m_unitsPerMm * m_view->transform().m11(), 40);
}

void Ruler::paintEvent(QPaintEvent*)
{
    QPainter painter(this);
    painter.setPen(palette().color(QPalette::WindowText));
    const bool horizontal = m_orientation == Qt::Horizontal;
    const int length = horizontal ? width() : height();
    const double pixelsPerMm = m_unitsPerMm * m_view->transform().m11();
    if (pixelsPerMm <= 0)
        return;
    const double label = labelStep();
    const double tick = stepFor(pixelsPerMm, 5);
    const double firstMm = std::floor(toScene(0) / m_unitsPerMm / tick) * tick;
    const double lastMm = toScene(length) / m_unitsPerMm;
    for (double mm = firstMm; mm <= lastMm; mm += tick) {
        const double at = toWidget(mm * m_unitsPerMm);
        const bool labelled = std::fmod(std::abs(mm) + tick / 2, label) < tick;
        const int size = labelled ? breadth / 2 : breadth / 4;
        if (horizontal)
            painter.drawLine(QPointF(at, breadth - size), QPointF(at, breadth));
        else
            painter.drawLine(QPointF(breadth - size, at), QPointF(breadth, at));
        if (labelled) {
            const QString text = QString::number(qRound(mm));
            if (horizontal) {
                painter.drawText(QPointF(at + 2, 10), text);
            } else {
                painter.save();
                painter.translate(10, at + 2);
                painter.rotate(-90);
                painter.drawText(QPointF(-painter.fontMetrics().horizontalAdvance(text) - 2, 0), text);
                painter.restore();
            }
        }
    }
    painter.drawLine(horizontal ? QLineF(0, breadth - 1, length, breadth - 1)
                                : QLineF(breadth - 1, 0, breadth - 1, length));
    if (!std::isnan(m_cursor)) {
        painter.setPen(Qt::red);
        const double at = toWidget(m_cursor);
        painter.drawLine(horizontal ? QLineF(at, 0, at, breadth) : QLineF(0, at, breadth, at));
    }
}

} // namespace coagulation
