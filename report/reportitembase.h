#pragma once

#include "report.h"
#include "report_global.h"

#include <QBrush>
#include <QCoreApplication>
#include <QCursor>
#include <QFont>
#include <QGraphicsItem>
#include <QPen>
#include <QPolygonF>

class QDataStream;

namespace coagulation {

class Tracker;

// What every item on a report page offers to the document, the template reader, the
// undo commands and the trackers, whatever graphics item it is.
class REPORT_EXPORT ReportItem
{
    Q_DECLARE_TR_FUNCTIONS(coagulation::ReportItem)
public:
    virtual ~ReportItem();

    virtual QGraphicsItem* graphicsItem() const = 0;
    // Items without a style property keep these defaults: the getter gives the default
    // value, the setter ignores its argument.
    virtual QPen pen() const;
    virtual void setPen(const QPen& pen);
    virtual QBrush brush() const;
    virtual void setBrush(const QBrush& brush);
    virtual QFont font() const;
    virtual void setFont(const QFont& font);
    virtual Qt::Alignment alignment() const;
    virtual void setAlignment(Qt::Alignment alignment);
    // The defining polygon in item coordinates (end points, corners, table lines...).
    virtual QPolygonF geometry() const = 0;
    virtual void setGeometry(const QPolygonF& polygon) = 0;
    virtual void prepareData();
    virtual void updateData();
    // A new tracker owned by the caller, or null when the item has no handles of its own.
    virtual Tracker* createTracker();
    virtual void save(QDataStream& out) = 0;
    virtual void load(QDataStream& in) = 0;

    QString key() const;
    void setKey(const QString& key);
    Report* report() const;

    // The report item behind a scene item: data slot 1 holds its address as qulonglong.
    static ReportItem* fromGraphicsItem(const QGraphicsItem* item);

    enum DataSlot { AddressSlot = 1, KeySlot = 2 };
};

// Joins a graphics item type G with the ReportItem interface R.
template <class G, class R = ReportItem> class ReportItemImpl : public G, public R
{
public:
    ReportItemImpl() : G()
    {
        G::setData(ReportItem::AddressSlot, QVariant::fromValue<qulonglong>(
                                                reinterpret_cast<quintptr>(static_cast<ReportItem*>(this))));
        G::setCursor(Qt::SizeAllCursor);
    }
    // The implicit copy constructor (for copyable G such as the grid table) copies the
    // graphics part and the guard flag; the copy's data slot 1 stays empty.

    QGraphicsItem* graphicsItem() const override
    {
        return const_cast<QGraphicsItem*>(static_cast<const QGraphicsItem*>(this));
    }

    // The one way a geometry is applied: the document hears about it once, afterwards.
    void setGeometry(const QPolygonF& polygon) override
    {
        updatingGeometry = true;
        updateGeometry(polygon);
        updatingGeometry = false;
        if (Report* r = R::report())
            r->itemGeometryChanged(this);
    }

protected:
    virtual void updateGeometry(const QPolygonF& polygon) = 0;

    QVariant itemChange(QGraphicsItem::GraphicsItemChange change, const QVariant& value) override
    {
        QVariant result = G::itemChange(change, value);
        if (updatingGeometry)
            return result;
        if (Report* r = R::report())
            r->itemChange(this, change, result);
        return result;
    }

    void beginUpdateGeometry() { updatingGeometry = true; }
    void endUpdateGeometry() { updatingGeometry = false; }

private:
    bool updatingGeometry = false;
};

// A point of a polygon, (0, 0) when the polygon is shorter.
inline QPointF pointAt(const QPolygonF& polygon, int index)
{
    return index >= 0 && index < polygon.size() ? polygon.at(index) : QPointF();
}

} // namespace coagulation
