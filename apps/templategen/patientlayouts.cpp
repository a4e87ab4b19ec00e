#include "defaulttemplates.h"
#include "layouts_p.h"
#include "templatebuilder.h"

#include <reportitem.h>

namespace coagulation {

namespace {

using PageFurniture::margin;

// The sample block is a grid of three columns, each a label of one width and its value, so
// that labels and values line up down the page; a long value (diagnosis) spans columns.
constexpr double gridX[] = {margin, margin + 234, margin + 468, 749};
constexpr double rowStep = 26;

void labelled(TemplateBuilder& builder, const QString& label, const QString& column, int gridColumn, double y,
              double labelWidth, int span = 1)
{
    const double width = gridX[gridColumn + span] - gridX[gridColumn];
    builder.labelledField(label, QStringLiteral("patient"), column, QPointF(gridX[gridColumn], y), labelWidth,
                          width - labelWidth);
}

// Captions, rules and the result table; returns the y of the closing rule.
double resultsSection(TemplateBuilder& builder, double y)
{
    const double width = builder.pageWidth() - 2 * margin;
    const QList<double> widths = {92, 226, 96, 100, 48, 142};
    const QList<int> flags = {0, 0, Qt::AlignRight, 0, 0, 0};
    constexpr double rowHeight = 24;
    constexpr int rows = DefaultTemplates::patientResultRows;
    auto* table = new ReportPatientTableItem(builder.profile());
    table->setFont(TemplateBuilder::font(14));
    table->setGeometry(TemplateBuilder::tablePolygon(QSizeF(width, rows * rowHeight), rowHeight, widths));
    builder.columnCaptions({TemplateBuilder::tr("代码"), TemplateBuilder::tr("项目名称"),
                            TemplateBuilder::tr("结果"), TemplateBuilder::tr("单位"),
                            TemplateBuilder::tr("提示"), TemplateBuilder::tr("参考区间")},
                           widths, flags, QPointF(margin, y), table->spacing());
    builder.line(QLineF(margin, y + 30, margin + width, y + 30), 1.0);
    builder.add(table, QStringLiteral("Results"), QPointF(margin, y + 34));
    const double end = y + 34 + rows * rowHeight + 8;
    builder.line(QLineF(margin, end, margin + width, end), 1.0);
    return end;
}

// Signatures, the remark and the disclaimer above the footer.
void signatures(TemplateBuilder& builder, double remarkY)
{
    builder.labelledField(TemplateBuilder::tr("备注："), QStringLiteral("patient"), QStringLiteral("remark"),
                          QPointF(margin, remarkY), 52, 600);
    const double y = builder.pageHeight() - 130;
    PageFurniture::signature(builder, TemplateBuilder::tr("检验者："), QPointF(gridX[0], y));
    PageFurniture::signature(builder, TemplateBuilder::tr("审核者："), QPointF(gridX[2], y));
    const double width = builder.pageWidth() - 2 * margin;
    builder.text(TemplateBuilder::tr("本报告仅对所检测标本负责，如有疑问请于三日内与检验科联系。"),
                 QPointF(margin, builder.pageHeight() - 104), {12, false, Qt::AlignHCenter, width});
}

// Closes the sample block at `y` with a rule; the results, signatures and footer follow.
void finishPage(TemplateBuilder& builder, double y)
{
    builder.line(QLineF(margin, y, gridX[3], y), 1.0);
    const double end = resultsSection(builder, y + 4);
    signatures(builder, end + 6);
    PageFurniture::footer(builder);
}

} // namespace

void Layouts::patientReport(TemplateBuilder& builder)
{
    // Room for the widest label, "送检医生：", or its translation.
    const double label =
        TemplateBuilder::labelWidth({TemplateBuilder::tr("送检医生："), TemplateBuilder::tr("样本类型："),
                                     TemplateBuilder::tr("临床诊断："), TemplateBuilder::tr("采样时间："),
                                     TemplateBuilder::tr("接收时间："), TemplateBuilder::tr("报告时间：")},
                                    80);
    double y = PageFurniture::header(builder, TemplateBuilder::tr("凝血检验报告单")) + 6;
    labelled(builder, TemplateBuilder::tr("姓名："), QStringLiteral("name"), 0, y, label);
    labelled(builder, TemplateBuilder::tr("性别："), QStringLiteral("sex"), 1, y, label);
    // The age sits right against its unit; both have room for the designer's placeholders.
    builder.text(TemplateBuilder::tr("年龄："), QPointF(gridX[2], y), {14, false, Qt::AlignLeft, label});
    builder.field(QStringLiteral("patient"), QStringLiteral("age"), QPointF(gridX[2] + label, y),
                  {14, false, Qt::AlignRight, 64});
    builder.field(QStringLiteral("patient"), QStringLiteral("ageUnit"), QPointF(gridX[2] + label + 64, y),
                  {14, false, Qt::AlignLeft, gridX[3] - gridX[2] - label - 64});
    y += rowStep;
    labelled(builder, TemplateBuilder::tr("样本号："), QStringLiteral("sampleNo"), 0, y, label);
    labelled(builder, TemplateBuilder::tr("样本类型："), QStringLiteral("sampleKind"), 1, y, label);
    labelled(builder, TemplateBuilder::tr("科室："), QStringLiteral("department"), 2, y, label);
    y += rowStep;
    labelled(builder, TemplateBuilder::tr("床号："), QStringLiteral("bed"), 0, y, label);
    labelled(builder, TemplateBuilder::tr("送检医生："), QStringLiteral("doctor"), 1, y, label);
    labelled(builder, TemplateBuilder::tr("采样时间："), QStringLiteral("collectTime"), 2, y, label);
    y += rowStep;
    labelled(builder, TemplateBuilder::tr("临床诊断："), QStringLiteral("diagnosis"), 0, y, label, 2);
    labelled(builder, TemplateBuilder::tr("接收时间："), QStringLiteral("receiveTime"), 2, y, label);
    y += rowStep;
    labelled(builder, TemplateBuilder::tr("报告时间："), QStringLiteral("reportTime"), 2, y, label);
    finishPage(builder, y + rowStep + 6);
}

void Layouts::qcSampleReport(TemplateBuilder& builder)
{
    const double wide = TemplateBuilder::labelWidth({TemplateBuilder::tr("质控文件号：")}, 94);
    const double label =
        TemplateBuilder::labelWidth({TemplateBuilder::tr("样本类型："), TemplateBuilder::tr("检验科室："),
                                     TemplateBuilder::tr("测定时间："), TemplateBuilder::tr("报告时间：")},
                                    80);
    double y = PageFurniture::header(builder, TemplateBuilder::tr("质控样本检验报告单")) + 6;
    labelled(builder, TemplateBuilder::tr("质控品："), QStringLiteral("name"), 0, y, wide, 2);
    labelled(builder, TemplateBuilder::tr("样本类型："), QStringLiteral("sampleKind"), 2, y, label);
    y += rowStep;
    labelled(builder, TemplateBuilder::tr("质控文件号："), QStringLiteral("sampleNo"), 0, y, wide);
    labelled(builder, TemplateBuilder::tr("检验科室："), QStringLiteral("department"), 1, y, label);
    labelled(builder, TemplateBuilder::tr("测定时间："), QStringLiteral("collectTime"), 2, y, label);
    y += rowStep;
    labelled(builder, TemplateBuilder::tr("报告时间："), QStringLiteral("reportTime"), 2, y, label);
    finishPage(builder, y + rowStep + 6);
}

} // namespace coagulation
