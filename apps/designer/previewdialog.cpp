#include "previewdialog.h"

#include <QComboBox>
#include <QDateEdit>
#include <QDialogButtonBox>
#include <QFormLayout>
#include <QListWidget>
#include <QPushButton>

namespace coagulation {

PreviewDialog::PreviewDialog(kv::ReportType type, const PreviewData& data, const PreviewChoice& choice,
                             QWidget* parent)
    : QDialog(parent), m_type(type)
{
    setWindowTitle(tr("打印预览"));
    auto* form = new QFormLayout(this);
    auto* buttons = new QDialogButtonBox(QDialogButtonBox::Ok | QDialogButtonBox::Cancel);
    if (type == kv::MaintenanceRecordReport) {
        m_month = new QComboBox;
        for (const PreviewData::Option& month : data.maintenanceMonths())
            m_month->addItem(month.label, month.value);
        m_month->setCurrentIndex(std::max(0, m_month->findData(choice.month)));
        form->addRow(tr("维护月份:"), m_month);
        buttons->button(QDialogButtonBox::Ok)->setEnabled(m_month->count() > 0);
    } else {
        m_list = new QListWidget;
        m_list->setSelectionMode(QAbstractItemView::ExtendedSelection);
        const bool qc = type == kv::QcReport;
        const QList<qint64> chosen = qc ? choice.reagentIds : choice.patientIds;
        for (const PreviewData::Option& option : qc ? data.reagents() : data.patients()) {
            auto* row = new QListWidgetItem(option.label, m_list);
            row->setData(Qt::UserRole, option.value);
            row->setSelected(chosen.contains(option.value.toLongLong()));
        }
        form->addRow(qc ? tr("质控品:") : tr("样本:"), m_list);
        if (qc) {
            m_from = new QDateEdit(choice.from.isValid() ? choice.from : QDate(2000, 1, 1));
            m_to = new QDateEdit(choice.to.isValid() ? choice.to : QDate::currentDate());
            for (QDateEdit* edit : {m_from, m_to})
                edit->setCalendarPopup(true);
            form->addRow(tr("从:"), m_from);
            form->addRow(tr("到:"), m_to);
        }
        auto enable = [this, buttons] {
            buttons->button(QDialogButtonBox::Ok)->setEnabled(!m_list->selectedItems().isEmpty());
        };
        connect(m_list, &QListWidget::itemSelectionChanged, this, enable);
        enable();
    }
    form->addRow(buttons);
    connect(buttons, &QDialogButtonBox::accepted, this, &QDialog::accept);
    connect(buttons, &QDialogButtonBox::rejected, this, &QDialog::reject);
}

QList<qint64> PreviewDialog::chosenIds() const
{
    QList<qint64> ids;
    for (int i = 0; i < m_list->count(); ++i)
        if (m_list->item(i)->isSelected())
            ids.append(m_list->item(i)->data(Qt::UserRole).toLongLong());
    return ids;
}

PreviewChoice PreviewDialog::choice() const
{
    PreviewChoice choice;
    if (m_month) {
        choice.month = m_month->currentData().toDate();
    } else if (m_type == kv::QcReport) {
        choice.reagentIds = chosenIds();
        choice.from = m_from->date();
        choice.to = m_to->date();
    } else {
        choice.patientIds = chosenIds();
    }
    return choice;
}

} // namespace coagulation
