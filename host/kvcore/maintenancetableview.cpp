#include "maintenancetableview.h"

#include <QAbstractButton>
#include <QEvent>
#include <QHeaderView>
#include <QProxyStyle>
#include <QStyleOptionHeader>
#include <QStylePainter>

namespace coagulation {

namespace {

// Header sections as a flat fill with lines: styles such as Fusion paint their gradient sections
// through cached pixmaps, which a printout would carry as images.
class FlatHeaderStyle : public QProxyStyle
{
public:
    void drawControl(ControlElement element, const QStyleOption* option, QPainter* painter,
                     const QWidget* widget) const override
    {
        if (element != CE_HeaderSection) {
            QProxyStyle::drawControl(element, option, painter, widget);
            return;
        }
        const QRect rect = option->rect;
        painter->save();
        painter->fillRect(rect, option->palette.button());
        painter->setPen(option->palette.color(QPalette::Mid));
        painter->drawLine(rect.topRight(), rect.bottomRight());
        painter->drawLine(rect.bottomLeft(), rect.bottomRight());
        painter->restore();
    }
};

} // namespace

MaintenanceTableView::MaintenanceTableView(MaintenanceManager::RecordType recordType, QWidget* parent)
    : QTableView(parent), m_cornerButton(findChild<QAbstractButton*>())
{
    setFrameShape(QFrame::NoFrame);
    setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    setVerticalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    setEditTriggers(QAbstractItemView::NoEditTriggers);
    setSelectionMode(QAbstractItemView::NoSelection);
    setFocusPolicy(Qt::NoFocus);
    setCornerButtonEnabled(false);
    setWordWrap(true);
    auto* headerStyle = new FlatHeaderStyle;
    headerStyle->setParent(this);
    horizontalHeader()->setStyle(headerStyle);
    verticalHeader()->setStyle(headerStyle);
    horizontalHeader()->setDefaultAlignment(Qt::AlignCenter);
    verticalHeader()->setDefaultAlignment(Qt::AlignCenter);
    // The corner button is the table's title cell.
    if (m_cornerButton) {
        m_cornerButton->setStyle(headerStyle);
        m_cornerButton->installEventFilter(this);
    }
    setTitle(recordType);
}

void MaintenanceTableView::setTitle(MaintenanceManager::RecordType recordType)
{
    m_title = MaintenanceManager::recordTypeName(recordType);
    const QFontMetrics metrics(verticalHeader()->font());
    verticalHeader()->setMinimumWidth(metrics.horizontalAdvance(m_title) + 2 * metrics.averageCharWidth());
    updateGeometries();
    if (m_cornerButton)
        m_cornerButton->update();
}

void MaintenanceTableView::setModel(QAbstractItemModel* model)
{
    if (QAbstractItemModel* old = this->model())
        disconnect(old, &QAbstractItemModel::modelReset, this, &MaintenanceTableView::fitContents);
    QTableView::setModel(model);
    if (model)
        connect(model, &QAbstractItemModel::modelReset, this, &MaintenanceTableView::fitContents);
}

int MaintenanceTableView::remarkWidth() const
{
    return 30 * fontMetrics().horizontalAdvance(QChar(0x4e00));
}

void MaintenanceTableView::fitContents()
{
    resizeColumnsToContents();
    // Long remarks wrap (and are cut after a few lines) instead of widening the table.
    const int remarks = model() ? model()->columnCount() - 1 : 0;
    if (remarks > 0 && columnWidth(remarks) > remarkWidth())
        setColumnWidth(remarks, remarkWidth());
    resizeRowsToContents();
    updateGeometries();
}

bool MaintenanceTableView::eventFilter(QObject* watched, QEvent* event)
{
    if (watched == m_cornerButton && event->type() == QEvent::Paint) {
        QStylePainter painter(m_cornerButton);
        QStyleOptionHeader option;
        // Styled like the header beside it: the button itself is disabled (no select-all).
        option.initFrom(verticalHeader());
        option.rect = m_cornerButton->rect();
        option.position = QStyleOptionHeader::OnlyOneSection;
        option.textAlignment = Qt::AlignCenter;
        option.text = m_title;
        painter.setFont(verticalHeader()->font());
        painter.drawControl(QStyle::CE_Header, option);
        return true;
    }
    return QTableView::eventFilter(watched, event);
}

} // namespace coagulation
