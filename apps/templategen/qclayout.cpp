#include "layouts_p.h"
#include "templatebuilder.h"

#include <reportitem.h>

namespace coagulation {

namespace {

using PageFurniture::margin;

using PageFurniture::columnX;
constexpr double rowStep = 26;

void labelledField(TemplateBuilder& builder, const QString& label, const QString& column, int gridColumn,
                   double y, double labelWidth, int span = 1)
{
    const double width = columnX[gridColumn + span] - columnX[gridColumn];
    builder.labelledField(label, QStringLiteral("reagent"), column, QPointF(columnX[gridColumn], y),
                          labelWidth, width - labelWidth);
}

void labelledProp(TemplateBuilder& builder, const QString& label, const QString& name, const QString& sample,
                  int gridColumn, double y, double labelWidth)
{
    const double width = columnX[gridColumn + 1] - columnX[gridColumn];
    builder.text(label, QPointF(columnX[gridColumn], y), {14, false, Qt::AlignLeft, labelWidth});
    builder.prop(name, sample, QPointF(columnX[gridColumn] + labelWidth, y),
                 {14, false, Qt::AlignLeft, width - labelWidth});
}

void caption(TemplateBuilder& builder, const QString& text, const QPointF& pos)
{
    builder.text(text, pos, {15, true, Qt::AlignLeft, -1});
}

// The QC points of the page in two newspaper columns, with captions over each block.
void resultTable(TemplateBuilder& builder, const QRectF& area)
{
    const QList<double> widths = {88, 76, 60};
    const QList<int> flags = {0, 0, Qt::AlignRight};
    constexpr double rowHeight = 24;
    constexpr double captionHeight = 30;
    auto* table = new ReportQcTableItem;
    table->setFont(TemplateBuilder::font(13));
    const double height = area.height() - captionHeight - 4;
    table->setGeometry(TemplateBuilder::tablePolygon(QSizeF(area.width(), height), rowHeight, widths));
    builder.add(table, QStringLiteral("QcTable"), area.topLeft() + QPointF(0, captionHeight + 4));

    const QStringList captions = {TemplateBuilder::tr("日期"), TemplateBuilder::tr("时间"),
                                  TemplateBuilder::tr("结果")};
    const QList<GraphicsTableItem*> blocks = table->blocks();
    for (GraphicsTableItem* block : blocks)
        builder.columnCaptions(captions, widths, flags, area.topLeft() + QPointF(block->pos().x(), 0),
                               block->spacing(), 13);
    builder.line(QLineF(area.left(), area.top() + captionHeight, area.right(), area.top() + captionHeight),
                 1.0);
}

} // namespace

void Layouts::qcReport(TemplateBuilder& builder)
{
    const double right = columnX[4];
    double y = PageFurniture::header(builder, TemplateBuilder::tr("室内质控报告")) + 6;
    labelledField(builder, TemplateBuilder::tr("质控品名称："), QStringLiteral("name"), 0, y, 94, 2);
    labelledField(builder, TemplateBuilder::tr("批号："), QStringLiteral("lot"), 2, y, 52);
    labelledField(builder, TemplateBuilder::tr("水平："), QStringLiteral("level"), 3, y, 52);
    y += rowStep;
    labelledProp(builder, TemplateBuilder::tr("检测项目："), QStringLiteral("qc/item"),
                 QStringLiteral("[PT]"), 0, y, 80);
    labelledProp(builder, TemplateBuilder::tr("缩写："), QStringLiteral("qc/abbr"), QStringLiteral("[PT-S]"),
                 1, y, 52);
    labelledProp(builder, TemplateBuilder::tr("单位："), QStringLiteral("qc/unit"), QStringLiteral("[s]"), 2,
                 y, 52);
    labelledProp(builder, TemplateBuilder::tr("质控文件号："), QStringLiteral("qc/fileno"),
                 QStringLiteral("[QC01]"), 3, y, 94);
    y += rowStep;
    labelledField(builder, TemplateBuilder::tr("生产厂家："), QStringLiteral("manufacturer"), 0, y, 80, 2);
    labelledField(builder, TemplateBuilder::tr("有效期："), QStringLiteral("expiry"), 2, y, 66, 2);
    y += rowStep + 8;
    builder.line(QLineF(margin, y, right, y), 1.0);

    y += 6;
    caption(builder, TemplateBuilder::tr("质控图"), QPointF(margin, y));
    y += 30;
    constexpr double chartHeight = 300;
    auto* chart = new ReportQcChartItem;
    chart->setFont(TemplateBuilder::font(12));
    const QRectF chartRect(margin, y, right - margin, chartHeight);
    chart->setGeometry(QPolygonF{chartRect.topLeft(), chartRect.bottomRight()});
    builder.add(chart, QStringLiteral("QcChart"), chartRect.topLeft());
    y += chartHeight + 12;
    builder.line(QLineF(margin, y, right, y), 1.0);
    y += 6;

    const double bottom = builder.pageHeight() - 140;
    constexpr double statisticsWidth = 204;
    const double tableWidth = right - margin - statisticsWidth - 30;
    caption(builder, TemplateBuilder::tr("质控结果"), QPointF(margin, y));
    resultTable(builder, QRectF(margin, y + 30, tableWidth, bottom - y - 30));

    const double statisticsX = right - statisticsWidth;
    caption(builder, TemplateBuilder::tr("统计信息"), QPointF(statisticsX, y));
    auto* details = new ReportQcInfoDetailsTableItem;
    details->setFont(TemplateBuilder::font(13));
    details->setGeometry(TemplateBuilder::tablePolygon(QSizeF(statisticsWidth, 7 * 24.0), 24,
                                                       {details->columnWidth(0), details->columnWidth(1)}));
    builder.add(details, QStringLiteral("QcControlInfoDetails"), QPointF(statisticsX, y + 34));
    builder.line(QLineF(statisticsX, y + 30, right, y + 30), 1.0);

    const double signY = builder.pageHeight() - 120;
    PageFurniture::signature(builder, TemplateBuilder::tr("操作者："), QPointF(columnX[0], signY));
    PageFurniture::signature(builder, TemplateBuilder::tr("审核者："), QPointF(columnX[2], signY));
    PageFurniture::footer(builder);
}

} // namespace coagulation
