#pragma once

#include "core_global.h"

#include <QObject>
#include <QSqlDatabase>
#include <QVariant>

#include <memory>

namespace coagulation {

class ProfilePrivate;

// The host's settings and database object. Settings live in an INI file (or only in memory);
// the three SQLite databases are named by the settings "database/config", "database/data" and
// "database/qc", relative to the INI file's folder.
class CORE_EXPORT Profile : public QObject
{
    Q_OBJECT
public:
    // A profile whose settings stay in memory and whose databases are in-memory SQLite databases.
    explicit Profile(QObject* parent = nullptr);
    enum DatabaseMode { CreateMissingDatabases, ExistingDatabasesOnly };

    // A profile over an INI file; the file and the databases are created when missing.
    explicit Profile(const QString& fileName, QObject* parent = nullptr);
    // With ExistingDatabasesOnly a database file that is missing is neither created nor opened,
    // so that a program never leaves an empty database where the laboratory's data ought to be.
    Profile(const QString& fileName, DatabaseMode mode, QObject* parent = nullptr);
    ~Profile() override;

    QString fileName() const;

    QVariant value(const QString& key, const QVariant& defaultValue = QVariant()) const;
    // persist == false keeps the value for this process only; true also writes the INI file.
    void setValue(const QString& key, const QVariant& value, bool persist = false);

    QSqlDatabase database() const;     // configuration: assayTemplate, assayItem
    QSqlDatabase dataDatabase() const; // patients and results
    QSqlDatabase qcDatabase() const;   // QC reagents

    // Path of a database file as the settings name it ("" for in-memory profiles).
    QString databasePath(const QString& which) const;

private:
    std::unique_ptr<ProfilePrivate> d;
};

} // namespace coagulation
