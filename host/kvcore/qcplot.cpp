#include "qcplot.h"

#include "qcaxisticks_p.h"
#include "qcexportdata.h"
#include "qcplotcanvas.h"
#include "qcscaledraw.h"
#include "qcscalewidget.h"
#include "statistic.h"

#include <QEvent>
#include <QMouseEvent>
#include <QPainter>

#include <cmath>

namespace coagulation {

namespace {

constexpr int margin = 4;
constexpr double symbolRadius = 3.0;
const QColor warningColor(220, 130, 0);
const QColor violationColor(200, 30, 30);
const QColor excludedColor(110, 110, 110);

// The mark of each rule on the canvas and in the legend.
QcSymbol ruleSymbol(WestgardRules::Rule rule)
{
    switch (rule) {
    case WestgardRules::Rule12s:
        return {QcSymbol::Disc, warningColor};
    case WestgardRules::Rule13s:
        return {QcSymbol::Square, violationColor};
    case WestgardRules::Rule22s:
        return {QcSymbol::TriangleUp, violationColor};
    case WestgardRules::RuleR4s:
        return {QcSymbol::Diamond, violationColor};
    case WestgardRules::Rule41s:
        return {QcSymbol::TriangleDown, violationColor};
    case WestgardRules::Rule10x:
        return {QcSymbol::Ring, violationColor};
    default:
        return {};
    }
}

QcScaleDraw::Alignment alignmentOf(int axis)
{
    switch (axis) {
    case QcPlot::yLeft:
        return QcScaleDraw::LeftScale;
    case QcPlot::yRight:
        return QcScaleDraw::RightScale;
    case QcPlot::xTop:
        return QcScaleDraw::TopScale;
    default:
        return QcScaleDraw::BottomScale;
    }
}

bool validAxis(int axis)
{
    return axis >= 0 && axis < QcPlot::axisCnt;
}

// Widths are in plot pixels, so that printed lines keep their weight at any resolution.
QPen linePen(const QColor& color, Qt::PenStyle style, double width = 1.0)
{
    return QPen(color, width, style);
}

// The points the series selects for printing, as an index range into its points.
void selectedRange(const QcExportData* data, int* first, int* last)
{
    const qint64 size = data->points.size();
    *first = int(qMax<qint64>(0, data->firstIndex));
    *last = int(qMin<qint64>(size - 1, qint64(data->firstIndex) + data->count - 1));
}

} // namespace

QcPlot::QcPlot(QWidget* parent)
    : QFrame(parent), m_canvas(new QcPlotCanvas(this)), m_pen(QColor(25, 70, 160), 1.5),
      m_brush(QColor(25, 70, 160))
{
    for (int axis = 0; axis < axisCnt; ++axis) {
        m_scaleDraws[axis] = std::make_unique<QcScaleDraw>(alignmentOf(axis));
        m_scaleDraws[axis]->setFont(font());
        m_axisWidgets[axis] = new QcScaleWidget(m_scaleDraws[axis].get(), this);
        m_axisWidgets[axis]->setVisible(m_axisEnabled[axis]);
    }
    // The right axis only names the limit lines, the top one is the legend.
    m_scaleDraws[yRight]->enableComponent(QcScaleDraw::Backbone, false);
    m_scaleDraws[xTop]->enableComponent(QcScaleDraw::Backbone, false);
    m_scaleDraws[xTop]->enableComponent(QcScaleDraw::Ticks, false);
    m_canvas->installEventFilter(this);
    replot();
}

QcPlot::~QcPlot() = default;

QWidget* QcPlot::canvas() const
{
    return m_canvas;
}

bool QcPlot::axisEnabled(int axis) const
{
    return validAxis(axis) && m_axisEnabled[axis];
}

void QcPlot::enableAxis(int axis, bool enable)
{
    if (!validAxis(axis) || m_axisEnabled[axis] == enable)
        return;
    m_axisEnabled[axis] = enable;
    m_axisWidgets[axis]->setVisible(enable);
    replot();
}

QcScaleWidget* QcPlot::axisWidget(int axis) const
{
    return validAxis(axis) ? m_axisWidgets[axis] : nullptr;
}

QcScaleDraw* QcPlot::axisScaleDraw(int axis) const
{
    return validAxis(axis) ? m_scaleDraws[axis].get() : nullptr;
}

void QcPlot::setData(const QcExportData* data)
{
    m_data = data;
    m_indexScale = false;
    m_xScale = QcPlotScale();
    m_rules.clear();
    if (m_data) {
        double centre = 0.0;
        double sd = 0.0;
        if (centreAndSd(&centre, &sd))
            m_rules = WestgardRules::evaluate(m_data->points, centre, sd);
        // Until told otherwise, the time axis spans every selected point.
        int first = 0;
        int last = -1;
        selectedRange(m_data, &first, &last);
        double lower = m_data->startTime;
        double upper = m_data->endTime;
        if (first <= last) {
            if (lower == 0.0)
                lower = std::floor(m_data->points.at(first).time);
            if (upper == 0.0)
                upper = std::ceil(m_data->points.at(last).time);
        }
        m_xScale = QcPlotScale(lower, upper);
    }
    replot();
}

void QcPlot::setCursorVisible(bool visible)
{
    m_cursorVisible = visible;
    m_canvas->update();
}

void QcPlot::setAxisXScaleIndex(int first, int last)
{
    m_indexScale = true;
    m_xScale = QcPlotScale(first, last);
    replot();
}

void QcPlot::setTimeScale(const QcPlotScale& scale)
{
    m_indexScale = false;
    m_xScale = scale;
    replot();
}

void QcPlot::setPen(const QPen& pen)
{
    m_pen = pen;
    m_canvas->update();
}

void QcPlot::setBrush(const QBrush& brush)
{
    m_brush = brush;
    m_canvas->update();
}

void QcPlot::replot()
{
    updateScales();
    updateLayout();
    update();
    m_canvas->update();
    for (QcScaleWidget* widget : m_axisWidgets)
        widget->update();
}

QSize QcPlot::sizeHint() const
{
    return QSize(480, 280);
}

QSize QcPlot::minimumSizeHint() const
{
    return QSize(60, 40);
}

void QcPlot::resizeEvent(QResizeEvent* event)
{
    QFrame::resizeEvent(event);
    replot(); // the number of ticks follows the size
}

void QcPlot::changeEvent(QEvent* event)
{
    QFrame::changeEvent(event);
    if (event->type() == QEvent::FontChange) {
        for (auto& scaleDraw : m_scaleDraws)
            scaleDraw->setFont(font());
        replot();
    }
}

bool QcPlot::eventFilter(QObject* watched, QEvent* event)
{
    if (watched == m_canvas) {
        if (event->type() == QEvent::MouseMove) {
            m_cursorX = static_cast<QMouseEvent*>(event)->position().x();
            if (m_cursorVisible)
                m_canvas->update();
        } else if (event->type() == QEvent::Leave) {
            m_cursorX = -1.0;
            m_canvas->update();
        }
    }
    return QFrame::eventFilter(watched, event);
}

QList<int> QcPlot::visiblePoints() const
{
    QList<int> indexes;
    if (!m_data || m_xScale.isNull())
        return indexes;
    int first = 0;
    int last = -1;
    selectedRange(m_data, &first, &last);
    const double lower = qMin(m_xScale.lowerBound(), m_xScale.upperBound());
    const double upper = qMax(m_xScale.lowerBound(), m_xScale.upperBound());
    // On an index axis the scale names the indexes: a page of a long series looks at its own
    // points only, not at the whole series again for every page.
    if (m_indexScale && std::isfinite(lower) && std::isfinite(upper)) {
        first = int(std::ceil(qBound(double(first), lower, double(last) + 1.0)));
        last = int(std::floor(qBound(double(first) - 1.0, upper, double(last))));
    }
    for (int i = first; i <= last; ++i) {
        const QcPoint& point = m_data->points.at(i);
        const double x = m_indexScale ? double(i) : point.time;
        if (x >= lower && x <= upper && std::isfinite(point.value))
            indexes.append(i);
    }
    return indexes;
}

bool QcPlot::centreAndSd(double* centre, double* sd) const
{
    if (!m_data)
        return false;
    if (m_data->hasLimits) {
        *centre = m_data->targetValue;
        // Mark limits sit at 2 SD when the material names no SD of its own.
        *sd = m_data->sd > 0.0 ? m_data->sd : (m_data->upperMarkLimit - m_data->lowerMarkLimit) / 4.0;
        return std::isfinite(*sd) && *sd > 0.0;
    }
    *centre = m_data->mean;
    *sd = m_data->sd;
    if (*sd > 0.0)
        return true;
    // No established SD: take the printed points' own.
    int first = 0;
    int last = -1;
    selectedRange(m_data, &first, &last);
    return first <= last && statistic(m_data->points.mid(first, last - first + 1), centre, sd) && *sd > 0.0;
}

QcSymbol QcPlot::symbol(int index) const
{
    if (!m_data || index < 0 || index >= m_data->points.size())
        return {};
    if (m_data->points.at(index).rejected)
        return {QcSymbol::Cross, excludedColor};
    const WestgardRules::Rule rule = WestgardRules::mostSevere(m_rules.value(index));
    return rule != WestgardRules::NoRule ? ruleSymbol(rule) : QcSymbol{QcSymbol::Disc, m_brush.color()};
}

QList<QcPlot::Line> QcPlot::referenceLines() const
{
    QList<Line> lines;
    if (!m_data)
        return lines;
    const QColor centre(30, 130, 60);
    const QColor warning(220, 130, 0);
    const QColor stop(200, 30, 30);
    if (m_data->hasLimits) {
        lines.append({m_data->upperStopLimit, linePen(stop, Qt::SolidLine), tr("上停止限")});
        lines.append({m_data->upperMarkLimit, linePen(warning, Qt::DashLine), tr("上标记限")});
        lines.append({m_data->targetValue, linePen(centre, Qt::SolidLine), tr("靶值")});
        lines.append({m_data->lowerMarkLimit, linePen(warning, Qt::DashLine), tr("下标记限")});
        lines.append({m_data->lowerStopLimit, linePen(stop, Qt::SolidLine), tr("下停止限")});
        return lines;
    }
    double mean = 0.0;
    double sd = 0.0;
    if (!centreAndSd(&mean, &sd))
        return lines;
    const QColor grey(150, 150, 150);
    lines.append({mean + 3 * sd, linePen(stop, Qt::SolidLine), QStringLiteral("+3SD")});
    lines.append({mean + 2 * sd, linePen(warning, Qt::DashLine), QStringLiteral("+2SD")});
    lines.append({mean + sd, linePen(grey, Qt::DotLine), QStringLiteral("+1SD")});
    lines.append({mean, linePen(centre, Qt::SolidLine), tr("均值")});
    lines.append({mean - sd, linePen(grey, Qt::DotLine), QStringLiteral("-1SD")});
    lines.append({mean - 2 * sd, linePen(warning, Qt::DashLine), QStringLiteral("-2SD")});
    lines.append({mean - 3 * sd, linePen(stop, Qt::SolidLine), QStringLiteral("-3SD")});
    return lines;
}

void QcPlot::updateScales()
{
    QcScaleDraw* xDraw = m_scaleDraws[xBottom].get();
    QcScaleDraw* yDraw = m_scaleDraws[yLeft].get();
    if (!m_data) {
        m_yScale = QcPlotScale();
        xDraw->setScale(0.0, 0.0, {});
        yDraw->setScale(0.0, 0.0, {});
    } else {
        // One value range for every page of the series: the limit lines, or the series' points
        // when it has none, with half an SD of room (a twelfth of +-3 SD) above and below.
        double lower = qInf();
        double upper = -qInf();
        const auto cover = [&](double value) {
            if (std::isfinite(value)) {
                lower = qMin(lower, value);
                upper = qMax(upper, value);
            }
        };
        const QList<Line> lines = referenceLines();
        for (const Line& line : lines)
            cover(line.value);
        if (lines.isEmpty()) {
            int first = 0;
            int last = -1;
            selectedRange(m_data, &first, &last);
            for (int i = first; i <= last; ++i)
                cover(m_data->points.at(i).value);
        }
        if (lower > upper) {
            lower = 0.0;
            upper = 1.0;
        }
        const double pad = upper > lower ? (upper - lower) / 12.0 : qMax(1.0, std::fabs(lower) * 0.1);
        m_yScale = QcPlotScale(lower - pad, upper + pad);
        QList<QcScaleDraw::Tick> limitLabels;
        for (const Line& line : lines)
            limitLabels.append({line.value, line.label, line.pen.color()});
        m_scaleDraws[yRight]->setScale(m_yScale.lowerBound(), m_yScale.upperBound(), limitLabels);
        const int yTicks = qBound(2, height() / 40, 10);
        yDraw->setScale(m_yScale.lowerBound(), m_yScale.upperBound(),
                        QcAxisTicks::values(m_yScale.lowerBound(), m_yScale.upperBound(), yTicks));

        const int xTicks = qBound(2, width() / 70, 12);
        if (m_indexScale) {
            const int first = int(m_xScale.lowerBound());
            const int last = qMax(first, int(m_xScale.upperBound()));
            // Half a run of room at either end keeps the outer symbols whole.
            xDraw->setScale(first - 0.5, last + 0.5,
                            QcAxisTicks::indexes(first, last, m_data->firstIndex, xTicks));
        } else {
            const double xLower = m_xScale.lowerBound();
            const double xUpper = m_xScale.upperBound() > xLower ? m_xScale.upperBound() : xLower + 1.0;
            xDraw->setScale(xLower, xUpper, QcAxisTicks::days(xLower, xUpper, xTicks));
        }
    }
    if (!m_data)
        m_scaleDraws[yRight]->setScale(0.0, 0.0, {});
    QList<QcScaleDraw::Tick> legend;
    if (m_data) {
        // In the order laboratories read them: the warning rule first.
        for (const WestgardRules::Rule rule :
             {WestgardRules::Rule12s, WestgardRules::Rule13s, WestgardRules::Rule22s, WestgardRules::RuleR4s,
              WestgardRules::Rule41s, WestgardRules::Rule10x})
            legend.append({0.0, WestgardRules::name(rule), QColor(), ruleSymbol(rule)});
        legend.append({0.0, tr("已剔除"), QColor(), QcSymbol{QcSymbol::Cross, excludedColor}});
        for (int i = 0; i < legend.size(); ++i)
            legend[i].value = (i + 0.5) / legend.size();
    }
    m_scaleDraws[xTop]->setScale(0.0, 1.0, legend);
}

void QcPlot::updateLayout()
{
    int extent[axisCnt];
    for (int axis = 0; axis < axisCnt; ++axis)
        extent[axis] = m_axisEnabled[axis] ? m_scaleDraws[axis]->extent() : 0;
    // Labels at the ends of an axis reach past the canvas corners.
    // (The legend's entries lie within the canvas width.)
    const int xOverhang = m_axisEnabled[xBottom] ? m_scaleDraws[xBottom]->labelOverhang() : 0;
    const int yOverhang =
        m_axisEnabled[yLeft] || m_axisEnabled[yRight] ? m_scaleDraws[yLeft]->labelOverhang() : 0;

    const QRect area = contentsRect().adjusted(margin, margin, -margin, -margin);
    const int left = area.left() + qMax(extent[yLeft], xOverhang);
    const int top = area.top() + qMax(extent[xTop], yOverhang);
    const int right = area.right() - qMax(extent[yRight], xOverhang);
    const int bottom = area.bottom() - qMax(extent[xBottom], yOverhang);
    const QRect canvasRect(QPoint(left, top), QSize(qMax(1, right - left + 1), qMax(1, bottom - top + 1)));
    m_canvas->setGeometry(canvasRect);

    const int width = canvasRect.width();
    const int height = canvasRect.height();
    m_axisWidgets[yLeft]->setGeometry(canvasRect.left() - extent[yLeft], canvasRect.top() - yOverhang,
                                      extent[yLeft], height + 2 * yOverhang);
    m_scaleDraws[yLeft]->move(QPointF(extent[yLeft] - 1, yOverhang));
    m_axisWidgets[yRight]->setGeometry(canvasRect.right() + 1, canvasRect.top() - yOverhang, extent[yRight],
                                       height + 2 * yOverhang);
    m_scaleDraws[yRight]->move(QPointF(0, yOverhang));
    m_axisWidgets[xBottom]->setGeometry(canvasRect.left() - xOverhang, canvasRect.bottom() + 1,
                                        width + 2 * xOverhang, extent[xBottom]);
    m_scaleDraws[xBottom]->move(QPointF(xOverhang, 0));
    m_axisWidgets[xTop]->setGeometry(canvasRect.left() - xOverhang, canvasRect.top() - extent[xTop],
                                     width + 2 * xOverhang, extent[xTop]);
    m_scaleDraws[xTop]->move(QPointF(xOverhang, extent[xTop] - 1));
    for (int axis = 0; axis < axisCnt; ++axis)
        m_scaleDraws[axis]->setLength(m_scaleDraws[axis]->isHorizontal() ? width : height);
    spreadLimitLabels();
}

void QcPlot::spreadLimitLabels()
{
    // Limits close together (a small SD on a wide scale) would print their names over each other.
    QcScaleDraw* draw = m_scaleDraws[yRight].get();
    QList<QcScaleDraw::Tick> ticks = draw->ticks();
    const double gap = QFontMetricsF(draw->font()).height();
    const double overhang = gap / 2;
    QList<double> at;
    for (QcScaleDraw::Tick& tick : ticks) {
        tick.shift = 0.0;
        at.append(draw->transform(tick.value));
    }
    // Ticks are top to bottom; place each label below the one above, then lift them off the end.
    QList<double> placed = at;
    for (int i = 1; i < placed.size(); ++i)
        placed[i] = qMax(placed[i], placed[i - 1] + gap);
    const double bottom = draw->pos().y() + draw->length() + overhang;
    for (int i = int(placed.size()) - 1; i >= 0; --i) {
        const double limit = i == placed.size() - 1 ? bottom : placed[i + 1] - gap;
        placed[i] = qMin(placed[i], limit);
    }
    for (int i = 0; i < ticks.size(); ++i)
        ticks[i].shift = placed[i] - at[i];
    draw->setScale(draw->lowerBound(), draw->upperBound(), ticks);
}

QPointF QcPlot::canvasPoint(int index) const
{
    const QcScaleDraw* xDraw = m_scaleDraws[xBottom].get();
    const QcScaleDraw* yDraw = m_scaleDraws[yLeft].get();
    const QcPoint& point = m_data->points.at(index);
    double y = yDraw->transform(point.value) - yDraw->pos().y();
    // A value off the scale sits just inside its edge, its mark whole.
    if (point.value < m_yScale.lowerBound() || point.value > m_yScale.upperBound())
        y = qBound(symbolRadius + 1, y, yDraw->length() - symbolRadius - 1);
    return QPointF(xDraw->transform(m_indexScale ? double(index) : point.time) - xDraw->pos().x(), y);
}

int QcPlot::nearestPoint(double canvasX) const
{
    int nearest = -1;
    double distance = qInf();
    for (const int i : visiblePoints()) {
        const double d = std::fabs(canvasPoint(i).x() - canvasX);
        if (d < distance) {
            distance = d;
            nearest = i;
        }
    }
    return nearest;
}

void QcPlot::drawCanvas(QPainter* painter) const
{
    if (!m_data)
        return;
    const QSizeF size = m_canvas->size();
    const QcScaleDraw* yDraw = m_scaleDraws[yLeft].get();
    const auto canvasY = [&](double value) {
        return yDraw->transform(value) - yDraw->pos().y();
    };

    painter->save();
    painter->setRenderHint(QPainter::Antialiasing, true);

    painter->setPen(linePen(QColor(225, 225, 225), Qt::SolidLine, 0.5));
    for (const QcScaleDraw::Tick& tick : yDraw->ticks())
        painter->drawLine(QPointF(0, canvasY(tick.value)), QPointF(size.width(), canvasY(tick.value)));

    // The limits are named on the right axis, outside the points' way.
    for (const Line& line : referenceLines()) {
        const double y = canvasY(line.value);
        painter->setPen(line.pen);
        painter->drawLine(QPointF(0, y), QPointF(size.width(), y));
    }

    const QList<int> visible = visiblePoints();
    QPolygonF curve;
    for (const int i : visible) {
        if (!m_data->points.at(i).rejected)
            curve.append(canvasPoint(i));
    }
    painter->setPen(m_pen);
    painter->setBrush(Qt::NoBrush);
    painter->drawPolyline(curve);

    for (const int i : visible) {
        const QcSymbol mark = symbol(i);
        if (mark.style == QcSymbol::Disc && mark.color == m_brush.color()) {
            // An ordinary point: the plot's own pen and brush.
            painter->setPen(QPen(m_pen.color(), 1.0));
            painter->setBrush(m_brush);
            painter->drawEllipse(canvasPoint(i), symbolRadius, symbolRadius);
        } else {
            mark.draw(painter, canvasPoint(i), symbolRadius + 0.5);
        }
    }

    QFont labelFont = QcScaleDraw::pixelFont(font());
    labelFont.setPixelSize(qMax(6, labelFont.pixelSize() * 4 / 5));
    painter->setFont(labelFont);
    const QFontMetricsF metrics(labelFont);
    if (m_cursorVisible && m_cursorX >= 0.0) {
        const int nearest = nearestPoint(m_cursorX);
        if (nearest >= 0) {
            const QcPoint& point = m_data->points.at(nearest);
            const QPointF at = canvasPoint(nearest);
            painter->setPen(linePen(Qt::darkGray, Qt::DashLine));
            painter->drawLine(QPointF(at.x(), 0), QPointF(at.x(), size.height()));
            const QString text = QStringLiteral("%1  %2").arg(
                QcPoint::toDatetime(point.time).toString(QStringLiteral("yyyy-MM-dd hh:mm")),
                QString::number(point.value, 'g', 6));
            const double width = metrics.horizontalAdvance(text) + 6;
            const double x = at.x() + width + 4 < size.width() ? at.x() + 4 : at.x() - width - 4;
            painter->setPen(QPen(palette().color(QPalette::WindowText)));
            painter->drawText(QRectF(x, 2, width, metrics.height()), Qt::AlignLeft, text);
        }
    }
    painter->restore();
}

} // namespace coagulation
