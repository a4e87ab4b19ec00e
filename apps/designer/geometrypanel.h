#pragma once

#include <QWidget>

class QDoubleSpinBox;

namespace coagulation {

class ReportEditor;

// Position and size of the selected item in millimetres on the page. Editing a field moves or
// resizes the item as one undo step.
class GeometryPanel : public QWidget
{
    Q_OBJECT
public:
    explicit GeometryPanel(ReportEditor* editor, QWidget* parent = nullptr);

    QDoubleSpinBox* xBox() const { return m_x; }
    QDoubleSpinBox* yBox() const { return m_y; }
    QDoubleSpinBox* widthBox() const { return m_width; }
    QDoubleSpinBox* heightBox() const { return m_height; }

public Q_SLOTS:
    void refresh();

private:
    void positionEdited();
    void sizeEdited();
    double unitsPerMmX() const;
    double unitsPerMmY() const;

    ReportEditor* m_editor;
    QDoubleSpinBox* m_x;
    QDoubleSpinBox* m_y;
    QDoubleSpinBox* m_width;
    QDoubleSpinBox* m_height;
};

} // namespace coagulation
