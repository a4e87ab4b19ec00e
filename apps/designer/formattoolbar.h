#pragma once

#include <QToolBar>

#include <functional>

class QAction;
class QActionGroup;
class QComboBox;
class QFontComboBox;
class QSpinBox;
class QToolButton;

namespace coagulation {

class ReportEditor;
class ReportItem;
class StyleEditor;

// Font, alignment, pen and brush of the selected items. The controls show the values of the
// first selected item; every change goes to the undo stack as that property's command.
class FormatToolBar : public QToolBar
{
    Q_OBJECT
public:
    FormatToolBar(ReportEditor* editor, StyleEditor* style, QWidget* parent = nullptr);

    QFontComboBox* fontFamilyBox() const { return m_family; }
    QSpinBox* fontSizeBox() const { return m_size; }
    QAction* boldAction() const { return m_bold; }
    QAction* italicAction() const { return m_italic; }
    QAction* underlineAction() const { return m_underline; }
    QAction* alignmentAction(Qt::Alignment alignment) const;
    QSpinBox* penWidthBox() const { return m_penWidth; }
    QComboBox* penStyleBox() const { return m_penStyle; }
    QComboBox* brushStyleBox() const { return m_brushStyle; }
    QToolButton* penColorButton() const { return m_penColor; }
    QToolButton* brushColorButton() const { return m_brushColor; }

public Q_SLOTS:
    // Shows the selection's current values; call after selection changes and undo steps.
    void refresh();

private:
    QAction* addToggle(const QString& iconName, const QString& text, const QKeySequence& shortcut);

    ReportEditor* m_editor;
    StyleEditor* m_style;
    QFontComboBox* m_family;
    QSpinBox* m_size;
    QAction* m_bold;
    QAction* m_italic;
    QAction* m_underline;
    QActionGroup* m_alignments;
    QToolButton* m_penColor;
    QSpinBox* m_penWidth;
    QComboBox* m_penStyle;
    QToolButton* m_brushColor;
    QComboBox* m_brushStyle;
    QList<QWidget*> m_fontControls;
    QList<QWidget*> m_penControls;
    QList<QWidget*> m_brushControls;
};

} // namespace coagulation
