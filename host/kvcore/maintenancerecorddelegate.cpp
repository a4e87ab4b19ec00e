#include "maintenancerecorddelegate.h"

#include "maintenancerecordmodel.h"

namespace coagulation {

namespace {
constexpr int padding = 8;
}

MaintenanceRecordDelegate::MaintenanceRecordDelegate(QObject* parent) : QStyledItemDelegate(parent) {}

QWidget* MaintenanceRecordDelegate::createEditor(QWidget*, const QStyleOptionViewItem&,
                                                 const QModelIndex&) const
{
    return nullptr; // records are history
}

QSize MaintenanceRecordDelegate::sizeHint(const QStyleOptionViewItem& option, const QModelIndex& index) const
{
    return QStyledItemDelegate::sizeHint(option, index) + QSize(padding, padding / 2);
}

void MaintenanceRecordDelegate::initStyleOption(QStyleOptionViewItem* option, const QModelIndex& index) const
{
    QStyledItemDelegate::initStyleOption(option, index);
    option->displayAlignment = Qt::AlignCenter;
    if (index.data(MaintenanceRecordModel::NotableResultRole).toBool()) {
        option->palette.setColor(QPalette::Text, QColor(200, 30, 30));
        option->palette.setColor(QPalette::HighlightedText, QColor(200, 30, 30));
    }
}

} // namespace coagulation
