#include "tableitems.h"

#include "reportfont.h"
#include "sqlwarning.h"
#include "tablegeometry.h"
#include "tracker.h"

#include <core/analysisresult.h>
#include <core/profile.h>

#include <QSqlQuery>

namespace coagulation {

namespace {

constexpr QGraphicsItem::GraphicsItemFlags tableFlags = QGraphicsItem::ItemIsMovable |
                                                        QGraphicsItem::ItemIsSelectable |
                                                        QGraphicsItem::ItemSendsScenePositionChanges;

// Columns of the patient table. The header over the abbreviation reads "代码" and the one over
// the printed name "项目名称": the result's abbr goes under the first, its code under the second.
enum PatientColumn { AbbrColumn, CodeColumn, ResultColumn, UnitColumn, FlagColumn, RangeColumn };

// Decimals of a number from the database, at most.
constexpr int maxPrecision = 32;

// The assay look-up: whether a result is printed and with how many decimals.
const char assaySql[] = "select precision, visible from assayItem, assayTemplate where assayTemplate.id = "
                        "assayItem.assayTemplateId and  assayTemplate.name = :item and  assayItem.name = "
                        ":subitem";

} // namespace

// --- ReportTableItem --------------------------------------------------------------------------

ReportTableItem::ReportTableItem()
{
    setFlags(tableFlags);
    GraphicsTableItem::setFont(withChineseFallback(GraphicsTableItem::font()));
}

ReportTableItem::ReportTableItem(const ReportTableItem& other)
    : ReportItemImpl<GraphicsTableItem, ReportItem>(other)
{
    setFlags(tableFlags);
    setCursor(Qt::SizeAllCursor);
    setData(AddressSlot,
            QVariant::fromValue<qulonglong>(reinterpret_cast<quintptr>(static_cast<ReportItem*>(this))));
    setKey(other.key());
}

Tracker* ReportTableItem::createTracker()
{
    return new TableTracker(this);
}

QFont ReportTableItem::font() const
{
    return GraphicsTableItem::font();
}

void ReportTableItem::setFont(const QFont& font)
{
    GraphicsTableItem::setFont(withChineseFallback(font));
}

QPolygonF ReportTableItem::geometry() const
{
    return tableHandlePolygon(*this, size());
}

void ReportTableItem::updateGeometry(const QPolygonF& polygon)
{
    if (polygon.isEmpty())
        return;
    prepareGeometryChange();
    const QPolygonF q = polygon.translated(-polygon.first());
    applyTableLines(*this, q);
    const QPointF corner = pointAt(q, 1);
    // Never smaller than its rows and columns need.
    setSize(QSizeF(corner.x(), corner.y()).expandedTo(preferredSize()));
    setPos(mapToParent(polygon.first()));
}

void ReportTableItem::save(QDataStream& out)
{
    GraphicsTableItem::save(out);
}

void ReportTableItem::load(QDataStream& in)
{
    prepareGeometryChange();
    GraphicsTableItem::load(in);
    setFont(font());
}

// --- ReportPatientTableItem -------------------------------------------------------------------

ReportPatientTableItem::ReportPatientTableItem(Profile* profile) : m_profile(profile)
{
    setColumnCount(6);
    setColumnFlags(ResultColumn, Qt::AlignRight);
    const QStringList header = {tr("代码"), tr("项目名称"), tr("结果"), tr("单位"), tr("标志"), tr("参考值")};
    for (int c = 0; c < header.size(); ++c)
        setItemText(0, c, header.at(c));

    AnalysisResult sample(12.3);
    sample.setFlags(65535);
    setItemText(1, AbbrColumn, QStringLiteral("PT-S"));
    setItemText(1, CodeColumn, tr("凝血酶原时间"));
    setItemText(1, ResultColumn, sample.toString(profile, 1, 'g', 4));
    setItemText(1, UnitColumn, QStringLiteral("s"));
    setItemText(1, FlagColumn, sample.suffix(profile));
    setItemText(1, RangeColumn, QStringLiteral("10.0-13.0"));
}

void ReportPatientTableItem::updateData()
{
    clear();
    Report* r = report();
    if (!r || !m_profile)
        return;

    // Both queries are read front to back once: no row cache.
    QSqlQuery results(m_profile->dataDatabase());
    results.setForwardOnly(true);
    if (!results.exec(
            QStringLiteral("select item, subitem, abbr, code, result, unit, flag, lowerMarkLimit, "
                           "upperMarkLimit from result where patientId=%1 order by displayOrder asc")
                .arg(r->patientId())))
        REPORT_SQL_WARNING(results.lastError());

    // All look-ups of the table read one state of the assay catalogue, under one read lock
    // rather than one per result. Inside a transaction of the caller's they are in that one.
    QSqlDatabase catalogue = m_profile->database();
    const bool ownTransaction = catalogue.transaction();
    QSqlQuery assay(catalogue);
    assay.setForwardOnly(true);
    if (!assay.prepare(QLatin1String(assaySql)))
        REPORT_SQL_WARNING(assay.lastError());

    int row = 0;
    while (results.next()) {
        assay.bindValue(QStringLiteral(":item"), results.value(0));
        assay.bindValue(QStringLiteral(":subitem"), results.value(1));
        if (!assay.exec())
            REPORT_SQL_WARNING(assay.lastError());
        // Hidden and unknown assays are left out without a gap.
        if (!assay.next() || !assay.value(1).toBool())
            continue;
        // Beyond what a result can show, more decimals only cost memory (a database may say
        // 2147483647); the result column is cut the same way.
        const int precision = qMin(assay.value(0).toInt(), maxPrecision);

        AnalysisResult result(results.value(4).toString(), m_profile);
        result.setFlags(results.value(6).toInt());
        const double lower = results.value(7).toDouble();
        const double upper = results.value(8).toDouble();
        const QString range = lower > 0 || upper > 0
                                  ? QStringLiteral("%1-%2").arg(QString::number(lower, 'f', precision),
                                                                QString::number(upper, 'f', precision))
                                  : QString();

        setItemText(row, AbbrColumn, results.value(2).toString());
        setItemText(row, CodeColumn, results.value(3).toString());
        setItemText(row, ResultColumn, result.toString(m_profile, 1, 'f', precision));
        setItemText(row, UnitColumn, results.value(5).toString());
        setItemText(row, FlagColumn, result.suffix(m_profile));
        setItemText(row, RangeColumn, range);
        ++row;
    }
    assay.finish();
    // A transaction left open would keep every other writer out of the catalogue.
    if (ownTransaction && !catalogue.commit())
        catalogue.rollback();
}

} // namespace coagulation
