#pragma once

#include <QList>
#include <QString>
#include <QTemporaryDir>

#include <memory>

namespace coagulation {
class ItemFactory;
class Profile;
class QcSeries;
class Workspace;
} // namespace coagulation

namespace coagulation::bench {

// The demo workspace (profile, generated laboratory databases, default templates) in a temporary
// folder, with what the benchmarks take from it.
class BenchWorkspace
{
public:
    explicit BenchWorkspace(int patientCount);
    ~BenchWorkspace();

    bool isValid() const { return m_errorString.isEmpty(); }
    QString errorString() const { return m_errorString; }

    QString profileFileName() const;
    Profile* profile() const { return m_profile.get(); }
    Workspace* workspace() const { return m_workspace.get(); }
    ItemFactory* itemFactory() const { return m_itemFactory.get(); }

    // The template file remembered in the profile under `settingKey` (for example "report/template").
    QString templateFile(const QString& settingKey) const;
    // A file name in a folder that is removed with the workspace.
    QString scratchFile(const QString& name) const;

    // The first `count` patients whose samples are not QC samples, all printed from the same
    // template; fewer when the database holds fewer.
    QList<qint64> patientIds(int count) const { return patientIds(m_profile.get(), count); }
    static QList<qint64> patientIds(Profile* profile, int count);
    // One QC series of the demo database, its points replaced by `points` runs, all to be printed.
    std::unique_ptr<QcSeries> qcSeries(int points, QString* errorString) const;

private:
    QTemporaryDir m_folder;
    std::unique_ptr<Profile> m_profile;
    std::unique_ptr<Workspace> m_workspace;
    std::unique_ptr<ItemFactory> m_itemFactory;
    QString m_errorString;
};

} // namespace coagulation::bench
