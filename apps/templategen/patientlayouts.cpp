#include "layouts_p.h"
#include "templatebuilder.h"

#include <reportitem.h>

namespace coagulation {

namespace {

using PageFurniture::margin;

// Left edges of the four columns of the patient block, and its right end.
using PageFurniture::columnX;
constexpr double rowStep = 26;

void labelled(TemplateBuilder& builder, const QString& label, const QString& column, int gridColumn, double y,
              double labelWidth, int span = 1)
{
    const double width = columnX[gridColumn + span] - columnX[gridColumn];
    builder.labelledField(label, QStringLiteral("patient"), column, QPointF(columnX[gridColumn], y),
                          labelWidth, width - labelWidth);
}

// Captions, rules and the result table; returns the y of the closing rule.
double resultsSection(TemplateBuilder& builder, double y)
{
    const double width = builder.pageWidth() - 2 * margin;
    const QList<double> widths = {92, 226, 96, 100, 48, 142};
    const QList<int> flags = {0, 0, Qt::AlignRight, 0, 0, 0};
    constexpr double rowHeight = 26;
    constexpr int rows = 14;
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
    PageFurniture::signature(builder, TemplateBuilder::tr("检验者："), QPointF(columnX[0], y));
    PageFurniture::signature(builder, TemplateBuilder::tr("审核者："), QPointF(columnX[2], y));
    const double width = builder.pageWidth() - 2 * margin;
    builder.text(TemplateBuilder::tr("本报告仅对所检测标本负责，如有疑问请于三日内与检验科联系。"),
                 QPointF(margin, builder.pageHeight() - 104), {12, false, Qt::AlignHCenter, width});
}

// Closes the sample block at `y` with a rule; the results, signatures and footer follow.
void finishPage(TemplateBuilder& builder, double y)
{
    builder.line(QLineF(margin, y, columnX[4], y), 1.0);
    const double end = resultsSection(builder, y + 4);
    signatures(builder, end + 6);
    PageFurniture::footer(builder);
}

} // namespace

void Layouts::patientReport(TemplateBuilder& builder)
{
    double y = PageFurniture::header(builder, TemplateBuilder::tr("凝血检验报告单")) + 6;
    labelled(builder, TemplateBuilder::tr("姓名："), QStringLiteral("name"), 0, y, 52);
    labelled(builder, TemplateBuilder::tr("性别："), QStringLiteral("sex"), 1, y, 52);
    builder.text(TemplateBuilder::tr("年龄："), QPointF(columnX[2], y), {14, false, Qt::AlignLeft, 52});
    builder.field(QStringLiteral("patient"), QStringLiteral("age"), QPointF(columnX[2] + 52, y),
                  {14, false, Qt::AlignRight, 36});
    builder.field(QStringLiteral("patient"), QStringLiteral("ageUnit"), QPointF(columnX[2] + 80, y),
                  {14, false, Qt::AlignLeft, 60});
    labelled(builder, TemplateBuilder::tr("样本号："), QStringLiteral("sampleNo"), 3, y, 66);
    y += rowStep;
    labelled(builder, TemplateBuilder::tr("科室："), QStringLiteral("department"), 0, y, 52);
    labelled(builder, TemplateBuilder::tr("床号："), QStringLiteral("bed"), 1, y, 52);
    labelled(builder, TemplateBuilder::tr("送检医生："), QStringLiteral("doctor"), 2, y, 80);
    labelled(builder, TemplateBuilder::tr("样本类型："), QStringLiteral("sampleKind"), 3, y, 80);
    y += rowStep;
    labelled(builder, TemplateBuilder::tr("临床诊断："), QStringLiteral("diagnosis"), 0, y, 80, 2);
    labelled(builder, TemplateBuilder::tr("采样时间："), QStringLiteral("collectTime"), 2, y, 80, 2);
    y += rowStep;
    labelled(builder, TemplateBuilder::tr("接收时间："), QStringLiteral("receiveTime"), 0, y, 80, 2);
    labelled(builder, TemplateBuilder::tr("报告时间："), QStringLiteral("reportTime"), 2, y, 80, 2);
    finishPage(builder, y + rowStep + 8);
}

void Layouts::qcSampleReport(TemplateBuilder& builder)
{
    double y = PageFurniture::header(builder, TemplateBuilder::tr("质控样本检验报告单")) + 6;
    labelled(builder, TemplateBuilder::tr("质控品："), QStringLiteral("name"), 0, y, 66, 2);
    labelled(builder, TemplateBuilder::tr("质控文件号："), QStringLiteral("sampleNo"), 2, y, 94, 2);
    y += rowStep;
    labelled(builder, TemplateBuilder::tr("样本类型："), QStringLiteral("sampleKind"), 0, y, 80, 2);
    labelled(builder, TemplateBuilder::tr("检验科室："), QStringLiteral("department"), 2, y, 80, 2);
    y += rowStep;
    labelled(builder, TemplateBuilder::tr("测定时间："), QStringLiteral("collectTime"), 0, y, 80, 2);
    labelled(builder, TemplateBuilder::tr("报告时间："), QStringLiteral("reportTime"), 2, y, 80, 2);
    finishPage(builder, y + rowStep + 8);
}

} // namespace coagulation
