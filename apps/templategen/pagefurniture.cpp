#include "layouts_p.h"
#include "templatebuilder.h"

namespace coagulation::PageFurniture {

double header(TemplateBuilder& builder, const QString& title)
{
    const double width = builder.pageWidth() - 2 * margin;
    builder.profileValue(QStringLiteral("hospital"), QPointF(margin, 30),
                         {24, true, Qt::AlignHCenter, width});
    builder.text(title, QPointF(margin, 68), {19, false, Qt::AlignHCenter, width});
    builder.line(QLineF(margin, 106, margin + width, 106), 2.0);
    return 112;
}

void signature(TemplateBuilder& builder, const QString& label, const QPointF& pos)
{
    builder.text(label, pos, {14, false, Qt::AlignLeft, -1});
    builder.line(QLineF(pos.x() + 66, pos.y() + 24, pos.x() + 170, pos.y() + 24), 0.5);
}

void footer(TemplateBuilder& builder)
{
    const double width = builder.pageWidth() - 2 * margin;
    const double y = builder.pageHeight() - 78;
    builder.line(QLineF(margin, y, margin + width, y), 1.0);
    const TextStyle label{12, false, Qt::AlignLeft, -1};
    builder.text(TemplateBuilder::tr("打印日期："), QPointF(margin, y + 4), label);
    builder.prop(QStringLiteral("date"), TemplateBuilder::tr("[打印日期]"), QPointF(margin + 62, y + 4),
                 label);
    builder.text(TemplateBuilder::tr("打印时间："), QPointF(margin + width / 2 - 90, y + 4), label);
    builder.prop(QStringLiteral("time"), TemplateBuilder::tr("[打印时间]"),
                 QPointF(margin + width / 2 - 28, y + 4), label);
    builder.text(TemplateBuilder::tr("页码："), QPointF(margin + width - 100, y + 4), label);
    builder.prop(QStringLiteral("page"), QStringLiteral("1/1"), QPointF(margin + width - 62, y + 4), label);
}

} // namespace coagulation::PageFurniture
