#include "formattoolbar.h"

#include "itemcapabilities.h"
#include "reporteditor.h"
#include "styleeditor.h"

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

FormatToolBar::FormatToolBar(ReportEditor* editor, StyleEditor* style, QWidget* parent)
    : QToolBar(tr("格式"), parent), m_editor(editor), m_style(style), m_family(new QFontComboBox),
      m_size(new QSpinBox), m_alignments(new QActionGroup(this)), m_penColor(new QToolButton),
      m_penWidth(new QSpinBox), m_penStyle(new QComboBox), m_brushColor(new QToolButton),
      m_brushStyle(new QComboBox)
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
        connect(action, &QAction::triggered, this, [this, i] { m_style->setAlignment(alignments[i]); });
    }
    addSeparator();

    m_penColor->setToolTip(tr("线条颜色"));
    m_penWidth->setRange(0, 20);
    m_penWidth->setKeyboardTracking(false);
    m_penWidth->setToolTip(tr("线宽"));
    m_penStyle->setToolTip(tr("线型"));
    for (const auto& [style, name] : StyleEditor::penStyles())
        m_penStyle->addItem(name, int(style));
    addWidget(new QWidget); // spacing between groups
    addWidget(m_penColor);
    addWidget(m_penWidth);
    addWidget(m_penStyle);
    addSeparator();

    m_brushColor->setToolTip(tr("填充颜色"));
    m_brushStyle->setToolTip(tr("填充样式"));
    for (const auto& [style, name] : StyleEditor::brushStyles())
        m_brushStyle->addItem(name, int(style));
    addWidget(m_brushColor);
    addWidget(m_brushStyle);

    m_fontControls = {m_family, m_size};
    m_penControls = {m_penColor, m_penWidth, m_penStyle};
    m_brushControls = {m_brushColor, m_brushStyle};

    connect(m_family, &QFontComboBox::currentFontChanged, this,
            [this](const QFont& font) { m_style->setFontFamily(font.family()); });
    connect(m_size, &QSpinBox::valueChanged, m_style, &StyleEditor::setFontPixelSize);
    connect(m_bold, &QAction::triggered, m_style, &StyleEditor::setBold);
    connect(m_italic, &QAction::triggered, m_style, &StyleEditor::setItalic);
    connect(m_underline, &QAction::triggered, m_style, &StyleEditor::setUnderline);
    connect(m_penColor, &QToolButton::clicked, m_style, &StyleEditor::choosePenColor);
    connect(m_penWidth, &QSpinBox::valueChanged, m_style, &StyleEditor::setPenWidth);
    connect(m_penStyle, &QComboBox::activated, this,
            [this] { m_style->setPenStyle(Qt::PenStyle(m_penStyle->currentData().toInt())); });
    connect(m_brushColor, &QToolButton::clicked, m_style, &StyleEditor::chooseBrushColor);
    connect(m_brushStyle, &QComboBox::activated, this,
            [this] { m_style->setBrushStyle(Qt::BrushStyle(m_brushStyle->currentData().toInt())); });
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
    m_size->setValue(StyleEditor::pixelSize(font));
    m_bold->setChecked(font.weight() > QFont::Medium);
    m_italic->setChecked(font.style() != QFont::StyleNormal);
    m_underline->setChecked(font.underline());
    for (QAction* action : m_alignments->actions())
        action->setChecked(false);
    if (QAction* action = alignmentAction(item->alignment()))
        action->setChecked(true);

    const QPen pen = item->pen();
    m_penColor->setIcon(StyleEditor::swatch(pen.color()));
    m_penWidth->setValue(pen.width());
    m_penStyle->setCurrentIndex(m_penStyle->findData(int(pen.style())));
    const QBrush brush = item->brush();
    m_brushColor->setIcon(StyleEditor::swatch(brush.color()));
    m_brushStyle->setCurrentIndex(m_brushStyle->findData(int(brush.style())));
}

} // namespace coagulation
