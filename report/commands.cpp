#include "commands.h"

#include "drawingitems.h"
#include "report.h"
#include "reportitembase.h"

#include <QGraphicsScene>

namespace coagulation {

namespace {

void clearSelectionOf(const QList<QGraphicsItem*>& items)
{
    if (!items.isEmpty() && items.constFirst()->scene())
        items.constFirst()->scene()->clearSelection();
}

void clearReportSelection(ReportItem* item)
{
    if (Report* report = item->report())
        report->clearSelection();
}

} // namespace

// --- ToggleCommand --------------------------------------------------------------------------

ToggleCommand::ToggleCommand(bool applied, QUndoCommand* parent) : QUndoCommand(parent), applied(applied) {}

void ToggleCommand::redo()
{
    if (applied)
        return;
    toggle();
    applied = true;
}

void ToggleCommand::undo()
{
    if (!applied)
        return;
    toggle();
    applied = false;
}

// --- NewCommand / DeleteCommand -------------------------------------------------------------

// Moves an item into its report; the scene owns it afterwards.
static void putBack(ReportItem* item, Report*& owner)
{
    if (owner)
        owner->addItem(item->graphicsItem());
    owner = nullptr;
}

// Takes an item out of its report; the caller owns it afterwards.
static void takeOut(ReportItem* item, Report*& owner)
{
    owner = item->report();
    if (owner)
        owner->removeItem(item->graphicsItem());
}

NewCommand::NewCommand(Report* report, ReportItem* item, QUndoCommand* parent)
    : QUndoCommand(parent), item(item), report(report)
{}

NewCommand::~NewCommand()
{
    if (report)
        delete item;
}

void NewCommand::redo()
{
    putBack(item, report);
}

void NewCommand::undo()
{
    takeOut(item, report);
}

DeleteCommand::DeleteCommand(ReportItem* item, QUndoCommand* parent) : QUndoCommand(parent), item(item) {}

DeleteCommand::~DeleteCommand()
{
    if (report)
        delete item;
}

void DeleteCommand::redo()
{
    takeOut(item, report);
}

void DeleteCommand::undo()
{
    putBack(item, report);
}

// --- TransformCommand -----------------------------------------------------------------------

TransformCommand::TransformCommand(const QList<QGraphicsItem*>& items, QUndoCommand* parent)
    : ToggleCommand(true, parent), items(items)
{
    for (QGraphicsItem* item : items) {
        positions.append(item->pos());
        transforms.append(item->transform());
    }
}

void TransformCommand::toggle()
{
    clearSelectionOf(items);
    for (int i = 0; i < items.size(); ++i) {
        QGraphicsItem* item = items.at(i);
        const QTransform current = item->transform();
        item->setTransform(transforms.at(i));
        transforms[i] = current;
        // Re-setting the position lets position handling (grid snap) run; the recorded
        // positions are refreshed, not restored.
        item->setPos(item->pos());
        positions[i] = item->pos();
        item->setSelected(true);
    }
}

// --- GeometryCommand ------------------------------------------------------------------------

GeometryCommand::GeometryCommand(ReportItem* item, QUndoCommand* parent)
    : ToggleCommand(true, parent), item(item), geometry(item->geometry()),
      position(item->graphicsItem()->pos())
{}

void GeometryCommand::toggle()
{
    const QPolygonF currentGeometry = item->geometry();
    const QPointF currentPosition = item->graphicsItem()->pos();
    clearReportSelection(item);
    item->setGeometry(geometry);
    item->graphicsItem()->setPos(position);
    item->graphicsItem()->setSelected(true);
    geometry = currentGeometry;
    position = currentPosition;
}

// --- PositionCommand ------------------------------------------------------------------------

PositionCommand::PositionCommand(const QList<QGraphicsItem*>& items, QUndoCommand* parent)
    : ToggleCommand(true, parent), items(items)
{
    for (QGraphicsItem* item : items)
        positions.insert(item, item->pos());
}

void PositionCommand::toggle()
{
    clearSelectionOf(items);
    for (QGraphicsItem* item : std::as_const(items)) {
        const QPointF current = item->pos();
        item->setPos(positions.value(item));
        positions.insert(item, current);
        item->setSelected(true);
    }
}

bool PositionCommand::mergeWith(const QUndoCommand* other)
{
    // The merged command keeps its own positions: those before the first move.
    if (other->id() != id())
        return false;
    return static_cast<const PositionCommand*>(other)->items == items;
}

// --- SetupPageCommand -----------------------------------------------------------------------

SetupPageCommand::SetupPageCommand(Report* report, QPageSize::PageSizeId pageSize,
                                   QPageLayout::Orientation orientation, const QSizeF& customSize,
                                   QUndoCommand* parent)
    : ToggleCommand(false, parent), report(report), pageSize(pageSize), orientation(orientation),
      customSize(customSize)
{}

void SetupPageCommand::toggle()
{
    const QPageSize::PageSizeId currentId = report->pageSize();
    const QPageLayout::Orientation currentOrientation = report->orientation();
    const QSizeF currentSize = report->pageSizeF();
    report->setPageSize(pageSize);
    report->setOrientation(orientation);
    if (pageSize == QPageSize::Custom)
        report->setPageSizeF(customSize);
    pageSize = currentId;
    orientation = currentOrientation;
    customSize = currentSize;
}

// --- item property commands -----------------------------------------------------------------

ItemPropertyCommand::ItemPropertyCommand(ReportItem* item, QUndoCommand* parent)
    : ToggleCommand(false, parent), item(item)
{}

void ItemPropertyCommand::toggle()
{
    clearReportSelection(item);
    swap();
    item->graphicsItem()->setSelected(true);
}

FontFamilyCommand::FontFamilyCommand(ReportItem* item, const QString& family, QUndoCommand* parent)
    : ItemPropertyCommand(item, parent), family(family)
{}

void FontFamilyCommand::swap()
{
    QFont font = item->font();
    const QString current = font.family();
    font.setFamily(family);
    item->setFont(font);
    family = current;
}

FontBoldCommand::FontBoldCommand(ReportItem* item, bool bold, QUndoCommand* parent)
    : ItemPropertyCommand(item, parent), bold(bold)
{}

void FontBoldCommand::swap()
{
    // A flag is stored, not the weight: a semi-bold font comes back as bold.
    QFont font = item->font();
    const bool current = font.weight() > 500;
    font.setWeight(bold ? QFont::Weight(700) : QFont::Weight(400));
    item->setFont(font);
    bold = current;
}

FontItalicCommand::FontItalicCommand(ReportItem* item, bool italic, QUndoCommand* parent)
    : ItemPropertyCommand(item, parent), italic(italic)
{}

void FontItalicCommand::swap()
{
    QFont font = item->font();
    const bool current = font.style() != QFont::StyleNormal;
    font.setStyle(italic ? QFont::StyleItalic : QFont::StyleNormal);
    item->setFont(font);
    italic = current;
}

FontUnderlineCommand::FontUnderlineCommand(ReportItem* item, bool underline, QUndoCommand* parent)
    : ItemPropertyCommand(item, parent), underline(underline)
{}

void FontUnderlineCommand::swap()
{
    QFont font = item->font();
    const bool current = font.underline();
    font.setUnderline(underline);
    item->setFont(font);
    underline = current;
}

TextAlignmentCommand::TextAlignmentCommand(ReportItem* item, Qt::Alignment alignment, QUndoCommand* parent)
    : ItemPropertyCommand(item, parent), alignment(alignment)
{}

void TextAlignmentCommand::swap()
{
    const Qt::Alignment current = item->alignment();
    item->setAlignment(alignment);
    alignment = current;
}

PenCommand::PenCommand(ReportItem* item, const QPen& pen, QUndoCommand* parent)
    : ItemPropertyCommand(item, parent), pen(pen)
{}

void PenCommand::swap()
{
    const QPen current = item->pen();
    item->setPen(pen);
    pen = current;
}

BrushCommand::BrushCommand(ReportItem* item, const QBrush& brush, QUndoCommand* parent)
    : ItemPropertyCommand(item, parent), brush(brush)
{}

void BrushCommand::swap()
{
    const QBrush current = item->brush();
    item->setBrush(brush);
    brush = current;
}

FontSizeCommand::FontSizeCommand(ReportItem* item, int pixelSize, QUndoCommand* parent)
    : ItemPropertyCommand(item, parent), size(pixelSize)
{}

void FontSizeCommand::swap()
{
    QFont font = item->font();
    const int currentPixels = font.pixelSize();
    const double currentPoints = font.pointSizeF();
    // A font sized in points has no pixel size (-1); its point size is kept so undo restores it.
    if (size > 0)
        font.setPixelSize(size);
    else if (pointSize > 0)
        font.setPointSizeF(pointSize);
    item->setFont(font);
    size = currentPixels;
    pointSize = currentPoints;
}

// --- TextCommand ----------------------------------------------------------------------------

TextCommand::TextCommand(ReportTextItem* item, bool merge, QUndoCommand* parent)
    : ToggleCommand(true, parent), item(item), text(item->toPlainText()), merge(merge)
{}

void TextCommand::toggle()
{
    clearReportSelection(item);
    const QString current = item->toPlainText();
    item->setPlainText(text);
    text = current;
    item->setSelected(true);
}

bool TextCommand::isTextChanged() const
{
    return item->toPlainText() != text;
}

bool TextCommand::mergeWith(const QUndoCommand* other)
{
    if (other->id() != id())
        return false;
    const auto* command = static_cast<const TextCommand*>(other);
    return command->item == item && command->merge;
}

} // namespace coagulation
