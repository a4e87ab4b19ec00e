#include "templatepreview.h"

#include "previewdata.h"

#include <core/profile.h>
#include <kvcore/datastorage.h>
#include <kvcore/datastoragefactoryinterface.h>
#include <kvcore/pluginlocator.h>
#include <kvcore/workspace.h>
#include <report.h>

#include <QCoreApplication>
#include <QDataStream>
#include <QFile>
#include <QScopeGuard>
#include <QTemporaryDir>

#include <memory>

namespace coagulation {

namespace {
// The profile keys under which the printer looks up its template for each report type.
QStringList templateKeys(kv::ReportType type)
{
    switch (type) {
    case kv::PatientReport:
        return {QStringLiteral("report/template"), QStringLiteral("report/qc")};
    case kv::QcReport:
        return {QStringLiteral("report/qctemplate")};
    case kv::MaintenanceRecordReport:
        return {QStringLiteral("report/maintenanceRecord")};
    default:
        return {};
    }
}
} // namespace

TemplatePreview::TemplatePreview(Profile* workspaceProfile) : m_profile(workspaceProfile) {}

bool TemplatePreview::fail(const QString& message)
{
    m_errorString = message;
    return false;
}

bool TemplatePreview::show(Report* report, const PreviewChoice& choice, QWidget* parent)
{
    if (!m_profile)
        return fail(tr("没有可用的工作区"));
    const QStringList keys = templateKeys(report->type());
    if (keys.isEmpty())
        return fail(tr("未知的报表类型"));

    // The printer prints the template that the profile names from its template folder: hand it
    // this one, as it stands in the designer, in a folder of its own.
    QTemporaryDir folder;
    if (!folder.isValid())
        return fail(folder.errorString());
    QFile file(QDir(folder.path()).filePath(templateName() + QLatin1Char('.') + Report::suffix));
    if (!file.open(QIODevice::WriteOnly))
        return fail(file.errorString());
    QDataStream out(&file);
    if (!report->save(out))
        return fail(report->errorString());
    file.close();

    QList<QVariant> remembered;
    for (const QString& key : keys) {
        remembered.append(m_profile->value(key));
        m_profile->setValue(key, templateName(), false);
    }
    const auto restore = qScopeGuard([&] {
        for (int i = 0; i < keys.size(); ++i)
            m_profile->setValue(keys.at(i), remembered.at(i), false);
    });

    PluginLocator locator;
    DataStorageFactoryInterface* factory = locator.dataStorageFactory();
    if (!factory)
        return fail(tr("找不到打印插件\n%1").arg(locator.errorString()));
    std::unique_ptr<DataStorage> printer(factory->create());
    if (!printer)
        return fail(tr("打印插件无法创建打印机"));
    Workspace workspace(m_profile, QDir(folder.path()), parent);
    printer->setWorkspace(&workspace);

    // The printer reports its own failures to the user; a cancelled preview is no error.
    PreviewData data(m_profile);
    switch (report->type()) {
    case kv::PatientReport:
        if (choice.patientIds.isEmpty())
            return fail(tr("工作区中没有病人结果"));
        printer->store(choice.patientIds, m_profile->dataDatabase(), DataStorage::StorePreview);
        break;
    case kv::QcReport: {
        const QList<QcExportData*> series = data.qcData(choice);
        if (series.isEmpty())
            return fail(tr("所选质控品在所选日期内没有质控数据"));
        printer->store(series, DataStorage::StorePreview);
        break;
    }
    default: {
        const MaintenanceExportData* maintenance = data.maintenanceData(choice);
        if (!maintenance)
            return fail(tr("工作区中没有维护记录"));
        printer->store(maintenance, DataStorage::StorePreview);
        break;
    }
    }
    return true;
}

} // namespace coagulation
