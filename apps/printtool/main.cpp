// coagulation-print: prints patient, QC and maintenance reports through the report plug-in.
#include "printtool.h"
#include "toolarguments.h"
#include "unattendeddialogs.h"

#include <core/information.h>
#include <language.h>

#include <QApplication>

#include <cstdio>
#include <memory>

using namespace coagulation;

namespace {

QtMessageHandler defaultHandler = nullptr;

// The offscreen platform reports window features it lacks; a tool that shows no window does
// not need to hear about them.
void offscreenHandler(QtMsgType type, const QMessageLogContext& context, const QString& message)
{
    if (message.contains(QLatin1String("does not support propagateSizeHints")) ||
        message.startsWith(QLatin1String("QStandardPaths: XDG_RUNTIME_DIR not set")))
        return;
    defaultHandler(type, context, message);
}

// Whether windows can be shown at all: without a display the platform plug-in would abort the
// tool before it could say why.
bool hasDisplay()
{
    const QByteArray platform = qgetenv("QT_QPA_PLATFORM");
    if (platform.startsWith("offscreen") || platform.startsWith("minimal"))
        return false;
    return !platform.isEmpty() || !qEnvironmentVariableIsEmpty("DISPLAY") ||
           !qEnvironmentVariableIsEmpty("WAYLAND_DISPLAY");
}

int needsDisplay()
{
    std::fprintf(stderr, "coagulation-print: %s\n",
                 QCoreApplication::translate("coagulation::PrintTool", "--dialog 和 --preview 需要图形显示")
                     .toLocal8Bit()
                     .constData());
    return PrintTool::Failure;
}

} // namespace

int main(int argc, char** argv)
{
    QStringList arguments;
    for (int i = 0; i < argc; ++i)
        arguments.append(QString::fromLocal8Bit(argv[i]));
    ToolArguments parsed;
    if (!parsed.parse(arguments)) {
        // Said again in the user's language, which needs an application for its translations.
        QCoreApplication core(argc, argv);
        QString unknownLanguage;
        if (Language::setUp(Language::fromArguments(arguments), &unknownLanguage))
            parsed.parse(arguments);
        const QString hint = QCoreApplication::translate("coagulation::PrintTool", "用法见 '%1 --help'.")
                                 .arg(QStringLiteral("coagulation-print"));
        std::fprintf(stderr, "coagulation-print: %s\n%s\n", parsed.errorString().toLocal8Bit().constData(),
                     hint.toLocal8Bit().constData());
        return PrintTool::UsageError;
    }

    const bool showsWindows =
        parsed.destination == ToolArguments::PrintDialog || parsed.destination == ToolArguments::Preview;
    if (showsWindows && !hasDisplay())
        return needsDisplay();
    if (!showsWindows) {
        // Nobody is there to answer a message box: the module's messages go to stderr.
        qputenv("COAGULATION_NONINTERACTIVE", "1");
        if (qEnvironmentVariableIsEmpty("QT_QPA_PLATFORM") && qEnvironmentVariableIsEmpty("DISPLAY") &&
            qEnvironmentVariableIsEmpty("WAYLAND_DISPLAY"))
            qputenv("QT_QPA_PLATFORM", "offscreen");
    }
    if (qgetenv("QT_QPA_PLATFORM") == "offscreen")
        defaultHandler = qInstallMessageHandler(offscreenHandler);
    QApplication app(argc, argv);
    QCoreApplication::setApplicationName(QStringLiteral("coagulation-print"));
    QString languageError;
    if (!Language::setUp(parsed.language, &languageError)) {
        std::fprintf(stderr, "coagulation-print: %s\n", qPrintable(languageError));
        return PrintTool::Failure;
    }

    if (showsWindows && !InformationLog::isInteractive())
        return needsDisplay();
    // Nobody answers a dialog the plug-in opens (a template to pick for QC samples): it is cancelled.
    std::unique_ptr<UnattendedDialogs> unattended;
    if (!showsWindows)
        unattended = std::make_unique<UnattendedDialogs>();
    return PrintTool().run(parsed);
}
