#include "qcplotcanvas.h"

#include "qcplot.h"

#include <QPainter>

namespace coagulation {

QcPlotCanvas::QcPlotCanvas(QcPlot* plot) : QFrame(plot), m_plot(plot)
{
    setFrameStyle(QFrame::Box | QFrame::Plain);
    setMouseTracking(true); // the cursor follows the mouse without a button held
}

void QcPlotCanvas::paintEvent(QPaintEvent* event)
{
    QFrame::paintEvent(event);
    QPainter painter(this);
    painter.setClipRect(contentsRect());
    m_plot->drawCanvas(&painter);
}

} // namespace coagulation
