#pragma once

#include <QGraphicsView>

namespace coagulation {

class Report;

// The designer's canvas: the report's page drawn as a sheet of paper with its snapping grid on a
// grey desk, zoomed with Ctrl+wheel, "fit page" or 100 %. Arrow keys nudge the selection.
class PageView : public QGraphicsView
{
    Q_OBJECT
public:
    explicit PageView(QWidget* parent = nullptr);

    Report* report() const;
    // Shows a report, with some desk around its sheet.
    void setReport(Report* report);
    double zoom() const { return m_zoom; }

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

protected:
    void drawBackground(QPainter* painter, const QRectF& rect) override;
    void wheelEvent(QWheelEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;

private:
    bool isEditingText() const;

    void pageChanged(const QRectF& page);

    double m_zoom = 1.0;
    QMetaObject::Connection m_pageConnection;
};

} // namespace coagulation
