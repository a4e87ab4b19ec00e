#include "reporteditor.h"

#include "designmodesuspender.h"

#include <commands.h>
#include <itemfactory.h>
#include <report.h>
#include <reportitembase.h>
#include <tracker.h>

#include <QApplication>
#include <QBuffer>
#include <QClipboard>
#include <QDataStream>
#include <QMimeData>
#include <QUndoStack>

namespace coagulation {

namespace {

QList<QGraphicsItem*> graphicsItems(const QList<ReportItem*>& items)
{
    QList<QGraphicsItem*> list;
    for (ReportItem* item : items)
        list.append(item->graphicsItem());
    return list;
}

void select(Report* report, const QList<ReportItem*>& items)
{
    report->clearSelection();
    for (ReportItem* item : items)
        item->graphicsItem()->setSelected(true);
}

} // namespace

ReportEditor::ReportEditor(QObject* parent) : QObject(parent) {}

void ReportEditor::setReport(Report* report)
{
    m_report = report;
    m_pasteCount = 0;
    m_selectionOrder.clear();
}

void ReportEditor::selectionChanged()
{
    const QList<ReportItem*> selected = selectedItems();
    m_selectionOrder.removeIf([&](ReportItem* item) { return !selected.contains(item); });
    // Items selected together (a rubber band) join in their stacking order, topmost first.
    for (ReportItem* item : selected)
        if (!m_selectionOrder.contains(item))
            m_selectionOrder.append(item);
}

ReportItem* ReportEditor::firstSelected() const
{
    const QList<ReportItem*> selected = selectedItems();
    for (ReportItem* item : m_selectionOrder)
        if (selected.contains(item))
            return item;
    return selected.value(0);
}

QList<ReportItem*> ReportEditor::selectedItems() const
{
    QList<ReportItem*> items;
    if (!m_report)
        return items;
    for (ReportItem* item : m_report->reportItems())
        if (item->graphicsItem()->isSelected())
            items.append(item);
    return items;
}

ReportItem* ReportEditor::currentItem() const
{
    const QList<ReportItem*> items = selectedItems();
    return items.size() == 1 ? items.first() : nullptr;
}

void ReportEditor::pushForEach(const QList<ReportItem*>& items, const QString& text,
                               const std::function<QUndoCommand*(ReportItem*, QUndoCommand*)>& make)
{
    if (!m_report || items.isEmpty())
        return;
    auto* command = items.size() == 1 ? make(items.first(), nullptr) : new QUndoCommand;
    if (items.size() > 1)
        for (ReportItem* item : items)
            make(item, command);
    command->setText(text);
    m_report->undoStack()->push(command);
    // Each property command selects only its own item; the user meant the whole selection.
    if (items.size() > 1)
        select(m_report, items);
}

void ReportEditor::deleteSelection()
{
    const QList<ReportItem*> items = selectedItems();
    pushForEach(items, tr("删除"),
                [](ReportItem* item, QUndoCommand* parent) { return new DeleteCommand(item, parent); });
}

QMimeData* ReportEditor::copyData() const
{
    const QList<ReportItem*> items = selectedItems();
    if (items.isEmpty())
        return nullptr;
    QByteArray bytes;
    QDataStream out(&bytes, QIODevice::WriteOnly);
    out.setVersion(QDataStream::Qt_4_6);
    if (!m_report->saveItems(out, items))
        return nullptr;
    auto* data = new QMimeData;
    data->setData(Report::mimeType, bytes);
    return data;
}

bool ReportEditor::canPaste(const QMimeData* data) const
{
    return m_report && m_report->factory() && data && data->hasFormat(Report::mimeType);
}

QList<ReportItem*> ReportEditor::pasteData(const QMimeData* data)
{
    QList<ReportItem*> items;
    if (!canPaste(data))
        return items;
    QDataStream in(data->data(Report::mimeType));
    in.setVersion(QDataStream::Qt_4_6);
    bool ok = false;
    try {
        ok = m_report->loadItems(in, items);
    } catch (const QString& error) {
        m_report->setErrorString(error);
        ok = false;
    }
    if (!ok) {
        // Items read before a broken one are handed back to nobody; they are ours to drop.
        qDeleteAll(items);
        return {};
    }
    if (items.isEmpty())
        return items;

    // Each paste of the same clipboard lands one grid step further, so copies don't hide
    // each other or their originals.
    ++m_pasteCount;
    const QPointF offset(m_grid.width() * m_pasteCount, m_grid.height() * m_pasteCount);
    auto* command = new QUndoCommand(tr("粘贴"));
    // The list runs topmost first; adding the bottom one first keeps the copied stacking order.
    for (auto it = items.crbegin(); it != items.crend(); ++it) {
        (*it)->graphicsItem()->setPos((*it)->graphicsItem()->pos() + offset);
        new NewCommand(m_report, *it, command);
    }
    m_report->clearSelection();
    m_report->undoStack()->push(command);
    select(m_report, items);
    return items;
}

void ReportEditor::copy()
{
    if (QMimeData* data = copyData()) {
        QApplication::clipboard()->setMimeData(data);
        m_pasteCount = 0;
    }
}

void ReportEditor::cut()
{
    copy();
    deleteSelection();
    m_pasteCount = -1; // pasting a cut puts the items back where they were
}

void ReportEditor::paste()
{
    pasteData(QApplication::clipboard()->mimeData());
}

void ReportEditor::selectAll()
{
    if (m_report)
        select(m_report, m_report->reportItems());
}

void ReportEditor::nudge(int dx, int dy, bool fine)
{
    if (!m_report)
        return;
    const QSizeF step = fine ? QSizeF(1, 1) : m_grid;
    moveSelection(QPointF(dx * step.width(), dy * step.height()));
}

void ReportEditor::moveSelection(const QPointF& offset)
{
    const QList<ReportItem*> items = selectedItems();
    if (items.isEmpty() || offset.isNull())
        return;
    const QList<QGraphicsItem*> graphics = graphicsItems(items);
    auto* command = new PositionCommand(graphics);
    command->setText(tr("移动 %n 项", nullptr, int(items.size())));
    {
        DesignModeSuspender suspend(m_report);
        for (QGraphicsItem* item : graphics)
            item->setPos(item->pos() + offset);
    }
    // Recorded after the fact; consecutive nudges of the same items merge into one step.
    m_report->undoStack()->push(command);
}

ReportItem* ReportEditor::replaceItem(ReportItem* item, const QString& key)
{
    if (!m_report || !item || !m_report->factory() || key == item->key())
        return nullptr;
    ReportItem* replacement = m_report->factory()->create(key);
    if (!replacement)
        return nullptr;
    replacement->setKey(key);
    replacement->setFont(item->font());
    replacement->setAlignment(item->alignment());
    replacement->setPen(item->pen());
    replacement->setBrush(item->brush());
    replacement->setGeometry(item->geometry());
    replacement->graphicsItem()->setPos(item->graphicsItem()->pos());
    replacement->graphicsItem()->setTransform(item->graphicsItem()->transform());
    auto* command = new QUndoCommand(tr("更改内容"));
    new DeleteCommand(item, command);
    new NewCommand(m_report, replacement, command);
    m_report->undoStack()->push(command);
    select(m_report, {replacement});
    return replacement;
}

void ReportEditor::setGeometry(ReportItem* item, const QPolygonF& geometry)
{
    if (!m_report || !item || item->geometry() == geometry)
        return;
    auto* command = new GeometryCommand(item);
    command->setText(tr("调整大小"));
    item->setGeometry(geometry);
    m_report->undoStack()->push(command);
}

} // namespace coagulation
