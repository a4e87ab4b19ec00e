#pragma once

#include "kvcore_global.h"

#include <QPointer>
#include <QString>
#include <QStringList>

namespace coagulation {

class DataStorageFactoryInterface;

// Finds and loads the host's storage plug-in the way the host does: the first library in the
// search folders whose Qt plug-in metadata names the interface id
// "velra.kv.dataStorageFactoryInterface" (folders in order, files by name within a folder).
class KVCORE_EXPORT PluginLocator
{
public:
    // The folders of $COAGULATION_PLUGIN_PATH (separated like PATH), then the executable's ../lib
    // and its own folder.
    static QStringList defaultFolders();

    explicit PluginLocator(const QStringList& folders = defaultFolders());

    QStringList folders() const { return m_folders; }

    // Path of the first matching library, found from its metadata without loading it; empty when
    // there is none.
    QString findPlugin(const QString& interfaceId) const;

    // The factory of the storage plug-in, loaded on the first call and shared by the process; null,
    // with errorString() set, when no library matches or it cannot be loaded.
    DataStorageFactoryInterface* dataStorageFactory();
    // The plug-in's root object, null when not loaded.
    QObject* instance() const { return m_instance.data(); }
    QString fileName() const { return m_fileName; }
    QString errorString() const { return m_errorString; }

private:
    QStringList m_folders;
    QPointer<QObject> m_instance; // the loader makes a new one if it was deleted
    QString m_fileName;
    QString m_errorString;
};

} // namespace coagulation
