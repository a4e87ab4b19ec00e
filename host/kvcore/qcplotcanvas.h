#pragma once

#include "kvcore_global.h"

#include <QFrame>

namespace coagulation {

class QcPlot;

// The plotting area of a QcPlot; the plot draws its contents (drawCanvas).
class KVCORE_EXPORT QcPlotCanvas : public QFrame
{
    Q_OBJECT
public:
    explicit QcPlotCanvas(QcPlot* plot);

    QcPlot* plot() const { return m_plot; }

protected:
    void paintEvent(QPaintEvent* event) override;

private:
    QcPlot* m_plot;
};

} // namespace coagulation
