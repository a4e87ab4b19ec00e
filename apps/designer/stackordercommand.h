#pragma once

#include <QList>
#include <QUndoCommand>

class QGraphicsItem;

namespace coagulation {

class Report;

// Restacks a report's items. The template file keeps no depth of its own, only the order of its
// items, so the order of the scene's top-level items is what a stacking change edits.
class StackOrderCommand : public QUndoCommand
{
public:
    // order: every report item of the report, bottom first.
    StackOrderCommand(Report* report, const QList<QGraphicsItem*>& order, QUndoCommand* parent = nullptr);

    void undo() override;
    void redo() override;

    // The report's items, bottom first.
    static QList<QGraphicsItem*> order(const Report* report);
    static void apply(const QList<QGraphicsItem*>& order);

private:
    QList<QGraphicsItem*> m_before;
    QList<QGraphicsItem*> m_after;
};

} // namespace coagulation
