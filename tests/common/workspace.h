#pragma once

// A demo workspace in a temporary folder: a profile, the three laboratory databases filled by the
// generator, and a templates folder (empty, or holding the default templates), as a host hands it
// to the report plug-in.

#include <core/profile.h>
#include <kvcore/workspace.h>
#include <labdata/labdatabasegenerator.h>

#include <QDir>
#include <QFile>
#include <QTemporaryDir>

#include <memory>

namespace coagulation::test {

// What the generator fills the databases with; the defaults are a small laboratory.
struct LabSize
{
    int patients = 40;
    int qcPoints = 10; // per reagent
    int maintenanceMonths = 1;
};

class DemoWorkspace
{
public:
    enum Storage { OnDisk, InMemory }; // InMemory: settings and databases in memory, templates on disk
    enum Templates { NoTemplates, DefaultTemplates };

    explicit DemoWorkspace(quint32 seed = 1, Storage storage = OnDisk) : m_seed(seed), m_storage(storage) {}

    // Use as QVERIFY2(workspace.create(), qPrintable(workspace.errorString())).
    bool create(const LabSize& size = LabSize(), Templates templates = NoTemplates)
    {
        if (!m_dir.isValid() || !QDir().mkpath(templateDirectory().path()))
            return fail(QStringLiteral("no temporary folder"));
        m_profile =
            m_storage == InMemory ? std::make_unique<Profile>() : std::make_unique<Profile>(profileFile());
        m_workspace = std::make_unique<Workspace>(m_profile.get(), templateDirectory());
        LabDatabaseGenerator generator(m_profile.get(), m_seed);
        generator.setPatientCount(size.patients);
        generator.setQcPointCount(size.qcPoints);
        generator.setMaintenanceMonths(size.maintenanceMonths);
        if (!generator.generate())
            return fail(generator.errorString());
        return templates == NoTemplates || copyDefaultTemplates();
    }
    QString errorString() const { return m_errorString; }

    QString filePath(const QString& name) const { return m_dir.filePath(name); }
    QString profileFile() const { return filePath(QStringLiteral("profile.ini")); }
    Profile* profile() const { return m_profile.get(); }
    Workspace* workspace() const { return m_workspace.get(); }
    QDir templateDirectory() const { return QDir(filePath(QStringLiteral("templates"))); }
    QString templatePath(const QString& name) const
    {
        return templateDirectory().filePath(name + QStringLiteral(".rpt"));
    }

    // Empties the templates folder and forgets the template choices.
    bool clearTemplates()
    {
        for (const char* key :
             {"report/template", "report/qc", "report/qctemplate", "report/maintenanceRecord"})
            m_profile->setValue(QString::fromLatin1(key), QString(), true);
        QDir templates = templateDirectory();
        return templates.removeRecursively() && QDir().mkpath(templates.path());
    }

private:
    // The committed default templates, each chosen for its job as "coagulation-print demo" does.
    bool copyDefaultTemplates()
    {
        const QDir source(QStringLiteral(TESTS_SOURCE_DIR "/../templates"));
        const QList<QPair<QString, const char*>> defaults = {
            {QStringLiteral("凝血检验报告单"), "report/template"},
            {QStringLiteral("质控样本报告单"), "report/qc"},
            {QStringLiteral("室内质控报告"), "report/qctemplate"},
            {QStringLiteral("维护保养记录"), "report/maintenanceRecord"}};
        for (const auto& [name, key] : defaults) {
            if (!QFile::copy(source.filePath(name + QStringLiteral(".rpt")), templatePath(name)))
                return fail(QStringLiteral("cannot copy the default template ") + name);
            m_profile->setValue(QString::fromLatin1(key), name, true);
        }
        return true;
    }
    bool fail(const QString& message)
    {
        m_errorString = message;
        return false;
    }

    QTemporaryDir m_dir;
    quint32 m_seed;
    Storage m_storage;
    std::unique_ptr<Profile> m_profile;
    std::unique_ptr<Workspace> m_workspace;
    QString m_errorString;
};

} // namespace coagulation::test
