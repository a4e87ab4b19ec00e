#include "templatebuilder.h"

#include <reportitem.h>

#include <QFontMetricsF>
#include <QPen>

#include <cmath>

namespace coagulation {

TemplateBuilder::TemplateBuilder(Report* report) : m_report(report) {}

QFont TemplateBuilder::font(int pixelSize, bool bold)
{
    QFont font(QStringLiteral("Noto Sans CJK SC"));
    font.setPixelSize(pixelSize);
    font.setBold(bold);
    return font;
}

double TemplateBuilder::labelWidth(const QStringList& labels, double atLeast, int pixelSize)
{
    const QFontMetricsF metrics(font(pixelSize));
    const double textMargin = 4; // a text item's margin on either side
    double width = atLeast;
    for (const QString& label : labels)
        width = qMax(width, std::ceil(metrics.horizontalAdvance(label) + 2 * textMargin));
    return width;
}

void TemplateBuilder::add(ReportItem* item, const QString& key, const QPointF& pos)
{
    item->setKey(key);
    item->graphicsItem()->setPos(pos);
    m_report->addItem(item->graphicsItem());
}

ReportTextItem* TemplateBuilder::styled(ReportTextItem* item, const QString& key, const QPointF& pos,
                                        const TextStyle& style)
{
    item->setFont(font(style.pixelSize, style.bold));
    item->setTextWidth(style.width);
    item->setAlignment(style.alignment);
    add(item, key, pos);
    return item;
}

ReportTextItem* TemplateBuilder::text(const QString& text, const QPointF& pos, const TextStyle& style)
{
    auto* item = new ReportTextItem(true);
    item->setPlainText(text);
    return styled(item, QStringLiteral("Text"), pos, style);
}

ReportTextItem* TemplateBuilder::field(const QString& table, const QString& column, const QPointF& pos,
                                       const TextStyle& style)
{
    return styled(new ReportFieldItem(profile(), table, column),
                  QStringLiteral("field:/%1/%2").arg(table, column), pos, style);
}

ReportTextItem* TemplateBuilder::prop(const QString& name, const QString& placeholder, const QPointF& pos,
                                      const TextStyle& style)
{
    auto* item = new ReportPropItem(profile(), name);
    // A fixed placeholder keeps the template file the same whatever day it is built on.
    item->setPlainText(placeholder);
    return styled(item, QStringLiteral("prop:/") + name, pos, style);
}

ReportTextItem* TemplateBuilder::profileValue(const QString& name, const QPointF& pos, const TextStyle& style)
{
    return styled(new ReportProfileItem(profile(), name), QStringLiteral("profile:/") + name, pos, style);
}

void TemplateBuilder::labelledField(const QString& label, const QString& table, const QString& column,
                                    const QPointF& pos, double labelWidth, double fieldWidth, int pixelSize)
{
    TextStyle style;
    style.pixelSize = pixelSize;
    style.width = labelWidth;
    text(label, pos, style);
    style.width = fieldWidth;
    field(table, column, pos + QPointF(labelWidth, 0), style);
}

void TemplateBuilder::line(const QLineF& line, double width)
{
    auto* item = new ReportLineItem;
    item->setLine(line);
    item->setPen(QPen(Qt::black, width));
    add(item, QStringLiteral("Line"), QPointF());
}

void TemplateBuilder::rect(const QRectF& rect, double width, const QBrush& brush)
{
    auto* item = new ReportRectItem;
    item->setRect(rect);
    item->setPen(QPen(Qt::black, width));
    item->setBrush(brush);
    add(item, QStringLiteral("Rect"), QPointF());
}

QPolygonF TemplateBuilder::tablePolygon(const QSizeF& size, double rowHeight, const QList<double>& widths)
{
    QPolygonF polygon{QPointF(0, 0), QPointF(size.width(), size.height()), QPointF(0, rowHeight)};
    double x = 0;
    for (double width : widths) {
        x += width;
        polygon << QPointF(x, 0);
    }
    return polygon;
}

void TemplateBuilder::columnCaptions(const QStringList& captions, const QList<double>& widths,
                                     const QList<int>& flags, const QPointF& pos, double spacing,
                                     int pixelSize)
{
    // A text item keeps its own margin around the text, the table its cell spacing.
    const double textMargin = 4;
    double x = pos.x();
    for (int c = 0; c < captions.size() && c < widths.size(); ++c) {
        const Qt::Alignment alignment =
            c < flags.size() && (flags.at(c) & Qt::AlignRight) ? Qt::AlignRight : Qt::AlignLeft;
        text(captions.at(c), QPointF(x + spacing - textMargin, pos.y()),
             {pixelSize, true, alignment, widths.at(c) - 2 * (spacing - textMargin)});
        x += widths.at(c);
    }
}

} // namespace coagulation
