#pragma once

#include <QObject>
#include <QStringList>

class QMenu;

namespace coagulation {

// The templates opened or saved last, newest first, kept in the user's settings and offered
// in a menu.
class RecentFiles : public QObject
{
    Q_OBJECT
public:
    static constexpr int maximum = 8;

    explicit RecentFiles(QMenu* menu, QObject* parent = nullptr);

    QStringList files() const;
    void add(const QString& fileName);
    void remove(const QString& fileName);

Q_SIGNALS:
    void chosen(const QString& fileName);

private:
    void store(const QStringList& files);
    void updateMenu();

    QMenu* m_menu;
};

} // namespace coagulation
