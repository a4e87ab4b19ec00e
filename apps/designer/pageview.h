#pragma once

#include <QGraphicsView>
#include <QMarginsF>

namespace coagulation {

class Report;
class ReportItem;
class Ruler;

// The designer's canvas: the report's page drawn as a sheet of paper with the grid and margin
// guides on a grey desk, rulers in millimetres along two edges, zoomed with Ctrl+wheel, "fit
// page" or 100 %. Arrow keys nudge the selection.
class PageView : public QGraphicsView
{
    Q_OBJECT
public:
    explicit PageView(QWidget* parent = nullptr);

    Report* report() const;
    // Shows a report, with some desk around its sheet.
    void setReport(Report* report);
    double zoom() const { return m_zoom; }
    Ruler* horizontalRuler() const { return m_rulers[0]; }
    Ruler* verticalRuler() const { return m_rulers[1]; }
    // The grid drawn on the sheet, in scene units.
    void setGridSize(const QSizeF& size);
    // Guides at the printer margins, in millimetres; no guides when null.
    void setMarginGuides(const QMarginsF& millimetres);
    QMarginsF marginGuides() const { return m_margins; }

public Q_SLOTS:
    void setZoom(double zoom);
    void zoomIn();
    void zoomOut();
    void actualSize();
    void fitPage();

Q_SIGNALS:
    void zoomChanged(double zoom);
    // An arrow key asked to move the selection by (dx, dy) grid steps, or units with Alt.
    void nudgeRequested(int dx, int dy, bool fine);
    // The cursor moved over the canvas; the position on the sheet in millimetres.
    void cursorMoved(const QPointF& millimetres);
    // A right click asked for the context menu (the item under it is selected first).
    void contextMenuRequested(const QPoint& globalPos);
    // A double click on an item that shows data asked to choose what it shows.
    void bindingRequested(coagulation::ReportItem* item);

protected:
    void drawBackground(QPainter* painter, const QRectF& rect) override;
    void wheelEvent(QWheelEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;
    void mouseMoveEvent(QMouseEvent* event) override;
    void mouseDoubleClickEvent(QMouseEvent* event) override;
    void contextMenuEvent(QContextMenuEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;
    void scrollContentsBy(int dx, int dy) override;
    void leaveEvent(QEvent* event) override;

private:
    bool isEditingText() const;
    ReportItem* reportItemAt(const QPoint& pos) const;
    void updateRulers();

    void pageChanged(const QRectF& page);

    double m_zoom = 1.0;
    QSizeF m_grid{10, 10};
    QMarginsF m_margins;
    Ruler* m_rulers[2];
    QMetaObject::Connection m_pageConnection;
};

} // namespace coagulation
