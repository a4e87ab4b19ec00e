#include "styleeditor.h"

#include "reporteditor.h"

#include <commands.h>
#include <reportitembase.h>

#include <QPainter>
#include <QPixmap>

namespace coagulation {

StyleEditor::StyleEditor(ReportEditor* editor, QObject* parent) : QObject(parent), m_editor(editor) {}

QList<std::pair<Qt::PenStyle, QString>> StyleEditor::penStyles()
{
    return {{Qt::NoPen, tr("无")},     {Qt::SolidLine, tr("实线")},     {Qt::DashLine, tr("虚线")},
            {Qt::DotLine, tr("点线")}, {Qt::DashDotLine, tr("点划线")}, {Qt::DashDotDotLine, tr("双点划线")}};
}

QList<std::pair<Qt::BrushStyle, QString>> StyleEditor::brushStyles()
{
    return {{Qt::NoBrush, tr("无填充")},     {Qt::SolidPattern, tr("实心")},
            {Qt::Dense4Pattern, tr("网点")}, {Qt::HorPattern, tr("横线")},
            {Qt::VerPattern, tr("竖线")},    {Qt::CrossPattern, tr("网格")},
            {Qt::BDiagPattern, tr("斜线")},  {Qt::DiagCrossPattern, tr("斜网格")}};
}

int StyleEditor::pixelSize(const QFont& font)
{
    return font.pixelSize() > 0 ? font.pixelSize() : qRound(font.pointSizeF() * 96 / 72);
}

QIcon StyleEditor::swatch(const QColor& color)
{
    QPixmap pixmap(16, 16);
    pixmap.fill(color.isValid() ? color : QColor(Qt::transparent));
    QPainter(&pixmap).drawRect(0, 0, 15, 15);
    return QIcon(pixmap);
}

void StyleEditor::setFontFamily(const QString& family)
{
    m_editor->pushForEach(m_editor->selectedItems(), tr("字体"), [&](ReportItem* item, QUndoCommand* parent) {
        return new FontFamilyCommand(item, family, parent);
    });
}

void StyleEditor::setFontPixelSize(int size)
{
    m_editor->pushForEach(m_editor->selectedItems(), tr("字号"), [&](ReportItem* item, QUndoCommand* parent) {
        return new FontSizeCommand(item, size, parent);
    });
}

void StyleEditor::setBold(bool on)
{
    m_editor->pushForEach(m_editor->selectedItems(), tr("加粗"), [&](ReportItem* item, QUndoCommand* parent) {
        return new FontBoldCommand(item, on, parent);
    });
}

void StyleEditor::setItalic(bool on)
{
    m_editor->pushForEach(m_editor->selectedItems(), tr("斜体"), [&](ReportItem* item, QUndoCommand* parent) {
        return new FontItalicCommand(item, on, parent);
    });
}

void StyleEditor::setUnderline(bool on)
{
    m_editor->pushForEach(
        m_editor->selectedItems(), tr("下划线"),
        [&](ReportItem* item, QUndoCommand* parent) { return new FontUnderlineCommand(item, on, parent); });
}

void StyleEditor::setAlignment(Qt::Alignment alignment)
{
    m_editor->pushForEach(m_editor->selectedItems(), tr("对齐"), [&](ReportItem* item, QUndoCommand* parent) {
        // Only the horizontal part is chosen here; the item keeps its vertical alignment.
        const Qt::Alignment vertical = item->alignment() & Qt::AlignVertical_Mask;
        return new TextAlignmentCommand(item, alignment | vertical, parent);
    });
}

void StyleEditor::changePen(const QString& text, const std::function<void(QPen&)>& change)
{
    m_editor->pushForEach(m_editor->selectedItems(), text, [&](ReportItem* item, QUndoCommand* parent) {
        QPen pen = item->pen();
        change(pen);
        return new PenCommand(item, pen, parent);
    });
}

void StyleEditor::changeBrush(const QString& text, const std::function<void(QBrush&)>& change)
{
    m_editor->pushForEach(m_editor->selectedItems(), text, [&](ReportItem* item, QUndoCommand* parent) {
        QBrush brush = item->brush();
        change(brush);
        return new BrushCommand(item, brush, parent);
    });
}

void StyleEditor::setPenColor(const QColor& color)
{
    changePen(tr("线条颜色"), [&](QPen& pen) { pen.setColor(color); });
}

void StyleEditor::setPenWidth(int width)
{
    changePen(tr("线宽"), [&](QPen& pen) { pen.setWidth(width); });
}

void StyleEditor::setPenStyle(Qt::PenStyle style)
{
    changePen(tr("线型"), [&](QPen& pen) { pen.setStyle(style); });
}

void StyleEditor::setBrushColor(const QColor& color)
{
    changeBrush(tr("填充颜色"), [&](QBrush& brush) {
        brush.setColor(color);
        // A colour on an empty brush would stay invisible; choosing one means "fill".
        if (brush.style() == Qt::NoBrush)
            brush.setStyle(Qt::SolidPattern);
    });
}

void StyleEditor::setBrushStyle(Qt::BrushStyle style)
{
    changeBrush(tr("填充样式"), [&](QBrush& brush) { brush.setStyle(style); });
}

void StyleEditor::choosePenColor()
{
    ReportItem* item = m_editor->selectedItems().value(0);
    if (!item || !m_chooseColor)
        return;
    const QColor color = m_chooseColor(item->pen().color());
    if (color.isValid())
        setPenColor(color);
}

void StyleEditor::chooseBrushColor()
{
    ReportItem* item = m_editor->selectedItems().value(0);
    if (!item || !m_chooseColor)
        return;
    const QColor color = m_chooseColor(item->brush().color());
    if (color.isValid())
        setBrushColor(color);
}

} // namespace coagulation
