#include "overflowcheck.h"

#include <report.h>
#include <reportitem.h>

#include <QGraphicsTextItem>
#include <QTextDocument>

namespace coagulation {

namespace {

bool grew(const QRectF& now, const QRectF& room)
{
    return now.left() < room.left() - 0.5 || now.top() < room.top() - 0.5 ||
           now.right() > room.right() + 0.5 || now.bottom() > room.bottom() + 0.5;
}

} // namespace

OverflowCheck::OverflowCheck(Report* report) : m_report(report)
{
    for (ReportItem* item : report->reportItems())
        m_room.insert(item, inkRect(item->graphicsItem()));
}

QRectF OverflowCheck::inkRect(const QGraphicsItem* item)
{
    const QRectF bounds = item->sceneBoundingRect();
    if (auto* text = dynamic_cast<const QGraphicsTextItem*>(item)) {
        const double margin = text->document()->documentMargin();
        return bounds.adjusted(margin, margin, -margin, -margin);
    }
    return bounds;
}

bool OverflowCheck::overlap(const QRectF& a, const QRectF& b)
{
    const QRectF common = a.intersected(b);
    return common.width() > 1.0 && common.height() > 1.0;
}

QString OverflowCheck::tableOverflow(ReportItem* item) const
{
    const GraphicsTableItem* grid = nullptr;
    double height = 0.0;
    if (auto* table = dynamic_cast<ReportTableItem*>(item)) {
        grid = table;
        height = table->size().height();
    } else if (auto* multi = dynamic_cast<ReportMultiColTableItem*>(item)) {
        height = multi->size().height();
        for (const GraphicsTableItem* block : multi->blocks()) {
            if (!grid || block->rowCount() > grid->rowCount())
                grid = block;
        }
    }
    if (!grid || grid->preferredSize().height() <= height + 0.5)
        return QString();
    const int room = grid->rowHeight() > 0 ? int(height / grid->rowHeight() + 1e-6) : 0;
    return tr("表格 %1 有 %2 行，模板只留出 %3 行的位置").arg(item->key()).arg(grid->rowCount()).arg(room);
}

QStringList OverflowCheck::check(const QString& subject) const
{
    QStringList warnings;
    const QRectF page = m_report->sceneRect();
    const QList<ReportItem*> items = m_report->reportItems();
    for (ReportItem* item : items) {
        const QRectF bounds = inkRect(item->graphicsItem());
        QString problem = tableOverflow(item);
        if (problem.isEmpty() && !page.adjusted(-0.5, -0.5, 0.5, 0.5).contains(bounds))
            problem = tr("%1 超出页面").arg(item->key());
        const QRectF room = m_room.value(item, bounds);
        if (problem.isEmpty() && grew(bounds, room)) {
            QStringList covered;
            for (ReportItem* other : items) {
                const QRectF otherRoom = m_room.value(other);
                if (other != item && overlap(bounds, inkRect(other->graphicsItem())) &&
                    !overlap(room, otherRoom))
                    covered.append(other->key());
            }
            if (!covered.isEmpty())
                problem = tr("%1 超出模板留出的位置，压住了 %2")
                              .arg(item->key(), covered.join(QStringLiteral("、")));
        }
        if (!problem.isEmpty())
            warnings.append(tr("%1：%2").arg(subject, problem));
    }
    return warnings;
}

} // namespace coagulation
