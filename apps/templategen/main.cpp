// Rebuilds the default report templates: coagulation-templategen [folder]
#include "defaulttemplates.h"

#include <language.h>

#include <QApplication>
#include <QCommandLineParser>
#include <QDir>

#include <cstdio>

using namespace coagulation;

int main(int argc, char** argv)
{
    // Text layout needs a GUI application; nothing is shown.
    if (!qEnvironmentVariableIsSet("QT_QPA_PLATFORM"))
        qputenv("QT_QPA_PLATFORM", "offscreen");
    QApplication app(argc, argv);
    QCoreApplication::setApplicationName(QStringLiteral("coagulation-templategen"));
    // Captions and file names in the language asked for; not from the environment, so that rebuilding
    // the committed Chinese templates never depends on the machine's locale.
    const QString language = Language::fromArguments(QCoreApplication::arguments());
    QString languageError;
    if (!Language::setUp(language.isEmpty() ? QStringLiteral("zh_CN") : language, &languageError)) {
        std::fprintf(stderr, "%s\n", qPrintable(languageError));
        return 2;
    }

    QCommandLineParser parser;
    parser.setApplicationDescription(
        QStringLiteral("Writes the default report templates (*.rpt) into a folder."));
    parser.addHelpOption();
    parser.addOption(Language::option());
    parser.addPositionalArgument(QStringLiteral("folder"),
                                 QStringLiteral("Target folder (default: templates)"));
    parser.process(app);
    const QStringList args = parser.positionalArguments();
    if (args.size() > 1) {
        std::fprintf(stderr, "Give one folder at most.\n");
        return 2;
    }
    const QString folder = args.isEmpty() ? QStringLiteral("templates") : args.first();
    QString error;
    if (!DefaultTemplates::writeAll(folder, &error)) {
        std::fprintf(stderr, "%s\n", qPrintable(error));
        return 1;
    }
    for (const DefaultTemplate& entry : DefaultTemplates::all())
        std::printf("%s\n", qPrintable(QDir(folder).filePath(entry.name() + QStringLiteral(".rpt"))));
    return 0;
}
