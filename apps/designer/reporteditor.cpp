#include "reporteditor.h"

#include <commands.h>
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

// Position changes made by the editor carry their own undo command; while it works, the
// document must neither snap them to the grid nor record each one again.
class DesignModeSuspender
{
public:
    explicit DesignModeSuspender(Report* report) : report(report), wasOn(report->isDesignMode())
    {
        report->setDesignMode(false);
    }
    ~DesignModeSuspender()
    {
        report->setDesignMode(wasOn);
        if (report->tracker())
            report->tracker()->updateGeometry();
    }

private:
    Report* report;
    bool wasOn;
};

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
    const QPointF offset(m_report->gridSize().width() * m_pasteCount,
                         m_report->gridSize().height() * m_pasteCount);
    auto* command = new QUndoCommand(tr("粘贴"));
    for (ReportItem* item : items) {
        item->graphicsItem()->setPos(item->graphicsItem()->pos() + offset);
        new NewCommand(m_report, item, command);
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
    const QSizeF step = fine ? QSizeF(1, 1) : m_report->gridSize();
    moveSelection(QPointF(dx * step.width(), dy * step.height()));
}

void ReportEditor::moveSelection(const QPointF& offset)
{
    const QList<ReportItem*> items = selectedItems();
    if (items.isEmpty() || offset.isNull())
        return;
    const QList<QGraphicsItem*> graphics = graphicsItems(items);
    auto* command = new PositionCommand(graphics);
    command->setText(tr("移动"));
    {
        DesignModeSuspender suspend(m_report);
        for (QGraphicsItem* item : graphics)
            item->setPos(item->pos() + offset);
    }
    // Recorded after the fact; consecutive nudges of the same items merge into one step.
    m_report->undoStack()->push(command);
}

void ReportEditor::setGeometry(ReportItem* item, const QPolygonF& geometry)
{
    if (!m_report || !item || item->geometry() == geometry)
        return;
    auto* command = new GeometryCommand(item);
    command->setText(tr("改变大小"));
    item->setGeometry(geometry);
    m_report->undoStack()->push(command);
}

} // namespace coagulation
