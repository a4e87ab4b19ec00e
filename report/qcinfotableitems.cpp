#include "qcinfotableitems.h"

#include <kvcore/qcexportdata.h>
#include <kvcore/statistic.h>

#include <QFontMetricsF>

namespace coagulation {

namespace {

enum { LabelColumn, ValueColumn };

constexpr double minimumColumnWidth = 50.0;

struct Row
{
    QcInfoLabel label;
    QString value;
};

QString valueText(double value)
{
    return QStringLiteral("%1").arg(value, 0, 'g', 4);
}

QString cvText(double sd, double mean)
{
    return QStringLiteral("%1%").arg(sd * 100.0 / mean, 0, 'g', 4);
}

QList<Row> limitRows(const QcExportData& data)
{
    return {{UpperStopLabel, valueText(data.upperStopLimit)},
            {UpperMarkLabel, valueText(data.upperMarkLimit)},
            {TargetLabel, valueText(data.targetValue)},
            {LowerMarkLabel, valueText(data.lowerMarkLimit)},
            {LowerStopLabel, valueText(data.lowerStopLimit)}};
}

QList<Row> materialRows(const QcExportData& data)
{
    return {{MeanLabel, valueText(data.mean)},
            {SdLabel, valueText(data.sd)},
            {CvLabel, cvText(data.sd, data.mean)}};
}

// The label and value columns, the value right-aligned.
void setUpColumns(GraphicsTableItem& table)
{
    table.setColumnCount(2);
    table.setColumnFlags(ValueColumn, Qt::AlignRight);
}

template <class Table> void appendRows(Table& table, const QList<Row>& rows)
{
    for (const Row& row : rows) {
        const int r = table.rowCount();
        table.setItemText(r, LabelColumn, Table::tr(Table::labels[row.label]));
        table.setItemText(r, ValueColumn, row.value);
    }
}

const QcExportData* boundQcData(const ReportItem& item)
{
    const Report* r = item.report();
    return r ? r->qcData() : nullptr;
}

} // namespace

// --- ReportQcInfoTableItem --------------------------------------------------------------------

const char* const ReportQcInfoTableItem::labels[] = {
    QT_TR_NOOP("上停止限"), QT_TR_NOOP("上标记限"), QT_TR_NOOP("靶值"),   QT_TR_NOOP("下标记限"),
    QT_TR_NOOP("下停止限"), QT_TR_NOOP("平均值"),   QT_TR_NOOP("SD"),     QT_TR_NOOP("CV"),
    QT_TR_NOOP("质控数量"), QT_TR_NOOP("计算均值"), QT_TR_NOOP("计算SD"), QT_TR_NOOP("计算CV")};

ReportQcInfoTableItem::ReportQcInfoTableItem()
{
    setUpColumns(*this);
    appendRows(*this, {{UpperStopLabel, QStringLiteral("18.5")},
                       {UpperMarkLabel, QStringLiteral("16.5")},
                       {TargetLabel, QStringLiteral("11.0")},
                       {LowerMarkLabel, QStringLiteral("5.5")},
                       {LowerStopLabel, QStringLiteral("3.5")}});
}

void ReportQcInfoTableItem::updateData()
{
    clear();
    const QcExportData* data = boundQcData(*this);
    if (!data)
        return;
    appendRows(*this, data->hasLimits ? limitRows(*data) : materialRows(*data));
    setColumnCount(2);
}

// --- ReportQcInfoDetailsTableItem -------------------------------------------------------------

const char* const ReportQcInfoDetailsTableItem::labels[] = {
    QT_TR_NOOP("上停止限"), QT_TR_NOOP("上标记限"), QT_TR_NOOP("靶值"),   QT_TR_NOOP("下标记限"),
    QT_TR_NOOP("下停止限"), QT_TR_NOOP("平均值"),   QT_TR_NOOP("SD"),     QT_TR_NOOP("CV"),
    QT_TR_NOOP("质控数量"), QT_TR_NOOP("计算均值"), QT_TR_NOOP("计算SD"), QT_TR_NOOP("计算CV")};

ReportQcInfoDetailsTableItem::ReportQcInfoDetailsTableItem()
{
    setUpColumns(*this);
    appendRows(*this, {{CountLabel, QStringLiteral("30")},
                       {MeanLabel, QStringLiteral("11.0")},
                       {SdLabel, QStringLiteral("0.1")},
                       {CvLabel, QStringLiteral("1%")},
                       {ComputedMeanLabel, QStringLiteral("11.0")},
                       {ComputedSdLabel, QStringLiteral("0.1")},
                       {ComputedCvLabel, QStringLiteral("1%")}});
    updateColumnWidths(size());
}

void ReportQcInfoDetailsTableItem::updateData()
{
    clear();
    const QcExportData* data = boundQcData(*this);
    if (!data)
        return;
    appendRows(*this, {{CountLabel, QString::number(data->count)}});
    if (data->hasLimits) {
        appendRows(*this, limitRows(*data));
    } else {
        // Beyond the list the range is cut; an empty one leaves the computed values at 0.
        const QList<QcPoint> printed = data->points.mid(data->firstIndex, data->count);
        double mean = 0.0;
        double sd = 0.0;
        statistic(printed, &mean, &sd);
        appendRows(*this, materialRows(*data));
        appendRows(*this, {{ComputedMeanLabel, valueText(mean)},
                           {ComputedSdLabel, valueText(sd)},
                           {ComputedCvLabel, cvText(sd, mean)}});
    }
    setColumnCount(2);
    updateColumnWidths(size());
}

void ReportQcInfoDetailsTableItem::updateColumnWidths(const QSizeF& size)
{
    const QFontMetricsF metrics(font());
    double labelWidth = 0.0;
    for (int r = 0; r < rowCount(); ++r)
        labelWidth = qMax(labelWidth, metrics.boundingRect(itemText(r, LabelColumn)).width());
    const double labelColumn = qMax(labelWidth + 2 * spacing(), minimumColumnWidth);
    setColumnWidth(LabelColumn, labelColumn);
    setColumnWidth(ValueColumn, qMax(size.width() - labelColumn, minimumColumnWidth));
}

void ReportQcInfoDetailsTableItem::updateGeometry(const QPolygonF& polygon)
{
    ReportTableItem::updateGeometry(polygon);
    const QPointF corner = pointAt(polygon, 1);
    updateColumnWidths(QSizeF(corner.x(), corner.y()));
}

} // namespace coagulation
