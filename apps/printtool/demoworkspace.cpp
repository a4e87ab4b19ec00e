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
            *errorString = QStringLiteral("The default template %1 is missing")
                               .arg(QDir::toNativeSeparators(source.filePath(fileName)));
            return false;
        }
        QFile::remove(target);
        QFile file(source.filePath(fileName));
        if (!file.copy(target)) {
            *errorString = QStringLiteral("Cannot copy %1 to %2: %3")
                               .arg(QDir::toNativeSeparators(file.fileName()),
                                    QDir::toNativeSeparators(target), file.errorString());
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

bool DemoWorkspace::create(const QString& folder, const QString& templateSource, int patientCount,
                           QString* errorString)
{
    const QDir dir(QDir(folder).absolutePath());
    const QDir templates(dir.filePath(QStringLiteral("templates")));
    if (!QDir().mkpath(templates.absolutePath())) {
        *errorString =
            QStringLiteral("Cannot create the folder %1").arg(QDir::toNativeSeparators(templates.path()));
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
        *errorString = generator.errorString();
        return false;
    }
    profile.setValue(QStringLiteral("report/templateDirectory"), QStringLiteral("templates"), true);
    for (const DefaultTemplate& entry : DefaultTemplates::all())
        profile.setValue(entry.settingKey, entry.name(), true);
    return true;
}

} // namespace coagulation
