#include "report.h"

#include "commands.h"
#include "reportitembase.h"
#include "tracker.h"

#include <QLineF>
#include <QPrinter>
#include <QUndoStack>

#include <cmath>

namespace coagulation {

const QString Report::suffix = QStringLiteral("rpt");
const QString Report::mimeType = QStringLiteral("application/x-qt-windows-mime;value=\"ReportItems\"");

namespace {

// Halves away from zero, truncated to a 64-bit integer.
qint64 roundAway(double v)
{
    return static_cast<qint64>(v >= 0 ? v + 0.5 : v - 0.5);
}

} // namespace

Report::Report(Profile* profile, ItemFactory* factory, QObject* parent)
    : QGraphicsScene(parent), m_profile(profile), m_factory(factory), m_undoStack(new QUndoStack(this))
{
    calculatePageSize();
    updateSceneRect();
    m_selectionConnection =
        connect(this, &QGraphicsScene::selectionChanged, this, &Report::onSelectionChanged);
}

Report::~Report()
{
    disconnect(m_selectionConnection);
    // Items go before the undo stack, so a tracker never outlives its item.
    delete m_tracker;
    m_tracker = nullptr;
    clear();
}

QString Report::typeName(kv::ReportType type)
{
    switch (type) {
    case kv::PatientReport:
        return tr("样本报告单");
    case kv::QcReport:
        return tr("质控报告单");
    case kv::MaintenanceRecordReport:
        return tr("维护记录报告单");
    default:
        return QString();
    }
}

void Report::setPageSize(QPageSize::PageSizeId id)
{
    m_pageSize = id;
    calculatePageSize();
    updateSceneRect();
}

void Report::setOrientation(QPageLayout::Orientation orientation)
{
    m_orientation = orientation;
    updateSceneRect();
}

void Report::setPageSizeF(const QSizeF& millimetres)
{
    m_pageSize = QPageSize::Custom;
    m_pageSizeF = millimetres;
    updateSceneRect();
}

void Report::calculatePageSize()
{
    // The toolkit's page table; a custom id has no size of its own and keeps the current one.
    if (m_pageSize == QPageSize::Custom && m_pageSizeF.isValid())
        return;
    m_pageSizeF = QPageSize(m_pageSize).size(QPageSize::Millimeter);
}

void Report::updateSceneRect()
{
    QSizeF size = m_pageSizeF;
    if (m_orientation == QPageLayout::Landscape)
        size.transpose();
    setSceneRect(0, 0, size.width() * double(m_dpiX) / 25.4, size.height() * double(m_dpiY) / 25.4);
}

void Report::setupPrinter(QPrinter* printer) const
{
    printer->setPageSize(QPageSize(m_pageSizeF, QPageSize::Millimeter, QString(), QPageSize::FuzzyMatch));
    printer->setPageOrientation(m_orientation);
    printer->setFullPage(true);
}

void Report::snapGrid(QPointF& point, Qt::KeyboardModifiers modifiers) const
{
    if (modifiers & Qt::AltModifier)
        return;
    const double w = m_gridSize.width();
    const double h = m_gridSize.height();
    if (w > 0)
        point.setX(w * double(roundAway(point.x() / w)));
    if (h > 0)
        point.setY(h * double(roundAway(point.y() / h)));
}

void Report::snapAngle(QPointF& point, const QPointF& anchor, Qt::KeyboardModifiers modifiers) const
{
    if (!(modifiers & Qt::ShiftModifier))
        return;
    QLineF line(anchor, point);
    const double steps = double(roundAway(line.angle() / 45.0));
    line.setAngle(steps * 45.0);
    point = line.p2();
}

QList<ReportItem*> Report::reportItems() const
{
    QList<ReportItem*> result;
    const QList<QGraphicsItem*> all = items(Qt::DescendingOrder);
    for (QGraphicsItem* g : all) {
        if (ReportItem* item = ReportItem::fromGraphicsItem(g))
            result.append(item);
    }
    return result;
}

void Report::addUndoCommand(QUndoCommand* command)
{
    if (m_replaying) {
        delete command;
        return;
    }
    m_undoStack->push(command);
}

void Report::undo()
{
    m_replaying = true;
    if (m_undoStack->canUndo())
        m_undoStack->undo();
    m_replaying = false;
}

void Report::redo()
{
    m_replaying = true;
    if (m_undoStack->canRedo())
        m_undoStack->redo();
    m_replaying = false;
}

void Report::itemChange(ReportItem* item, QGraphicsItem::GraphicsItemChange change, QVariant& value)
{
    if (!m_designMode || !item->graphicsItem()->isSelected())
        return;
    switch (change) {
    case QGraphicsItem::ItemPositionChange:
        if (!m_replaying) {
            QPointF point = value.toPointF();
            snapGrid(point, Qt::NoModifier);
            value = point;
            m_undoStack->push(new PositionCommand(selectedItems(), nullptr));
        }
        break;
    case QGraphicsItem::ItemPositionHasChanged:
    case QGraphicsItem::ItemTransformHasChanged:
        if (m_tracker)
            m_tracker->updateGeometry();
        break;
    default:
        break;
    }
}

void Report::itemGeometryChanged(ReportItem* item)
{
    if (m_designMode && m_tracker && item->graphicsItem()->isSelected())
        m_tracker->updateGeometry();
}

void Report::onSelectionChanged()
{
    if (!m_designMode)
        return;
    delete m_tracker;
    m_tracker = nullptr;

    const QList<QGraphicsItem*> selected = selectedItems();
    if (selected.size() != 1)
        return;
    ReportItem* item = ReportItem::fromGraphicsItem(selected.constFirst());
    if (!item)
        return;
    m_tracker = item->createTracker();
    // TRACKER-FALLBACK: an item without handles of its own gets a transform tracker.
    if (!m_tracker)
        return;
    addItem(m_tracker);
    m_tracker->setZValue(1.0);
    m_tracker->updateGeometry();
}

void Report::mouseReleaseEvent(QGraphicsSceneMouseEvent* event)
{
    QGraphicsScene::mouseReleaseEvent(event);
}

} // namespace coagulation
