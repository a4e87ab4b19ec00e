#include "unattendeddialogs.h"

#include <QApplication>
#include <QDialog>

namespace coagulation {

UnattendedDialogs::UnattendedDialogs()
{
    // A modal dialog runs its own event loop, which keeps this timer going.
    m_timer.setInterval(20);
    QObject::connect(&m_timer, &QTimer::timeout, [] {
        if (auto* dialog = qobject_cast<QDialog*>(QApplication::activeModalWidget()))
            dialog->reject();
    });
    m_timer.start();
}

} // namespace coagulation
