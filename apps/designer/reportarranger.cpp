#include "reportarranger.h"

#include "designmodesuspender.h"
#include "itembox.h"
#include "reporteditor.h"
#include "stackordercommand.h"

#include <commands.h>
#include <report.h>
#include <reportitembase.h>

#include <QUndoStack>

#include <algorithm>

namespace coagulation {

namespace {
double start(const QRectF& r, Qt::Orientation o)
{
    return o == Qt::Horizontal ? r.left() : r.top();
}

double length(const QRectF& r, Qt::Orientation o)
{
    return o == Qt::Horizontal ? r.width() : r.height();
}
} // namespace

ReportArranger::ReportArranger(ReportEditor* editor, QObject* parent) : QObject(parent), m_editor(editor) {}

bool ReportArranger::moveItems(const QList<ReportItem*>& items, const QList<QPointF>& offsets,
                               const QString& text)
{
    if (std::all_of(offsets.begin(), offsets.end(), [](const QPointF& p) { return p.isNull(); }))
        return false;
    Report* report = m_editor->report();
    QList<QGraphicsItem*> graphics;
    for (ReportItem* item : items)
        graphics.append(item->graphicsItem());
    // A macro, so that a later drag of the same items does not merge into this step.
    auto* macro = new QUndoCommand(text);
    new PositionCommand(graphics, macro);
    {
        DesignModeSuspender suspend(report);
        for (int i = 0; i < items.size(); ++i)
            graphics.at(i)->setPos(graphics.at(i)->pos() + offsets.at(i));
    }
    report->undoStack()->push(macro);
    return true;
}

bool ReportArranger::align(Edge edge)
{
    const QList<ReportItem*> items = m_editor->selectedItems();
    if (items.size() < 2)
        return false;
    QRectF bounds;
    for (ReportItem* item : items)
        bounds |= ItemBox::sceneRect(item);
    QList<QPointF> offsets;
    for (ReportItem* item : items) {
        const QRectF box = ItemBox::sceneRect(item);
        switch (edge) {
        case Left:
            offsets.append({bounds.left() - box.left(), 0});
            break;
        case HorizontalCentre:
            offsets.append({bounds.center().x() - box.center().x(), 0});
            break;
        case Right:
            offsets.append({bounds.right() - box.right(), 0});
            break;
        case Top:
            offsets.append({0, bounds.top() - box.top()});
            break;
        case VerticalCentre:
            offsets.append({0, bounds.center().y() - box.center().y()});
            break;
        case Bottom:
            offsets.append({0, bounds.bottom() - box.bottom()});
            break;
        }
    }
    const QString names[] = {tr("左对齐"),   tr("水平居中"), tr("右对齐"),
                             tr("顶端对齐"), tr("垂直居中"), tr("底端对齐")};
    return moveItems(items, offsets, names[edge]);
}

bool ReportArranger::distribute(Qt::Orientation orientation)
{
    QList<ReportItem*> items = m_editor->selectedItems();
    if (items.size() < 3)
        return false;
    std::stable_sort(items.begin(), items.end(), [orientation](ReportItem* a, ReportItem* b) {
        return start(ItemBox::sceneRect(a), orientation) < start(ItemBox::sceneRect(b), orientation);
    });
    const QRectF first = ItemBox::sceneRect(items.first());
    double end = start(first, orientation), occupied = 0;
    for (ReportItem* item : items) {
        const QRectF box = ItemBox::sceneRect(item);
        end = std::max(end, start(box, orientation) + length(box, orientation));
        occupied += length(box, orientation);
    }
    const double gap = (end - start(first, orientation) - occupied) / (items.size() - 1);
    QList<QPointF> offsets;
    double next = start(first, orientation);
    for (ReportItem* item : items) {
        const QRectF box = ItemBox::sceneRect(item);
        const double shift = next - start(box, orientation);
        offsets.append(orientation == Qt::Horizontal ? QPointF(shift, 0) : QPointF(0, shift));
        next += length(box, orientation) + gap;
    }
    // The last item ends where it ended; rounding must not creep it away.
    offsets.last() = QPointF();
    return moveItems(items, offsets, orientation == Qt::Horizontal ? tr("水平均匀分布") : tr("垂直均匀分布"));
}

bool ReportArranger::sameSize(Qt::Orientation orientation)
{
    const QList<ReportItem*> items = m_editor->selectedItems();
    ReportItem* model = m_editor->firstSelected();
    if (items.size() < 2 || !model)
        return false;
    const double target = length(ItemBox::sceneRect(model), orientation);
    Report* report = m_editor->report();
    auto* macro = new QUndoCommand(orientation == Qt::Horizontal ? tr("相同宽度") : tr("相同高度"));
    {
        DesignModeSuspender suspend(report);
        for (ReportItem* item : items) {
            const double current = length(ItemBox::sceneRect(item), orientation);
            if (item == model || current <= 0 || qFuzzyCompare(current, target))
                continue;
            const double factor = target / current;
            if (ItemBox::isSizedByGeometry(item)) {
                const QRectF box = ItemBox::rect(item);
                new GeometryCommand(item, macro);
                item->setGeometry(
                    ItemBox::resized(item, orientation == Qt::Horizontal ? box.width() * factor : box.width(),
                                     orientation == Qt::Vertical ? box.height() * factor : box.height()));
            } else {
                new TransformCommand({item->graphicsItem()}, macro);
                const QTransform scale = orientation == Qt::Horizontal ? QTransform::fromScale(factor, 1)
                                                                       : QTransform::fromScale(1, factor);
                item->graphicsItem()->setTransform(scale * item->graphicsItem()->transform());
            }
        }
    }
    if (macro->childCount() == 0) {
        delete macro;
        return false;
    }
    report->undoStack()->push(macro);
    return true;
}

bool ReportArranger::restack(bool toFront)
{
    Report* report = m_editor->report();
    const QList<ReportItem*> selected = m_editor->selectedItems();
    if (!report || selected.isEmpty())
        return false;
    const QList<QGraphicsItem*> before = StackOrderCommand::order(report);
    QList<QGraphicsItem*> chosen, others;
    for (QGraphicsItem* item : before)
        (item->isSelected() ? chosen : others).append(item);
    const QList<QGraphicsItem*> after = toFront ? others + chosen : chosen + others;
    if (after == before)
        return false;
    auto* command = new StackOrderCommand(report, after);
    command->setText(toFront ? tr("置于顶层") : tr("置于底层"));
    report->undoStack()->push(command);
    return true;
}

bool ReportArranger::bringToFront()
{
    return restack(true);
}

bool ReportArranger::sendToBack()
{
    return restack(false);
}

} // namespace coagulation
