#include "defaulttemplates.h"

#include "layouts_p.h"
#include "templatebuilder.h"

#include <core/profile.h>
#include <labdata/columndisplaynames.h>
#include <report.h>

#include <QDataStream>
#include <QDir>
#include <QSaveFile>

namespace coagulation {

QString DefaultTemplate::name() const
{
    return TemplateBuilder::tr(title);
}

const QList<DefaultTemplate>& DefaultTemplates::all()
{
    static const QList<DefaultTemplate> list = {
        {QT_TRANSLATE_NOOP("coagulation::TemplateBuilder", "凝血检验报告单"), kv::PatientReport,
         QStringLiteral("report/template"), &Layouts::patientReport},
        {QT_TRANSLATE_NOOP("coagulation::TemplateBuilder", "质控样本报告单"), kv::PatientReport,
         QStringLiteral("report/qc"), &Layouts::qcSampleReport},
        {QT_TRANSLATE_NOOP("coagulation::TemplateBuilder", "室内质控报告"), kv::QcReport,
         QStringLiteral("report/qctemplate"), &Layouts::qcReport},
        {QT_TRANSLATE_NOOP("coagulation::TemplateBuilder", "维护保养记录"), kv::MaintenanceRecordReport,
         QStringLiteral("report/maintenanceRecord"), &Layouts::maintenanceReport},
    };
    return list;
}

const DefaultTemplate* DefaultTemplates::find(const QString& name)
{
    for (const DefaultTemplate& entry : all()) {
        if (entry.name() == name)
            return &entry;
    }
    return nullptr;
}

void DefaultTemplates::build(const DefaultTemplate& entry, Report* report)
{
    report->setType(entry.type);
    report->setPageSize(QPageSize::A4);
    report->setOrientation(QPageLayout::Portrait);
    TemplateBuilder builder(report);
    entry.build(builder);
}

bool DefaultTemplates::writeAll(const QString& directory, QString* errorString)
{
    const QDir dir(directory);
    if (!QDir().mkpath(dir.absolutePath())) {
        *errorString = QStringLiteral("Cannot create the folder %1").arg(QDir::toNativeSeparators(directory));
        return false;
    }
    // The designer's profile names the columns; the field items show those names.
    Profile profile;
    ColumnDisplayNames::write(&profile);
    for (const DefaultTemplate& entry : all()) {
        Report report(&profile, nullptr);
        build(entry, &report);
        QSaveFile file(dir.filePath(entry.name() + QLatin1Char('.') + Report::suffix));
        if (!file.open(QIODevice::WriteOnly)) {
            *errorString =
                QStringLiteral("%1: %2").arg(QDir::toNativeSeparators(file.fileName()), file.errorString());
            return false;
        }
        QDataStream out(&file);
        if (!report.save(out)) {
            *errorString =
                QStringLiteral("%1: %2").arg(QDir::toNativeSeparators(file.fileName()), report.errorString());
            file.cancelWriting();
            return false;
        }
        if (out.status() != QDataStream::Ok || !file.commit()) {
            *errorString =
                QStringLiteral("%1: %2").arg(QDir::toNativeSeparators(file.fileName()), file.errorString());
            return false;
        }
    }
    return true;
}

} // namespace coagulation
