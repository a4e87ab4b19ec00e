#include "printtool.h"

#include "demoworkspace.h"
#include "overflowpreflight.h"
#include "pdfoutput.h"
#include "reportsources.h"
#include "workspacepreflight.h"

#include <core/information.h>
#include <core/profile.h>
#include <itemfactory.h>
#include <kvcore/datastoragefactoryinterface.h>
#include <kvcore/maintenanceexportdata.h>
#include <kvcore/pluginlocator.h>
#include <kvcore/workspace.h>
#include <report.h>
#include <reportitem.h>
#include <reportprinter.h>
#include <templatecheck.h>

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
    {kv::PatientReport, "report/template", QT_TRANSLATE_NOOP("coagulation::PrintTool", "病人结果报告")},
    {kv::PatientReport, "report/qc", QT_TRANSLATE_NOOP("coagulation::PrintTool", "质控样本")},
    {kv::QcReport, "report/qctemplate", QT_TRANSLATE_NOOP("coagulation::PrintTool", "质控报告")},
    {kv::MaintenanceRecordReport, "report/maintenanceRecord",
     QT_TRANSLATE_NOOP("coagulation::PrintTool", "维护记录报告")},
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

QString nativePath(const QString& path)
{
    return QDir::toNativeSeparators(path);
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

QString templateFile(Workspace* workspace, const QString& name)
{
    return workspace->templateDirectory().filePath(name + QLatin1Char('.') + Report::suffix);
}

} // namespace

int PrintTool::fail(const QString& message, int code)
{
    std::fprintf(stderr, "coagulation-print: %s\n", message.toLocal8Bit().constData());
    return code;
}

int PrintTool::run(const ToolArguments& arguments)
{
    if (arguments.version) {
        say(QStringLiteral("coagulation-print %1").arg(QStringLiteral(COAGULATION_VERSION)));
        return Success;
    }
    if (arguments.help) {
        say(ToolArguments::helpText(arguments.command));
        return Success;
    }
    if (arguments.command == ToolArguments::Demo)
        return createDemo(arguments);
    if (arguments.command == ToolArguments::Check && arguments.profileFile.isEmpty()) {
        Profile names; // in memory: checking files needs no workspace
        ItemFactory factory(&names);
        QStringList files = arguments.templateFiles;
        if (files.isEmpty()) {
            const QDir folder(arguments.templateDirectory);
            for (const QString& name : folder.entryList({QStringLiteral("*.rpt")}, QDir::Files, QDir::Name))
                files.append(folder.filePath(name));
        }
        return checkTemplates(files, &factory);
    }

    if (!QFileInfo(arguments.profileFile).isFile())
        return fail(tr("配置文件 %1 不存在").arg(nativePath(arguments.profileFile)));
    // The databases must be there already: an empty one made now would only hide the mistake.
    Profile profile(arguments.profileFile, Profile::ExistingDatabasesOnly);
    const QDir templates = arguments.templateDirectory.isEmpty() ? Workspace::templateDirectoryOf(&profile)
                                                                 : QDir(arguments.templateDirectory);
    if (!templates.exists())
        return fail(tr("模板文件夹 %1 不存在").arg(nativePath(templates.absolutePath())));
    Workspace workspace(&profile, QDir(templates.absolutePath()));

    if (arguments.command == ToolArguments::Check) {
        ItemFactory factory(&profile);
        QStringList files = arguments.templateFiles;
        if (files.isEmpty()) {
            for (const QString& name :
                 templates.entryList({QStringLiteral("*.rpt")}, QDir::Files, QDir::Name))
                files.append(templates.absoluteFilePath(name));
        }
        return checkTemplates(files, &factory);
    }

    // Found and loaded the way the host does it.
    PluginLocator locator;
    DataStorageFactoryInterface* factory = locator.dataStorageFactory();
    if (!factory)
        return fail(tr("找不到报表插件"));
    std::unique_ptr<DataStorage> storage(factory->create());
    auto* printer = qobject_cast<ReportPrinter*>(storage.get());
    if (!printer)
        return fail(tr("报表插件 %1 没有提供打印机").arg(nativePath(locator.fileName())));
    printer->setWorkspace(&workspace);

    if (arguments.command == ToolArguments::Templates)
        return listTemplates(printer, &workspace);
    return print(arguments, printer, &workspace);
}

