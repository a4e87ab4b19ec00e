#include "toolarguments.h"

#include <language.h>

#include <QCommandLineParser>

namespace coagulation {

namespace {

using Commands = QList<ToolArguments::Command>;

const Commands printCommands = {ToolArguments::Patients, ToolArguments::Samples, ToolArguments::Qc,
                                ToolArguments::Maintenance};
const Commands workspaceCommands = printCommands + Commands{ToolArguments::Templates, ToolArguments::Check};

struct OptionEntry
{
    QStringList names;
    const char* valueName; // null for a switch
    const char* description;
    Commands commands; // where the option means something; empty: everywhere
};

const QList<OptionEntry>& optionEntries()
{
    static const QList<OptionEntry> entries = {
        {{QStringLiteral("p"), QStringLiteral("profile")},
         QT_TRANSLATE_NOOP("coagulation::ToolArguments", "文件"),
         QT_TRANSLATE_NOOP("coagulation::ToolArguments", "工作区的配置文件 (INI 文件)"),
         workspaceCommands},
        {{QStringLiteral("template-dir")},
         QT_TRANSLATE_NOOP("coagulation::ToolArguments", "文件夹"),
         QT_TRANSLATE_NOOP(
             "coagulation::ToolArguments",
             "模板文件夹 (默认: 配置中的 \"report/templateDirectory\", 否则为配置文件旁的 \"templates\")"),
         workspaceCommands},
        {{QStringLiteral("template")},
         QT_TRANSLATE_NOOP("coagulation::ToolArguments", "名称"),
         QT_TRANSLATE_NOOP("coagulation::ToolArguments", "用此模板代替记住的模板打印 (不会记住)"),
         printCommands},
        {{QStringLiteral("o"), QStringLiteral("output")},
         QT_TRANSLATE_NOOP("coagulation::ToolArguments", "文件"),
         QT_TRANSLATE_NOOP("coagulation::ToolArguments", "写出 PDF 文件, 而不是在默认打印机上打印"),
         printCommands},
        {{QStringLiteral("dialog")},
         nullptr,
         QT_TRANSLATE_NOOP("coagulation::ToolArguments", "先在打印对话框中选择打印机"),
         printCommands},
        {{QStringLiteral("preview")},
         nullptr,
         QT_TRANSLATE_NOOP("coagulation::ToolArguments", "显示打印预览, 可从中打印"),
         printCommands},
        {{QStringLiteral("strict")},
         nullptr,
         QT_TRANSLATE_NOOP("coagulation::ToolArguments",
                           "页面内容超出模板给它的位置时任务失败, 什么也不打印 (否则只是警告)"),
         printCommands},
        {{QStringLiteral("pdfa")},
         nullptr,
         QT_TRANSLATE_NOOP(
             "coagulation::ToolArguments",
             "把 PDF 写成 PDF/A-1b 以便归档 (只对本次运行; 配置中 \"report/pdfa\" = true 时为默认)"),
         printCommands},
        {{QStringLiteral("from")},
         QT_TRANSLATE_NOOP("coagulation::ToolArguments", "日期"),
         QT_TRANSLATE_NOOP("coagulation::ToolArguments", "只包括此日期起测定的结果 (yyyy-MM-dd)"),
         {ToolArguments::Qc}},
        {{QStringLiteral("to")},
         QT_TRANSLATE_NOOP("coagulation::ToolArguments", "日期"),
         QT_TRANSLATE_NOOP("coagulation::ToolArguments", "只包括此日期止测定的结果 (yyyy-MM-dd)"),
         {ToolArguments::Qc}},
        {{QStringLiteral("month")},
         QT_TRANSLATE_NOOP("coagulation::ToolArguments", "月份"),
         QT_TRANSLATE_NOOP("coagulation::ToolArguments", "月份, yyyy-MM (必需)"),
         {ToolArguments::Maintenance}},
        {{QStringLiteral("workbench")},
         QT_TRANSLATE_NOOP("coagulation::ToolArguments", "编号"),
         QT_TRANSLATE_NOOP("coagulation::ToolArguments", "工作台 (默认: 第一个)"),
         {ToolArguments::Maintenance}},
        {{QStringLiteral("patients")},
         QT_TRANSLATE_NOOP("coagulation::ToolArguments", "数量"),
         QT_TRANSLATE_NOOP("coagulation::ToolArguments", "生成的病人样本数 (默认 200)"),
         {ToolArguments::Demo}},
        {{QStringLiteral("template-source")},
         QT_TRANSLATE_NOOP("coagulation::ToolArguments", "文件夹"),
         QT_TRANSLATE_NOOP("coagulation::ToolArguments", "复制默认模板的来源文件夹"),
         {ToolArguments::Demo}},
        {{QStringLiteral("force")},
         nullptr,
         QT_TRANSLATE_NOOP("coagulation::ToolArguments",
                           "文件夹不为空时也写入 (替换其中的数据库, 配置和模板)"),
         {ToolArguments::Demo}},
        {{QStringLiteral("language")},
         QT_TRANSLATE_NOOP("coagulation::ToolArguments", "语言"),
         QT_TRANSLATE_NOOP(
             "coagulation::ToolArguments",
             "界面, 报告以及演示模板和数据的语言: zh_CN (默认) 或 en (默认取自 LANGUAGE, LC_ALL 或 LANG)"),
         {}},
        {{QStringLiteral("h"), QStringLiteral("help")},
         nullptr,
         QT_TRANSLATE_NOOP("coagulation::ToolArguments", "显示帮助"),
         {}},
        {{QStringLiteral("version")},
         nullptr,
         QT_TRANSLATE_NOOP("coagulation::ToolArguments", "显示版本"),
         {}},
    };
    return entries;
}

struct CommandEntry
{
    ToolArguments::Command command;
    QString name;
    const char* arguments;
    const char* summary;
    const char* description;
};

const QList<CommandEntry>& commandEntries()
{
    static const QList<CommandEntry> entries = {
        {ToolArguments::Patients, QStringLiteral("patients"),
         QT_TRANSLATE_NOOP("coagulation::ToolArguments", "病人编号..."),
         QT_TRANSLATE_NOOP("coagulation::ToolArguments", "按病人编号打印病人结果报告"),
         QT_TRANSLATE_NOOP("coagulation::ToolArguments",
                           "按病人编号 (\"patient\" 表的 id) 打印病人结果报告, 每位病人一页.")},
        {ToolArguments::Samples, QStringLiteral("samples"),
         QT_TRANSLATE_NOOP("coagulation::ToolArguments", "样本号..."),
         QT_TRANSLATE_NOOP("coagulation::ToolArguments", "按样本号打印病人结果报告"),
         QT_TRANSLATE_NOOP("coagulation::ToolArguments",
                           "按样本号打印病人结果报告, 取该样本号最新的样本, 每个样本一页.")},
        {ToolArguments::Qc, QStringLiteral("qc"),
         QT_TRANSLATE_NOOP("coagulation::ToolArguments", "[试剂编号...]"),
         QT_TRANSLATE_NOOP("coagulation::ToolArguments", "打印质控报告"),
         QT_TRANSLATE_NOOP("coagulation::ToolArguments",
                           "打印质控报告, 每个试剂一个序列 (未给出时为全部试剂), 每个序列从新的一页开始.")},
        {ToolArguments::Maintenance, QStringLiteral("maintenance"), "",
         QT_TRANSLATE_NOOP("coagulation::ToolArguments", "打印一个月的维护记录报告"),
         QT_TRANSLATE_NOOP("coagulation::ToolArguments", "打印一个月 (--month) 的维护记录报告, 总是一页.")},
        {ToolArguments::Templates, QStringLiteral("templates"), "",
         QT_TRANSLATE_NOOP("coagulation::ToolArguments", "列出模板"),
         QT_TRANSLATE_NOOP("coagulation::ToolArguments", "列出每种报告类型的模板和配置中记住的模板.")},
        {ToolArguments::Check, QStringLiteral("check"),
         QT_TRANSLATE_NOOP("coagulation::ToolArguments", "[模板文件...]"),
         QT_TRANSLATE_NOOP("coagulation::ToolArguments", "检查模板是否完整"),
         QT_TRANSLATE_NOOP(
             "coagulation::ToolArguments",
             "检查模板文件是否完整可读: 文件头可用, 每个项目都能读出, 文件在最后一个项目处结束. 未给出文件时"
             "检查工作区模板文件夹中的全部模板. 有模板损坏时退出状态为 1.")},
        {ToolArguments::Demo, QStringLiteral("demo"),
         QT_TRANSLATE_NOOP("coagulation::ToolArguments", "文件夹"),
         QT_TRANSLATE_NOOP("coagulation::ToolArguments", "建立演示工作区"),
         QT_TRANSLATE_NOOP(
             "coagulation::ToolArguments",
             "在文件夹中建立演示工作区: profile.ini, 用生成的实验室数据填充的三个数据库, templates "
             "中的默认模板, "
             "以及配置中的模板选择. 文件夹不为空时需要 --force.")},
    };
    return entries;
}

const CommandEntry* commandEntry(ToolArguments::Command command)
{
    for (const CommandEntry& entry : commandEntries()) {
        if (entry.command == command)
            return &entry;
    }
    return nullptr;
}

QString tr(const char* text)
{
    return QCoreApplication::translate("coagulation::ToolArguments", text);
}

// "-p" or "--profile"
QString dashed(const QString& name)
{
    return (name.size() == 1 ? QStringLiteral("-") : QStringLiteral("--")) + name;
}

// Columns as a terminal shows them: Chinese characters take two.
int displayWidth(const QString& text)
{
    int width = 0;
    for (const QChar c : text)
        width += c.unicode() >= 0x1100 ? 2 : 1;
    return width;
}

QString table(const QList<QPair<QString, QString>>& rows)
{
    int width = 0;
    for (const auto& row : rows)
        width = qMax(width, displayWidth(row.first));
    QString text;
    for (const auto& row : rows)
        text += QStringLiteral("  ") + row.first +
                QString(width - displayWidth(row.first) + 2, QLatin1Char(' ')) + row.second +
                QLatin1Char('\n');
    return text;
}

QString optionTable(ToolArguments::Command command)
{
    QList<QPair<QString, QString>> rows;
    for (const OptionEntry& entry : optionEntries()) {
        if (!entry.commands.isEmpty() && !entry.commands.contains(command))
            continue;
        QStringList names;
        for (const QString& name : entry.names)
            names.append(dashed(name));
        QString left = names.join(QStringLiteral(", "));
        if (entry.valueName)
            left += QLatin1Char(' ') + tr(entry.valueName);
        rows.append({left, tr(entry.description)});
    }
    return table(rows);
}

} // namespace

QString ToolArguments::helpText(Command command)
{
    const QString program = QStringLiteral("coagulation-print");
    if (const CommandEntry* entry = commandEntry(command)) {
        QString usage = program + QLatin1Char(' ') + entry->name;
        if (*entry->arguments)
            usage += QLatin1Char(' ') + tr(entry->arguments);
        return tr("用法: %1 [选项]").arg(usage) + QStringLiteral("\n\n") + tr(entry->description) +
               QStringLiteral("\n\n") + tr("选项:") + QLatin1Char('\n') + optionTable(command);
    }
    QList<QPair<QString, QString>> commands;
    for (const CommandEntry& entry : commandEntries())
        commands.append({entry.name + (*entry.arguments ? QLatin1Char(' ') + tr(entry.arguments) : QString()),
                         tr(entry.summary)});
    return tr("用法: %1 命令 [参数] [选项]").arg(program) + QStringLiteral("\n\n") +
           tr("像主程序一样通过报表插件打印分析仪的报告: 按接口标识找到插件, 用配置文件建立工作区, "
              "使用配置中记住的模板.") +
           QStringLiteral("\n\n") + tr("命令:") + QLatin1Char('\n') + table(commands) + QLatin1Char('\n') +
           tr("\"%1 命令 --help\" 显示该命令的选项.").arg(program) + QLatin1Char('\n') +
           optionTable(NoCommand) + QLatin1Char('\n') +
           tr("没有 --output, --dialog 或 --preview 时报告送到默认打印机. 不显示对话框或预览时, "
              "报表模块的消息"
              "写到标准错误输出.") +
           QStringLiteral("\n\n") +
           tr("退出状态: 0 成功, 1 任务失败 (数据或模板缺失或损坏, 打印失败, 什么也没有记录), 2 参数错误.") +
           QStringLiteral("\n\n") + tr("示例:") + QLatin1Char('\n') +
           QStringLiteral("  %1 demo out/demo\n"
                          "  %1 patients 1 2 3 -p out/demo/profile.ini -o patients.pdf\n"
                          "  %1 qc 1 --from 2024-06-01 --to 2024-06-28 -p out/demo/profile.ini -o qc.pdf\n"
                          "  %1 maintenance --month 2024-06 -p out/demo/profile.ini --preview\n"
                          "  %1 check -p out/demo/profile.ini\n")
               .arg(program);
}

bool ToolArguments::fail(const QString& message)
{
    m_errorString = message;
    return false;
}

bool ToolArguments::parseIds(const QStringList& values, const QString& what)
{
    for (const QString& value : values) {
        bool ok = false;
        const qint64 id = value.toLongLong(&ok);
        if (!ok || id <= 0)
            return fail(tr("'%1' 不是%2编号 (正整数)").arg(value, what));
        ids.append(id);
    }
    return true;
}

bool ToolArguments::parseDate(const QString& text, const QString& option, QDate* date)
{
    *date = QDate::fromString(text, QStringLiteral("yyyy-MM-dd"));
    if (!date->isValid())
        return fail(tr("--%1 '%2' 不是 yyyy-MM-dd 格式的日期").arg(option, text));
    return true;
}

bool ToolArguments::parse(const QStringList& arguments)
{
    QCommandLineParser parser;
    for (const OptionEntry& entry : optionEntries())
        parser.addOption(
            QCommandLineOption(entry.names, QString(), entry.valueName ? QStringLiteral("x") : QString()));
    if (!parser.parse(arguments)) {
        const QStringList unknown = parser.unknownOptionNames();
        if (!unknown.isEmpty())
            return fail(tr("未知的选项 '%1'").arg(unknown.first()));
        // The other complaint is an option without its value, or a switch given one.
        for (const OptionEntry& entry : optionEntries()) {
            for (const QString& name : entry.names) {
                const QString option = dashed(name);
                if (entry.valueName && arguments.constLast() == option)
                    return fail(tr("选项 %1 需要一个值").arg(option));
                if (entry.valueName)
                    continue;
                for (const QString& argument : arguments) {
                    if (argument.startsWith(option + QLatin1Char('=')))
                        return fail(tr("选项 %1 不带值").arg(option));
                }
            }
        }
        return fail(tr("无法解析命令行"));
    }
    language = parser.value(QStringLiteral("language"));
    bool known = true;
    Language::choose(language, &known);
    if (!known)
        return fail(tr("--language '%1' 不是 zh_CN 或 en").arg(language));
    version = parser.isSet(QStringLiteral("version"));
    help = parser.isSet(QStringLiteral("help"));

    QStringList positional = parser.positionalArguments();
    const QString name = positional.isEmpty() ? QString() : positional.takeFirst();
    for (const CommandEntry& entry : commandEntries()) {
        if (entry.name == name)
            command = entry.command;
    }
    if (version || (help && (command != NoCommand || name.isEmpty())))
        return true;
    if (name.isEmpty())
        return fail(tr("没有给出命令"));
    if (command == NoCommand)
        return fail(tr("未知的命令 '%1'").arg(name));

    for (const OptionEntry& entry : optionEntries()) {
        const QString option = entry.names.constLast();
        if (parser.isSet(option) && !entry.commands.isEmpty() && !entry.commands.contains(command))
            return fail(tr("选项 --%1 不适用于命令 '%2'").arg(option, name));
    }

    const bool toPdf = parser.isSet(QStringLiteral("output"));
    const bool dialog = parser.isSet(QStringLiteral("dialog"));
    const bool preview = parser.isSet(QStringLiteral("preview"));
    if (int(toPdf) + int(dialog) + int(preview) > 1)
        return fail(tr("只能给出 --output, --dialog 和 --preview 中的一个"));
    destination = toPdf ? PdfFile : dialog ? PrintDialog : preview ? Preview : Printer;
    outputFile = parser.value(QStringLiteral("output"));
    if (toPdf && outputFile.isEmpty())
        return fail(tr("--output 需要文件名"));
    profileFile = parser.value(QStringLiteral("profile"));
    templateDirectory = parser.value(QStringLiteral("template-dir"));
    templateName = parser.value(QStringLiteral("template"));
    archival = parser.isSet(QStringLiteral("pdfa"));
    strict = parser.isSet(QStringLiteral("strict"));
    if ((printCommands.contains(command) || command == Templates) && profileFile.isEmpty())
        return fail(tr("命令 '%1' 需要配置文件 (--profile 文件)").arg(name));

    switch (command) {
    case Patients:
        if (positional.isEmpty())
            return fail(tr("至少给出一个病人编号"));
        return parseIds(positional, tr("病人"));
    case Samples:
        if (positional.isEmpty())
            return fail(tr("至少给出一个样本号"));
        sampleNumbers = positional;
        return true;
    case Qc:
        if (!parseIds(positional, tr("试剂")))
            return false;
        if (parser.isSet(QStringLiteral("from")) &&
            !parseDate(parser.value(QStringLiteral("from")), QStringLiteral("from"), &from))
            return false;
        if (parser.isSet(QStringLiteral("to")) &&
            !parseDate(parser.value(QStringLiteral("to")), QStringLiteral("to"), &to))
            return false;
        if (from.isValid() && to.isValid() && from > to)
            return fail(
                tr("--from %1 晚于 --to %2").arg(from.toString(Qt::ISODate), to.toString(Qt::ISODate)));
        return true;
    case Maintenance: {
        if (!positional.isEmpty())
            return fail(tr("命令 'maintenance' 不带参数; 请用 --month"));
        if (!parser.isSet(QStringLiteral("month")))
            return fail(tr("命令 'maintenance' 需要 --month yyyy-MM"));
        const QString text = parser.value(QStringLiteral("month"));
        month = QDate::fromString(text + QStringLiteral("-01"), QStringLiteral("yyyy-MM-dd"));
        if (!month.isValid())
            return fail(tr("--month '%1' 不是 yyyy-MM 格式的月份").arg(text));
        if (parser.isSet(QStringLiteral("workbench"))) {
            bool ok = false;
            workbenchId = parser.value(QStringLiteral("workbench")).toLongLong(&ok);
            if (!ok || workbenchId <= 0)
                return fail(
                    tr("--workbench '%1' 不是工作台编号").arg(parser.value(QStringLiteral("workbench"))));
        }
        return true;
    }
    case Templates:
        if (!positional.isEmpty())
            return fail(tr("命令 'templates' 不带参数"));
        return true;
    case Check:
        templateFiles = positional;
        if (templateFiles.isEmpty() && profileFile.isEmpty() && templateDirectory.isEmpty())
            return fail(
                tr("命令 'check' 需要模板文件, 或者配置文件 (--profile 文件) 或模板文件夹 (--template-dir)"));
        return true;
    case Demo: {
        if (positional.size() != 1)
            return fail(tr("命令 'demo' 需要且只需要一个文件夹"));
        demoFolder = positional.first();
        templateSource = parser.value(QStringLiteral("template-source"));
        force = parser.isSet(QStringLiteral("force"));
        if (parser.isSet(QStringLiteral("patients"))) {
            bool ok = false;
            demoPatients = parser.value(QStringLiteral("patients")).toInt(&ok);
            if (!ok || demoPatients < 1 || demoPatients > 100000)
                return fail(tr("--patients '%1' 不是 1 到 100000 之间的数")
                                .arg(parser.value(QStringLiteral("patients"))));
        }
        return true;
    }
    case NoCommand:
        break;
    }
    return true;
}

} // namespace coagulation
