#pragma once

#include <QBrush>
#include <QIcon>
#include <QObject>
#include <QPen>

#include <functional>

namespace coagulation {

class ReportEditor;

// Font, alignment, pen and brush changes of the selected items, one undo step each through
// the property commands; shared by the format bar and the property panel.
class StyleEditor : public QObject
{
    Q_OBJECT
public:
    using ColorChooser = std::function<QColor(const QColor& initial)>;

    explicit StyleEditor(ReportEditor* editor, QObject* parent = nullptr);
    // Asked by the colour buttons; returns an invalid colour when the user cancels.
    void setColorChooser(const ColorChooser& chooser) { m_chooseColor = chooser; }

    // The styles offered, with their names.
    static QList<std::pair<Qt::PenStyle, QString>> penStyles();
    static QList<std::pair<Qt::BrushStyle, QString>> brushStyles();
    // A font's size in pixels, also when it was given in points.
    static int pixelSize(const QFont& font);
    // A colour swatch for a colour button.
    static QIcon swatch(const QColor& color);

public Q_SLOTS:
    void setFontFamily(const QString& family);
    void setFontPixelSize(int size);
    void setBold(bool on);
    void setItalic(bool on);
    void setUnderline(bool on);
    // The horizontal part; each item keeps its vertical alignment.
    void setAlignment(Qt::Alignment alignment);
    void setPenColor(const QColor& color);
    void setPenWidth(int width);
    void setPenStyle(Qt::PenStyle style);
    void setBrushColor(const QColor& color);
    void setBrushStyle(Qt::BrushStyle style);
    // Ask for a colour, starting from the first selected item's.
    void choosePenColor();
    void chooseBrushColor();

private:
    void changePen(const QString& text, const std::function<void(QPen&)>& change);
    void changeBrush(const QString& text, const std::function<void(QBrush&)>& change);

    ReportEditor* m_editor;
    ColorChooser m_chooseColor;
};

} // namespace coagulation
