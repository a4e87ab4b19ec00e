#include "stackordercommand.h"

#include <report.h>
#include <reportitembase.h>

#include <algorithm>

namespace coagulation {

StackOrderCommand::StackOrderCommand(Report* report, const QList<QGraphicsItem*>& order, QUndoCommand* parent)
    : QUndoCommand(parent), m_before(StackOrderCommand::order(report)), m_after(order)
{}

QList<QGraphicsItem*> StackOrderCommand::order(const Report* report)
{
    QList<QGraphicsItem*> items;
    for (ReportItem* item : report->reportItems())
        items.prepend(item->graphicsItem());
    return items;
}

void StackOrderCommand::apply(const QList<QGraphicsItem*>& order)
{
    // Top down, each item goes just below the one that must lie above it.
    for (qsizetype i = order.size() - 2; i >= 0; --i)
        order.at(i)->stackBefore(order.at(i + 1));
}

void StackOrderCommand::undo()
{
    apply(m_before);
}

void StackOrderCommand::redo()
{
    apply(m_after);
}

} // namespace coagulation
