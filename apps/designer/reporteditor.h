#pragma once

#include <QList>
#include <QObject>
#include <QPointer>

#include <QPolygonF>
#include <report.h>

class QMimeData;
class QUndoCommand;

namespace coagulation {

class Report;
class ReportItem;

// The designer's edits of a report's selection, each recorded as one undo step: delete, copy,
// cut, paste, nudge, and moving or resizing an item to exact values.
class ReportEditor : public QObject
{
    Q_OBJECT
public:
    explicit ReportEditor(QObject* parent = nullptr);

    Report* report() const { return m_report; }
    void setReport(Report* report);
    // The designer's grid in scene units: the step of nudges and of repeated pastes, also
    // while the document's own snapping is switched off.
    QSizeF gridSize() const { return m_grid; }
    void setGridSize(const QSizeF& size) { m_grid = size; }

    // The selected report items, topmost first.
    QList<ReportItem*> selectedItems() const;
    // The only selected report item, or null.
    ReportItem* currentItem() const;
    // Of the selected items, the one the user selected first (the model for "same size").
    ReportItem* firstSelected() const;

    // The selected items in the clipboard's form; null when nothing is selected.
    QMimeData* copyData() const;
    // Adds the items held by the data, offset from their copied place, as one undo step and
    // selects them. Returns the items added (none when the data holds no report items).
    QList<ReportItem*> pasteData(const QMimeData* data);
    bool canPaste(const QMimeData* data) const;

    // Pushes a command that applies a change to every given item as one step (a macro when
    // there are several) and keeps those items selected afterwards.
    void pushForEach(const QList<ReportItem*>& items, const QString& text,
                     const std::function<QUndoCommand*(ReportItem*, QUndoCommand*)>& make);

public Q_SLOTS:
    // Follows the order in which the user selects items; call when the selection changes.
    void selectionChanged();
    void deleteSelection();
    void copy();
    void cut();
    void paste();
    void selectAll();
    // Moves the selection by (dx, dy) grid steps, or by units when fine.
    void nudge(int dx, int dy, bool fine);
    // Moves the selection by an exact offset in scene units, recorded as one move.
    void moveSelection(const QPointF& offset);
    // Puts an item showing something else (another key of the factory) in the item's place,
    // with its style, position and size, as one step. Returns the new item, or null.
    ReportItem* replaceItem(ReportItem* item, const QString& key);
    // Gives an item a new geometry (item coordinates), recorded as one geometry change.
    void setGeometry(ReportItem* item, const QPolygonF& geometry);

private:
    QPointer<Report> m_report;
    int m_pasteCount = 0;
    QList<ReportItem*> m_selectionOrder;
    QSizeF m_grid{10, 10};
};

} // namespace coagulation
