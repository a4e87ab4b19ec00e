#include "demoworkspace.h"

#include <core/profile.h>
#include <defaulttemplates.h>
#include <kvcore/workspace.h>
#include <labdata/labdatabasegenerator.h>
#include <report.h>

#include <QCoreApplication>
#include <QDir>
#include <QFile>
#include <QLocale>

namespace coagulation {

namespace {

bool copyTemplates(const QDir& source, const QDir& templates, QString* errorString)
{
    for (const DefaultTemplate& entry : DefaultTemplates::all()) {
        const QString fileName = entry.name() + QLatin1Char('.') + Report::suffix;
        const QString target = templates.filePath(fileName);
        if (!source.exists(fileName)) {
            *errorString =
                DemoWorkspace::tr("缺少默认模板 %1").arg(QDir::toNativeSeparators(source.filePath(fileName)));
            return false;
        }
        QFile::remove(target);
        QFile file(source.filePath(fileName));
        if (!file.copy(target)) {
            *errorString =
                DemoWorkspace::tr("无法把 %1 复制到 %2")
                    .arg(QDir::toNativeSeparators(file.fileName()), QDir::toNativeSeparators(target));
            return false;
        }
    }
    return true;
}

} // namespace

QString DemoWorkspace::defaultTemplateSource()
{
    const QString installed = QDir(QCoreApplication::applicationDirPath())
                                  .absoluteFilePath(QStringLiteral("../share/coagulation/templates"));
    if (QDir(installed).exists())
        return QDir::cleanPath(installed);
    return QStringLiteral(COAGULATION_SOURCE_TEMPLATES);
}

bool DemoWorkspace::create(const QString& folder, const QString& templateSource, int patientCount, bool force,
                           QString* errorString)
{
    const QDir dir(QDir(folder).absolutePath());
    const QDir templates(dir.filePath(QStringLiteral("templates")));
    // A laboratory's own workspace there would lose its databases, profile and templates.
    if (!force && dir.exists() &&
        !dir.isEmpty(QDir::AllEntries | QDir::NoDotAndDotDot | QDir::Hidden | QDir::System)) {
        *errorString =
            tr("文件夹 %1 不是空的; 用 --force 在其中重新建立演示工作区 (其中的数据库, 配置和模板会被替换)")
                .arg(QDir::toNativeSeparators(dir.path()));
        return false;
    }
    if (!QDir().mkpath(templates.absolutePath())) {
        *errorString = tr("无法建立文件夹 %1").arg(QDir::toNativeSeparators(templates.path()));
        return false;
    }
    // The committed templates are Chinese; other languages get them built in their own.
    const bool build = templateSource.isEmpty() && QLocale().language() != QLocale::Chinese;
    if (build ? !DefaultTemplates::writeAll(templates.path(), errorString)
              : !copyTemplates(templateSource.isEmpty() ? defaultTemplateSource() : templateSource, templates,
                               errorString))
        return false;

    Profile profile(dir.filePath(profileFileName()));
    LabDatabaseGenerator generator(&profile);
    generator.setPatientCount(patientCount);
    if (!generator.generate()) {
        *errorString = tr("无法在 %1 中生成实验室数据库").arg(QDir::toNativeSeparators(dir.path()));
        return false;
    }
    profile.setValue(QStringLiteral("report/templateDirectory"), QStringLiteral("templates"), true);
    for (const DefaultTemplate& entry : DefaultTemplates::all())
        profile.setValue(entry.settingKey, entry.name(), true);
    return true;
}

} // namespace coagulation
