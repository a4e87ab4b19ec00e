#pragma once

#include "kvcore_global.h"
#include "qcplotscale.h"
#include "qcsymbol.h"
#include "westgardrules.h"

#include <QBrush>
#include <QFrame>
#include <QPen>

#include <array>
#include <memory>

namespace coagulation {

class QcPlotCanvas;
class QcScaleDraw;
class QcScaleWidget;
struct QcExportData;

// Levey-Jennings control chart of one QC series: the printed points joined by a line, the
// target (or mean) line and the control limits (mark/stop limits, or mean +-1/2/3 SD), over a
// time axis or a run-number axis. The value axis is the same on every page of a series. The
// right axis names the limit lines, the top axis is the legend of the point marks: warnings and
// violations of the multi-rule evaluation of the whole series, and excluded runs. Its canvas and
// each axis can be drawn onto any painter.
class KVCORE_EXPORT QcPlot : public QFrame
{
    Q_OBJECT
public:
    enum Axis { yLeft = 0, yRight = 1, xBottom = 2, xTop = 3, axisCnt = 4 };

    explicit QcPlot(QWidget* parent = nullptr);
    ~QcPlot() override;

    QWidget* canvas() const;
    bool axisEnabled(int axis) const;
    void enableAxis(int axis, bool enable = true);
    // Null for an axis id out of range.
    QcScaleWidget* axisWidget(int axis) const;
    QcScaleDraw* axisScaleDraw(int axis) const;

    // The canvas contents in canvas coordinates (no frame, no background).
    void drawCanvas(QPainter* painter) const;

    // The series shown (borrowed; null clears the chart). Points from firstIndex for count points
    // are drawn; the time axis starts out over all of them.
    const QcExportData* data() const { return m_data; }
    void setData(const QcExportData* data);

    bool isCursorVisible() const { return m_cursorVisible; }
    // A cursor line that follows the mouse over the canvas and names the nearest point's value.
    void setCursorVisible(bool visible);

    // Run-number axis over the points first..last (indexes into the series' points).
    void setAxisXScaleIndex(int first, int last);
    // Time axis over the scale's range.
    void setTimeScale(const QcPlotScale& scale);
    bool isIndexScale() const { return m_indexScale; }
    // The x range as last set: point indexes on an index axis, QcPoint times on a time axis; a
    // null scale without data.
    QcPlotScale xScale() const { return m_xScale; }
    // The value range the y axis covers: the limit lines with some room, whatever the page.
    QcPlotScale yScale() const { return m_yScale; }
    // The rules point `index` of the series violates (evaluated over all its points).
    WestgardRules::Rules rules(int index) const { return m_rules.value(index); }
    // How point `index` is marked on the canvas.
    QcSymbol symbol(int index) const;

    // Pen of the line joining the points; brush filling the point symbols.
    QPen pen() const { return m_pen; }
    void setPen(const QPen& pen);
    QBrush brush() const { return m_brush; }
    void setBrush(const QBrush& brush);

    // Recomputes the scales and the layout, then repaints.
    void replot();

    QSize sizeHint() const override;
    QSize minimumSizeHint() const override;

protected:
    void resizeEvent(QResizeEvent* event) override;
    void changeEvent(QEvent* event) override;
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    struct Line
    {
        double value;
        QPen pen;
        QString label;
    };

    QList<int> visiblePoints() const;
    // Centre and SD the limits and the rules are drawn from; false when there are none.
    bool centreAndSd(double* centre, double* sd) const;
    QList<Line> referenceLines() const;
    void updateScales();
    void updateLayout();
    void spreadLimitLabels();
    QPointF canvasPoint(int index) const;
    int nearestPoint(double canvasX) const;

    QcPlotCanvas* m_canvas;
    std::array<std::unique_ptr<QcScaleDraw>, axisCnt> m_scaleDraws;
    std::array<QcScaleWidget*, axisCnt> m_axisWidgets;
    std::array<bool, axisCnt> m_axisEnabled{true, true, true, true};
    const QcExportData* m_data = nullptr;
    QList<WestgardRules::Rules> m_rules;
    bool m_cursorVisible = true;
    double m_cursorX = -1.0; // canvas x of the mouse, negative when outside
    bool m_indexScale = false;
    QcPlotScale m_xScale;
    QcPlotScale m_yScale;
    QPen m_pen;
    QBrush m_brush;
};

} // namespace coagulation
