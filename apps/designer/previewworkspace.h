#pragma once

#include <QCoreApplication>
#include <QString>
#include <QTemporaryDir>

#include <memory>

namespace coagulation {

class Profile;

// A throw-away copy of a workspace (its settings and databases) for a preview: whatever the
// printer records while it previews, such as print times, never reaches the real workspace.
class PreviewWorkspace
{
    Q_DECLARE_TR_FUNCTIONS(coagulation::PreviewWorkspace)
public:
    // Copies the workspace whose settings file is given; check profile() for success.
    explicit PreviewWorkspace(const QString& profileFile);
    ~PreviewWorkspace();

    // Null, with errorString() set, when the copy could not be made.
    Profile* profile() const { return m_profile.get(); }
    QString errorString() const { return m_errorString; }

private:
    QTemporaryDir m_folder;
    std::unique_ptr<Profile> m_profile;
    QString m_errorString;
};

} // namespace coagulation
