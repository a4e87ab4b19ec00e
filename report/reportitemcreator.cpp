#include "reportitemcreator.h"

#include "commands.h"
#include "pickmachine.h"
#include "reportitembase.h"

#include <QCursor>
#include <QGraphicsSceneMouseEvent>
#include <QUndoStack>

namespace coagulation {

namespace {

PickMachine* machineFor(ReportItemCreator::SelectionMode mode)
{
    switch (mode) {
    case ReportItemCreator::ClickPointSelection:
        return new ClickPointMachine;
    case ReportItemCreator::DragRectSelection:
        return new DragRectMachine;
    }
    return nullptr;
}

bool isSceneMouseEvent(const QEvent* event)
{
    switch (event->type()) {
    case QEvent::GraphicsSceneMouseMove:
    case QEvent::GraphicsSceneMousePress:
    case QEvent::GraphicsSceneMouseRelease:
    case QEvent::GraphicsSceneMouseDoubleClick:
        return true;
    default:
        return false;
    }
}

} // namespace

ReportItemCreator::ReportItemCreator(SelectionMode mode, QObject* parent)
    : QObject(parent), m_mode(mode), m_machine(machineFor(mode))
{}

// A pending item stays in the scene, which owns it.
ReportItemCreator::~ReportItemCreator()
{
    delete m_machine;
}

void ReportItemCreator::enter(QGraphicsView* view)
{
    m_view = view;
    m_report = view ? qobject_cast<Report*>(view->scene()) : nullptr;
    if (m_report)
        m_report->installEventFilter(this);
}

void ReportItemCreator::leave()
{
    if (m_report)
        m_report->removeEventFilter(this);
    reject();
    m_report = nullptr;
    m_view = nullptr;
}

void ReportItemCreator::prepare(ReportItem* item)
{
    if (m_item)
        reject();
    if (!item)
        return;
    if (!m_report) { // nowhere to show it
        delete item;
        return;
    }
    const QList<QString> k = keys();
    item->setKey(k.isEmpty() ? QString() : k.first());
    m_item = item;
    m_report->addItem(item->graphicsItem());
    m_report->clearSelection();
    item->graphicsItem()->setSelected(true);
    Q_EMIT created(item);
}

void ReportItemCreator::accept()
{
    if (!m_item)
        return;
    // Without the report the scene, and the item with it, are gone already.
    if (m_report)
        m_report->undoStack()->push(new NewCommand(m_report, m_item, nullptr));
    m_item = nullptr;
    Q_EMIT finished(nullptr);
}

void ReportItemCreator::reject()
{
    if (!m_item)
        return;
    if (m_report) {
        QGraphicsItem* g = m_item->graphicsItem();
        if (QGraphicsScene* scene = g->scene())
            scene->removeItem(g);
        delete m_item;
    }
    m_item = nullptr;
    Q_EMIT finished(nullptr);
}

void ReportItemCreator::finish()
{
    Q_EMIT finished(m_item);
}

bool ReportItemCreator::accept(const QPolygonF&) const
{
    return true;
}

void ReportItemCreator::snapGrid(QPointF& point, Qt::KeyboardModifiers modifiers)
{
    if (m_report)
        m_report->snapGrid(point, modifiers);
}

void ReportItemCreator::snapAngle(QPointF& point, const QPointF& anchor, Qt::KeyboardModifiers modifiers)
{
    if (m_report)
        m_report->snapAngle(point, anchor, modifiers);
}

bool ReportItemCreator::eventFilter(QObject* watched, QEvent* event)
{
    if (!m_report || watched != m_report || !m_machine)
        return false;
    if (!transition(event))
        return false;
    event->accept(); // the view treats the event as handled and passes it no further
    return true;
}

void ReportItemCreator::begin()
{
    m_selection.clear(); // keeps the storage for the next pick
    m_active = true;
    prepare(create());
}

void ReportItemCreator::append(const QPointF& point)
{
    if (!m_active)
        return;
    m_selection.append(point);
    applySelection();
}

void ReportItemCreator::move(const QPointF& point)
{
    if (!m_active || m_selection.isEmpty())
        return;
    m_selection.last() = point;
    applySelection();
}

// Only the pending item follows the points; without one the selection alone changes.
void ReportItemCreator::applySelection()
{
    if (m_item)
        m_item->setGeometry(m_item->graphicsItem()->mapFromScene(m_selection));
}

bool ReportItemCreator::end(bool ok)
{
    if (!m_active)
        return ok;
    const bool kept = ok && accept(QPolygonF(m_selection));
    if (kept)
        accept();
    else
        reject();
    m_active = false;
    return kept;
}

void ReportItemCreator::reset()
{
    if (m_machine)
        m_machine->setState(0);
    if (m_active) {
        reject();
        m_active = false;
    }
}

bool ReportItemCreator::transition(const QEvent* event)
{
    if (!m_machine || !event)
        return false;
    const QList<int> actions = m_machine->pick(event);
    if (actions.isEmpty())
        return false;

    QPointF point;
    Qt::KeyboardModifiers modifiers = Qt::NoModifier;
    if (isSceneMouseEvent(event)) {
        const auto* mouse = static_cast<const QGraphicsSceneMouseEvent*>(event);
        point = mouse->scenePos();
        modifiers = mouse->modifiers();
    } else if (m_view) {
        point = m_view->mapToScene(m_view->mapFromGlobal(QCursor::pos()));
    }

    for (int action : actions) {
        switch (action) {
        case PickMachine::Begin:
            begin();
            break;
        case PickMachine::Append:
            snapGrid(point, modifiers);
            append(point);
            break;
        case PickMachine::Move:
            snapGrid(point, modifiers);
            if (m_selection.size() >= 2)
                snapAngle(point, m_selection.at(m_selection.size() - 2), modifiers);
            if (!m_selection.isEmpty() && m_selection.last() != point)
                move(point);
            break;
        case PickMachine::End:
            end(true);
            break;
        default:
            break;
        }
    }
    return true;
}

} // namespace coagulation
