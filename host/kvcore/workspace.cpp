#include "workspace.h"

#include <core/profile.h>

#include <QFileInfo>

namespace coagulation {

Workspace::Workspace(Profile* profile, const QDir& templateDirectory, QWidget* mainWindow)
    : m_profile(profile), m_templateDirectory(templateDirectory), m_mainWindow(mainWindow)
{}

QDir Workspace::templateDirectoryOf(const Profile* profile)
{
    const QString name =
        profile ? profile->value(QStringLiteral("report/templateDirectory"), QStringLiteral("templates"))
                      .toString()
                : QStringLiteral("templates");
    const QString base = profile && !profile->fileName().isEmpty()
                             ? QFileInfo(profile->fileName()).absolutePath()
                             : QDir::currentPath();
    return QDir(QDir(base).absoluteFilePath(name));
}

} // namespace coagulation
