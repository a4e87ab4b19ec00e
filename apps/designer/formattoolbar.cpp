#include "formattoolbar.h"

#include "itemcapabilities.h"
#include "reporteditor.h"

#include <commands.h>
#include <reportitembase.h>

#include <QActionGroup>
#include <QComboBox>
#include <QFontComboBox>
#include <QPainter>
#include <QSpinBox>
#include <QToolButton>

#include <vector>

namespace coagulation {

namespace {

// A toggle's icon: the letter or mark drawn in the style it stands for.
QIcon glyphIcon(const QString& glyph, const std::function<void(QFont&)>& style)
{
    QPixmap pixmap(20, 20);
    pixmap.fill(Qt::transparent);
    QPainter painter(&pixmap);
    QFont font;
    font.setPixelSize(15);
    style(font);
    painter.setFont(font);
    painter.drawText(pixmap.rect(), Qt::AlignCenter, glyph);
    return QIcon(pixmap);
}

QIcon alignmentIcon(Qt::Alignment alignment)
{
    QPixmap pixmap(20, 20);
    pixmap.fill(Qt::transparent);
    QPainter painter(&pixmap);
    painter.setPen(QPen(Qt::black, 2));
    const int lengths[] = {16, 10, 16, 10};
    for (int i = 0; i < 4; ++i) {
        const int length = lengths[i];
        const int x = alignment & Qt::AlignRight     ? 18 - length
                      : alignment & Qt::AlignHCenter ? 10 - length / 2
                                                     : 2;
        painter.drawLine(x, 4 + i * 4, x + length, 4 + i * 4);
    }
    return QIcon(pixmap);
}

const Qt::Alignment alignments[] = {Qt::AlignLeft, Qt::AlignHCenter, Qt::AlignRight};

} // namespace

FormatToolBar::FormatToolBar(ReportEditor* editor, QWidget* parent)
    : QToolBar(tr("格式"), parent), m_editor(editor), m_family(new QFontComboBox), m_size(new QSpinBox),
      m_alignments(new QActionGroup(this)), m_penColor(new QToolButton), m_penWidth(new QSpinBox),
      m_penStyle(new QComboBox), m_brushColor(new QToolButton), m_brushStyle(new QComboBox)
{
    setObjectName(QStringLiteral("formatToolBar"));
    m_family->setToolTip(tr("字体"));
    m_size->setRange(4, 200);
    m_size->setKeyboardTracking(false);
    m_size->setSuffix(tr(" 像素"));
    m_size->setToolTip(tr("字号"));
    addWidget(m_family);
    addWidget(m_size);
    m_bold = addToggle(QStringLiteral("B"), tr("粗体"), QKeySequence::Bold);
    m_bold->setIcon(glyphIcon(QStringLiteral("B"), [](QFont& f) { f.setBold(true); }));
    m_italic = addToggle(QStringLiteral("I"), tr("斜体"), QKeySequence::Italic);
    m_italic->setIcon(glyphIcon(QStringLiteral("I"), [](QFont& f) { f.setItalic(true); }));
    m_underline = addToggle(QStringLiteral("U"), tr("下划线"), QKeySequence::Underline);
    m_underline->setIcon(glyphIcon(QStringLiteral("U"), [](QFont& f) { f.setUnderline(true); }));
    addSeparator();
    const QString alignmentNames[] = {tr("左对齐"), tr("居中"), tr("右对齐")};
    for (int i = 0; i < 3; ++i) {
        QAction* action = addAction(alignmentIcon(alignments[i]), alignmentNames[i]);
        action->setCheckable(true);
        action->setData(int(alignments[i]));
        m_alignments->addAction(action);
        connect(action, &QAction::triggered, this, [this, i] { setAlignment(alignments[i]); });
    }
    addSeparator();

    m_penColor->setToolTip(tr("线条颜色"));
    m_penWidth->setRange(0, 20);
    m_penWidth->setKeyboardTracking(false);
    m_penWidth->setToolTip(tr("线宽"));
    m_penStyle->setToolTip(tr("线型"));
    const std::pair<Qt::PenStyle, QString> penStyles[] = {
        {Qt::NoPen, tr("无")},     {Qt::SolidLine, tr("实线")},     {Qt::DashLine, tr("虚线")},
        {Qt::DotLine, tr("点线")}, {Qt::DashDotLine, tr("点划线")}, {Qt::DashDotDotLine, tr("双点划线")}};
    for (const auto& [style, name] : penStyles)
        m_penStyle->addItem(name, int(style));
    addWidget(new QWidget); // spacing between groups
    addWidget(m_penColor);
    addWidget(m_penWidth);
    addWidget(m_penStyle);
    addSeparator();

    m_brushColor->setToolTip(tr("填充颜色"));
    m_brushStyle->setToolTip(tr("填充样式"));
    const std::pair<Qt::BrushStyle, QString> brushStyles[] = {
        {Qt::NoBrush, tr("无填充")},    {Qt::SolidPattern, tr("实心")},      {Qt::Dense4Pattern, tr("网点")},
        {Qt::HorPattern, tr("横线")},   {Qt::VerPattern, tr("竖线")},        {Qt::CrossPattern, tr("网格")},
        {Qt::BDiagPattern, tr("斜线")}, {Qt::DiagCrossPattern, tr("斜网格")}};
    for (const auto& [style, name] : brushStyles)
        m_brushStyle->addItem(name, int(style));
    addWidget(m_brushColor);
    addWidget(m_brushStyle);

    m_fontControls = {m_family, m_size};
    m_penControls = {m_penColor, m_penWidth, m_penStyle};
    m_brushControls = {m_brushColor, m_brushStyle};

    connect(m_family, &QFontComboBox::currentFontChanged, this,
            [this](const QFont& font) { setFontFamily(font.family()); });
    connect(m_size, &QSpinBox::valueChanged, this, &FormatToolBar::setFontPixelSize);
    connect(m_bold, &QAction::triggered, this, &FormatToolBar::setBold);
    connect(m_italic, &QAction::triggered, this, &FormatToolBar::setItalic);
    connect(m_underline, &QAction::triggered, this, &FormatToolBar::setUnderline);
    connect(m_penColor, &QToolButton::clicked, this, &FormatToolBar::choosePenColor);
    connect(m_penWidth, &QSpinBox::valueChanged, this, &FormatToolBar::setPenWidth);
    connect(m_penStyle, &QComboBox::activated, this,
            [this] { setPenStyle(Qt::PenStyle(m_penStyle->currentData().toInt())); });
    connect(m_brushColor, &QToolButton::clicked, this, &FormatToolBar::chooseBrushColor);
    connect(m_brushStyle, &QComboBox::activated, this,
            [this] { setBrushStyle(Qt::BrushStyle(m_brushStyle->currentData().toInt())); });
    refresh();
}

QAction* FormatToolBar::addToggle(const QString& iconName, const QString& text, const QKeySequence& shortcut)
{
    QAction* action = addAction(iconName);
    action->setToolTip(text);
    action->setCheckable(true);
    action->setShortcut(shortcut);
    return action;
}

QAction* FormatToolBar::alignmentAction(Qt::Alignment alignment) const
{
    Qt::Alignment horizontal = alignment & Qt::AlignHorizontal_Mask;
    if (horizontal == Qt::Alignment() || horizontal == Qt::AlignLeading || horizontal == Qt::AlignJustify)
        horizontal = Qt::AlignLeft; // what a text without an alignment of its own looks like
    for (QAction* action : m_alignments->actions())
        if (Qt::Alignment(action->data().toInt()) == horizontal)
            return action;
    return nullptr;
}

void FormatToolBar::showColor(QToolButton* button, const QColor& color)
{
    QPixmap swatch(16, 16);
    swatch.fill(color.isValid() ? color : QColor(Qt::transparent));
    QPainter(&swatch).drawRect(0, 0, 15, 15);
    button->setIcon(QIcon(swatch));
}

void FormatToolBar::refresh()
{
    const QList<ReportItem*> items = m_editor->selectedItems();
    ReportItem* item = items.value(0);
    const ItemCapabilities caps = ItemCapabilities::of(item);

    const QList<QObject*> controls = {m_family,     m_size,       m_bold,      m_italic,
                                      m_underline,  m_penColor,   m_penWidth,  m_penStyle,
                                      m_brushColor, m_brushStyle, m_alignments};
    std::vector<QSignalBlocker> blockers;
    for (QObject* control : controls)
        blockers.emplace_back(control);

    for (QWidget* w : m_fontControls)
        w->setEnabled(caps.font);
    for (QAction* a : {m_bold, m_italic, m_underline})
        a->setEnabled(caps.font);
    m_alignments->setEnabled(caps.alignment);
    for (QWidget* w : m_penControls)
        w->setEnabled(caps.pen);
    for (QWidget* w : m_brushControls)
        w->setEnabled(caps.brush);
    if (!item)
        return;

    const QFont font = item->font();
    m_family->setCurrentFont(QFont(font.family()));
    m_size->setValue(font.pixelSize() > 0 ? font.pixelSize() : qRound(font.pointSizeF() * 96 / 72));
    m_bold->setChecked(font.weight() > QFont::Medium);
    m_italic->setChecked(font.style() != QFont::StyleNormal);
    m_underline->setChecked(font.underline());
    for (QAction* action : m_alignments->actions())
        action->setChecked(false);
    if (QAction* action = alignmentAction(item->alignment()))
        action->setChecked(true);

    const QPen pen = item->pen();
    showColor(m_penColor, pen.color());
    m_penWidth->setValue(pen.width());
    m_penStyle->setCurrentIndex(m_penStyle->findData(int(pen.style())));
    const QBrush brush = item->brush();
    showColor(m_brushColor, brush.color());
    m_brushStyle->setCurrentIndex(m_brushStyle->findData(int(brush.style())));
}

void FormatToolBar::setFontFamily(const QString& family)
{
    m_editor->pushForEach(m_editor->selectedItems(), tr("字体"), [&](ReportItem* item, QUndoCommand* parent) {
        return new FontFamilyCommand(item, family, parent);
    });
}

void FormatToolBar::setFontPixelSize(int size)
{
    m_editor->pushForEach(m_editor->selectedItems(), tr("字号"), [&](ReportItem* item, QUndoCommand* parent) {
        return new FontSizeCommand(item, size, parent);
    });
}

void FormatToolBar::setBold(bool on)
{
    m_editor->pushForEach(m_editor->selectedItems(), tr("粗体"), [&](ReportItem* item, QUndoCommand* parent) {
        return new FontBoldCommand(item, on, parent);
    });
}

void FormatToolBar::setItalic(bool on)
{
    m_editor->pushForEach(m_editor->selectedItems(), tr("斜体"), [&](ReportItem* item, QUndoCommand* parent) {
        return new FontItalicCommand(item, on, parent);
    });
}

void FormatToolBar::setUnderline(bool on)
{
    m_editor->pushForEach(
        m_editor->selectedItems(), tr("下划线"),
        [&](ReportItem* item, QUndoCommand* parent) { return new FontUnderlineCommand(item, on, parent); });
}

void FormatToolBar::setAlignment(Qt::Alignment alignment)
{
    m_editor->pushForEach(m_editor->selectedItems(), tr("对齐"), [&](ReportItem* item, QUndoCommand* parent) {
        // Only the horizontal part is chosen here; the item keeps its vertical alignment.
        const Qt::Alignment vertical = item->alignment() & Qt::AlignVertical_Mask;
        return new TextAlignmentCommand(item, alignment | vertical, parent);
    });
}

void FormatToolBar::changePen(const QString& text, const std::function<void(QPen&)>& change)
{
    m_editor->pushForEach(m_editor->selectedItems(), text, [&](ReportItem* item, QUndoCommand* parent) {
        QPen pen = item->pen();
        change(pen);
        return new PenCommand(item, pen, parent);
    });
}

void FormatToolBar::changeBrush(const QString& text, const std::function<void(QBrush&)>& change)
{
    m_editor->pushForEach(m_editor->selectedItems(), text, [&](ReportItem* item, QUndoCommand* parent) {
        QBrush brush = item->brush();
        change(brush);
        return new BrushCommand(item, brush, parent);
    });
}

void FormatToolBar::setPenColor(const QColor& color)
{
    changePen(tr("线条颜色"), [&](QPen& pen) { pen.setColor(color); });
}

void FormatToolBar::setPenWidth(int width)
{
    changePen(tr("线宽"), [&](QPen& pen) { pen.setWidth(width); });
}

void FormatToolBar::setPenStyle(Qt::PenStyle style)
{
    changePen(tr("线型"), [&](QPen& pen) { pen.setStyle(style); });
}

void FormatToolBar::setBrushColor(const QColor& color)
{
    changeBrush(tr("填充颜色"), [&](QBrush& brush) {
        brush.setColor(color);
        // A colour on an empty brush would stay invisible; choosing one means "fill".
        if (brush.style() == Qt::NoBrush)
            brush.setStyle(Qt::SolidPattern);
    });
}

void FormatToolBar::setBrushStyle(Qt::BrushStyle style)
{
    changeBrush(tr("填充样式"), [&](QBrush& brush) { brush.setStyle(style); });
}

void FormatToolBar::choosePenColor()
{
    ReportItem* item = m_editor->selectedItems().value(0);
    if (!item || !m_chooseColor)
        return;
    const QColor color = m_chooseColor(item->pen().color());
    if (color.isValid())
        setPenColor(color);
}

void FormatToolBar::chooseBrushColor()
{
    ReportItem* item = m_editor->selectedItems().value(0);
    if (!item || !m_chooseColor)
        return;
    const QColor color = m_chooseColor(item->brush().color());
    if (color.isValid())
        setBrushColor(color);
}

} // namespace coagulation
