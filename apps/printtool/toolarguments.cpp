#include "toolarguments.h"

#include <language.h>

#include <QCommandLineParser>

namespace coagulation {

namespace {

struct OptionUse
{
    const char* name;
    QList<ToolArguments::Command> commands; // where the option means something
};

const QList<ToolArguments::Command> printCommands = {ToolArguments::Patients, ToolArguments::Samples,
                                                     ToolArguments::Qc, ToolArguments::Maintenance};

const QList<OptionUse>& optionUses()
{
    static const QList<OptionUse> uses = {
        {"profile", printCommands + QList<ToolArguments::Command>{ToolArguments::Templates}},
        {"template-dir", printCommands + QList<ToolArguments::Command>{ToolArguments::Templates}},
        {"template", printCommands},
        {"output", printCommands},
        {"dialog", printCommands},
        {"preview", printCommands},
        {"strict", printCommands},
        {"pdfa", printCommands},
        {"from", {ToolArguments::Qc}},
        {"to", {ToolArguments::Qc}},
        {"month", {ToolArguments::Maintenance}},
        {"workbench", {ToolArguments::Maintenance}},
        {"patients", {ToolArguments::Demo}},
        {"template-source", {ToolArguments::Demo}},
    };
    return uses;
}

void addOptions(QCommandLineParser& parser)
{
    parser.addOptions({
        {{QStringLiteral("p"), QStringLiteral("profile")}, QString(), QStringLiteral("file")},
        {QStringLiteral("template-dir"), QString(), QStringLiteral("folder")},
        {QStringLiteral("template"), QString(), QStringLiteral("name")},
        {{QStringLiteral("o"), QStringLiteral("output")}, QString(), QStringLiteral("file")},
        {QStringLiteral("dialog"), QString()},
        {QStringLiteral("preview"), QString()},
        {QStringLiteral("strict"), QString()},
        {QStringLiteral("pdfa"), QString()},
        {QStringLiteral("from"), QString(), QStringLiteral("date")},
        {QStringLiteral("to"), QString(), QStringLiteral("date")},
        {QStringLiteral("month"), QString(), QStringLiteral("month")},
        {QStringLiteral("workbench"), QString(), QStringLiteral("id")},
        {QStringLiteral("patients"), QString(), QStringLiteral("count")},
        {QStringLiteral("template-source"), QString(), QStringLiteral("folder")},
        {{QStringLiteral("h"), QStringLiteral("help")}, QString()},
        Language::option(),
    });
}

} // namespace

QString ToolArguments::helpText()
{
    return QStringLiteral(
        "Usage: coagulation-print COMMAND [ARGUMENTS] [OPTIONS]\n"
        "\n"
        "Prints the analyser's reports through the report plug-in, the way the host application\n"
        "does: the plug-in is found by its interface id, its printer gets a workspace made from\n"
        "the profile, and the templates remembered in the profile are used.\n"
        "\n"
        "Commands:\n"
        "  patients ID...         patient result reports, one page per patient (ids of the\n"
        "                         \"patient\" table)\n"
        "  samples SAMPLENO...    patient result reports by sample number (the latest sample\n"
        "                         with that number)\n"
        "  qc [REAGENT...]        QC report, one series per reagent id (all reagents when none\n"
        "                         is given), each on new sheets\n"
        "  maintenance            maintenance record report of one month (--month)\n"
        "  templates              lists the templates of each report type and the remembered ones\n"
        "  demo FOLDER            creates a demo workspace in FOLDER: profile.ini, the three\n"
        "                         databases with generated laboratory data, the default templates\n"
        "                         in FOLDER/templates, and the template choices in the profile\n"
        "\n"
        "Options:\n"
        "  -p, --profile FILE     the workspace's profile (INI file); needed by every command but\n"
        "                         demo\n"
        "  --template-dir FOLDER  template folder (default: the profile's\n"
        "                         \"report/templateDirectory\", else \"templates\" beside it)\n"
        "  --template NAME        print with this template instead of the remembered one (the\n"
        "                         choice is not remembered)\n"
        "  -o, --output FILE      write a PDF file instead of printing on the default printer\n"
        "  --dialog               choose the printer in a print dialog first\n"
        "  --preview              show a print preview, from which one can print\n"
        "  --strict               fail, printing nothing, when a page's content outgrows the room\n"
        "                         its template gives it (otherwise that is a warning)\n"
        "  --pdfa                 write the PDF as PDF/A-1b, for archiving (for this run; the\n"
        "                         profile's \"report/pdfa\" = true makes it the default)\n"
        "  --from DATE, --to DATE qc: only results measured in this range (yyyy-MM-dd)\n"
        "  --month MONTH          maintenance: the month, yyyy-MM (required)\n"
        "  --workbench ID         maintenance: the workbench (default: the first one)\n"
        "  --patients COUNT       demo: number of patient samples to generate (default 200)\n"
        "  --template-source DIR  demo: where the default templates are copied from\n"
        "  --language NAME        zh_CN (the default) or en: the language of messages, reports\n"
        "                         and of the demo's templates and data (default: LANGUAGE,\n"
        "                         LC_ALL or LANG when they name English)\n"
        "  -h, --help             shows this text\n"
        "\n"
        "Without --output, --dialog or --preview the reports go to the default printer. Messages\n"
        "of the report module go to stderr unless a dialog or preview is shown. Dates and times\n"
        "are printed in the format of the chosen language.\n"
        "\n"
        "Exit status: 0 printed, 1 the job failed (data or template missing, printing failed),\n"
        "2 wrong arguments.\n"
        "\n"
        "Examples:\n"
        "  coagulation-print demo out/demo\n"
        "  coagulation-print patients 1 2 3 -p out/demo/profile.ini -o patients.pdf\n"
        "  coagulation-print qc 1 --from 2024-06-01 --to 2024-06-28 -p out/demo/profile.ini -o qc.pdf\n"
        "  coagulation-print maintenance --month 2024-06 -p out/demo/profile.ini --preview\n");
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
            return fail(QStringLiteral("'%1' is not a %2 id (a positive whole number)").arg(value, what));
        ids.append(id);
    }
    return true;
}

