#include "qcscalewidget.h"

#include "qcscaledraw.h"

#include <QPainter>

namespace coagulation {

QcScaleWidget::QcScaleWidget(QcScaleDraw* scaleDraw, QWidget* parent)
    : QWidget(parent), m_scaleDraw(scaleDraw)
{}

void QcScaleWidget::paintEvent(QPaintEvent*)
{
    QPainter painter(this);
    m_scaleDraw->draw(&painter, palette());
}

} // namespace coagulation
