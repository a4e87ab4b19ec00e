#pragma once

#include "reportitembase.h"

#include <QGraphicsProxyWidget>

namespace coagulation {

class MaintenanceTableView;
class QcPlot;

// The QC control chart of the points printed on the current page. Printed as vectors: the
// frame, the canvas and the visible axes are painted straight onto the page's painter.
class REPORT_EXPORT ReportQcChartItem : public ReportItemImpl<QGraphicsProxyWidget, ReportItem>
{
    Q_OBJECT
public:
    ReportQcChartItem();

    QcPlot* plot() const { return m_plot; }

    QPen pen() const override;
    void setPen(const QPen& pen) override;
    QBrush brush() const override;
    void setBrush(const QBrush& brush) override;
    QFont font() const override;
    void setFont(const QFont& font) override;
    QPolygonF geometry() const override;
    void updateData() override;
    Tracker* createTracker() override;
    void save(QDataStream& out) override;
    void load(QDataStream& in) override;
    void paint(QPainter* painter, const QStyleOptionGraphicsItem* option, QWidget* widget) override;

protected:
    void updateGeometry(const QPolygonF& polygon) override;
    // The plot is display-only: the item, not the widget, takes the mouse.
    void mousePressEvent(QGraphicsSceneMouseEvent* event) override;
    void mouseMoveEvent(QGraphicsSceneMouseEvent* event) override;
    void mouseReleaseEvent(QGraphicsSceneMouseEvent* event) override;
    void mouseDoubleClickEvent(QGraphicsSceneMouseEvent* event) override;
    void wheelEvent(QGraphicsSceneWheelEvent* event) override;

private:
    QcPlot* m_plot; // owned by the proxy
};

// A month of one kind of maintenance of a workbench. Each table filled on a report shows the
// next record type, so that several tables on one page show daily, weekly and monthly work.
class REPORT_EXPORT ReportMaintenanceRecordItem : public ReportItemImpl<QGraphicsProxyWidget, ReportItem>
{
    Q_OBJECT
public:
    ReportMaintenanceRecordItem();

    MaintenanceTableView* view() const { return m_view; }

    QFont font() const override;
    void setFont(const QFont& font) override;
    QPolygonF geometry() const override;
    void updateData() override;
    Tracker* createTracker() override;
    void save(QDataStream& out) override;
    void load(QDataStream& in) override;

protected:
    void updateGeometry(const QPolygonF& polygon) override;
    void mousePressEvent(QGraphicsSceneMouseEvent* event) override;
    void mouseMoveEvent(QGraphicsSceneMouseEvent* event) override;
    void mouseReleaseEvent(QGraphicsSceneMouseEvent* event) override;
    void mouseDoubleClickEvent(QGraphicsSceneMouseEvent* event) override;
    void wheelEvent(QGraphicsSceneWheelEvent* event) override;

private:
    MaintenanceTableView* m_view; // owned by the proxy
};

} // namespace coagulation