bool ToolArguments::parseDate(const QString& text, const QString& option, QDate* date)
{
    *date = QDate::fromString(text, QStringLiteral("yyyy-MM-dd"));
    if (!date->isValid())
        return fail(QStringLiteral("--%1 '%2' is not a date of the form yyyy-MM-dd").arg(option, text));
    return true;
}

bool ToolArguments::parse(const QStringList& arguments)
{
    QCommandLineParser parser;
    addOptions(parser);
    if (!parser.parse(arguments))
        return fail(parser.errorText());
    language = parser.value(QStringLiteral("language"));
    bool known = true;
    Language::choose(language, &known);
    if (!known)
        return fail(QStringLiteral("--language '%1' is not one of zh_CN and en").arg(language));
    if (parser.isSet(QStringLiteral("help"))) {
        command = Help;
        return true;
    }

    QStringList positional = parser.positionalArguments();
    if (positional.isEmpty())
        return fail(QStringLiteral("No command given"));
    static const QList<QPair<QString, Command>> commands = {
        {QStringLiteral("patients"), Patients},
        {QStringLiteral("samples"), Samples},
        {QStringLiteral("qc"), Qc},
        {QStringLiteral("maintenance"), Maintenance},
        {QStringLiteral("templates"), Templates},
        {QStringLiteral("demo"), Demo},
    };
    const QString name = positional.takeFirst();
    for (const auto& entry : commands) {
        if (entry.first == name)
            command = entry.second;
    }
    if (command == NoCommand)
        return fail(QStringLiteral("Unknown command '%1'").arg(name));

    for (const OptionUse& use : optionUses()) {
        const QString option = QString::fromLatin1(use.name);
        if (parser.isSet(option) && !use.commands.contains(command))
            return fail(QStringLiteral("--%1 does not apply to the command '%2'").arg(option, name));
    }

    const bool toPdf = parser.isSet(QStringLiteral("output"));
    const bool dialog = parser.isSet(QStringLiteral("dialog"));
    const bool preview = parser.isSet(QStringLiteral("preview"));
    if (int(toPdf) + int(dialog) + int(preview) > 1)
        return fail(QStringLiteral("Give only one of --output, --dialog and --preview"));
    destination = toPdf ? PdfFile : dialog ? PrintDialog : preview ? Preview : Printer;
    outputFile = parser.value(QStringLiteral("output"));
    strict = parser.isSet(QStringLiteral("strict"));
    if (toPdf && outputFile.isEmpty())
        return fail(QStringLiteral("--output needs a file name"));
    profileFile = parser.value(QStringLiteral("profile"));
    templateDirectory = parser.value(QStringLiteral("template-dir"));
    templateName = parser.value(QStringLiteral("template"));
    archival = parser.isSet(QStringLiteral("pdfa"));
    if ((printCommands.contains(command) || command == Templates) && profileFile.isEmpty())
        return fail(QStringLiteral("The command '%1' needs a profile (--profile FILE)").arg(name));

    switch (command) {
    case Patients:
        if (positional.isEmpty())
            return fail(QStringLiteral("Give at least one patient id"));
        return parseIds(positional, QStringLiteral("patient"));
    case Samples:
        if (positional.isEmpty())
            return fail(QStringLiteral("Give at least one sample number"));
        sampleNumbers = positional;
        return true;
    case Qc:
        if (!parseIds(positional, QStringLiteral("reagent")))
            return false;
        if (parser.isSet(QStringLiteral("from")) &&
            !parseDate(parser.value(QStringLiteral("from")), QStringLiteral("from"), &from))
            return false;
        if (parser.isSet(QStringLiteral("to")) &&
            !parseDate(parser.value(QStringLiteral("to")), QStringLiteral("to"), &to))
            return false;
        if (from.isValid() && to.isValid() && from > to)
            return fail(QStringLiteral("--from %1 lies after --to %2")
                            .arg(from.toString(Qt::ISODate), to.toString(Qt::ISODate)));
        return true;
    case Maintenance: {
        if (!positional.isEmpty())
            return fail(QStringLiteral("The command 'maintenance' takes no arguments; use --month"));
        if (!parser.isSet(QStringLiteral("month")))
            return fail(QStringLiteral("The command 'maintenance' needs --month yyyy-MM"));
        const QString text = parser.value(QStringLiteral("month"));
        month = QDate::fromString(text + QStringLiteral("-01"), QStringLiteral("yyyy-MM-dd"));
        if (!month.isValid())
            return fail(QStringLiteral("--month '%1' is not a month of the form yyyy-MM").arg(text));
        if (parser.isSet(QStringLiteral("workbench"))) {
            bool ok = false;
            workbenchId = parser.value(QStringLiteral("workbench")).toLongLong(&ok);
            if (!ok || workbenchId <= 0)
                return fail(QStringLiteral("--workbench '%1' is not a workbench id")
                                .arg(parser.value(QStringLiteral("workbench"))));
        }
        return true;
    }
    case Templates:
        if (!positional.isEmpty())
            return fail(QStringLiteral("The command 'templates' takes no arguments"));
        return true;
    case Demo: {
        if (positional.size() != 1)
            return fail(QStringLiteral("The command 'demo' needs exactly one folder"));
        demoFolder = positional.first();
        templateSource = parser.value(QStringLiteral("template-source"));
        if (parser.isSet(QStringLiteral("patients"))) {
            bool ok = false;
            demoPatients = parser.value(QStringLiteral("patients")).toInt(&ok);
            if (!ok || demoPatients < 1 || demoPatients > 100000)
                return fail(QStringLiteral("--patients '%1' is not a count from 1 to 100000")
                                .arg(parser.value(QStringLiteral("patients"))));
        }
        return true;
    }
    case NoCommand:
    case Help:
        break;
    }
    return true;
}

} // namespace coagulation
