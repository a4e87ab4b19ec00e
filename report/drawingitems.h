#pragma once

#include "reportitembase.h"

#include <QGraphicsLineItem>
#include <QGraphicsPixmapItem>
#include <QGraphicsRectItem>
#include <QGraphicsTextItem>

namespace coagulation {

class TextCommand;

// A block of text; also the base of the data-bound items.
class REPORT_EXPORT ReportTextItem : public ReportItemImpl<QGraphicsTextItem, ReportItem>
{
    Q_OBJECT
public:
    explicit ReportTextItem(bool editable = true);
    ~ReportTextItem() override;

    bool isEditable() const { return m_editable; }
    void setEditable(bool editable);

    void setHtml(const QString& html);
    void setPlainText(const QString& text);

    QFont font() const override;
    void setFont(const QFont& font) override;
    Qt::Alignment alignment() const override;
    void setAlignment(Qt::Alignment alignment) override;
    QPolygonF geometry() const override;
    Tracker* createTracker() override;
    void save(QDataStream& out) override;
    void load(QDataStream& in) override;

protected:
    // For bound data: text already shown is left alone, which spares laying the document out
    // again for every printed page.
    void showData(const QString& text);

    void updateGeometry(const QPolygonF& polygon) override;
    void mouseDoubleClickEvent(QGraphicsSceneMouseEvent* event) override;
    void focusInEvent(QFocusEvent* event) override;
    void focusOutEvent(QFocusEvent* event) override;

private Q_SLOTS:
    void contentsChanged();

private:
    void replacePlainText(const QString& text);

    bool m_editable;
    Qt::Alignment m_alignment;
    TextCommand* m_pendingTextCommand = nullptr;
};

class REPORT_EXPORT ReportLineItem : public ReportItemImpl<QGraphicsLineItem, ReportItem>
{
public:
    ReportLineItem();

    QPen pen() const override;
    void setPen(const QPen& pen) override;
    QPolygonF geometry() const override;
    Tracker* createTracker() override;
    void save(QDataStream& out) override;
    void load(QDataStream& in) override;
    void paint(QPainter* painter, const QStyleOptionGraphicsItem* option, QWidget* widget) override;

protected:
    void updateGeometry(const QPolygonF& polygon) override;
};

class REPORT_EXPORT ReportRectItem : public ReportItemImpl<QGraphicsRectItem, ReportItem>
{
public:
    ReportRectItem();

    QPen pen() const override;
    void setPen(const QPen& pen) override;
    QBrush brush() const override;
    void setBrush(const QBrush& brush) override;
    QPolygonF geometry() const override;
    Tracker* createTracker() override;
    void save(QDataStream& out) override;
    void load(QDataStream& in) override;

protected:
    void updateGeometry(const QPolygonF& polygon) override;
};

// A picture; resized only through its transform, the pixmap keeps its pixel size.
class REPORT_EXPORT ReportImageItem : public ReportItemImpl<QGraphicsPixmapItem, ReportItem>
{
public:
    ReportImageItem();

    QPolygonF geometry() const override;
    void save(QDataStream& out) override;
    void load(QDataStream& in) override;

protected:
    void updateGeometry(const QPolygonF& polygon) override;
};

} // namespace coagulation
