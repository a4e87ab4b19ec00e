#pragma once

#include <QObject>

namespace coagulation {

class ReportEditor;
class ReportItem;

// Lines up, spaces, sizes and restacks the selected items. Each operation is one undo step
// named after it, made of the document's own position, geometry and transform commands.
class ReportArranger : public QObject
{
    Q_OBJECT
public:
    enum Edge { Left, HorizontalCentre, Right, Top, VerticalCentre, Bottom };

    explicit ReportArranger(ReportEditor* editor, QObject* parent = nullptr);

    // Each returns false when the selection is too small or nothing would change; then no
    // step is recorded.
    bool align(Edge edge);
    // Equal gaps between the items; the outermost two stay where they are.
    bool distribute(Qt::Orientation orientation);
    // Gives every selected item the width (or height) of the first one the user selected.
    bool sameSize(Qt::Orientation orientation);
    bool bringToFront();
    bool sendToBack();

private:
    bool moveItems(const QList<ReportItem*>& items, const QList<QPointF>& offsets, const QString& text);
    bool restack(bool toFront);

    ReportEditor* m_editor;
};

} // namespace coagulation
