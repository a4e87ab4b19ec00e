#pragma once

#include <report.h>

#include <QCoreApplication>
#include <QFont>
#include <QPointF>
#include <QPolygonF>
#include <QRectF>
#include <QString>

namespace coagulation {

class Profile;
class ReportItem;
class ReportTextItem;

// How a text item on a template looks.
struct TextStyle
{
    int pixelSize = 14;
    bool bold = false;
    Qt::Alignment alignment = Qt::AlignLeft;
    double width = -1; // -1: as wide as the text
};

// Places the items of a default template on a report, each with the key a template file
// stores for it, the way the designer would.
class TemplateBuilder
{
    // Captions are Chinese; English templates are built with the English translation installed.
    Q_DECLARE_TR_FUNCTIONS(coagulation::TemplateBuilder)

public:
    explicit TemplateBuilder(Report* report);

    Report* report() const { return m_report; }
    Profile* profile() const { return m_report->profile(); }
    double pageWidth() const { return m_report->sceneRect().width(); }
    double pageHeight() const { return m_report->sceneRect().height(); }

    static QFont font(int pixelSize, bool bold = false);
    // The width a column of labels needs: `atLeast`, or more for a translation that is longer.
    static double labelWidth(const QStringList& labels, double atLeast, int pixelSize = 14);

    ReportTextItem* text(const QString& text, const QPointF& pos, const TextStyle& style = TextStyle());
    // "[column name]" in the designer, the record's value when printed.
    ReportTextItem* field(const QString& table, const QString& column, const QPointF& pos,
                          const TextStyle& style = TextStyle());
    // A print-job or QC property; `placeholder` is what the designer shows until it is printed.
    ReportTextItem* prop(const QString& name, const QString& placeholder, const QPointF& pos,
                         const TextStyle& style = TextStyle());
    ReportTextItem* profileValue(const QString& name, const QPointF& pos,
                                 const TextStyle& style = TextStyle());
    // A label followed by a field, e.g. "姓名：" and the patient's name.
    void labelledField(const QString& label, const QString& table, const QString& column, const QPointF& pos,
                       double labelWidth, double fieldWidth, int pixelSize = 14);
    void line(const QLineF& line, double width = 1.0);
    void rect(const QRectF& rect, double width = 1.0, const QBrush& brush = Qt::NoBrush);

    // Puts an item made elsewhere on the page under `key`.
    void add(ReportItem* item, const QString& key, const QPointF& pos);

    // The handle polygon of a table at the origin: its size, row height and column widths.
    static QPolygonF tablePolygon(const QSizeF& size, double rowHeight, const QList<double>& widths);
    // Column captions over a table at `pos` whose columns have these widths and flags; they line
    // up with the cell texts, which sit `spacing` inside their column.
    void columnCaptions(const QStringList& captions, const QList<double>& widths, const QList<int>& flags,
                        const QPointF& pos, double spacing, int pixelSize = 14);

private:
    ReportTextItem* styled(ReportTextItem* item, const QString& key, const QPointF& pos,
                           const TextStyle& style);

    Report* m_report;
};

} // namespace coagulation
