#include "layouts_p.h"
#include "templatebuilder.h"

#include <reportitem.h>

namespace coagulation {

void Layouts::maintenanceReport(TemplateBuilder& builder)
{
    using PageFurniture::margin;
    const double right = builder.pageWidth() - margin;
    double y = PageFurniture::header(builder, QStringLiteral("凝血分析仪维护保养记录")) + 6;

    builder.text(QStringLiteral("维护月份："), QPointF(margin, y), {14, false, Qt::AlignLeft, 80});
    auto* month = new ReportMonthItem;
    month->setFont(TemplateBuilder::font(14, true));
    month->setPlainText(QStringLiteral("[维护月份]")); // the constructor's month would date the file
    builder.add(month, QStringLiteral("MaintenanceMonth"), QPointF(margin + 80, y));
    y += 34;

    // The tables show consecutive record types, the one filled first the daily maintenance. A
    // loaded template stacks its items in reverse, and the report fills the topmost first: so the
    // daily table is placed first here.
    const double heights[] = {620, 150, 70};
    for (double height : heights) {
        auto* table = new ReportMaintenanceRecordItem;
        table->setFont(TemplateBuilder::font(11));
        table->setGeometry(QPolygonF{QPointF(margin, y), QPointF(right, y + height)});
        builder.add(table, QStringLiteral("MaintenanceRecord"), QPointF(margin, y));
        y += height + 8;
    }

    const double signY = builder.pageHeight() - 120;
    auto* operatorCaption = new ReportOperatorItem;
    operatorCaption->setFont(TemplateBuilder::font(14));
    operatorCaption->setPlainText(QStringLiteral("操作者："));
    builder.add(operatorCaption, QStringLiteral("MaintenanceOperator"), QPointF(margin, signY));
    builder.line(QLineF(margin + 66, signY + 24, margin + 170, signY + 24), 0.5);
    PageFurniture::signature(builder, QStringLiteral("审核者："), QPointF(PageFurniture::columnX[2], signY));
    PageFurniture::footer(builder);
}

} // namespace coagulation
