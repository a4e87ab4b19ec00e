#include "pagesetupdialog.h"

#include <QComboBox>
#include <QDialogButtonBox>
#include <QDoubleSpinBox>
#include <QFormLayout>
#include <QGridLayout>
#include <QHBoxLayout>
#include <QLabel>
#include <QRadioButton>

namespace coagulation {

namespace {
const QPageSize::PageSizeId standardSizes[] = {QPageSize::A3,    QPageSize::A4,     QPageSize::A5,
                                               QPageSize::B5,    QPageSize::Letter, QPageSize::Legal,
                                               QPageSize::Custom};
}

PageSetupDialog::PageSetupDialog(const PageSetup& setup, QWidget* parent)
    : QDialog(parent), m_size(new QComboBox), m_width(new QDoubleSpinBox), m_height(new QDoubleSpinBox),
      m_portrait(new QRadioButton(tr("纵向"))), m_landscape(new QRadioButton(tr("横向")))
{
    setWindowTitle(tr("页面设置"));
    for (QPageSize::PageSizeId id : standardSizes)
        m_size->addItem(id == QPageSize::Custom ? tr("自定义") : QPageSize::name(id), int(id));
    for (QDoubleSpinBox* box : {m_width, m_height}) {
        box->setRange(10, 2000);
        box->setDecimals(1);
        box->setSuffix(tr(" 毫米"));
    }
    auto* orientation = new QHBoxLayout;
    orientation->addWidget(m_portrait);
    orientation->addWidget(m_landscape);
    auto* buttons = new QDialogButtonBox(QDialogButtonBox::Ok | QDialogButtonBox::Cancel);
    auto* form = new QFormLayout(this);
    form->addRow(tr("纸张大小:"), m_size);
    form->addRow(tr("宽度:"), m_width);
    form->addRow(tr("高度:"), m_height);
    form->addRow(tr("方向:"), orientation);
    // Guides for the designer; printers add no margins of their own to a report page.
    auto* margins = new QGridLayout;
    const QString marginNames[] = {tr("左"), tr("上"), tr("右"), tr("下")};
    const double marginValues[] = {setup.margins.left(), setup.margins.top(), setup.margins.right(),
                                   setup.margins.bottom()};
    for (int i = 0; i < 4; ++i) {
        m_margins[i] = new QDoubleSpinBox;
        m_margins[i]->setRange(0, 100);
        m_margins[i]->setDecimals(1);
        m_margins[i]->setSuffix(tr(" 毫米"));
        m_margins[i]->setValue(marginValues[i]);
        margins->addWidget(new QLabel(marginNames[i]), i / 2, (i % 2) * 2);
        margins->addWidget(m_margins[i], i / 2, (i % 2) * 2 + 1);
    }
    form->addRow(tr("页边距参考线:"), margins);
    form->addRow(buttons);

    int index = m_size->findData(int(setup.pageSize));
    m_size->setCurrentIndex(index < 0 ? m_size->findData(int(QPageSize::Custom)) : index);
    m_width->setValue(setup.customSize.width());
    m_height->setValue(setup.customSize.height());
    (setup.orientation == QPageLayout::Landscape ? m_landscape : m_portrait)->setChecked(true);
    sizeChosen();

    connect(m_size, &QComboBox::currentIndexChanged, this, &PageSetupDialog::sizeChosen);
    connect(buttons, &QDialogButtonBox::accepted, this, &QDialog::accept);
    connect(buttons, &QDialogButtonBox::rejected, this, &QDialog::reject);
}

void PageSetupDialog::sizeChosen()
{
    const auto id = QPageSize::PageSizeId(m_size->currentData().toInt());
    const bool custom = id == QPageSize::Custom;
    m_width->setEnabled(custom);
    m_height->setEnabled(custom);
    if (!custom) {
        const QSizeF mm = QPageSize(id).size(QPageSize::Millimeter);
        m_width->setValue(mm.width());
        m_height->setValue(mm.height());
    }
}

PageSetup PageSetupDialog::pageSetup() const
{
    PageSetup setup;
    setup.pageSize = QPageSize::PageSizeId(m_size->currentData().toInt());
    setup.orientation = m_landscape->isChecked() ? QPageLayout::Landscape : QPageLayout::Portrait;
    setup.customSize = QSizeF(m_width->value(), m_height->value());
    setup.margins =
        QMarginsF(m_margins[0]->value(), m_margins[1]->value(), m_margins[2]->value(), m_margins[3]->value());
    return setup;
}

} // namespace coagulation
