#include "fuzzworkspace.h"

#include <core/profile.h>
#include <itemfactory.h>
#include <kvcore/qcdatareader.h>
#include <kvcore/workbench.h>
#include <labdata/labdatabasegenerator.h>
#include <report.h>

#include <QApplication>
#include <QBuffer>
#include <QDataStream>
#include <QTemporaryDir>

#include <cstdio>
#include <cstdlib>

namespace coagulation::fuzz {

namespace {

Workspace* shared = nullptr;
QTemporaryDir* folder = nullptr;
Workbench* workbench = nullptr;
std::unique_ptr<QcSeries>* series = nullptr;

// Registered after the databases are open, so it runs before the SQL module's globals are torn
// down. The application object itself is never destroyed: it would outlive those globals.
void closeWorkspace()
{
    delete shared->factory;
    delete series;
    delete workbench;
    delete shared->profile;
    delete folder;
    delete shared;
    shared = nullptr;
}

} // namespace

Workspace& workspace(int* argc, char*** argv)
{
    if (shared)
        return *shared;
    qputenv("QT_QPA_PLATFORM", "offscreen");
    qputenv("COAGULATION_NONINTERACTIVE", "1");
    qputenv("QT_LOGGING_RULES", "qt.*=false;default.warning=false");
    static int argumentCount = argc ? *argc : 0;
    static char* noArguments[] = {nullptr};
    new QApplication(argumentCount, argv ? *argv : noArguments);

    shared = new Workspace;
    folder = new QTemporaryDir;
    shared->profile = new Profile(folder->filePath(QStringLiteral("profile.ini")));
    LabDatabaseGenerator generator(shared->profile);
    generator.setPatientCount(3);
    generator.setQcPointCount(40);
    generator.setMaintenanceMonths(1);
    if (!generator.generate()) {
        std::fprintf(stderr, "demo data: %s\n", qPrintable(generator.errorString()));
        std::abort();
    }
    shared->factory = new ItemFactory(shared->profile);
    QcDataReader reader(shared->profile);
    const QList<qint64> reagents = reader.reagentIds();
    series = new std::unique_ptr<QcSeries>(reagents.isEmpty() ? nullptr : reader.read(reagents.first()));
    shared->qc = series->get();
    workbench = new Workbench(1, QStringLiteral("A"), shared->profile);
    shared->maintenance.workbench = workbench;
    shared->maintenance.month = generator.lastDay();
    std::atexit(closeWorkspace);
    return *shared;
}

std::unique_ptr<Report> loadTemplate(const std::uint8_t* data, std::size_t size)
{
    Workspace& w = workspace();
    QByteArray bytes = QByteArray::fromRawData(reinterpret_cast<const char*>(data), qsizetype(size));
    QBuffer buffer(&bytes);
    buffer.open(QIODevice::ReadOnly);
    QDataStream in(&buffer);
    auto report = std::make_unique<Report>(w.profile, w.factory);
    if (report->load(in))
        return report;
    if (report->errorString().isEmpty())
        std::abort(); // every refusal must say why
    return nullptr;
}

} // namespace coagulation::fuzz

// libFuzzer's set-up hook, shared by every target.
extern "C" int LLVMFuzzerInitialize(int* argc, char*** argv)
{
    coagulation::fuzz::workspace(argc, argv);
    return 0;
}
