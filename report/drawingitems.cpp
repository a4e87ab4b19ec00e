#include "drawingitems.h"

#include "commands.h"
#include "payloadreader_p.h"
#include "reportfont.h"
#include "reporttextdocument_p.h"
#include "selectionoutline.h"
#include "templatelimits_p.h"
#include "tracker.h"

#include <QDataStream>
#include <QGraphicsSceneMouseEvent>
#include <QPainter>
#include <QStyleOptionGraphicsItem>
#include <QTextBlock>
#include <QTextBlockFormat>
#include <QTextCursor>
#include <QTextDocument>
#include <QUndoStack>

namespace coagulation {

namespace {

constexpr QGraphicsItem::GraphicsItemFlags drawingFlags = QGraphicsItem::ItemIsMovable |
                                                          QGraphicsItem::ItemIsSelectable |
                                                          QGraphicsItem::ItemSendsScenePositionChanges;

QTextBlockFormat alignedFormat(Qt::Alignment alignment)
{
    QTextBlockFormat format;
    format.setAlignment(alignment);
    return format;
}

// Whether the document holds plain text, formatted as setting a plain text formats it, up to the
// blocks' alignment.
bool holdsPlainText(const QTextDocument* document)
{
    const QTextCharFormat plain;
    for (QTextBlock block = document->begin(); block.isValid(); block = block.next()) {
        QTextBlockFormat format = block.blockFormat();
        format.clearProperty(QTextFormat::BlockAlignment);
        if (format != QTextBlockFormat() || block.charFormat() != plain)
            return false;
        for (auto it = block.begin(); !it.atEnd(); ++it) {
            if (it.fragment().charFormat() != plain)
                return false;
        }
    }
    return true;
}

} // namespace

// --- ReportTextItem -------------------------------------------------------------------------

ReportTextItem::ReportTextItem(bool editable) : m_editable(editable)
{
    setFlags(drawingFlags | (editable ? QGraphicsItem::ItemIsFocusable : QGraphicsItem::GraphicsItemFlags()));
    // Laid out once, at the end: with a null page size the document layout skips its work.
    auto* document = new ReportTextDocument(this);
    document->setPageSize(QSizeF(0, 0));
    setDocument(document);
    QGraphicsTextItem::setFont(withChineseFallback(QGraphicsTextItem::font()));
    connect(document, &QTextDocument::contentsChanged, this, &ReportTextItem::contentsChanged);
    setDefaultTextColor(Qt::black);
    setTextWidth(-1);
}

ReportTextItem::~ReportTextItem()
{
    delete m_pendingTextCommand;
}

void ReportTextItem::setEditable(bool editable)
{
    if (m_editable == editable)
        return;
    m_editable = editable;
    if (!editable)
        setTextInteractionFlags(Qt::NoTextInteraction);
}

void ReportTextItem::setHtml(const QString& html)
{
    QGraphicsTextItem::setHtml(html);
    setAlignment(alignment());
}

void ReportTextItem::setPlainText(const QString& text)
{
    // One edit block: the document lays out once, not for the text and again for the alignment.
    QTextCursor edit(document());
    edit.beginEditBlock();
    replacePlainText(text);
    setAlignment(alignment());
    edit.endEditBlock();
}

void ReportTextItem::showData(const QString& text)
{
    if (text == toPlainText())
        return;
    // One edit block around the text and its alignment: the document lays out once, at the end,
    // instead of once for the text and again for the alignment merged over it.
    QTextCursor edit(document());
    edit.beginEditBlock();
    replacePlainText(text);
    // Replaced text keeps the first block's format, which may not hold the alignment yet.
    if (document()->begin().blockFormat() != alignedFormat(m_alignment))
        setAlignment(m_alignment);
    edit.endEditBlock();
}

// The text item's setPlainText, without re-applying the alignment, for less: over plain text,
// replacing the characters gives the same blocks and formats (new blocks take the format of the
// first) and keeps the layout objects.
void ReportTextItem::replacePlainText(const QString& text)
{
    if (!holdsPlainText(document()) || textCursor().charFormat() != QTextCharFormat()) {
        QGraphicsTextItem::setPlainText(text);
        return;
    }
    // Like setPlainText, without undo steps: kept, they would hold every text ever shown.
    const bool undo = document()->isUndoRedoEnabled();
    document()->setUndoRedoEnabled(false);
    QTextCursor cursor(document());
    cursor.select(QTextCursor::Document);
    cursor.insertText(text);
    document()->setUndoRedoEnabled(undo);
}

QFont ReportTextItem::font() const
{
    return QGraphicsTextItem::font();
}

void ReportTextItem::setFont(const QFont& font)
{
    QGraphicsTextItem::setFont(withChineseFallback(font));
}

Qt::Alignment ReportTextItem::alignment() const
{
    return m_alignment;
}

void ReportTextItem::setAlignment(Qt::Alignment alignment)
{
    m_alignment = alignment;
    QTextCursor cursor = textCursor();
    cursor.select(QTextCursor::Document);
    cursor.mergeBlockFormat(alignedFormat(alignment));
    cursor.clearSelection();
    setTextCursor(cursor);
}

QPolygonF ReportTextItem::geometry() const
{
    const QRectF r = boundingRect();
    return QPolygonF({r.topLeft(), r.bottomRight(), QPointF(r.left() + textWidth(), r.bottom())});
}

void ReportTextItem::updateGeometry(const QPolygonF& polygon)
{
    const double right = polygon.size() >= 3 ? polygon.at(2).x() : pointAt(polygon, 1).x();
    const double width = polygon.size() >= 2 ? right - polygon.at(0).x() : 0.0;
    setTextWidth(width < 2.0 ? -1 : width);
    setPos(mapToParent(pointAt(polygon, 0)));
}

Tracker* ReportTextItem::createTracker()
{
    return new TextTracker(this);
}

void ReportTextItem::mouseDoubleClickEvent(QGraphicsSceneMouseEvent* event)
{
    if (m_editable && textInteractionFlags() == Qt::NoTextInteraction) {
        setTextInteractionFlags(Qt::TextEditorInteraction);
        setFocus(Qt::OtherFocusReason);
    }
    QGraphicsTextItem::mouseDoubleClickEvent(event);
}

void ReportTextItem::focusInEvent(QFocusEvent* event)
{
    delete m_pendingTextCommand;
    m_pendingTextCommand = new TextCommand(this, false);
    setCursor(Qt::IBeamCursor);
    QGraphicsTextItem::focusInEvent(event);
}

void ReportTextItem::focusOutEvent(QFocusEvent* event)
{
    setTextInteractionFlags(Qt::NoTextInteraction);
    QTextCursor cursor = textCursor();
    cursor.clearSelection();
    setTextCursor(cursor);
    setCursor(Qt::SizeAllCursor);
    TextCommand* command = m_pendingTextCommand;
    m_pendingTextCommand = nullptr;
    if (command && command->isTextChanged() && report())
        report()->undoStack()->push(command);
    else
        delete command;
    QGraphicsTextItem::focusOutEvent(event);
}

void ReportTextItem::contentsChanged()
{
    Report* r = report();
    if (!r)
        return;
    r->itemGeometryChanged(this);
    // Each change closes the pending command and opens the next, so one editing session
    // becomes a chain of commands that merge into one undo step.
    if (m_pendingTextCommand && m_pendingTextCommand->isTextChanged()) {
        TextCommand* done = m_pendingTextCommand;
        m_pendingTextCommand = nullptr;
        r->addUndoCommand(done);
        m_pendingTextCommand = new TextCommand(this, true);
    }
}

void ReportTextItem::save(QDataStream& out)
{
    out << qint8(2) << qint32(m_alignment.toInt()) << pen() << brush() << font() << double(textWidth())
        << toPlainText();
}

void ReportTextItem::load(QDataStream& in)
{
    qint8 format = 0;
    qint32 align = 0;
    in >> format >> align;
    const QPen pen = payload::readPen(in);
    const QBrush brush = payload::readBrush(in);
    const QFont font = payload::readFont(in);
    double width = -1;
    in >> width;
    const QString text = payload::readText(in);
    payload::requireFinite(in, {width});
    // A damaged payload is not applied: its values are noise.
    if (in.status() != QDataStream::Ok)
        return;
    if (format == 1)
        TemplateLimits::checkHtml(text);
    // Laid out once, when everything is in place: with a null page size the document layout
    // skips its work, and setting the width last lays the document out.
    document()->setPageSize(QSizeF(0, 0));
    setPen(pen);
    setBrush(brush);
    setFont(font);
    QTextCursor edit(document());
    edit.beginEditBlock();
    // Format 1 keeps templates of the older HTML form readable.
    if (format == 1)
        setHtml(text);
    else
        replacePlainText(text);
    setAlignment(Qt::Alignment(align));
    edit.endEditBlock();
    setTextWidth(width);
}

// --- ReportLineItem -------------------------------------------------------------------------

ReportLineItem::ReportLineItem()
{
    setFlags(drawingFlags);
}

QPen ReportLineItem::pen() const
{
    return QGraphicsLineItem::pen();
}

void ReportLineItem::setPen(const QPen& pen)
{
    QGraphicsLineItem::setPen(pen);
}

QPolygonF ReportLineItem::geometry() const
{
    return QPolygonF({line().p1(), line().p2()});
}

void ReportLineItem::updateGeometry(const QPolygonF& polygon)
{
    setLine(QLineF(pointAt(polygon, 0), pointAt(polygon, 1)));
}

Tracker* ReportLineItem::createTracker()
{
    return new LineTracker(this);
}

void ReportLineItem::paint(QPainter* painter, const QStyleOptionGraphicsItem* option, QWidget*)
{
    painter->setPen(pen());
    painter->drawLine(line());
    if (option->state & QStyle::State_Selected)
        paintSelectionOutline(painter, option, [this](QPainter* p) { p->drawLine(line()); });
}

void ReportLineItem::save(QDataStream& out)
{
    out << qint8(1) << line() << pen();
}

void ReportLineItem::load(QDataStream& in)
{
    qint8 version = 0;
    QLineF l;
    in >> version >> l;
    payload::requireFinite(in, {l.x1(), l.y1(), l.x2(), l.y2()});
    const QPen p = payload::readPen(in);
    if (in.status() != QDataStream::Ok)
        return;
    setLine(l);
    setPen(p);
}

// --- ReportRectItem -------------------------------------------------------------------------

ReportRectItem::ReportRectItem()
{
    setFlags(drawingFlags);
}

QPen ReportRectItem::pen() const
{
    return QGraphicsRectItem::pen();
}

void ReportRectItem::setPen(const QPen& pen)
{
    QGraphicsRectItem::setPen(pen);
}

QBrush ReportRectItem::brush() const
{
    return QGraphicsRectItem::brush();
}

void ReportRectItem::setBrush(const QBrush& brush)
{
    QGraphicsRectItem::setBrush(brush);
}

QPolygonF ReportRectItem::geometry() const
{
    return QPolygonF({rect().topLeft(), rect().bottomRight()});
}

void ReportRectItem::updateGeometry(const QPolygonF& polygon)
{
    setRect(QRectF(pointAt(polygon, 0), pointAt(polygon, 1)));
}

Tracker* ReportRectItem::createTracker()
{
    return new RectTracker(this);
}

void ReportRectItem::save(QDataStream& out)
{
    out << qint8(1) << rect() << pen() << brush();
}

void ReportRectItem::load(QDataStream& in)
{
    qint8 version = 0;
    QRectF r;
    in >> version >> r;
    payload::requireFinite(in, {r.x(), r.y(), r.width(), r.height()});
    const QPen p = payload::readPen(in);
    const QBrush b = payload::readBrush(in);
    if (in.status() != QDataStream::Ok)
        return;
    setRect(r);
    setPen(p);
    setBrush(b);
}

// --- ReportImageItem ------------------------------------------------------------------------

ReportImageItem::ReportImageItem()
{
    setFlags(drawingFlags);
}

QPolygonF ReportImageItem::geometry() const
{
    return QPolygonF({QPointF(0, 0), QPointF(pixmap().width(), pixmap().height())});
}

void ReportImageItem::updateGeometry(const QPolygonF& polygon)
{
    const QPointF p0 = pointAt(polygon, 0);
    const QPointF p1 = pointAt(polygon, 1);
    setPos(mapToParent(p0));
    // A null pixmap has nothing to scale; dividing by its zero size would poison the transform.
    if (pixmap().width() > 0 && pixmap().height() > 0)
        setTransform(QTransform::fromScale((p1.x() - p0.x()) / pixmap().width(),
                                           (p1.y() - p0.y()) / pixmap().height()));
}

void ReportImageItem::save(QDataStream& out)
{
    out << qint8(1) << pixmap();
}

void ReportImageItem::load(QDataStream& in)
{
    qint8 version = 0;
    in >> version;
    const QPixmap p = payload::readPixmap(in);
    if (in.status() != QDataStream::Ok)
        return;
    setPixmap(p);
}

} // namespace coagulation
