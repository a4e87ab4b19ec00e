#include "toplevelwidget.h"

#include <QApplication>
#include <QMainWindow>
#include <QPointer>

namespace coagulation {

namespace {
QPointer<QWidget>& registered()
{
    static QPointer<QWidget> widget;
    return widget;
}
} // namespace

void setTopLevelWidget(QWidget* widget)
{
    registered() = widget;
}

QWidget* topLevelWidget()
{
    if (registered())
        return registered();
    if (!qobject_cast<QApplication*>(QCoreApplication::instance()))
        return nullptr;
    const QWidgetList widgets = QApplication::topLevelWidgets();
    for (QWidget* w : widgets) {
        if (qobject_cast<QMainWindow*>(w) && w->isVisible())
            return w;
    }
    return QApplication::activeWindow();
}

} // namespace coagulation
