#include "printtool.h"

#include "demoworkspace.h"
#include "overflowpreflight.h"
#include "reportsources.h"

#include <core/information.h>
#include <core/profile.h>
#include <kvcore/datastoragefactoryinterface.h>
#include <kvcore/maintenanceexportdata.h>
#include <kvcore/pluginlocator.h>
#include <kvcore/workspace.h>
#include <reportprinter.h>

#include <QDir>
#include <QFileInfo>

#include <cstdio>
#include <memory>

namespace coagulation {

namespace {

struct JobTemplate
{
    kv::ReportType type;
    const char* settingKey;
    const char* description;
};

// The remembered templates, as the printer looks them up.
const JobTemplate jobTemplates[] = {
    {kv::PatientReport, "report/template", "patient result reports"},
    {kv::PatientReport, "report/qc", "QC samples"},
    {kv::QcReport, "report/qctemplate", "QC reports"},
    {kv::MaintenanceRecordReport, "report/maintenanceRecord", "maintenance reports"},
};

const JobTemplate& jobTemplateOf(ToolArguments::Command command)
{
    switch (command) {
    case ToolArguments::Qc:
        return jobTemplates[2];
    case ToolArguments::Maintenance:
        return jobTemplates[3];
    default:
        return jobTemplates[0];
    }
}

void say(const QString& text)
{
    std::fprintf(stdout, "%s\n", text.toLocal8Bit().constData());
    std::fflush(stdout);
}

DataStorage::StoreMode storeMode(ToolArguments::Destination destination)
{
    switch (destination) {
    case ToolArguments::PrintDialog:
        return DataStorage::StoreWithDialog;
    case ToolArguments::Preview:
        return DataStorage::StorePreview;
    default:
        return DataStorage::StoreAtOnce;
    }
}

} // namespace

int PrintTool::fail(const QString& message, int code)
{
    std::fprintf(stderr, "coagulation-print: %s\n", message.toLocal8Bit().constData());
    return code;
}

int PrintTool::run(const ToolArguments& arguments)
{
    if (arguments.command == ToolArguments::Help) {
        say(ToolArguments::helpText());
        return Success;
    }
    if (arguments.command == ToolArguments::Demo)
        return createDemo(arguments);

    if (!QFileInfo(arguments.profileFile).isFile())
        return fail(QStringLiteral("The profile %1 does not exist")
                        .arg(QDir::toNativeSeparators(arguments.profileFile)));
    Profile profile(arguments.profileFile);
    const QDir templates = arguments.templateDirectory.isEmpty() ? Workspace::templateDirectoryOf(&profile)
                                                                 : QDir(arguments.templateDirectory);
    if (!templates.exists())
        return fail(QStringLiteral("The template folder %1 does not exist")
                        .arg(QDir::toNativeSeparators(templates.absolutePath())));
    Workspace workspace(&profile, QDir(templates.absolutePath()));

    // Found and loaded the way the host does it.
    PluginLocator locator;
    DataStorageFactoryInterface* factory = locator.dataStorageFactory();
    if (!factory)
        return fail(QStringLiteral("No report plug-in: %1").arg(locator.errorString()));
    std::unique_ptr<DataStorage> printer(factory->create());
    if (!printer)
        return fail(QStringLiteral("The report plug-in %1 made no printer").arg(locator.fileName()));
    printer->setWorkspace(&workspace);

    if (arguments.command == ToolArguments::Templates)
        return listTemplates(printer.get(), &workspace);
    return print(arguments, printer.get(), &workspace);
}

int PrintTool::createDemo(const ToolArguments& arguments)
{
    QString error;
    if (!DemoWorkspace::create(arguments.demoFolder, arguments.templateSource, arguments.demoPatients,
                               &error))
        return fail(error);
    say(QStringLiteral("Demo workspace: %1")
            .arg(QDir::toNativeSeparators(
                QDir(arguments.demoFolder).absoluteFilePath(DemoWorkspace::profileFileName()))));
    return Success;
}

int PrintTool::listTemplates(DataStorage* printer, Workspace* workspace)
{
    say(QStringLiteral("Template folder: %1")
            .arg(QDir::toNativeSeparators(workspace->templateDirectory().absolutePath())));
    for (const JobTemplate& job : jobTemplates) {
        const QStringList names = printer->enumTemplate(workspace->templateDirectory().path(), job.type);
        const QString key = QString::fromLatin1(job.settingKey);
        say(QStringLiteral("%1 (%2): %3\n  remembered: %4")
                .arg(key, QString::fromLatin1(job.description),
                     names.isEmpty() ? QStringLiteral("none") : names.join(QStringLiteral(", ")),
                     workspace->profile()->value(key).toString()));
    }
    return Success;
}

bool PrintTool::chooseTemplate(const ToolArguments& arguments, DataStorage* printer, Workspace* workspace)
{
    const JobTemplate& job = jobTemplateOf(arguments.command);
    const QString key = QString::fromLatin1(job.settingKey);
    const QStringList available = printer->enumTemplate(workspace->templateDirectory().path(), job.type);
    const QString list = available.isEmpty() ? QStringLiteral("none") : available.join(QStringLiteral(", "));
    if (!arguments.templateName.isEmpty()) {
        if (!available.contains(arguments.templateName)) {
            fail(QStringLiteral("No template '%1' for %2 in %3 (there are: %4)")
                     .arg(arguments.templateName, QString::fromLatin1(job.description),
                          QDir::toNativeSeparators(workspace->templateDirectory().absolutePath()), list));
            return false;
        }
        workspace->profile()->setValue(key, arguments.templateName, false);
        return true;
    }
    // Without a user to ask, a missing choice would end the job silently.
    if (workspace->profile()->value(key).toString().isEmpty() && !InformationLog::isInteractive()) {
        fail(
            QStringLiteral("No template chosen for %1 (profile key %2); give --template NAME (there are: %3)")
                .arg(QString::fromLatin1(job.description), key, list));
        return false;
    }
    return true;
}

int PrintTool::print(const ToolArguments& arguments, DataStorage* printer, Workspace* workspace)
{
    if (!chooseTemplate(arguments, printer, workspace))
        return Failure;
    QString outputFile;
    if (arguments.destination == ToolArguments::PdfFile) {
        outputFile = QFileInfo(arguments.outputFile).absoluteFilePath();
        if (!QDir().mkpath(QFileInfo(outputFile).absolutePath()))
            return fail(
                QStringLiteral("Cannot create the folder of %1").arg(QDir::toNativeSeparators(outputFile)));
        QFile::remove(outputFile);
        auto* reportPrinter = qobject_cast<ReportPrinter*>(printer);
        if (!reportPrinter)
            return fail(QStringLiteral("The report plug-in cannot write PDF files"));
        reportPrinter->setOutputFileName(outputFile);
    }

    Profile* profile = workspace->profile();
    if (arguments.archival)
        profile->setValue(QStringLiteral("report/pdfa"), true, false);
    ReportSources sources(profile);
    // Every page is bound once before printing, so that nothing overprints unannounced.
    OverflowPreflight preflight(workspace);
    const DataStorage::StoreMode mode = storeMode(arguments.destination);
    bool stored = false;
    switch (arguments.command) {
    case ToolArguments::Patients:
    case ToolArguments::Samples: {
        QList<qint64> ids = arguments.ids;
        const bool found = arguments.command == ToolArguments::Patients
                               ? sources.checkPatients(ids)
                               : sources.patientsOfSamples(arguments.sampleNumbers, &ids);
        if (!found)
            return fail(sources.errorString());
        const QStringList qcSamples = sources.qcSamples(ids);
        if (!qcSamples.isEmpty() && profile->value(QStringLiteral("report/qc")).toString().isEmpty() &&
            !InformationLog::isInteractive())
            fail(QStringLiteral(
                     "No template chosen for QC samples (profile key report/qc): %1 will be left out")
                     .arg(qcSamples.join(QStringLiteral(", "))));
        if (!OverflowPreflight::passes(preflight.patients(ids), arguments.strict))
            return Failure;
        stored = printer->store(ids, profile->dataDatabase(), mode);
        break;
    }
    case ToolArguments::Qc: {
        std::vector<std::unique_ptr<QcSeries>> series;
        if (!sources.qcSeries(arguments.ids, arguments.from, arguments.to, &series))
            return fail(sources.errorString());
        QList<QcExportData*> data;
        for (const auto& one : series)
            data.append(one->data());
        if (!OverflowPreflight::passes(preflight.qc(data), arguments.strict))
            return Failure;
        stored = printer->store(data, mode);
        break;
    }
    case ToolArguments::Maintenance: {
        Workbench workbench;
        if (!sources.workbench(arguments.workbenchId, &workbench))
            return fail(sources.errorString());
        MaintenanceExportData data;
        data.workbench = &workbench;
        data.month = arguments.month;
        if (!OverflowPreflight::passes(preflight.maintenance(data), arguments.strict))
            return Failure;
        stored = printer->store(&data, mode);
        break;
    }
    default:
        return fail(QStringLiteral("Nothing to print"), UsageError);
    }
    if (!stored)
        return fail(QStringLiteral("Printing failed"));
    if (!outputFile.isEmpty()) {
        if (!QFileInfo(outputFile).isFile())
            return fail(QStringLiteral("No PDF was written to %1").arg(QDir::toNativeSeparators(outputFile)));
        say(QStringLiteral("Wrote %1").arg(QDir::toNativeSeparators(outputFile)));
    }
    return Success;
}

} // namespace coagulation
