#pragma once

#include "kvcore_global.h"

#include <QDir>
#include <QPointer>
#include <QWidget>

namespace coagulation {

class Profile;

// What the host gives a back-end to work in: the settings and databases, the folder of report
// templates and the window that dialogs belong to. Everything is borrowed.
class KVCORE_EXPORT Workspace
{
public:
    explicit Workspace(Profile* profile, const QDir& templateDirectory = QDir(),
                       QWidget* mainWindow = nullptr);

    // The template folder a profile names in "report/templateDirectory", relative to the folder of
    // the profile's file (default "templates"); an in-memory profile resolves against the current
    // directory.
    static QDir templateDirectoryOf(const Profile* profile);

    Profile* profile() const { return m_profile; }
    void setProfile(Profile* profile) { m_profile = profile; }
    QDir templateDirectory() const { return m_templateDirectory; }
    void setTemplateDirectory(const QDir& directory) { m_templateDirectory = directory; }
    QWidget* mainWindow() const { return m_mainWindow; }
    void setMainWindow(QWidget* window) { m_mainWindow = window; }

private:
    Profile* m_profile;
    QDir m_templateDirectory;
    QPointer<QWidget> m_mainWindow;
};

} // namespace coagulation
