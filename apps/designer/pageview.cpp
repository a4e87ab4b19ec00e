#include "pageview.h"

#include <report.h>

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

PageView::PageView(QWidget* parent) : QGraphicsView(parent)
{
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
}

void PageView::setZoom(double zoom)
{
    zoom = qBound(minimumZoom, zoom, maximumZoom);
    if (qFuzzyCompare(zoom, m_zoom) && transform().m11() == zoom)
        return;
    m_zoom = zoom;
    setTransform(QTransform::fromScale(zoom, zoom));
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
    const QSizeF grid = r->gridSize();
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
