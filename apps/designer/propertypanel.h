#pragma once

#include <QWidget>

class QCheckBox;
class QComboBox;
class QFontComboBox;
class QFormLayout;
class QLabel;
class QPlainTextEdit;
class QSpinBox;
class QToolButton;

namespace coagulation {

class GeometryPanel;
class ReportEditor;
class ReportItem;
class StyleEditor;

// Everything about the selected item in one place: what it shows, its text, font, alignment,
// pen, brush, position and size. Rows an item doesn't have are hidden. Every change is one
// undo step.
class PropertyPanel : public QWidget
{
    Q_OBJECT
public:
    PropertyPanel(ReportEditor* editor, StyleEditor* style, QWidget* parent = nullptr);

    QComboBox* bindingBox() const { return m_binding; }
    QPlainTextEdit* textEdit() const { return m_text; }
    QFontComboBox* fontFamilyBox() const { return m_family; }
    QSpinBox* fontSizeBox() const { return m_size; }
    QCheckBox* boldBox() const { return m_bold; }
    QCheckBox* italicBox() const { return m_italic; }
    QCheckBox* underlineBox() const { return m_underline; }
    QComboBox* alignmentBox() const { return m_alignment; }
    QToolButton* penColorButton() const { return m_penColor; }
    QSpinBox* penWidthBox() const { return m_penWidth; }
    QComboBox* penStyleBox() const { return m_penStyle; }
    QToolButton* brushColorButton() const { return m_brushColor; }
    QComboBox* brushStyleBox() const { return m_brushStyle; }
    GeometryPanel* geometryPanel() const { return m_geometry; }

public Q_SLOTS:
    void refresh();
    // Gives the edited text to the selected free text as one step.
    void commitText();
    // Brings the binding list up, as a double click on a data field does.
    void editBinding();

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    void bindingChosen(int index);
    void fillBindings(ReportItem* item);

    ReportEditor* m_editor;
    StyleEditor* m_style;
    QFormLayout* m_form;
    QLabel* m_empty;
    QLabel* m_kind;
    QComboBox* m_binding;
    QPlainTextEdit* m_text;
    QFontComboBox* m_family;
    QSpinBox* m_size;
    QCheckBox* m_bold;
    QCheckBox* m_italic;
    QCheckBox* m_underline;
    QComboBox* m_alignment;
    QToolButton* m_penColor;
    QSpinBox* m_penWidth;
    QComboBox* m_penStyle;
    QToolButton* m_brushColor;
    QComboBox* m_brushStyle;
    GeometryPanel* m_geometry;
};

} // namespace coagulation
