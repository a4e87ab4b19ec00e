#include "profile.h"

#include <QDir>
#include <QFileInfo>
#include <QHash>
#include <QSettings>
#include <QSqlError>
#include <QUuid>

namespace coagulation {

namespace {
const char* const databaseKinds[] = {"config", "data", "qc"};
}

class ProfilePrivate
{
public:
    std::unique_ptr<QSettings> settings; // null for in-memory profiles
    QHash<QString, QVariant> transient;  // values set without persisting, and in-memory settings
    QHash<QString, QString> connections; // kind -> connection name

    QString open(const QString& kind, const QString& path, bool openIt = true)
    {
        const QString name =
            QStringLiteral("profile-%1-%2").arg(QUuid::createUuid().toString(QUuid::WithoutBraces), kind);
        QSqlDatabase db = QSqlDatabase::addDatabase(QStringLiteral("QSQLITE"), name);
        db.setDatabaseName(path);
        if (openIt && !db.open())
            qWarning("Profile: cannot open %s database %s: %s", qPrintable(kind), qPrintable(path),
                     qPrintable(db.lastError().text()));
        connections.insert(kind, name);
        return name;
    }
};

Profile::Profile(QObject* parent) : QObject(parent), d(std::make_unique<ProfilePrivate>())
{
    for (const char* kind : databaseKinds)
        d->open(QString::fromLatin1(kind), QStringLiteral(":memory:"));
}

Profile::Profile(const QString& fileName, QObject* parent)
    : Profile(fileName, CreateMissingDatabases, parent)
{
}

Profile::Profile(const QString& fileName, DatabaseMode mode, QObject* parent)
    : QObject(parent), d(std::make_unique<ProfilePrivate>())
{
    const QFileInfo info(fileName);
    QDir().mkpath(info.absolutePath());
    d->settings = std::make_unique<QSettings>(info.absoluteFilePath(), QSettings::IniFormat);
    for (const char* kind : databaseKinds) {
        const QString path = databasePath(QString::fromLatin1(kind));
        d->open(QString::fromLatin1(kind), path, mode == CreateMissingDatabases || QFileInfo::exists(path));
    }
}

Profile::~Profile()
{
    const QStringList names = d->connections.values();
    d->connections.clear();
    for (const QString& name : names) {
        QSqlDatabase::database(name, false).close();
        QSqlDatabase::removeDatabase(name);
    }
}

QString Profile::fileName() const
{
    return d->settings ? d->settings->fileName() : QString();
}

QVariant Profile::value(const QString& key, const QVariant& defaultValue) const
{
    const auto it = d->transient.constFind(key);
    if (it != d->transient.constEnd())
        return *it;
    if (d->settings)
        return d->settings->value(key, defaultValue);
    return defaultValue;
}

void Profile::setValue(const QString& key, const QVariant& value, bool persist)
{
    if (persist && d->settings) {
        d->transient.remove(key);
        d->settings->setValue(key, value);
        d->settings->sync();
        return;
    }
    d->transient.insert(key, value);
}

QString Profile::databasePath(const QString& which) const
{
    if (!d->settings)
        return QString();
    const QString name =
        d->settings
            ->value(QString(QStringLiteral("database/") + which), QString(which + QStringLiteral(".db")))
            .toString();
    return QFileInfo(d->settings->fileName()).absoluteDir().absoluteFilePath(name);
}

QSqlDatabase Profile::database() const
{
    return QSqlDatabase::database(d->connections.value(QStringLiteral("config")), false);
}

QSqlDatabase Profile::dataDatabase() const
{
    return QSqlDatabase::database(d->connections.value(QStringLiteral("data")), false);
}

QSqlDatabase Profile::qcDatabase() const
{
    return QSqlDatabase::database(d->connections.value(QStringLiteral("qc")), false);
}

} // namespace coagulation
