// coagulation-print: prints patient, QC and maintenance reports through the report plug-in.
#include "printtool.h"
#include "toolarguments.h"

#include <core/information.h>

#include <QApplication>
#include <QLocale>

#include <cstdio>

using namespace coagulation;

int main(int argc, char** argv)
{
    QStringList arguments;
    for (int i = 0; i < argc; ++i)
        arguments.append(QString::fromLocal8Bit(argv[i]));
    ToolArguments parsed;
    if (!parsed.parse(arguments)) {
        std::fprintf(stderr, "coagulation-print: %s\nTry 'coagulation-print --help'.\n",
                     parsed.errorString().toLocal8Bit().constData());
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
    QApplication app(argc, argv);
    QCoreApplication::setApplicationName(QStringLiteral("coagulation-print"));
    // The laboratory's reports show dates and times the Chinese way.
    QLocale::setDefault(QLocale(QLocale::Chinese, QLocale::China));

    if (showsWindows && !InformationLog::isInteractive()) {
        std::fprintf(stderr, "coagulation-print: --dialog and --preview need a display\n");
        return PrintTool::Failure;
    }
    return PrintTool().run(parsed);
}
