#include "pageview.h"

#include "itemdescription.h"
#include "ruler.h"

#include <report.h>
#include <reportitembase.h>

#include <QContextMenuEvent>
#include <QGraphicsTextItem>
#include <QKeyEvent>
#include <QPainter>
#include <QScrollBar>
#include <QWheelEvent>

#include <cmath>

namespace coagulation {

namespace {
constexpr double minimumZoom = 0.1;
constexpr double maximumZoom = 8.0;
constexpr double zoomStep = 1.25;
constexpr double deskMargin = 40; // scene units of desk around the sheet
} // namespace

PageView::PageView(QWidget* parent)
    : QGraphicsView(parent), m_rulers{new Ruler(Qt::Horizontal, this), new Ruler(Qt::Vertical, this)}
{
    setViewportMargins(Ruler::breadth, Ruler::breadth, 0, 0);
    setMouseTracking(true);
    setBackgroundRole(QPalette::Dark);
    setRenderHints(QPainter::Antialiasing | QPainter::TextAntialiasing | QPainter::SmoothPixmapTransform);
    setViewportUpdateMode(QGraphicsView::FullViewportUpdate);
    setAlignment(Qt::AlignHCenter | Qt::AlignTop);
    setFocusPolicy(Qt::StrongFocus);
}

Report* PageView::report() const
{
    return qobject_cast<Report*>(scene());
}

void PageView::setReport(Report* report)
{
    disconnect(m_pageConnection);
    setScene(report);
    if (!report)
        return;
    m_pageConnection = connect(report, &QGraphicsScene::sceneRectChanged, this, &PageView::pageChanged);
    pageChanged(report->sceneRect());
}

void PageView::pageChanged(const QRectF& page)
{
    setSceneRect(page.adjusted(-deskMargin, -deskMargin, deskMargin, deskMargin));
    viewport()->update();
    updateRulers();
}

void PageView::setGridSize(const QSizeF& size)
{
    m_grid = size;
    viewport()->update();
}

void PageView::setMarginGuides(const QMarginsF& millimetres)
{
    m_margins = millimetres;
    viewport()->update();
}

void PageView::updateRulers()
{
    if (Report* r = report()) {
        m_rulers[0]->setUnitsPerMm(r->dpiX() / 25.4);
        m_rulers[1]->setUnitsPerMm(r->dpiY() / 25.4);
    }
    for (Ruler* ruler : m_rulers)
        ruler->update();
}

void PageView::resizeEvent(QResizeEvent* event)
{
    QGraphicsView::resizeEvent(event);
    const QRect port = viewport()->geometry();
    m_rulers[0]->setGeometry(port.left(), port.top() - Ruler::breadth, port.width(), Ruler::breadth);
    m_rulers[1]->setGeometry(port.left() - Ruler::breadth, port.top(), Ruler::breadth, port.height());
}

void PageView::scrollContentsBy(int dx, int dy)
{
    QGraphicsView::scrollContentsBy(dx, dy);
    updateRulers();
}

void PageView::mouseMoveEvent(QMouseEvent* event)
{
    const QPointF scene = mapToScene(event->position().toPoint());
    m_rulers[0]->setCursorPosition(scene.x());
    m_rulers[1]->setCursorPosition(scene.y());
    if (Report* r = report())
        Q_EMIT cursorMoved(QPointF(scene.x() * 25.4 / r->dpiX(), scene.y() * 25.4 / r->dpiY()));
    QGraphicsView::mouseMoveEvent(event);
}

void PageView::leaveEvent(QEvent* event)
{
    for (Ruler* ruler : m_rulers)
        ruler->setCursorPosition(qQNaN());
    QGraphicsView::leaveEvent(event);
}

ReportItem* PageView::reportItemAt(const QPoint& pos) const
{
    for (QGraphicsItem* item = itemAt(pos); item; item = item->parentItem())
        if (ReportItem* found = ReportItem::fromGraphicsItem(item))
            return found;
    return nullptr;
}

void PageView::mouseDoubleClickEvent(QMouseEvent* event)
{
    ReportItem* item = reportItemAt(event->position().toPoint());
    if (item && ItemDescription::binding(item->key()) != ItemDescription::NoBinding) {
        Q_EMIT bindingRequested(item);
        event->accept();
        return;
    }
    QGraphicsView::mouseDoubleClickEvent(event);
}

void PageView::contextMenuEvent(QContextMenuEvent* event)
{
    ReportItem* item = reportItemAt(event->pos());
    if (item && !item->graphicsItem()->isSelected() && scene()) {
        scene()->clearSelection();
        item->graphicsItem()->setSelected(true);
    }
    Q_EMIT contextMenuRequested(event->globalPos());
    event->accept();
}

void PageView::setZoom(double zoom)
{
    zoom = qBound(minimumZoom, zoom, maximumZoom);
    if (qFuzzyCompare(zoom, m_zoom) && transform().m11() == zoom)
        return;
    m_zoom = zoom;
    setTransform(QTransform::fromScale(zoom, zoom));
    updateRulers();
    Q_EMIT zoomChanged(zoom);
}

void PageView::zoomIn()
{
    setZoom(m_zoom * zoomStep);
}

void PageView::zoomOut()
{
    setZoom(m_zoom / zoomStep);
}

void PageView::actualSize()
{
    setZoom(1.0);
}

void PageView::fitPage()
{
    if (!scene())
        return;
    const QRectF page = sceneRect(); // the sheet and its desk margin
    const QSize area = maximumViewportSize();
    if (page.isEmpty() || area.isEmpty())
        return;
    setZoom(std::min(area.width() / page.width(), area.height() / page.height()));
    centerOn(scene()->sceneRect().center());
}

void PageView::drawBackground(QPainter* painter, const QRectF& rect)
{
    painter->fillRect(rect, palette().color(QPalette::Dark));
    Report* r = report();
    if (!r)
        return;
    const QRectF page = r->sceneRect();

    painter->save();
    painter->setPen(Qt::NoPen);
    painter->setBrush(QColor(0, 0, 0, 60));
    painter->drawRect(page.translated(4 / m_zoom, 4 / m_zoom)); // the sheet's shadow
    painter->fillRect(page, Qt::white);

    // Grid dots, thinned out when zoomed so far out that they would cover the sheet.
    const QSizeF grid = m_grid;
    if (grid.width() > 0 && grid.height() > 0) {
        int every = 1;
        while (grid.width() * every * m_zoom < 6 || grid.height() * every * m_zoom < 6)
            every *= 2;
        const double stepX = grid.width() * every, stepY = grid.height() * every;
        const QRectF visible = rect.intersected(page);
        QList<QPointF> dots;
        for (double x = std::ceil(visible.left() / stepX) * stepX; x <= visible.right(); x += stepX)
            for (double y = std::ceil(visible.top() / stepY) * stepY; y <= visible.bottom(); y += stepY)
                dots.append(QPointF(x, y));
        QPen pen(QColor(150, 160, 180));
        pen.setCosmetic(true);
        pen.setWidth(1);
        painter->setPen(pen);
        painter->drawPoints(dots.constData(), int(dots.size()));
    }

    if (!m_margins.isNull()) {
        const double x = r->dpiX() / 25.4, y = r->dpiY() / 25.4;
        QPen guide(QColor(70, 130, 220), 1, Qt::DashLine);
        guide.setCosmetic(true);
        painter->setPen(guide);
        painter->setBrush(Qt::NoBrush);
        painter->drawRect(page.adjusted(m_margins.left() * x, m_margins.top() * y, -m_margins.right() * x,
                                        -m_margins.bottom() * y));
    }

    QPen border(QColor(90, 90, 90));
    border.setCosmetic(true);
    painter->setPen(border);
    painter->setBrush(Qt::NoBrush);
    painter->drawRect(page);
    painter->restore();
}

void PageView::wheelEvent(QWheelEvent* event)
{
    if (!(event->modifiers() & Qt::ControlModifier)) {
        QGraphicsView::wheelEvent(event);
        return;
    }
    const int delta = event->angleDelta().y();
    if (delta == 0)
        return;
    // Keep the scene point under the cursor where it is.
    const QPointF anchor = mapToScene(event->position().toPoint());
    setZoom(m_zoom * std::pow(zoomStep, delta / 120.0));
    const QPointF moved = mapFromScene(anchor) - event->position();
    horizontalScrollBar()->setValue(horizontalScrollBar()->value() + int(std::lround(moved.x())));
    verticalScrollBar()->setValue(verticalScrollBar()->value() + int(std::lround(moved.y())));
    event->accept();
}

bool PageView::isEditingText() const
{
    const auto* text = scene() ? dynamic_cast<QGraphicsTextItem*>(scene()->focusItem()) : nullptr;
    return text && (text->textInteractionFlags() & Qt::TextEditable);
}

void PageView::keyPressEvent(QKeyEvent* event)
{
    int dx = 0, dy = 0;
    switch (event->key()) {
    case Qt::Key_Left:
        dx = -1;
        break;
    case Qt::Key_Right:
        dx = 1;
        break;
    case Qt::Key_Up:
        dy = -1;
        break;
    case Qt::Key_Down:
        dy = 1;
        break;
    default:
        break;
    }
    const Qt::KeyboardModifiers others = event->modifiers() & ~(Qt::AltModifier | Qt::KeypadModifier);
    if ((dx || dy) && others == Qt::NoModifier && !isEditingText()) {
        Q_EMIT nudgeRequested(dx, dy, event->modifiers() & Qt::AltModifier);
        event->accept();
        return;
    }
    QGraphicsView::keyPressEvent(event);
}

} // namespace coagulation
