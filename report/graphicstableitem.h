#pragma once

#include "report_global.h"

#include <QCoreApplication>
#include <QFont>
#include <QGraphicsItem>
#include <QList>
#include <QSizeF>
#include <QStringList>

class QDataStream;

namespace coagulation {

// Width and drawText flags of one table column.
struct ColumnSpec
{
    double width = 100.0;
    int flags = 0;
};

REPORT_EXPORT QDataStream& operator<<(QDataStream& out, const ColumnSpec& column);
REPORT_EXPORT QDataStream& operator>>(QDataStream& in, ColumnSpec& column);

// A plain grid of single-line text cells. The row and column counts are stored numbers:
// writing beyond them raises them, but cells and specs outside them are kept (and saved)
// without being painted or measured.
class REPORT_EXPORT GraphicsTableItem : public QGraphicsItem
{
    Q_DECLARE_TR_FUNCTIONS(coagulation::GraphicsTableItem)
public:
    explicit GraphicsTableItem(QGraphicsItem* parent = nullptr);
    GraphicsTableItem(const GraphicsTableItem& other, QGraphicsItem* parent = nullptr);
    ~GraphicsTableItem() override;

    int rowCount() const { return m_rowCount; }
    void setRowCount(int count) { m_rowCount = count; }
    int columnCount() const { return m_columnCount; }
    void setColumnCount(int count) { m_columnCount = count; }
    double rowHeight() const { return m_rowHeight; }
    void setRowHeight(double height);
    double spacing() const { return m_spacing; }
    void setSpacing(double spacing);
    QFont font() const { return m_font; }
    void setFont(const QFont& font);
    QSizeF size() const { return m_size; }
    void setSize(const QSizeF& size) { m_size = size; }
    double width() const { return m_size.width(); }
    double height() const { return m_size.height(); }

    QString itemText(int row, int column) const;
    void setItemText(int row, int column, const QString& text);
    int columnFlags(int column) const;
    void setColumnFlags(int column, int flags);
    double columnWidth(int column) const;
    void setColumnWidth(int column, double width);

    void clear();
    QSizeF preferredSize() const;
    void adjustSize();

    QRectF boundingRect() const override;
    void paint(QPainter* painter, const QStyleOptionGraphicsItem* option, QWidget* widget) override;

    void save(QDataStream& out) const;
    void load(QDataStream& in);

private:
    ColumnSpec& columnSpec(int column);

    int m_rowCount = 0;
    int m_columnCount = 0;
    double m_spacing = 8.0;
    double m_rowHeight = 24.0;
    QSizeF m_size;
    QList<QStringList> m_texts;
    QList<ColumnSpec> m_columns;
    QFont m_font;
};

} // namespace coagulation

Q_DECLARE_TYPEINFO(coagulation::ColumnSpec, Q_RELOCATABLE_TYPE);
