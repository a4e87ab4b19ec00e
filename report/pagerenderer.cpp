#include "pagerenderer_p.h"

#include "report.h"

#include <QGraphicsProxyWidget>
#include <QPainter>
#include <QPicture>

#include <algorithm>

namespace coagulation {

namespace {

bool holdsWidgets(const Report* report)
{
    const QList<QGraphicsItem*> items = report->items();
    return std::any_of(items.cbegin(), items.cend(), [](const QGraphicsItem* item) {
        return item->isVisible() && qgraphicsitem_cast<const QGraphicsProxyWidget*>(item);
    });
}

} // namespace

void PageRenderer::render(Report* report, QPainter* painter)
{
    if (!holdsWidgets(report)) {
        report->render(painter, QRectF(), QRectF(), Qt::KeepAspectRatio);
        return;
    }
    // Qt renders a widget onto a printer through a pixmap. Recorded into a picture first, the
    // embedded widgets paint their text and lines as they do on screen, and the page stays vectors.
    // A picture plays back scaled from its own resolution to the device's, so it is recorded at its own.
    const QPaintDevice* device = painter->device();
    QPicture picture;
    const QRectF target(0, 0, device->width() * qreal(picture.logicalDpiX()) / device->logicalDpiX(),
                        device->height() * qreal(picture.logicalDpiY()) / device->logicalDpiY());
    QPainter recorder(&picture);
    report->render(&recorder, target, QRectF(), Qt::KeepAspectRatio);
    recorder.end();
    painter->drawPicture(0, 0, picture);
}

} // namespace coagulation
