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

namespace coagulation {
// The texts of the command line.
struct DesignerMain
{
    Q_DECLARE_TR_FUNCTIONS(coagulation::DesignerMain)
};
} // namespace coagulation

int main(int argc, char** argv)
{
    // Answered before the GUI starts, so that it works without a display.
    for (int i = 1; i < argc; ++i)
        if (qstrcmp(argv[i], "--version") == 0 || qstrcmp(argv[i], "-v") == 0) {
            std::printf("coagulation-designer %s\n", COAGULATION_VERSION);
            return 0;
        }
    QApplication app(argc, argv);
    QApplication::setOrganizationName(QStringLiteral("Coagulation"));
    QApplication::setApplicationName(QStringLiteral("coagulation-designer"));
    QApplication::setApplicationVersion(QStringLiteral(COAGULATION_VERSION));
    QString languageError;
    if (!Language::setUp(Language::fromArguments(QCoreApplication::arguments()), &languageError)) {
        std::fprintf(stderr, "%s\n", qPrintable(languageError));
        return 2;
    }

    QCommandLineParser parser;
    parser.setApplicationDescription(DesignerMain::tr("报表模板设计器"));
    parser.addHelpOption();
    parser.addVersionOption();
    parser.addPositionalArgument(QStringLiteral("template"), DesignerMain::tr("要打开的模板 (.rpt)"));
    const QCommandLineOption workspaceOption(
        QStringLiteral("workspace"),
        DesignerMain::tr("工作区文件夹 (profile.ini 及其数据库)：预览用其数据，工具用其列名；"
                         "默认为 $COAGULATION_WORKSPACE，否则为 out/demo"),
        QStringLiteral("folder"));
    const QCommandLineOption selectOption(
        QStringLiteral("select"), DesignerMain::tr("选中此序号的项目 (最上层为 0)"), QStringLiteral("index"));
    const QCommandLineOption screenshotOption(QStringLiteral("screenshot"),
                                              DesignerMain::tr("保存窗口截图后退出"), QStringLiteral("png"));
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
        std::fprintf(
            stderr, "%s\n",
            qPrintable(DesignerMain::tr("%1 中没有工作区：数据字段和预览需要工作区 (make demo 会创建一个)")
                           .arg(QDir::toNativeSeparators(QDir(workspace).absolutePath()))));
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
