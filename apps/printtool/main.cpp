// coagulation-print: prints patient, QC and maintenance reports through the report plug-in.
#include "printtool.h"
#include "toolarguments.h"

#include <core/information.h>
#include <language.h>

#include <QApplication>

#include <cstdio>

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

    if (showsWindows && !InformationLog::isInteractive()) {
        std::fprintf(
            stderr, "coagulation-print: %s\n",
            QCoreApplication::translate("coagulation::PrintTool", "--dialog 和 --preview 需要图形显示")
                .toLocal8Bit()
                .constData());
        return PrintTool::Failure;
    }
    return PrintTool().run(parsed);
}
