#pragma once

#include <QWidget>

class QGraphicsView;

namespace coagulation {

// A ruler in millimetres along one edge of a report's view. It follows the view's zoom and
// scroll, counts from the sheet's corner, and marks where the cursor is.
class Ruler : public QWidget
{
    Q_OBJECT
public:
    static constexpr int breadth = 22;

    Ruler(Qt::Orientation orientation, QGraphicsView* view);

    Qt::Orientation orientation() const { return m_orientation; }
    // Scene units per millimetre along this ruler.
    void setUnitsPerMm(double units);
    // The cursor's scene coordinate along this ruler; NaN hides the mark.
    void setCursorPosition(double scene);
    double cursorPosition() const { return m_cursor; }
    // The millimetre step between labelled ticks at the view's zoom.
    double labelStep() const;

    QSize sizeHint() const override;

protected:
    void paintEvent(QPaintEvent* event) override;

private:
    double toWidget(double scene) const;
    double toScene(double widget) const;

    Qt::Orientation m_orientation;
    QGraphicsView* m_view;
    double m_unitsPerMm = 96 / 25.4;
    double m_cursor;
};

} // namespace coagulation
