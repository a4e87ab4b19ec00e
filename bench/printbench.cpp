// Printing patients and a long QC series to PDF through the printer, each beside the floor: the
// same pages rendered by QGraphicsScene::render of already filled scenes into the same kind of
// PDF, without SQL and data binding (see renderPages). Also the peak memory of a large against a
// small job, and of a maintenance job against a one-patient job.
#include "benchmarks.h"
#include "benchworkspace.h"
#include "pairedrun.h"
#include "peakmemory.h"

#include <core/profile.h>
#include <kvcore/maintenanceexportdata.h>
#include <kvcore/maintenancerecords.h>
#include <kvcore/qcseries.h>
#include <kvcore/workspace.h>
#include <pagerenderer_p.h>
#include <pdffinisher_p.h>
#include <report.h>
#include <reportprinter.h>

#include <QCoreApplication>
#include <QDir>
#include <QPainter>
#include <QPrinter>

#include <chrono>
#include <cstdio>
#include <functional>
#include <memory>

namespace coagulation::bench {
namespace {

const QString patientTemplateKey = QStringLiteral("report/template");
const QString qcTemplateKey = QStringLiteral("report/qctemplate");

using Clock = std::chrono::steady_clock;

double secondsSince(Clock::time_point start)
{
    return std::chrono::duration<double>(Clock::now() - start).count();
}

// The floor: `pages` pages of the report's scene into a new PDF, finished as ours are (text layer
// and metadata). `fill` binds each page's data first, untimed: the floor renders pages already
// filled, but each its own, since distinct text costs font subsetting. Returns the seconds spent
// rendering and finishing, or -1.
double renderPages(Report* report, int pages, const std::function<void(int page)>& fill,
                   const QString& fileName)
{
    double seconds = 0.0;
    auto start = Clock::now();
    QPrinter printer(QPrinter::HighResolution);
    printer.setOutputFormat(QPrinter::PdfFormat);
    printer.setOutputFileName(fileName);
    report->setupPrinter(&printer);
    QPainter painter;
    if (!painter.begin(&printer))
        return -1.0;
    for (int page = 0; page < pages; ++page) {
        if (page > 0)
            printer.newPage();
        seconds += secondsSince(start);
        fill(page);
        start = Clock::now();
        PageRenderer::render(report, &painter); // vectors, as ours
    }
    if (!painter.end())
        return -1.0;
    PdfDocumentInfo info;
    info.title = Report::typeName(report->type());
    info.creator = QStringLiteral("coagulation-bench");
    if (!PdfFinisher::finish(fileName, info, nullptr))
        return -1.0;
    return seconds + secondsSince(start);
}

// A side that fails tells the benchmark why.
PairedRun::Side failing(benchmark::State& state, PairedRun::Side side, const char* error)
{
    return [&state, side = std::move(side), error] {
        const double seconds = side();
        if (seconds < 0)
            state.SkipWithError(error);
        return seconds;
    };
}

// A job that tells whether it printed, timed; a refused one tells the benchmark `error`.
PairedRun::Side timedJob(benchmark::State& state, std::function<bool()> job, const char* error)
{
    return failing(
        state,
        [job = std::move(job)] {
            const auto start = Clock::now();
            return job() ? secondsSince(start) : -1.0;
        },
        error);
}

// A patient job of `ids` through the printer.
PairedRun::Side patientJob(benchmark::State& state, ReportPrinter* printer, BenchWorkspace* workspace,
                           const QList<qint64>& ids)
{
    return timedJob(
        state,
        [printer, workspace, ids] {
            return printer->store(ids, workspace->profile()->dataDatabase(), DataStorage::StoreAtOnce);
        },
        "the printer refused the patient job");
}

PairedRun::Side qcJob(benchmark::State& state, ReportPrinter* printer, QcExportData* series)
{
    return timedJob(
        state, [printer, series] { return printer->store({series}, DataStorage::StoreAtOnce); },
        "the printer refused the QC job");
}

ReportPrinter* newPrinter(BenchWorkspace* workspace, const QString& fileName, QObject* parent)
{
    auto* printer = new ReportPrinter(parent);
    printer->setWorkspace(workspace->workspace());
    printer->setOutputFileName(workspace->scratchFile(fileName));
    return printer;
}

void patients(benchmark::State& state, BenchWorkspace* workspace, int count, int jobs)
{
    const QList<qint64> ids = workspace->patientIds(count);
    Report report(workspace->profile(), workspace->itemFactory());
    if (ids.size() < count || !report.load(workspace->templateFile(patientTemplateKey))) {
        state.SkipWithError("the workspace holds too few patients or no patient template");
        return;
    }
    QObject owner;
    ReportPrinter* printer = newPrinter(workspace, QStringLiteral("patients.pdf"), &owner);
    const QSqlDatabase database = workspace->profile()->dataDatabase();
    const QString floorFile = workspace->scratchFile(QStringLiteral("patients-floor.pdf"));
    const auto floor = [&] {
        return renderPages(
            &report, count, [&](int page) { report.fetchData(int(ids.at(page)), database); }, floorFile);
    };
    PairedRun(patientJob(state, printer, workspace, ids), count,
              failing(state, floor, "cannot write the floor's PDF"), count)
        .run(state, jobs);
}
// `job`: a patient count, or "maintenance".
void peakMemory(benchmark::State& state, BenchWorkspace* workspace, const QString& job)
{
    QString error;
    long kib = -1;
    for (auto _ : state) {
        kib = PeakMemory::ofProgram(QCoreApplication::applicationFilePath(),
                                    {QStringLiteral("--print-child"), workspace->profileFileName(), job,
                                     workspace->scratchFile(QStringLiteral("memory.pdf"))},
                                    &error);
    }
    if (kib < 0)
        state.SkipWithError(error.toUtf8().constData());
    else
        state.counters[counter::peakRssKiB] = double(kib);
}

// Loads the QC template into the report and makes the series; returns the pages the series needs,
// as the printer's page loop counts them, or 0 after telling the benchmark why it cannot run.
int prepareQc(benchmark::State& state, BenchWorkspace* workspace, int points, Report* report,
              std::unique_ptr<QcSeries>* series)
{
    QString error;
    *series = workspace->qcSeries(points, &error);
    if (!*series || !report->load(workspace->templateFile(qcTemplateKey))) {
        state.SkipWithError(*series ? "the QC template does not load" : error.toUtf8().constData());
        return 0;
    }
    report->prepareQcData((*series)->data());
    return report->pageCount();
}

void qc(benchmark::State& state, BenchWorkspace* workspace, int points)
{
    Report report(workspace->profile(), workspace->itemFactory());
    std::unique_ptr<QcSeries> series;
    const int pages = prepareQc(state, workspace, points, &report, &series);
    if (pages == 0)
        return;
    QObject owner;
    ReportPrinter* printer = newPrinter(workspace, QStringLiteral("qc.pdf"), &owner);
    const QString floorFile = workspace->scratchFile(QStringLiteral("qc-floor.pdf"));
    const auto floor = [&] {
        return renderPages(
            &report, pages,
            [&](int page) {
                report.setCurrentPage(page + 1);
                report.fetchQcData(series->data());
            },
            floorFile);
    };
    PairedRun(qcJob(state, printer, series->data()), pages,
              failing(state, floor, "cannot write the floor's PDF"), pages)
        .run(state, 1);
    state.counters[counter::pages] = pages;
}

// A QC report beside a patient job of as many pages: what a QC page costs over a patient page.
void qcAgainstPatients(benchmark::State& state, BenchWorkspace* workspace, int points, int patientCount)
{
    Report report(workspace->profile(), workspace->itemFactory());
    std::unique_ptr<QcSeries> series;
    const int pages = prepareQc(state, workspace, points, &report, &series);
    if (pages == 0)
        return;
    const QList<qint64> ids = workspace->patientIds(patientCount);
    if (ids.size() < patientCount) {
        state.SkipWithError("the workspace holds too few patients");
        return;
    }
    QObject owner;
    ReportPrinter* printer = newPrinter(workspace, QStringLiteral("qc.pdf"), &owner);
    PairedRun(qcJob(state, printer, series->data()), pages, patientJob(state, printer, workspace, ids),
              ids.size())
        .run(state, 3);
    state.counters[counter::pages] = pages;
}

} // namespace

QString warmUpPrinting(BenchWorkspace* workspace)
{
    QString error;
    const std::unique_ptr<QcSeries> series = workspace->qcSeries(30, &error); // one page
    const QList<qint64> ids = workspace->patientIds(1);
    if (!series || ids.isEmpty())
        return series ? QStringLiteral("the workspace holds no patient") : error;
    QObject owner;
    ReportPrinter* printer = newPrinter(workspace, QStringLiteral("warm-up.pdf"), &owner);
    if (!printer->store(ids, workspace->profile()->dataDatabase(), DataStorage::StoreAtOnce))
        return QStringLiteral("the printer refused the patient job");
    if (!printer->store({series->data()}, DataStorage::StoreAtOnce))
        return QStringLiteral("the printer refused the QC job");
    return QString();
}

void registerPrintBenchmarks(const BenchConfig& config, BenchWorkspace* workspace)
{
    // About a hundred pages a side per measurement, at least one job.
    for (int count : config.patientCounts) {
        benchmark::RegisterBenchmark(name::patients(count).c_str(), patients, workspace, count,
                                     qMax(1, 100 / count))
            ->Unit(benchmark::kMillisecond)
            ->UseManualTime()
            ->Iterations(1)
            ->Repetitions(count >= 1000 ? config.largeRepetitions : config.repetitions);
    }
    QList<int> memoryCounts{1};
    for (int count : {config.scalingSmall, config.scalingLarge}) {
        if (!memoryCounts.contains(count))
            memoryCounts.append(count);
    }
    for (int count : memoryCounts)
        benchmark::RegisterBenchmark(name::peakMemory(count).c_str(), peakMemory, workspace,
                                     QString::number(count))
            ->Unit(benchmark::kMillisecond)
            ->UseRealTime()
            ->Iterations(1);
    benchmark::RegisterBenchmark(name::maintenancePeakMemory().c_str(), peakMemory, workspace,
                                 QStringLiteral("maintenance"))
        ->Unit(benchmark::kMillisecond)
        ->UseRealTime()
        ->Iterations(1);
    benchmark::RegisterBenchmark(name::qc(config.qcPoints).c_str(), qc, workspace, config.qcPoints)
        ->Unit(benchmark::kMillisecond)
        ->UseManualTime()
        ->Iterations(1)
        ->Repetitions(config.repetitions);
    benchmark::RegisterBenchmark(name::qcAgainstPatients(config.qcShortPoints).c_str(), qcAgainstPatients,
                                 workspace, config.qcShortPoints, config.qcShortPatients)
        ->Unit(benchmark::kMillisecond)
        ->UseManualTime()
        ->Iterations(1)
        ->Repetitions(config.repetitions);
}

int runPrintChild(const QStringList& arguments)
{
    if (arguments.size() != 3) {
        std::fprintf(stderr, "usage: coagulation-bench --print-child PROFILE COUNT PDF\n");
        return 2;
    }
    Profile profile(arguments.at(0));
    Workspace workspace(&profile, Workspace::templateDirectoryOf(&profile));
    ReportPrinter printer;
    printer.setWorkspace(&workspace);
    printer.setOutputFileName(arguments.at(2));
    if (arguments.at(1) == QLatin1String("maintenance")) {
        // The month the demo prints, on the first workbench, which has records then.
        Workbench workbench = MaintenanceRecords(&profile).workbenches().value(0);
        MaintenanceExportData data{&workbench, QDate(2024, 6, 1), MaintenanceManager::DailyMaintenance};
        if (MaintenanceRecords(&profile).records(&workbench, data.month, data.recordType).isEmpty()) {
            std::fprintf(stderr, "no maintenance records in %s\n", qPrintable(data.month.toString()));
            return 1;
        }
        return printer.store(&data, DataStorage::StoreAtOnce) ? 0 : 1;
    }
    const QList<qint64> ids = BenchWorkspace::patientIds(&profile, arguments.at(1).toInt());
    return !ids.isEmpty() && printer.store(ids, profile.dataDatabase(), DataStorage::StoreAtOnce) ? 0 : 1;
}

} // namespace coagulation::bench
