#include "toolpalette.h"

#include <reportitembase.h>
#include <reportitemcreator.h>

#include <QButtonGroup>
#include <QStyle>
#include <QToolBox>
#include <QToolButton>
#include <QVBoxLayout>

namespace coagulation {

ToolPalette::ToolPalette(QWidget* parent)
    : QWidget(parent), m_box(new QToolBox), m_group(new QButtonGroup(this))
{
    auto* layout = new QVBoxLayout(this);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->addWidget(m_box);
    m_group->setExclusive(true);
}

ToolPalette::~ToolPalette()
{
    // A tool must not keep filtering a view that outlives the palette.
    if (m_current && m_current != pointer())
        m_current->leave();
}

void ToolPalette::setCreators(const QList<ReportItemCreator*>& creators)
{
    if (m_current)
        m_current->leave();
    m_current = nullptr;
    while (m_box->count() > 0) {
        QWidget* page = m_box->widget(0);
        m_box->removeItem(0);
        delete page;
    }
    m_buttons.clear();
    m_creators = creators;

    // Pages in the order their groups first appear; the basic tools have no group.
    QHash<QString, QVBoxLayout*> pages;
    for (ReportItemCreator* creator : creators) {
        const QString group = creator->group();
        QVBoxLayout* layout = pages.value(group);
        if (!layout) {
            auto* page = new QWidget;
            layout = new QVBoxLayout(page);
            layout->setContentsMargins(2, 2, 2, 2);
            layout->setSpacing(1);
            layout->addStretch();
            m_box->addItem(page, group.isEmpty() ? tr("基本工具") : group);
            pages.insert(group, layout);
        }
        auto* button = new QToolButton;
        button->setIcon(creator->icon());
        button->setText(creator->name());
        button->setToolTip(creator->name());
        button->setToolButtonStyle(Qt::ToolButtonTextBesideIcon);
        button->setCheckable(true);
        button->setAutoRaise(true);
        button->setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Fixed);
        layout->insertWidget(layout->count() - 1, button);
        m_group->addButton(button);
        m_buttons.insert(creator, button);
        connect(button, &QToolButton::clicked, this, [this, creator] { activate(creator); });
        // Queued: a tool reports "finished" from inside its own event handling, where it must
        // not be left and entered again.
        connect(creator, &ReportItemCreator::finished, this, &ToolPalette::toolFinished,
                Qt::QueuedConnection);
    }
    // Wide enough for the longest name beside a possible vertical scroll bar: no name is cut
    // off and no horizontal scroll bar appears.
    int widest = 0;
    for (QAbstractButton* button : std::as_const(m_buttons))
        widest = std::max(widest, button->sizeHint().width());
    setMinimumWidth(widest + style()->pixelMetric(QStyle::PM_ScrollBarExtent) +
                    4 * style()->pixelMetric(QStyle::PM_DefaultFrameWidth) + 8);
    activatePointer();
}

ReportItemCreator* ToolPalette::creator(const QString& key) const
{
    for (ReportItemCreator* creator : m_creators)
        if (creator->keys().contains(key))
            return creator;
    return nullptr;
}

ReportItemCreator* ToolPalette::pointer() const
{
    return creator(QStringLiteral("Pointer"));
}

void ToolPalette::setView(QGraphicsView* view)
{
    ReportItemCreator* tool = m_current;
    if (tool)
        tool->leave();
    m_current = nullptr;
    m_view = view;
    activate(tool ? tool : pointer());
}

void ToolPalette::activate(ReportItemCreator* creator)
{
    if (m_current && m_current != creator)
        m_current->leave();
    m_current = creator;
    if (QAbstractButton* button = m_buttons.value(creator))
        button->setChecked(true);
    Q_EMIT activated(creator);
    if (creator && m_view && m_view->scene())
        creator->enter(m_view);
}

void ToolPalette::activatePointer()
{
    activate(pointer());
}

void ToolPalette::toolFinished()
{
    if (sender() == m_current && m_current != pointer())
        activatePointer();
}

} // namespace coagulation
