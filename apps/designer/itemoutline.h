#pragma once

#include <QTreeWidget>

namespace coagulation {

class ReportEditor;
class ReportItem;

// The page's items, topmost first: kind, key and what each shows. Selecting a row selects the
// item and selecting on the page selects the row.
class ItemOutline : public QTreeWidget
{
    Q_OBJECT
public:
    explicit ItemOutline(ReportEditor* editor, QWidget* parent = nullptr);

    ReportItem* itemAt(int row) const;
    int rowOf(const ReportItem* item) const;

public Q_SLOTS:
    // Lists the items again (after items came, went or changed order).
    void rebuild();
    // Marks the rows of the selected items.
    void followSelection();

private:
    void rowsSelected();

    ReportEditor* m_editor;
    QList<ReportItem*> m_items;
    bool m_syncing = false;
};

} // namespace coagulation
