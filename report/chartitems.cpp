#include "chartitems.h"

#include "payloadreader_p.h"
#include "recttracker.h"
#include "reportfont.h"

#include <kvcore/maintenanceexportdata.h>
#include <kvcore/maintenancerecorddelegate.h>
#include <kvcore/maintenancerecordmodel.h>
#include <kvcore/maintenancetableview.h>
#include <kvcore/qcexportdata.h>
#include <kvcore/qcplot.h>
#include <kvcore/qcscaledraw.h>
#include <kvcore/qcscalewidget.h>

#include <QDataStream>
#include <QHeaderView>
#include <QPainter>

#include <cmath>
#include <limits>

namespace coagulation {

namespace {

constexpr QGraphicsItem::GraphicsItemFlags proxyFlags = QGraphicsItem::ItemIsMovable |
                                                        QGraphicsItem::ItemIsSelectable |
                                                        QGraphicsItem::ItemSendsScenePositionChanges;

// Both widget items share one payload: version, geometry, pen, brush, font.
void saveProxyPayload(QDataStream& out, QGraphicsProxyWidget* proxy, ReportItem* item)
{
    out << qint8(1) << proxy->QGraphicsLayoutItem::geometry() << item->pen() << item->brush() << item->font();
}

void loadProxyPayload(QDataStream& in, QGraphicsProxyWidget* proxy, ReportItem* item)
{
    qint8 version = 0;
    QRectF rect;
    in >> version >> rect;
    payload::requireFinite(in, {rect.x(), rect.y(), rect.width(), rect.height()});
    const QPen pen = payload::readPen(in);
    const QBrush brush = payload::readBrush(in);
    const QFont font = payload::readFont(in);
    if (in.status() != QDataStream::Ok)
        return;
    item->setPen(pen);
    item->setBrush(brush);
    item->setFont(font);
    proxy->setGeometry(rect);
}

void setProxyFont(QGraphicsProxyWidget* proxy, const QFont& font)
{
    const QFont chinese = withChineseFallback(font);
    proxy->QGraphicsWidget::setFont(chinese);
    // A proxy passes its font on only once it has been shown in a scene; a template is loaded
    // before that.
    if (QWidget* widget = proxy->widget())
        widget->setFont(chinese);
}

QPolygonF proxyGeometry(const QGraphicsProxyWidget* proxy)
{
    const QRectF rect = proxy->rect();
    return QPolygonF({rect.topLeft(), rect.bottomRight()});
}

void applyProxyGeometry(QGraphicsProxyWidget* proxy, const QPolygonF& polygon)
{
    const QPolygonF mapped = proxy->mapToParent(polygon);
    proxy->setGeometry(QRectF(pointAt(mapped, 0), pointAt(mapped, 1)));
}

double pointTime(const QcExportData* data, qint64 index)
{
    return index >= 0 && index < data->points.size() ? data->points.at(index).time : 0.0;
}

// An index a middle page's axis can take: the page's points all lie inside the list.
int indexOnAxis(qint64 index)
{
    return int(
        qBound(qint64(std::numeric_limits<int>::min()), index, qint64(std::numeric_limits<int>::max())));
}

} // namespace

// --- ReportQcChartItem ----------------------------------------------------------------------

ReportQcChartItem::ReportQcChartItem() : m_plot(new QcPlot)
{
    m_plot->setCursorVisible(false);
    m_plot->setAttribute(Qt::WA_NoSystemBackground);
    m_plot->setCursor(Qt::SizeAllCursor);
    m_plot->canvas()->setCursor(Qt::SizeAllCursor);
    if (auto* frame = qobject_cast<QFrame*>(m_plot->canvas()))
        frame->setFrameStyle(QFrame::Box);
    m_plot->axisScaleDraw(QcPlot::xBottom)->enableComponent(QcScaleDraw::Backbone, false);
    setFlags(proxyFlags);
    setWidget(m_plot);
    setProxyFont(this, font());
    setFocusPolicy(Qt::NoFocus);
    updateData();
}

QPen ReportQcChartItem::pen() const
{
    return m_plot->pen();
}

void ReportQcChartItem::setPen(const QPen& pen)
{
    m_plot->setPen(pen);
}

QBrush ReportQcChartItem::brush() const
{
    return m_plot->brush();
}

void ReportQcChartItem::setBrush(const QBrush& brush)
{
    m_plot->setBrush(brush);
}

QFont ReportQcChartItem::font() const
{
    return QGraphicsProxyWidget::font();
}

void ReportQcChartItem::setFont(const QFont& font)
{
    setProxyFont(this, font);
}

QPolygonF ReportQcChartItem::geometry() const
{
    return proxyGeometry(this);
}

void ReportQcChartItem::updateGeometry(const QPolygonF& polygon)
{
    applyProxyGeometry(this, polygon);
    m_plot->replot();
}

void ReportQcChartItem::updateData()
{
    Report* r = report();
    const QcExportData* data = r ? r->qcData() : nullptr;
    if (!data) {
        m_plot->setData(nullptr);
        return;
    }
    m_plot->setData(data);

    // The points of the current page, in 64 bits: page numbers and counts come from the data
    // and from tables whose row counts a template sets.
    qint64 first = data->firstIndex;
    qint64 count = data->count;
    if (r->resultCount() > 0) {
        const qint64 skipped = (qint64(r->currentPage()) - 1) * r->resultCount();
        first += skipped;
        count = qMin(count - skipped, qint64(r->resultCount()));
    }
    const qint64 last = qMax<qint64>(0, data->points.size() - 1);
    const qint64 a = qMax<qint64>(0, qMin(first, last));
    const qint64 b = qMax(a, qMin(first + count - 1, last));
    const qint64 limit = qMin(last, qint64(data->firstIndex) + data->count - 1);

    // Pages between the first and the last count runs; the end pages keep the series' dates.
    if (a > data->firstIndex && b < limit) {
        m_plot->setAxisXScaleIndex(indexOnAxis(first), indexOnAxis(first + count - 1));
        return;
    }
    const double lo =
        a <= data->firstIndex && data->startTime != 0.0 ? data->startTime : std::floor(pointTime(data, a));
    const double hi = b >= limit && data->endTime != 0.0 ? data->endTime : std::ceil(pointTime(data, b));
    m_plot->setTimeScale(QcPlotScale(lo, hi));
}

Tracker* ReportQcChartItem::createTracker()
{
    return new RectTracker(this);
}

void ReportQcChartItem::save(QDataStream& out)
{
    saveProxyPayload(out, this, this);
}

void ReportQcChartItem::load(QDataStream& in)
{
    loadProxyPayload(in, this, this);
}

void ReportQcChartItem::paint(QPainter* painter, const QStyleOptionGraphicsItem*, QWidget*)
{
    const QWidget* canvas = m_plot->canvas();
    painter->save();
    // Aliased, a printer's painter would stroke the frame as a hairline.
    painter->setRenderHint(QPainter::Antialiasing, true);
    painter->setPen(QPen(QColor(Qt::black), 1.0));
    painter->setBrush(Qt::NoBrush);
    painter->drawRect(QRectF(canvas->geometry()));
    painter->setClipRect(canvas->geometry());
    painter->translate(canvas->pos());
    m_plot->drawCanvas(painter);
    painter->restore();

    for (int axis = QcPlot::yLeft; axis <= QcPlot::xTop; ++axis) {
        const QWidget* axisWidget = m_plot->axisWidget(axis);
        if (!m_plot->axisEnabled(axis) || !axisWidget)
            continue;
        painter->save();
        painter->translate(axisWidget->pos());
        m_plot->axisScaleDraw(axis)->draw(painter, axisWidget->palette());
        painter->restore();
    }
}

void ReportQcChartItem::mousePressEvent(QGraphicsSceneMouseEvent* event)
{
    QGraphicsItem::mousePressEvent(event);
}

void ReportQcChartItem::mouseMoveEvent(QGraphicsSceneMouseEvent* event)
{
    QGraphicsItem::mouseMoveEvent(event);
}

void ReportQcChartItem::mouseReleaseEvent(QGraphicsSceneMouseEvent* event)
{
    QGraphicsItem::mouseReleaseEvent(event);
}

void ReportQcChartItem::mouseDoubleClickEvent(QGraphicsSceneMouseEvent* event)
{
    QGraphicsItem::mouseDoubleClickEvent(event);
}

void ReportQcChartItem::wheelEvent(QGraphicsSceneWheelEvent* event)
{
    QGraphicsItem::wheelEvent(event);
}

// --- ReportMaintenanceRecordItem ------------------------------------------------------------

ReportMaintenanceRecordItem::ReportMaintenanceRecordItem()
    : m_view(new MaintenanceTableView(MaintenanceManager::DailyMaintenance))
{
    auto* model =
        new MaintenanceRecordModel(nullptr, QDate::currentDate(), MaintenanceManager::DailyMaintenance);
    auto* delegate = new MaintenanceRecordDelegate;
    // The view outlives neither; let it own them.
    model->setParent(m_view);
    delegate->setParent(m_view);
    m_view->setModel(model);
    m_view->setItemDelegate(delegate);
    m_view->resizeColumnsToContents();
    m_view->resizeRowsToContents();
    setFlags(proxyFlags);
    setWidget(m_view);
    setProxyFont(this, font());
    setFocusPolicy(Qt::NoFocus);
}

QFont ReportMaintenanceRecordItem::font() const
{
    return QGraphicsProxyWidget::font();
}

void ReportMaintenanceRecordItem::setFont(const QFont& font)
{
    setProxyFont(this, font);
}

QPolygonF ReportMaintenanceRecordItem::geometry() const
{
    return proxyGeometry(this);
}

void ReportMaintenanceRecordItem::updateGeometry(const QPolygonF& polygon)
{
    applyProxyGeometry(this, polygon);
    m_view->repaint();
}

void ReportMaintenanceRecordItem::updateData()
{
    Report* r = report();
    auto* model = qobject_cast<MaintenanceRecordModel*>(m_view->model());
    if (!r || !model)
        return;
    // Outside a maintenance job there is nothing to show.
    const MaintenanceExportData* data = r->maintenanceData();
    if (!data)
        return;
    m_view->setTitle(data->recordType);
    model->updateInfo(data->workbench, data->month, data->recordType);
    // The next table on this report shows the next record type.
    data->recordType = MaintenanceManager::RecordType(data->recordType + 1);

    int height = m_view->horizontalHeader()->height();
    for (int row = 0; row < model->rowCount(); ++row)
        height += m_view->rowHeight(row);
    int width = m_view->verticalHeader()->width();
    for (int column = 0; column < model->columnCount(); ++column)
        width += m_view->columnWidth(column);
    m_view->setFixedHeight(height);
    m_view->setFixedWidth(width);
}

Tracker* ReportMaintenanceRecordItem::createTracker()
{
    return new RectTracker(this);
}

void ReportMaintenanceRecordItem::save(QDataStream& out)
{
    saveProxyPayload(out, this, this);
}

void ReportMaintenanceRecordItem::load(QDataStream& in)
{
    loadProxyPayload(in, this, this);
}

void ReportMaintenanceRecordItem::mousePressEvent(QGraphicsSceneMouseEvent* event)
{
    QGraphicsItem::mousePressEvent(event);
}

void ReportMaintenanceRecordItem::mouseMoveEvent(QGraphicsSceneMouseEvent* event)
{
    QGraphicsItem::mouseMoveEvent(event);
}

void ReportMaintenanceRecordItem::mouseReleaseEvent(QGraphicsSceneMouseEvent* event)
{
    QGraphicsItem::mouseReleaseEvent(event);
}

void ReportMaintenanceRecordItem::mouseDoubleClickEvent(QGraphicsSceneMouseEvent* event)
{
    QGraphicsItem::mouseDoubleClickEvent(event);
}

void ReportMaintenanceRecordItem::wheelEvent(QGraphicsSceneWheelEvent* event)
{
    QGraphicsItem::wheelEvent(event);
}

} // namespace coagulation
