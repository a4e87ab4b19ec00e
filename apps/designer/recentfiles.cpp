#include "recentfiles.h"

#include <QDir>
#include <QFileInfo>
#include <QMenu>
#include <QSettings>

namespace coagulation {

namespace {
const QString settingsKey = QStringLiteral("designer/recentFiles");
}

RecentFiles::RecentFiles(QMenu* menu, QObject* parent) : QObject(parent), m_menu(menu)
{
    updateMenu();
}

QStringList RecentFiles::files() const
{
    return QSettings().value(settingsKey).toStringList();
}

void RecentFiles::add(const QString& fileName)
{
    const QString path = QFileInfo(fileName).absoluteFilePath();
    QStringList list = files();
    list.removeAll(path);
    list.prepend(path);
    store(list.mid(0, maximum));
}

void RecentFiles::remove(const QString& fileName)
{
    QStringList list = files();
    list.removeAll(QFileInfo(fileName).absoluteFilePath());
    store(list);
}

void RecentFiles::store(const QStringList& files)
{
    QSettings().setValue(settingsKey, files);
    updateMenu();
}

void RecentFiles::updateMenu()
{
    m_menu->clear();
    const QStringList list = files();
    for (int i = 0; i < list.size(); ++i) {
        const QString path = list.at(i);
        QAction* action = m_menu->addAction(
            QStringLiteral("&%1 %2").arg(i + 1).arg(QDir::toNativeSeparators(QFileInfo(path).fileName())));
        action->setToolTip(path);
        connect(action, &QAction::triggered, this, [this, path] { Q_EMIT chosen(path); });
    }
    m_menu->setEnabled(!list.isEmpty());
}

} // namespace coagulation
