#include "maintenancerecorddelegate.h"

#include "maintenancerecordmodel.h"

#include <QFontMetrics>
#include <QTextLayout>

namespace coagulation {

namespace {
// Room around a cell's text: generous across, tight down, so that a month fits a page.
constexpr int padding = 8;
constexpr int verticalPadding = 2;
} // namespace

QString MaintenanceRecordDelegate::fitted(const QString& text, const QFont& font, int width)
{
    if (width <= 0 || text.isEmpty())
        return text;
    QString laidOut = text;
    laidOut.replace(QLatin1Char('\n'), QChar::LineSeparator);
    QTextLayout layout(laidOut, font);
    QTextOption option;
    option.setWrapMode(QTextOption::WrapAtWordBoundaryOrAnywhere);
    layout.setTextOption(option);
    QList<int> starts;
    layout.beginLayout();
    for (QTextLine line = layout.createLine(); line.isValid(); line = layout.createLine()) {
        line.setLineWidth(width);
        starts.append(line.textStart());
    }
    layout.endLayout();
    if (starts.size() <= maxLines)
        return text;
    QString kept;
    for (int i = 0; i < maxLines - 1; ++i)
        kept += text.mid(starts.at(i), starts.at(i + 1) - starts.at(i)).trimmed() + QLatin1Char('\n');
    const QString rest = text.mid(starts.at(maxLines - 1)).simplified();
    return kept + QFontMetrics(font).elidedText(rest, Qt::ElideRight, width);
}

MaintenanceRecordDelegate::MaintenanceRecordDelegate(QObject* parent) : QStyledItemDelegate(parent) {}

QWidget* MaintenanceRecordDelegate::createEditor(QWidget*, const QStyleOptionViewItem&,
                                                 const QModelIndex&) const
{
    return nullptr; // records are history
}

QSize MaintenanceRecordDelegate::sizeHint(const QStyleOptionViewItem& option, const QModelIndex& index) const
{
    return QStyledItemDelegate::sizeHint(option, index) + QSize(padding, verticalPadding);
}

void MaintenanceRecordDelegate::initStyleOption(QStyleOptionViewItem* option, const QModelIndex& index) const
{
    QStyledItemDelegate::initStyleOption(option, index);
    option->displayAlignment = Qt::AlignCenter;
    // Only a cell of known width is cut; measuring a column's natural width leaves it whole.
    if (option->rect.width() > 0)
        option->text = fitted(option->text, option->font, option->rect.width() - padding);
    if (index.data(MaintenanceRecordModel::NotableResultRole).toBool()) {
        option->palette.setColor(QPalette::Text, QColor(200, 30, 30));
        option->palette.setColor(QPalette::HighlightedText, QColor(200, 30, 30));
    }
}

} // namespace coagulation
