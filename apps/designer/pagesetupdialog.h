#pragma once

#include "pagesetup.h"

#include <QDialog>

class QComboBox;
class QDoubleSpinBox;
class QRadioButton;

namespace coagulation {

// Paper size (a standard size or custom millimetres) and orientation of a template.
class PageSetupDialog : public QDialog
{
    Q_OBJECT
public:
    explicit PageSetupDialog(const PageSetup& setup, QWidget* parent = nullptr);

    PageSetup pageSetup() const;

private Q_SLOTS:
    void sizeChosen();

private:
    QComboBox* m_size;
    QDoubleSpinBox* m_width;
    QDoubleSpinBox* m_height;
    QRadioButton* m_portrait;
    QRadioButton* m_landscape;
    QDoubleSpinBox* m_margins[4];
};

} // namespace coagulation
