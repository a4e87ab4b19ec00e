#include "commandnamer.h"

#include "itemdescription.h"

#include <commands.h>
#include <reportitembase.h>
#include <reportitemcreator.h>

#include <QUndoStack>

namespace coagulation {

CommandNamer::CommandNamer(QObject* parent) : QObject(parent) {}

void CommandNamer::setStack(QUndoStack* stack)
{
    disconnect(m_connection);
    m_stack = stack;
    if (stack)
        m_connection = connect(stack, &QUndoStack::indexChanged, this, &CommandNamer::nameLatest);
}

void CommandNamer::watch(ReportItemCreator* creator)
{
    connect(creator, &ReportItemCreator::created, this,
            [this](ReportItem* item) { m_createdKind = ItemDescription::kind(item, m_factory); });
}

void CommandNamer::nameLatest()
{
    if (!m_stack || m_stack->index() == 0)
        return;
    // Only the newest step can be unnamed: every step is named when it arrives.
    auto* command = const_cast<QUndoCommand*>(m_stack->command(m_stack->index() - 1));
    if (!command || !command->text().isEmpty())
        return;
    if (dynamic_cast<NewCommand*>(command)) {
        command->setText(tr("新建 %1").arg(m_createdKind));
    } else if (auto* move = dynamic_cast<PositionCommand*>(command)) {
        command->setText(tr("移动 %n 项", nullptr, int(move->itemList().size())));
    } else if (dynamic_cast<GeometryCommand*>(command) || dynamic_cast<TransformCommand*>(command)) {
        command->setText(tr("调整大小"));
    } else if (dynamic_cast<TextCommand*>(command)) {
        command->setText(tr("编辑文字"));
    } else if (dynamic_cast<DeleteCommand*>(command)) {
        command->setText(tr("删除"));
    }
}

} // namespace coagulation
