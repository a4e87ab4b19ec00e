#include "itemoutline.h"

#include "itemdescription.h"
#include "reporteditor.h"

#include <report.h>
#include <reportitembase.h>

#include <QHeaderView>

namespace coagulation {

ItemOutline::ItemOutline(ReportEditor* editor, QWidget* parent) : QTreeWidget(parent), m_editor(editor)
{
    setObjectName(QStringLiteral("itemOutline"));
    setColumnCount(3);
    setHeaderLabels({tr("类型"), tr("键"), tr("名称")});
    setRootIsDecorated(false);
    setSelectionMode(QAbstractItemView::ExtendedSelection);
    setUniformRowHeights(true);
    header()->setSectionResizeMode(0, QHeaderView::ResizeToContents);
    header()->setSectionResizeMode(1, QHeaderView::ResizeToContents);
    connect(this, &QTreeWidget::itemSelectionChanged, this, &ItemOutline::rowsSelected);
}

ReportItem* ItemOutline::itemAt(int row) const
{
    return m_items.value(row);
}

int ItemOutline::rowOf(const ReportItem* item) const
{
    return int(m_items.indexOf(const_cast<ReportItem*>(item)));
}

void ItemOutline::rebuild()
{
    Report* report = m_editor->report();
    const QList<ReportItem*> items = report ? report->reportItems() : QList<ReportItem*>();
    const ItemFactory* factory = report ? report->factory() : nullptr;
    QList<QStringList> texts;
    for (ReportItem* item : items)
        texts.append(
            {ItemDescription::kind(item, factory), item->key(), ItemDescription::displayName(item, factory)});
    // Undo steps come often; the list is only redone when what it shows has changed.
    bool same = items == m_items;
    for (int i = 0; same && i < items.size(); ++i)
        for (int c = 0; same && c < 3; ++c)
            same = topLevelItem(i)->text(c) == texts.at(i).at(c);
    if (!same) {
        m_syncing = true;
        clear();
        m_items = items;
        for (const QStringList& row : std::as_const(texts))
            addTopLevelItem(new QTreeWidgetItem(row));
        m_syncing = false;
    }
    followSelection();
}

void ItemOutline::followSelection()
{
    m_syncing = true;
    for (int i = 0; i < m_items.size(); ++i)
        topLevelItem(i)->setSelected(m_items.at(i)->graphicsItem()->isSelected());
    m_syncing = false;
}

void ItemOutline::rowsSelected()
{
    Report* report = m_editor->report();
    if (m_syncing || !report)
        return;
    m_syncing = true;
    report->clearSelection();
    for (int i = 0; i < m_items.size(); ++i)
        if (topLevelItem(i)->isSelected())
            m_items.at(i)->graphicsItem()->setSelected(true);
    if (QTreeWidgetItem* current = currentItem(); current && current->isSelected())
        if (ReportItem* item = itemAt(indexOfTopLevelItem(current)))
            item->graphicsItem()->ensureVisible();
    m_syncing = false;
}

} // namespace coagulation
