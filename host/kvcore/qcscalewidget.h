#pragma once

#include "kvcore_global.h"

#include <QWidget>

namespace coagulation {

class QcScaleDraw;

// The widget of one QcPlot axis: shows its scale draw.
class KVCORE_EXPORT QcScaleWidget : public QWidget
{
    Q_OBJECT
public:
    QcScaleWidget(QcScaleDraw* scaleDraw, QWidget* parent);

    QcScaleDraw* scaleDraw() const { return m_scaleDraw; }

protected:
    void paintEvent(QPaintEvent* event) override;

private:
    QcScaleDraw* m_scaleDraw; // owned by the plot
};

} // namespace coagulation
