#include "previewworkspace.h"

#include <core/profile.h>

#include <QDir>
#include <QFile>
#include <QSettings>

namespace coagulation {

PreviewWorkspace::PreviewWorkspace(const QString& profileFile)
{
    if (!m_folder.isValid()) {
        m_errorString = tr("无法创建临时文件夹：%1").arg(m_folder.errorString());
        return;
    }
    const QString copy = m_folder.filePath(QStringLiteral("profile.ini"));
    if (!QFile::copy(profileFile, copy)) {
        m_errorString = tr("无法复制配置文件 %1").arg(QDir::toNativeSeparators(profileFile));
        return;
    }
    QFile::setPermissions(copy, QFile::ReadOwner | QFile::WriteOwner);
    QStringList sources;
    {
        // The database paths as the workspace's own profile resolves them, without opening them.
        const QSettings original(profileFile, QSettings::IniFormat);
        QSettings settings(copy, QSettings::IniFormat);
        for (const char* kind : {"config", "data", "qc"}) {
            const QString which = QString::fromLatin1(kind);
            const QString key = QStringLiteral("database/") + which;
            const QString fileName = which + QStringLiteral(".db");
            const QString source = QFileInfo(profileFile)
                                       .absoluteDir()
                                       .absoluteFilePath(original.value(key, fileName).toString());
            const QString target = m_folder.filePath(fileName);
            if (!QFileInfo(source).isFile()) {
                m_errorString = tr("工作区缺少数据库文件 %1").arg(QDir::toNativeSeparators(source));
                return;
            }
            if (!QFile::copy(source, target)) {
                m_errorString = tr("无法复制数据库文件 %1").arg(QDir::toNativeSeparators(source));
                return;
            }
            QFile::setPermissions(target, QFile::ReadOwner | QFile::WriteOwner);
            settings.setValue(key, fileName);
        }
        settings.sync();
    }
    m_profile = std::make_unique<Profile>(copy);
}

PreviewWorkspace::~PreviewWorkspace() = default;

} // namespace coagulation
