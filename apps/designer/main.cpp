// The report template designer.
#include "designerwindow.h"
#include "pageview.h"
#include "reporteditor.h"

#include <core/profile.h>
#include <itemfactory.h>
#include <language.h>
#include <report.h>
#include <reportitembase.h>

#include <QApplication>
#include <QCommandLineParser>
#include <QDir>
#include <QFileInfo>
#include <QTimer>

#include <cstdio>
#include <memory>

using namespace coagulation;

int main(int argc, char** argv)
{
    QApplication app(argc, argv);
    QApplication::setOrganizationName(QStringLiteral("Coagulation"));
    QApplication::setApplicationName(QStringLiteral("coagulation-designer"));
    QString languageError;
    if (!Language::setUp(Language::fromArguments(QCoreApplication::arguments()), &languageError)) {
        std::fprintf(stderr, "%s\n", qPrintable(languageError));
        return 2;
    }

    QCommandLineParser parser;
    parser.setApplicationDescription(QStringLiteral("Report template designer"));
    parser.addHelpOption();
    parser.addPositionalArgument(QStringLiteral("template"), QStringLiteral("A template (.rpt) to open"));
    const QCommandLineOption workspaceOption(
        QStringLiteral("workspace"),
        QStringLiteral("Workspace folder (profile.ini and its databases) whose data fills previews and whose "
                       "column names the tools offer; default $COAGULATION_WORKSPACE, else out/demo"),
        QStringLiteral("folder"));
    const QCommandLineOption selectOption(QStringLiteral("select"),
                                          QStringLiteral("Select the item with this index (topmost first)"),
                                          QStringLiteral("index"));
    const QCommandLineOption screenshotOption(QStringLiteral("screenshot"),
                                              QStringLiteral("Save a picture of the window and quit"),
                                              QStringLiteral("png"));
    parser.addOptions({workspaceOption, selectOption, screenshotOption, Language::option()});
    parser.process(app);

    QString workspace = parser.value(workspaceOption);
    if (workspace.isEmpty())
        workspace = qEnvironmentVariable("COAGULATION_WORKSPACE", QStringLiteral("out/demo"));
    const QString ini = QDir(workspace).filePath(DesignerWindow::workspaceProfileName());
    std::unique_ptr<Profile> profile;
    if (QFileInfo(ini).isFile()) {
        profile = std::make_unique<Profile>(ini);
    } else {
        std::fprintf(stderr, "No workspace at %s: data fields and previews need one (make demo creates it)\n",
                     qPrintable(QDir::toNativeSeparators(QDir(workspace).absolutePath())));
        profile = std::make_unique<Profile>();
    }

    ItemFactory factory(profile.get());
    DesignerWindow window(profile.get(), &factory);
    window.setWorkspaceDirectory(workspace);
    window.show();
    const QStringList files = parser.positionalArguments();
    if (!files.isEmpty() && !window.openFile(files.constFirst()))
        return 1;
    if (parser.isSet(selectOption)) {
        const QList<ReportItem*> items = window.report()->reportItems();
        const int index = parser.value(selectOption).toInt();
        if (index >= 0 && index < items.size())
            items.at(index)->graphicsItem()->setSelected(true);
    }

    if (parser.isSet(screenshotOption)) {
        const QString png = parser.value(screenshotOption);
        QTimer::singleShot(500, &window, [&] {
            window.view()->fitPage();
            QApplication::processEvents();
            const bool ok = window.grab().save(png);
            QApplication::exit(ok ? 0 : 1);
        });
    }
    return app.exec();
}
