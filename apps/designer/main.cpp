// The report template designer.
#include "designerwindow.h"
#include "pageview.h"

#include <core/profile.h>

#include <QApplication>
#include <QCommandLineParser>
#include <QTimer>

#include <memory>

using namespace coagulation;

int main(int argc, char** argv)
{
    QApplication app(argc, argv);
    QApplication::setOrganizationName(QStringLiteral("Coagulation"));
    QApplication::setApplicationName(QStringLiteral("coagulation-designer"));
    QApplication::setApplicationDisplayName(QApplication::translate("main", "报表设计器"));

    QCommandLineParser parser;
    parser.setApplicationDescription(QApplication::translate("main", "报表模板设计器"));
    parser.addHelpOption();
    parser.addPositionalArgument(QStringLiteral("template"),
                                 QApplication::translate("main", "要打开的模板 (.rpt)"));
    const QCommandLineOption profileOption(
        QStringLiteral("profile"), QApplication::translate("main", "配置文件 (INI)"), QStringLiteral("ini"));
    const QCommandLineOption screenshotOption(QStringLiteral("screenshot"),
                                              QApplication::translate("main", "保存窗口截图后退出"),
                                              QStringLiteral("png"));
    parser.addOption(profileOption);
    parser.addOption(screenshotOption);
    parser.process(app);

    const auto profile = parser.isSet(profileOption) ? std::make_unique<Profile>(parser.value(profileOption))
                                                     : std::make_unique<Profile>();
    DesignerWindow window(profile.get(), nullptr);
    window.show();
    if (!parser.positionalArguments().isEmpty() &&
        !window.openFile(parser.positionalArguments().constFirst()))
        return 1;

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
