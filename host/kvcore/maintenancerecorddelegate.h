#pragma once

#include "kvcore_global.h"

#include <QStyledItemDelegate>

namespace coagulation {

// Shows maintenance cells centred and read-only, with results that need attention in red.
class KVCORE_EXPORT MaintenanceRecordDelegate : public QStyledItemDelegate
{
    Q_OBJECT
public:
    explicit MaintenanceRecordDelegate(QObject* parent = nullptr);

    QWidget* createEditor(QWidget* parent, const QStyleOptionViewItem& option,
                          const QModelIndex& index) const override;
    QSize sizeHint(const QStyleOptionViewItem& option, const QModelIndex& index) const override;

protected:
    void initStyleOption(QStyleOptionViewItem* option, const QModelIndex& index) const override;
};

} // namespace coagulation