int PrintTool::createDemo(const ToolArguments& arguments)
{
    QString error;
    if (!DemoWorkspace::create(arguments.demoFolder, arguments.templateSource, arguments.demoPatients,
                               arguments.force, &error))
        return fail(error);
    say(tr("演示工作区: %1")
            .arg(nativePath(QDir(arguments.demoFolder).absoluteFilePath(DemoWorkspace::profileFileName()))));
    return Success;
}

int PrintTool::listTemplates(DataStorage* printer, Workspace* workspace)
{
    say(tr("模板文件夹: %1").arg(nativePath(workspace->templateDirectory().absolutePath())));
    for (const JobTemplate& job : jobTemplates) {
        const QStringList names = printer->enumTemplate(workspace->templateDirectory().path(), job.type);
        const QString key = QString::fromLatin1(job.settingKey);
        say(tr("%1 (%2): %3\n  记住的模板: %4")
                .arg(key, tr(job.description), names.isEmpty() ? tr("无") : names.join(QStringLiteral(", ")),
                     workspace->profile()->value(key).toString()));
    }
    return Success;
}

int PrintTool::checkTemplates(const QStringList& files, ItemFactory* factory)
{
    if (files.isEmpty())
        return fail(tr("没有要检查的模板"));
    TemplateCheck check(factory);
    int damaged = 0;
    for (const QString& file : files) {
        if (check.check(file)) {
            say(tr("%1: 完好").arg(nativePath(file)));
        } else {
            ++damaged;
            fail(tr("模板 %1 已损坏: %2").arg(nativePath(file), check.errorString()));
        }
    }
    return damaged ? Failure : Success;
}

bool PrintTool::chooseTemplate(const ToolArguments& arguments, DataStorage* printer, Workspace* workspace)
{
    const JobTemplate& job = jobTemplateOf(arguments.command);
    const QString key = QString::fromLatin1(job.settingKey);
    const QStringList available = printer->enumTemplate(workspace->templateDirectory().path(), job.type);
    const QString list = available.isEmpty() ? tr("无") : available.join(QStringLiteral(", "));
    if (!arguments.templateName.isEmpty()) {
        if (!available.contains(arguments.templateName)) {
            fail(tr("%1 中没有名为 '%2' 的%3模板 (有: %4)")
                     .arg(nativePath(workspace->templateDirectory().absolutePath()), arguments.templateName,
                          tr(job.description), list));
            return false;
        }
        workspace->profile()->setValue(key, arguments.templateName, false);
        return true;
    }
    // Without a user to ask, a missing choice would end the job silently.
    if (workspace->profile()->value(key).toString().isEmpty() && !InformationLog::isInteractive()) {
        fail(tr("没有为%1选择模板 (配置项 %2); 请用 --template 名称 给出 (有: %3)")
                 .arg(tr(job.description), key, list));
        return false;
    }
    return true;
}

bool PrintTool::checkTemplate(const QString& settingKey, ReportPrinter* printer, Workspace* workspace,
                              QStringList* patientColumns)
{
    const QString name = workspace->profile()->value(settingKey).toString();
    if (name.isEmpty())
        return true; // to be chosen in the printer's dialog
    const QString file = templateFile(workspace, name);
    TemplateCheck check(printer->itemFactory());
    if (!check.check(file)) {
        fail(tr("模板 %1 已损坏: %2").arg(nativePath(file), check.errorString()));
        return false;
    }
    Report report(workspace->profile(), printer->itemFactory());
    report.load(file);
    const QString patientFields = QStringLiteral("field:/patient/");
    for (const ReportItem* item : report.reportItems()) {
        if (item->key().startsWith(patientFields))
            patientColumns->append(item->key().mid(patientFields.size()));
    }
    return true;
}

