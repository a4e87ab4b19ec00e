#pragma once

#include "graphicstableitem.h"
#include "reportitembase.h"

namespace coagulation {

// One logical table shown as side-by-side column blocks, like newspaper columns. Every block is
// a child grid that shares the first block's columns; widening the item adds blocks and
// narrowing it removes them. The item itself paints nothing.
class REPORT_EXPORT ReportMultiColTableItem : public ReportItemImpl<QGraphicsItem, ReportItem>
{
    Q_DECLARE_TR_FUNCTIONS(coagulation::ReportMultiColTableItem)
public:
    ReportMultiColTableItem();

    int columns() const { return int(m_blocks.size()); }
    // New blocks copy the first one, texts included. Callers lay out afterwards.
    void setColumns(int count);
    // Spreads the blocks over `width`, at least the minimum gap apart.
    void layout(double width);
    QList<GraphicsTableItem*> blocks() const { return m_blocks; }

    double minimumGap() const { return m_minimumGap; }
    QSizeF size() const { return m_size; }
    void setSize(const QSizeF& size) { m_size = size; }
    double width() const { return m_size.width(); }
    double height() const { return m_size.height(); }
    QSizeF preferredSize() const;
    void adjustSize();
    void clear();

    QRectF boundingRect() const override;
    void paint(QPainter* painter, const QStyleOptionGraphicsItem* option, QWidget* widget) override;

    QFont font() const override;
    void setFont(const QFont& font) override;
    Tracker* createTracker() override;
    // The first block's handle polygon with the item's stored size.
    QPolygonF geometry() const override;
    void save(QDataStream& out) override;
    void load(QDataStream& in) override;

protected:
    void updateGeometry(const QPolygonF& polygon) override;
    GraphicsTableItem* firstBlock() const { return m_blocks.first(); }

private:
    void appendBlock();

    double m_minimumGap = 20.0; // smallest horizontal distance between two blocks
    QSizeF m_size;
    QList<GraphicsTableItem*> m_blocks; // children of this item, never empty
};

// The QC results of the current page (date, time, value) flowing down the first block, then the
// next. It also tells the report how many pages the printed points need.
class REPORT_EXPORT ReportQcTableItem : public ReportMultiColTableItem
{
    Q_DECLARE_TR_FUNCTIONS(coagulation::ReportQcTableItem)
public:
    ReportQcTableItem();

    void prepareData() override;
    void updateData() override;

    // Rows that fit the stored height; a table lower than one row counts as one row.
    int rowsPerBlock() const;
};

} // namespace coagulation
