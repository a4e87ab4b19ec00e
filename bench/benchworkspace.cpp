#include "benchworkspace.h"

#include <core/profile.h>
#include <defaulttemplates.h>
#include <demoworkspace.h>
#include <itemfactory.h>
#include <kvcore/qcdatareader.h>
#include <kvcore/sample.h>
#include <kvcore/workspace.h>
#include <report.h>

#include <QDir>
#include <QSqlQuery>

namespace coagulation::bench {

BenchWorkspace::BenchWorkspace(int patientCount)
{
    if (!m_folder.isValid()) {
        m_errorString = QStringLiteral("Cannot create a temporary folder: %1").arg(m_folder.errorString());
        return;
    }
    // The default templates as the current code lays them out, then the demo workspace with them.
    const QString templates = QDir(m_folder.path()).filePath(QStringLiteral("default-templates"));
    if (!DefaultTemplates::writeAll(templates, &m_errorString))
        return;
    // The folder already holds those templates: `force` lets the workspace go beside them.
    if (!DemoWorkspace::create(m_folder.path(), templates, patientCount, true, &m_errorString))
        return;
    m_profile = std::make_unique<Profile>(profileFileName());
    m_workspace =
        std::make_unique<Workspace>(m_profile.get(), Workspace::templateDirectoryOf(m_profile.get()));
    m_itemFactory = std::make_unique<ItemFactory>(m_profile.get());
    QDir(m_folder.path()).mkpath(QStringLiteral("scratch"));
}

BenchWorkspace::~BenchWorkspace() = default;

QString BenchWorkspace::profileFileName() const
{
    return QDir(m_folder.path()).filePath(DemoWorkspace::profileFileName());
}

QString BenchWorkspace::templateFile(const QString& settingKey) const
{
    const QString name = m_profile->value(settingKey).toString();
    return m_workspace->templateDirectory().filePath(name + QLatin1Char('.') + Report::suffix);
}

QString BenchWorkspace::scratchFile(const QString& name) const
{
    return QDir(m_folder.path()).filePath(QStringLiteral("scratch/") + name);
}

QList<qint64> BenchWorkspace::patientIds(Profile* profile, int count)
{
    QList<qint64> ids;
    QSqlQuery query(profile->dataDatabase());
    if (!query.exec(QStringLiteral("select id, sampleNo from patient order by id")))
        return ids;
    while (ids.size() < count && query.next()) {
        if (Sample::sampleTypeOf(query.value(1).toString(), profile) != kv::QcSample)
            ids.append(query.value(0).toLongLong());
    }
    return ids;
}

std::unique_ptr<QcSeries> BenchWorkspace::qcSeries(int points, QString* errorString) const
{
    QcDataReader reader(m_profile.get());
    const QList<qint64> reagents = reader.reagentIds();
    if (reagents.isEmpty()) {
        *errorString = QStringLiteral("The QC database holds no reagents");
        return nullptr;
    }
    std::unique_ptr<QcSeries> series = reader.read(reagents.constFirst());
    if (!series) {
        *errorString = reader.errorString();
        return nullptr;
    }
    // Two runs a day around the material's mean, with a deterministic spread of about one SD.
    QcExportData* data = series->data();
    const double start = QcPoint::fromDatetime(QDateTime(QDate(2020, 1, 1), QTime(8, 0)));
    const double mean = data->mean > 0 ? data->mean : 10.0;
    const double sd = data->sd > 0 ? data->sd : mean * 0.05;
    data->points.clear();
    quint32 state = 12345;
    for (int i = 0; i < points; ++i) {
        state = state * 1664525u + 1013904223u;
        const double unit = double(state >> 8) / double(1u << 24) * 2.0 - 1.0; // -1 .. 1
        data->points.append(QcPoint{start + i * 0.5, mean + unit * sd * 1.5, false});
    }
    data->firstIndex = 0;
    data->count = points;
    data->startTime = 0.0;
    data->endTime = 0.0;
    return series;
}

} // namespace coagulation::bench
