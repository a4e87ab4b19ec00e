#include "propertypanel.h"

#include "geometrypanel.h"
#include "itemcapabilities.h"
#include "itemdescription.h"
#include "reporteditor.h"
#include "styleeditor.h"

#include <commands.h>
#include <drawingitems.h>
#include <itemfactory.h>
#include <report.h>
#include <reportitemcreator.h>

#include <QCheckBox>
#include <QComboBox>
#include <QFocusEvent>
#include <QFontComboBox>
#include <QFormLayout>
#include <QHBoxLayout>
#include <QLabel>
#include <QPlainTextEdit>
#include <QSpinBox>
#include <QToolButton>
#include <QUndoStack>
#include <QVBoxLayout>

#include <vector>

namespace coagulation {

namespace {
QWidget* row(const QList<QWidget*>& widgets)
{
    auto* box = new QWidget;
    auto* layout = new QHBoxLayout(box);
    layout->setContentsMargins(0, 0, 0, 0);
    for (QWidget* w : widgets)
        layout->addWidget(w);
    layout->addStretch();
    return box;
}

// A free text typed by the user, as opposed to one that shows data.
ReportTextItem* freeText(ReportItem* item)
{
    auto* text = dynamic_cast<ReportTextItem*>(item);
    return text && text->isEditable() ? text : nullptr;
}

const Qt::Alignment alignments[] = {Qt::AlignLeft, Qt::AlignHCenter, Qt::AlignRight};
} // namespace

PropertyPanel::PropertyPanel(ReportEditor* editor, StyleEditor* style, QWidget* parent)
    : QWidget(parent), m_editor(editor), m_style(style), m_form(new QFormLayout),
      m_empty(new QLabel(tr("未选中项目"))), m_kind(new QLabel), m_binding(new QComboBox),
      m_text(new QPlainTextEdit), m_family(new QFontComboBox), m_size(new QSpinBox),
      m_bold(new QCheckBox(tr("粗体"))), m_italic(new QCheckBox(tr("斜体"))),
      m_underline(new QCheckBox(tr("下划线"))), m_alignment(new QComboBox), m_penColor(new QToolButton),
      m_penWidth(new QSpinBox), m_penStyle(new QComboBox), m_brushColor(new QToolButton),
      m_brushStyle(new QComboBox), m_geometry(new GeometryPanel(editor))
{
    m_text->setMaximumHeight(m_text->fontMetrics().lineSpacing() * 4);
    m_text->installEventFilter(this);
    m_size->setRange(4, 200);
    m_size->setKeyboardTracking(false);
    m_size->setSuffix(tr(" 像素"));
    for (const QString& name : {tr("左对齐"), tr("居中"), tr("右对齐")})
        m_alignment->addItem(name);
    m_penWidth->setRange(0, 20);
    m_penWidth->setKeyboardTracking(false);
    m_penColor->setToolTip(tr("线条颜色"));
    m_brushColor->setToolTip(tr("填充颜色"));
    for (const auto& [s, name] : StyleEditor::penStyles())
        m_penStyle->addItem(name, int(s));
    for (const auto& [s, name] : StyleEditor::brushStyles())
        m_brushStyle->addItem(name, int(s));
    m_geometry->layout()->setContentsMargins(0, 0, 0, 0);

    m_form->addRow(m_empty);
    m_form->addRow(tr("类型:"), m_kind);
    m_form->addRow(tr("内容:"), m_binding);
    m_form->addRow(tr("文本:"), m_text);
    m_form->addRow(tr("字体:"), m_family);
    m_form->addRow(tr("字号:"), m_size);
    m_form->addRow(tr("字形:"), row({m_bold, m_italic, m_underline}));
    m_form->addRow(tr("对齐:"), m_alignment);
    m_form->addRow(tr("线条:"), row({m_penColor, m_penWidth, m_penStyle}));
    m_form->addRow(tr("填充:"), row({m_brushColor, m_brushStyle}));
    m_form->addRow(m_geometry);
    auto* column = new QVBoxLayout(this);
    column->addLayout(m_form);
    column->addStretch(); // rows stay together at the top however tall the dock is

    connect(m_binding, &QComboBox::activated, this, &PropertyPanel::bindingChosen);
    connect(m_family, &QFontComboBox::activated, this,
            [this] { m_style->setFontFamily(m_family->currentFont().family()); });
    connect(m_size, &QSpinBox::valueChanged, m_style, &StyleEditor::setFontPixelSize);
    connect(m_bold, &QCheckBox::clicked, m_style, &StyleEditor::setBold);
    connect(m_italic, &QCheckBox::clicked, m_style, &StyleEditor::setItalic);
    connect(m_underline, &QCheckBox::clicked, m_style, &StyleEditor::setUnderline);
    connect(m_alignment, &QComboBox::activated, this,
            [this](int index) { m_style->setAlignment(alignments[index]); });
    connect(m_penColor, &QToolButton::clicked, m_style, &StyleEditor::choosePenColor);
    connect(m_penWidth, &QSpinBox::valueChanged, m_style, &StyleEditor::setPenWidth);
    connect(m_penStyle, &QComboBox::activated, this,
            [this] { m_style->setPenStyle(Qt::PenStyle(m_penStyle->currentData().toInt())); });
    connect(m_brushColor, &QToolButton::clicked, m_style, &StyleEditor::chooseBrushColor);
    connect(m_brushStyle, &QComboBox::activated, this,
            [this] { m_style->setBrushStyle(Qt::BrushStyle(m_brushStyle->currentData().toInt())); });
    refresh();
}

void PropertyPanel::refresh()
{
    const QList<ReportItem*> items = m_editor->selectedItems();
    ReportItem* item = items.value(0);
    ReportItem* single = items.size() == 1 ? item : nullptr;
    const ItemCapabilities caps = ItemCapabilities::of(item);
    const ItemFactory* factory = m_editor->report() ? m_editor->report()->factory() : nullptr;
    const bool bound = single && ItemDescription::binding(single->key()) != ItemDescription::NoBinding;

    std::vector<QSignalBlocker> blockers;
    for (QObject* control :
         std::initializer_list<QObject*>{m_binding, m_text, m_family, m_size, m_bold, m_italic, m_underline,
                                         m_alignment, m_penWidth, m_penStyle, m_brushStyle})
        blockers.emplace_back(control);

    m_form->setRowVisible(m_empty, !item);
    m_form->setRowVisible(m_kind, item);
    m_form->setRowVisible(m_binding, bound);
    m_form->setRowVisible(m_text, freeText(single));
    m_form->setRowVisible(m_family, caps.font);
    m_form->setRowVisible(m_size, caps.font);
    m_form->setRowVisible(m_bold->parentWidget(), caps.font);
    m_form->setRowVisible(m_alignment, caps.alignment);
    m_form->setRowVisible(m_penColor->parentWidget(), caps.pen);
    m_form->setRowVisible(m_brushColor->parentWidget(), caps.brush);
    m_form->setRowVisible(m_geometry, single);
    m_geometry->refresh();
    if (!item)
        return;

    m_kind->setText(items.size() == 1 ? ItemDescription::kind(item, factory)
                                      : tr("%n 项", nullptr, int(items.size())));
    if (bound)
        fillBindings(single);
    if (ReportTextItem* text = freeText(single); text && !m_text->hasFocus())
        m_text->setPlainText(text->toPlainText());
    const QFont font = item->font();
    m_family->setCurrentFont(QFont(font.family()));
    m_size->setValue(StyleEditor::pixelSize(font));
    m_bold->setChecked(font.weight() > QFont::Medium);
    m_italic->setChecked(font.style() != QFont::StyleNormal);
    m_underline->setChecked(font.underline());
    const Qt::Alignment horizontal = item->alignment() & Qt::AlignHorizontal_Mask;
    m_alignment->setCurrentIndex(horizontal & Qt::AlignHCenter ? 1 : horizontal & Qt::AlignRight ? 2 : 0);
    const QPen pen = item->pen();
    m_penColor->setIcon(StyleEditor::swatch(pen.color()));
    m_penWidth->setValue(pen.width());
    m_penStyle->setCurrentIndex(m_penStyle->findData(int(pen.style())));
    m_brushColor->setIcon(StyleEditor::swatch(item->brush().color()));
    m_brushStyle->setCurrentIndex(m_brushStyle->findData(int(item->brush().style())));
}

void PropertyPanel::fillBindings(ReportItem* item)
{
    m_binding->clear();
    const QString scheme = ItemDescription::scheme(ItemDescription::binding(item->key()));
    const ItemFactory* factory = m_editor->report()->factory();
    if (factory)
        for (const ReportItemCreator* creator : factory->creators()) {
            const QString key = creator->keys().value(0);
            if (key.startsWith(scheme))
                m_binding->addItem(creator->name(), key);
        }
    // A template may bind to something the palette doesn't offer; it is still shown.
    if (m_binding->findData(item->key()) < 0)
        m_binding->addItem(ItemDescription::toolName(item->key(), factory), item->key());
    m_binding->setCurrentIndex(m_binding->findData(item->key()));
}

void PropertyPanel::bindingChosen(int index)
{
    if (ReportItem* item = m_editor->currentItem())
        m_editor->replaceItem(item, m_binding->itemData(index).toString());
}

void PropertyPanel::editBinding()
{
    if (!m_binding->isVisibleTo(this))
        return;
    m_binding->setFocus(Qt::OtherFocusReason);
    m_binding->showPopup();
}

void PropertyPanel::commitText()
{
    ReportTextItem* text = freeText(m_editor->currentItem());
    if (!text || text->toPlainText() == m_text->toPlainText())
        return;
    auto* command = new TextCommand(text, false);
    command->setText(tr("编辑文字"));
    text->setPlainText(m_text->toPlainText());
    text->report()->undoStack()->push(command);
}

bool PropertyPanel::eventFilter(QObject* watched, QEvent* event)
{
    if (watched == m_text && event->type() == QEvent::FocusOut)
        commitText();
    return QWidget::eventFilter(watched, event);
}

} // namespace coagulation
