#include "waitcursor.h"

#include <QCursor>
#include <QGuiApplication>

namespace coagulation {

WaitCursor::WaitCursor(Qt::CursorShape shape)
{
    if (qobject_cast<QGuiApplication*>(QCoreApplication::instance())) {
        QGuiApplication::setOverrideCursor(QCursor(shape));
        active = true;
    }
}

WaitCursor::~WaitCursor()
{
    if (active && QGuiApplication::instance())
        QGuiApplication::restoreOverrideCursor();
}

} // namespace coagulation
