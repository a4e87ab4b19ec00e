#include "graphicstableitem.h"

#include "payloadreader_p.h"
#include "report.h"
#include "reportfont.h"
#include "selectionoutline.h"
#include "templatelimits_p.h"

#include <QDataStream>
#include <QPainter>
#include <QStyleOptionGraphicsItem>

namespace coagulation {

namespace {

// Every cell is one vertically centred line; trailing blanks keep their width.
constexpr int cellTextFlags = Qt::AlignVCenter | Qt::TextSingleLine | Qt::TextIncludeTrailingSpaces;

constexpr qint64 columnSpecBytes = 8 + 4;

// The encoding of QList<ColumnSpec>, with the count checked before anything is kept.
QList<ColumnSpec> readColumnSpecs(QDataStream& in)
{
    quint32 count = 0;
    in >> count;
    if (in.status() != QDataStream::Ok || !payload::fits(in, count, columnSpecBytes))
        return {};
    TemplateLimits::checkColumns(count);
    QList<ColumnSpec> columns;
    for (quint32 c = 0; c < count && in.status() == QDataStream::Ok; ++c) {
        ColumnSpec column;
        in >> column;
        columns.append(column);
    }
    return columns;
}

} // namespace

QDataStream& operator<<(QDataStream& out, const ColumnSpec& column)
{
    return out << column.width << qint32(column.flags);
}

QDataStream& operator>>(QDataStream& in, ColumnSpec& column)
{
    qint32 flags = 0;
    in >> column.width >> flags;
    column.flags = flags;
    return in;
}

GraphicsTableItem::GraphicsTableItem(QGraphicsItem* parent) : QGraphicsItem(parent) {}

GraphicsTableItem::GraphicsTableItem(const GraphicsTableItem& other, QGraphicsItem* parent)
    : QGraphicsItem(parent), m_rowCount(other.m_rowCount), m_columnCount(other.m_columnCount),
      m_spacing(other.m_spacing), m_rowHeight(other.m_rowHeight), m_size(other.m_size),
      m_texts(other.m_texts), m_columns(other.m_columns), m_font(other.m_font)
{}

GraphicsTableItem::~GraphicsTableItem() = default;

void GraphicsTableItem::setRowHeight(double height)
{
    prepareGeometryChange();
    m_rowHeight = height;
}

void GraphicsTableItem::setSpacing(double spacing)
{
    prepareGeometryChange();
    m_spacing = spacing;
}

void GraphicsTableItem::setFont(const QFont& font)
{
    m_font = font;
    update();
}

QString GraphicsTableItem::itemText(int row, int column) const
{
    if (row < 0 || row >= m_texts.size())
        return QString();
    const QStringList& cells = m_texts.at(row);
    return column >= 0 && column < cells.size() ? cells.at(column) : QString();
}

void GraphicsTableItem::setItemText(int row, int column, const QString& text)
{
    if (row < 0 || column < 0)
        return;
    // A cell outside the counts grows the table: the scene's index must learn the new bounds.
    if (row >= m_rowCount || column >= m_columnCount)
        prepareGeometryChange();
    if (row >= m_texts.size())
        m_texts.resize(row + 1);
    m_rowCount = qMax(m_rowCount, int(m_texts.size()));
    QStringList& cells = m_texts[row];
    if (column >= cells.size())
        cells.resize(column + 1);
    m_columnCount = qMax(m_columnCount, int(cells.size()));
    cells[column] = text;
}

int GraphicsTableItem::columnFlags(int column) const
{
    return column >= 0 && column < m_columns.size() ? m_columns.at(column).flags : ColumnSpec().flags;
}

void GraphicsTableItem::setColumnFlags(int column, int flags)
{
    if (column < 0)
        return;
    columnSpec(column).flags = flags;
    update();
}

double GraphicsTableItem::columnWidth(int column) const
{
    return column >= 0 && column < m_columns.size() ? m_columns.at(column).width : ColumnSpec().width;
}

void GraphicsTableItem::setColumnWidth(int column, double width)
{
    if (column < 0)
        return;
    ColumnSpec& target = columnSpec(column);
    prepareGeometryChange();
    target.width = width;
}

ColumnSpec& GraphicsTableItem::columnSpec(int column)
{
    if (column >= m_columns.size())
        m_columns.resize(column + 1);
    m_columnCount = qMax(m_columnCount, int(m_columns.size()));
    return m_columns[column];
}

void GraphicsTableItem::clear()
{
    if (m_rowCount > 0)
        prepareGeometryChange();
    m_texts.clear();
    m_rowCount = 0;
}

QSizeF GraphicsTableItem::preferredSize() const
{
    double w = 0.0;
    for (int c = 0; c < m_columnCount; ++c)
        w += columnWidth(c);
    return QSizeF(w, m_rowCount * m_rowHeight);
}

void GraphicsTableItem::adjustSize()
{
    if (preferredSize() != m_size)
        prepareGeometryChange();
    m_size = preferredSize();
}

QRectF GraphicsTableItem::boundingRect() const
{
    return QRectF(QPointF(0, 0), preferredSize().expandedTo(m_size));
}

void GraphicsTableItem::paint(QPainter* painter, const QStyleOptionGraphicsItem* option, QWidget*)
{
    const Report* report = qobject_cast<Report*>(scene());
    painter->setFont(sceneFont(m_font, report ? report->dpiY() : 96));
    painter->setPen(QColor(Qt::black));
    double x = 0.0;
    for (int c = 0; c < m_columnCount; ++c) {
        const double w = columnWidth(c);
        const int flags = columnFlags(c) | cellTextFlags;
        QRectF cell(x + m_spacing, 0.0, w - 2 * m_spacing, m_rowHeight);
        for (int r = 0; r < m_rowCount; ++r) {
            painter->drawText(cell, flags, itemText(r, c));
            cell.translate(0.0, m_rowHeight);
        }
        x += w;
    }
    if (option && (option->state & QStyle::State_Selected)) {
        const QRectF outline(QPointF(0, 0), m_size); // the nominal size, not the bounding rectangle
        painter->setBrush(Qt::NoBrush);
        paintSelectionOutline(painter, option, [&outline](QPainter* p) { p->drawRect(outline); });
    }
}

void GraphicsTableItem::save(QDataStream& out) const
{
    out << qint8(1) << qint32(m_rowCount) << qint32(m_columnCount) << m_spacing << m_rowHeight << m_size
        << m_texts << m_columns << m_font;
}

void GraphicsTableItem::load(QDataStream& in)
{
    qint8 version = 0;
    qint32 rowCount = 0;
    qint32 columnCount = 0;
    double spacing = 0.0;
    double rowHeight = 0.0;
    QSizeF size;
    in >> version >> rowCount >> columnCount >> spacing >> rowHeight >> size;
    payload::requireFinite(in, {spacing, rowHeight, size.width(), size.height()});
    const QList<QStringList> texts = payload::readStringTable(in);
    const QList<ColumnSpec> columns = readColumnSpecs(in);
    const QFont font = payload::readFont(in);
    if (in.status() != QDataStream::Ok)
        return;
    // The counts are painted and measured cell by cell, so they are bounded like stored cells.
    qint64 stored = 0;
    for (const QStringList& row : texts)
        stored += row.size();
    TemplateLimits::chargeCells(qMax(qint64(qMax(rowCount, 0)) * qMax(columnCount, 0), stored));
    TemplateLimits::checkColumns(columnCount);
    m_rowCount = rowCount;
    m_columnCount = columnCount;
    m_spacing = spacing;
    m_rowHeight = rowHeight;
    m_size = size;
    m_texts = texts;
    m_columns = columns;
    m_font = font;
}

} // namespace coagulation
