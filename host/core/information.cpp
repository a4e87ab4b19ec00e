#include "information.h"

#include <QApplication>

#include <cstdio>

namespace coagulation {

namespace {
QList<InformationLog::Entry>& log()
{
    static QList<InformationLog::Entry> entries;
    return entries;
}
} // namespace

bool InformationLog::isInteractive()
{
    if (!qobject_cast<QApplication*>(QCoreApplication::instance()))
        return false;
    if (qEnvironmentVariableIsSet("COAGULATION_NONINTERACTIVE"))
        return false;
    const QString platform = QGuiApplication::platformName();
    return platform != QLatin1String("offscreen") && platform != QLatin1String("minimal");
}

int InformationLog::count()
{
    return log().size();
}

InformationLog::Entry InformationLog::last()
{
    return log().isEmpty() ? Entry() : log().constLast();
}

QList<InformationLog::Entry> InformationLog::entries()
{
    return log();
}

void InformationLog::clear()
{
    log().clear();
}

QMessageBox::StandardButton information(const QString& text, QMessageBox::StandardButtons buttons,
                                        QMessageBox::StandardButton defaultButton)
{
    log().append({text, buttons, defaultButton});
    if (InformationLog::isInteractive())
        return QMessageBox::information(QApplication::activeWindow(), QCoreApplication::applicationName(),
                                        text, buttons, defaultButton);
    std::fprintf(stderr, "%s\n", text.toLocal8Bit().constData());
    if (defaultButton != QMessageBox::NoButton)
        return defaultButton;
    return QMessageBox::Ok;
}

} // namespace coagulation
