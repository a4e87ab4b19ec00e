#pragma once

#include <QCoreApplication>
#include <QHash>
#include <QRectF>
#include <QStringList>

class QGraphicsItem;

namespace coagulation {

class Report;
class ReportItem;

// Tells which items of a bound page outgrew the room their template gives them: a table with
// more rows than its stored height holds, an item running past the page, an item grown over a
// neighbour it kept clear of in the template.
class OverflowCheck
{
    Q_DECLARE_TR_FUNCTIONS(coagulation::OverflowCheck)
public:
    // Takes the room of every item from the report as loaded, before anything is bound.
    explicit OverflowCheck(Report* report);

    // One warning per item that outgrew its room on the page bound now, each naming `subject`
    // (the patient, series or month) and the item.
    QStringList check(const QString& subject) const;

    // Where an item can put ink: a text without the margin its document keeps around it.
    static QRectF inkRect(const QGraphicsItem* item);
    // Boxes sharing more than a sliver; touching edges and anti-aliasing do not count.
    static bool overlap(const QRectF& a, const QRectF& b);

private:
    QString tableOverflow(ReportItem* item) const;

    Report* m_report;
    QHash<ReportItem*, QRectF> m_room;
};

} // namespace coagulation