int PrintTool::print(const ToolArguments& arguments, ReportPrinter* printer, Workspace* workspace)
{
    if (!chooseTemplate(arguments, printer, workspace))
        return Failure;
    const JobTemplate& job = jobTemplateOf(arguments.command);
    QStringList patientColumns;
    if (!checkTemplate(QString::fromLatin1(job.settingKey), printer, workspace, &patientColumns))
        return Failure;
    Profile* profile = workspace->profile();
    if (arguments.archival)
        profile->setValue(QStringLiteral("report/pdfa"), true, false);
    const bool patientJob =
        arguments.command == ToolArguments::Patients || arguments.command == ToolArguments::Samples;
    WorkspacePreflight preflight(profile);
    preflight.addPatientColumns(patientColumns);
    if (!preflight.check(arguments.command))
        return fail(preflight.errorString());

    ReportSources sources(profile);
    QList<qint64> ids = arguments.ids;
    std::vector<std::unique_ptr<QcSeries>> series;
    Workbench workbench;
    bool found = true;
    switch (arguments.command) {
    case ToolArguments::Patients:
        found = sources.checkPatients(ids);
        break;
    case ToolArguments::Samples:
        found = sources.patientsOfSamples(arguments.sampleNumbers, &ids);
        break;
    case ToolArguments::Qc:
        found = sources.qcSeries(arguments.ids, arguments.from, arguments.to, &series);
        break;
    case ToolArguments::Maintenance:
        found = sources.workbench(arguments.workbenchId, &workbench);
        break;
    default:
        return fail(tr("没有要打印的内容"), UsageError);
    }
    if (!found)
        return fail(sources.errorString());
    if (patientJob) {
        const QStringList qcSamples = sources.qcSamples(ids);
        if (!qcSamples.isEmpty()) {
            if (profile->value(QStringLiteral("report/qc")).toString().isEmpty() &&
                !InformationLog::isInteractive())
                fail(tr("没有为质控样本选择模板 (配置项 report/qc): 样本 %1 不会打印")
                         .arg(qcSamples.join(QStringLiteral(", "))));
            else if (!checkTemplate(QStringLiteral("report/qc"), printer, workspace, &patientColumns))
                return Failure;
            preflight.addPatientColumns(patientColumns);
            if (!preflight.check(arguments.command))
                return fail(preflight.errorString());
        }
    }

    std::unique_ptr<PdfOutput> output;
    if (arguments.destination == ToolArguments::PdfFile) {
        output = std::make_unique<PdfOutput>(arguments.outputFile);
        if (!output->open())
            return fail(output->errorString());
        printer->setOutputFileName(output->writeFileName());
    }

    // Every page is bound once before printing, so that nothing overprints unannounced.
    OverflowPreflight overflow(workspace);
    const DataStorage::StoreMode mode = storeMode(arguments.destination);
    bool stored = false;
    if (patientJob) {
        if (!OverflowPreflight::passes(overflow.patients(ids), arguments.strict))
            return Failure;
        stored = printer->store(ids, profile->dataDatabase(), mode);
    } else if (arguments.command == ToolArguments::Qc) {
        QList<QcExportData*> data;
        for (const auto& one : series)
            data.append(one->data());
        if (!OverflowPreflight::passes(overflow.qc(data), arguments.strict))
            return Failure;
        stored = printer->store(data, mode);
    } else {
        MaintenanceExportData data;
        data.workbench = &workbench;
        data.month = arguments.month;
        if (!OverflowPreflight::passes(overflow.maintenance(data), arguments.strict))
            return Failure;
        stored = printer->store(&data, mode);
    }
    const QString target = nativePath(QFileInfo(arguments.outputFile).absoluteFilePath());
    if (!stored) {
        const QString failed = output ? tr("没有写出 %1").arg(target) : tr("打印失败");
        return fail(patientJob ? tr("%1; 没有记录打印时间").arg(failed) : failed);
    }
    if (output) {
        if (!output->commit())
            return fail(output->errorString());
        say(tr("已写出 %1").arg(target));
    }
    return Success;
}

} // namespace coagulation
