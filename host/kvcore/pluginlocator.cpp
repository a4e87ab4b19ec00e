#include "pluginlocator.h"

#include "datastoragefactoryinterface.h"

#include <QCoreApplication>
#include <QDir>
#include <QJsonObject>
#include <QLibrary>
#include <QPluginLoader>

namespace coagulation {

QStringList PluginLocator::defaultFolders()
{
    QStringList folders;
    const QString fromEnvironment = qEnvironmentVariable("COAGULATION_PLUGIN_PATH");
    for (const QString& folder : fromEnvironment.split(QDir::listSeparator(), Qt::SkipEmptyParts))
        folders.append(folder);
    if (QCoreApplication::instance()) {
        const QDir executable(QCoreApplication::applicationDirPath());
        folders.append(QDir::cleanPath(executable.absoluteFilePath(QStringLiteral("../lib"))));
        folders.append(executable.absolutePath());
    }
    return folders;
}

PluginLocator::PluginLocator(const QStringList& folders) : m_folders(folders) {}

QString PluginLocator::findPlugin(const QString& interfaceId) const
{
    for (const QString& folder : m_folders) {
        const QFileInfoList entries = QDir(folder).entryInfoList(QDir::Files, QDir::Name);
        for (const QFileInfo& entry : entries) {
            if (!QLibrary::isLibrary(entry.fileName()))
                continue;
            // Reads the metadata section only; no code of the library runs.
            const QJsonObject metaData = QPluginLoader(entry.absoluteFilePath()).metaData();
            if (metaData.value(QLatin1String("IID")).toString() == interfaceId)
                return entry.absoluteFilePath();
        }
    }
    return QString();
}

DataStorageFactoryInterface* PluginLocator::dataStorageFactory()
{
    if (!m_instance) {
        m_fileName = findPlugin(QStringLiteral(DataStorageFactoryInterface_iid));
        if (m_fileName.isEmpty()) {
            m_errorString = QStringLiteral("no plug-in with interface %1 in %2")
                                .arg(QStringLiteral(DataStorageFactoryInterface_iid),
                                     m_folders.join(QStringLiteral(", ")));
            return nullptr;
        }
        // The loader is not kept: destroying it leaves the library loaded.
        QPluginLoader loader(m_fileName);
        m_instance = loader.instance();
        if (!m_instance) {
            m_errorString = loader.errorString();
            return nullptr;
        }
    }
    auto* factory = qobject_cast<DataStorageFactoryInterface*>(m_instance);
    if (!factory)
        m_errorString = QStringLiteral("%1 does not implement %2")
                            .arg(m_fileName, QStringLiteral(DataStorageFactoryInterface_iid));
    return factory;
}

} // namespace coagulation
