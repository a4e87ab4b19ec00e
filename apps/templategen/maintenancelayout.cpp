#include "layouts_p.h"
#include "templatebuilder.h"

#include <reportitem.h>

namespace coagulation {

void Layouts::maintenanceReport(TemplateBuilder& builder)
{
    using PageFurniture::columnX;
    using PageFurniture::margin;
    const double right = builder.pageWidth() - margin;
    double y = PageFurniture::header(builder, TemplateBuilder::tr("凝血分析仪维护保养记录")) + 6;

    // Month and signatures share the first line, so the tables keep the rest of the page.
    builder.text(TemplateBuilder::tr("维护月份："), QPointF(margin, y), {14, false, Qt::AlignLeft, 80});
    auto* month = new ReportMonthItem;
    month->setFont(TemplateBuilder::font(14, true));
    month->setPlainText(TemplateBuilder::tr("[维护月份]")); // the constructor's month would date the file
    builder.add(month, QStringLiteral("MaintenanceMonth"), QPointF(margin + 74, y));
    auto* operatorCaption = new ReportOperatorItem;
    operatorCaption->setFont(TemplateBuilder::font(14));
    operatorCaption->setPlainText(TemplateBuilder::tr("操作者："));
    builder.add(operatorCaption, QStringLiteral("MaintenanceOperator"), QPointF(columnX[2] - 40, y));
    builder.line(QLineF(columnX[2] + 26, y + 24, columnX[2] + 130, y + 24), 0.5);
    PageFurniture::signature(builder, TemplateBuilder::tr("审核者："), QPointF(columnX[3] + 10, y));
    y += 32;

    // The tables size themselves to the month's records when printed. They show consecutive
    // record types, the table filled first the daily maintenance; a loaded template stacks its
    // items in reverse and the report fills the topmost first, so the daily table is added first.
    // Rows are one or (for a long remark or a notable result) two lines high: the daily table has
    // room for a 31-day month with about eight two-line rows, the weekly one for five weeks.
    const double heights[] = {703, 124, 56};
    for (double height : heights) {
        auto* table = new ReportMaintenanceRecordItem;
        table->setFont(TemplateBuilder::font(10));
        table->setGeometry(QPolygonF{QPointF(margin, y), QPointF(right, y + height)});
        builder.add(table, QStringLiteral("MaintenanceRecord"), QPointF(margin, y));
        y += height + 4;
    }
    PageFurniture::footer(builder);
}

} // namespace coagulation
