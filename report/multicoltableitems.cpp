#include "multicoltableitems.h"

#include "reportfont.h"
#include "tablegeometry.h"
#include "templatelimits_p.h"
#include "tracker.h"

#include <kvcore/assayitem.h>
#include <kvcore/qcexportdata.h>

#include <QDataStream>

#include <cmath>

namespace coagulation {

namespace {

// Guards against absurd widths and broken templates; far more than a page can show.
constexpr int maxBlocks = TemplateLimits::maxBlocks;
constexpr double maxRows = 100000.0;

enum QcColumn { DateColumn, TimeColumn, ValueColumn };

} // namespace

// --- ReportMultiColTableItem ------------------------------------------------------------------

ReportMultiColTableItem::ReportMultiColTableItem()
{
    setFlags(QGraphicsItem::ItemIsMovable | QGraphicsItem::ItemIsSelectable |
             QGraphicsItem::ItemSendsScenePositionChanges);
    auto* block = new GraphicsTableItem(this);
    block->setFont(withChineseFallback(block->font()));
    m_blocks.append(block);
}

void ReportMultiColTableItem::setColumns(int count)
{
    count = qBound(1, count, maxBlocks);
    while (m_blocks.size() < count)
        appendBlock();
    while (m_blocks.size() > count)
        delete m_blocks.takeLast();
}

void ReportMultiColTableItem::appendBlock()
{
    m_blocks.append(new GraphicsTableItem(*firstBlock(), this));
}

void ReportMultiColTableItem::layout(double width)
{
    const int count = columns();
    if (count < 2)
        return;
    const double w = firstBlock()->preferredSize().width();
    const double gap = qMax((width - count * w) / (count - 1), m_minimumGap);
    for (int i = 0; i < count; ++i)
        m_blocks.at(i)->setPos(i * (w + gap), 0);
}

QSizeF ReportMultiColTableItem::preferredSize() const
{
    return firstBlock()->preferredSize();
}

void ReportMultiColTableItem::adjustSize()
{
    m_size = preferredSize();
}

void ReportMultiColTableItem::clear()
{
    for (GraphicsTableItem* block : std::as_const(m_blocks))
        block->clear();
}

QRectF ReportMultiColTableItem::boundingRect() const
{
    return QRectF(QPointF(0, 0), preferredSize().expandedTo(m_size));
}

void ReportMultiColTableItem::paint(QPainter*, const QStyleOptionGraphicsItem*, QWidget*) {}

QFont ReportMultiColTableItem::font() const
{
    return firstBlock()->font();
}

void ReportMultiColTableItem::setFont(const QFont& font)
{
    const QFont chinese = withChineseFallback(font);
    for (GraphicsTableItem* block : std::as_const(m_blocks))
        block->setFont(chinese);
}

Tracker* ReportMultiColTableItem::createTracker()
{
    return new TableTracker(this);
}

QPolygonF ReportMultiColTableItem::geometry() const
{
    return tableHandlePolygon(*firstBlock(), m_size);
}

void ReportMultiColTableItem::updateGeometry(const QPolygonF& polygon)
{
    prepareGeometryChange();
    const QPointF origin = pointAt(polygon, 0);
    const QPolygonF q = polygon.translated(-origin);
    for (GraphicsTableItem* block : std::as_const(m_blocks))
        applyTableLines(*block, q);

    const QPointF corner = pointAt(q, 1);
    const QSizeF size(corner.x(), corner.y());
    const double step = firstBlock()->preferredSize().width() + m_minimumGap;
    const double fitting = step > 0 ? std::trunc((size.width() + m_minimumGap) / step) : 1.0;
    // The comparison also turns NaN into one block.
    setColumns(fitting >= 1.0 ? int(qMin(fitting, double(maxBlocks))) : 1);
    layout(size.width());
    m_size = size.expandedTo(firstBlock()->preferredSize());
    setPos(mapToParent(origin));
}

void ReportMultiColTableItem::save(QDataStream& out)
{
    out << qint8(1) << qint32(m_blocks.size()) << m_minimumGap << m_size;
    for (GraphicsTableItem* block : std::as_const(m_blocks))
        block->save(out);
}

void ReportMultiColTableItem::load(QDataStream& in)
{
    qint8 version = 0;
    qint32 count = 0;
    double gap = 0.0;
    QSizeF size;
    in >> version >> count >> gap >> size;
    prepareGeometryChange();
    if (std::isfinite(gap)) // a broken file must not place blocks at infinity
        m_minimumGap = gap;
    m_size = size;
    TemplateLimits::checkBlocks(count);
    // Blocks are read one by one, so a broken count stops at the end of the stream instead of
    // making blocks that no grid fills.
    const int wanted = qMax(1, int(count));
    int loaded = 0;
    qint64 cells = 0;
    while (loaded < wanted) {
        if (loaded == columns())
            appendBlock();
        GraphicsTableItem* block = m_blocks.at(loaded++);
        block->load(in);
        if (in.status() != QDataStream::Ok)
            break;
        // The blocks together are one table.
        cells += qint64(qMax(block->rowCount(), 0)) * qMax(block->columnCount(), 0);
        TemplateLimits::checkCells(cells);
    }
    setColumns(loaded);
    setFont(font());
    layout(m_size.width());
}

// --- ReportQcTableItem ------------------------------------------------------------------------

ReportQcTableItem::ReportQcTableItem()
{
    GraphicsTableItem* block = firstBlock();
    block->setColumnCount(3);
    block->setColumnFlags(ValueColumn, Qt::AlignRight);
    const QStringList header = {tr("日期"), tr("时间"), tr("结果")};
    const QStringList sample = {QStringLiteral("2017-05-03"), QStringLiteral("14:10:27"),
                                QStringLiteral("10.3")};
    for (int c = 0; c < header.size(); ++c) {
        block->setItemText(0, c, header.at(c));
        block->setItemText(1, c, sample.at(c));
    }
}

int ReportQcTableItem::rowsPerBlock() const
{
    const double rowHeight = firstBlock()->rowHeight();
    const double rows = rowHeight > 0 ? height() / rowHeight : 0.0;
    return rows >= 1.0 ? int(qMin(rows, maxRows)) : 1;
}

void ReportQcTableItem::prepareData()
{
    Report* r = report();
    const QcExportData* data = r ? r->qcData() : nullptr;
    if (!data)
        return;
    const int perPage = rowsPerBlock() * columns();
    const int pages = int((qint64(data->count) - 1 + perPage) / perPage);
    if (r->pageCount() < pages)
        r->setPageCount(pages);
    r->setResultCount(perPage);
}

void ReportQcTableItem::updateData()
{
    clear();
    Report* r = report();
    const QcExportData* data = r ? r->qcData() : nullptr;
    if (!data)
        return;
    int rows = rowsPerBlock();
    const int blockCount = columns();
    const qint64 perPage = qint64(rows) * blockCount;
    const qint64 skipped = (qint64(r->currentPage()) - 1) * perPage;
    qint64 index = data->firstIndex + skipped;
    qint64 remaining = data->count - skipped;
    // The last page spreads its points evenly over the blocks instead of filling the first ones.
    if (remaining < perPage)
        rows = int((blockCount - 1 + remaining) / blockCount);

    const QList<GraphicsTableItem*> blockList = blocks();
    for (GraphicsTableItem* block : blockList) {
        for (int row = 0; row < rows && remaining > 0; ++row, ++index, --remaining) {
            // Counts that overstate the list end the page.
            if (index < 0 || index >= data->points.size())
                return;
            const QcPoint& point = data->points.at(index);
            const QDateTime time = QcPoint::toDatetime(point.time);
            block->setItemText(row, DateColumn, time.toString(QStringLiteral("yyyy-MM-dd")));
            block->setItemText(row, TimeColumn, time.toString(QStringLiteral("HH:mm:ss")));
            block->setItemText(row, ValueColumn,
                               data->assayItem ? data->assayItem->valueString(point.value)
                                               : QString::number(point.value));
        }
    }
}

} // namespace coagulation
