#pragma once

#include "kvcore_global.h"

#include <QStyledItemDelegate>

namespace coagulation {

// Shows maintenance cells centred and read-only, with results that need attention in red. A
// text that needs more than maxLines lines in its cell is cut there with an ellipsis, so that a
// row never grows taller than that.
class KVCORE_EXPORT MaintenanceRecordDelegate : public QStyledItemDelegate
{
    Q_OBJECT
public:
    explicit MaintenanceRecordDelegate(QObject* parent = nullptr);

    static constexpr int maxLines = 2;
    // The text as it fits `width` pixels in at most maxLines lines.
    static QString fitted(const QString& text, const QFont& font, int width);

    QWidget* createEditor(QWidget* parent, const QStyleOptionViewItem& option,
                          const QModelIndex& index) const override;
    QSize sizeHint(const QStyleOptionViewItem& option, const QModelIndex& index) const override;

protected:
    void initStyleOption(QStyleOptionViewItem* option, const QModelIndex& index) const override;
};

} // namespace coagulation
