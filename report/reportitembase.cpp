#include "reportitembase.h"

#include "report.h"

namespace coagulation {

ReportItem::~ReportItem() = default;

QPen ReportItem::pen() const
{
    return QPen();
}

void ReportItem::setPen(const QPen&) {}

QBrush ReportItem::brush() const
{
    return QBrush();
}

void ReportItem::setBrush(const QBrush&) {}

QFont ReportItem::font() const
{
    return QFont();
}

void ReportItem::setFont(const QFont&) {}

Qt::Alignment ReportItem::alignment() const
{
    return {};
}

void ReportItem::setAlignment(Qt::Alignment) {}

void ReportItem::prepareData() {}

void ReportItem::updateData() {}

Tracker* ReportItem::createTracker()
{
    return nullptr;
}

QString ReportItem::key() const
{
    return graphicsItem()->data(KeySlot).toString();
}

void ReportItem::setKey(const QString& key)
{
    graphicsItem()->setData(KeySlot, key);
}

Report* ReportItem::report() const
{
    QGraphicsItem* g = graphicsItem();
    return g ? qobject_cast<Report*>(g->scene()) : nullptr;
}

ReportItem* ReportItem::fromGraphicsItem(const QGraphicsItem* item)
{
    if (!item)
        return nullptr;
    const QVariant address = item->data(AddressSlot);
    // Only a qulonglong counts: handles and grid lines may carry other data in slot 1.
    if (address.typeId() != QMetaType::ULongLong)
        return nullptr;
    return reinterpret_cast<ReportItem*>(static_cast<quintptr>(address.toULongLong()));
}

} // namespace coagulation
