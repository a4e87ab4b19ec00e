// Printing patients and a long QC series to PDF through the printer, each beside the floor: the
// same pages rendered by QGraphicsScene::render of already filled scenes into the same kind of
// PDF, without SQL and data binding (see renderPages). Also the peak memory of a large against a
// small job, and of a maintenance job against a one-patient job.
#include "benchmarks.h"
#include "benchworkspace.h"
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

#include <cstdio>
#include <functional>
#include <memory>

namespace coagulation::bench {
namespace {

const QString patientTemplateKey = QStringLiteral("report/template");
const QString qcTemplateKey = QStringLiteral("report/qctemplate");

// The floor: `pages` pages of the report's scene into a new PDF, finished as ours are (text layer
// and metadata). `fill` binds each page's data first, with the clock stopped: the floor renders
// pages already filled, but each its own, since distinct text costs font subsetting.
bool renderPages(benchmark::State& state, Report* report, int pages,
                 const std::function<void(int page)>& fill, const QString& fileName)
{
    QPrinter printer(QPrinter::HighResolution);
    printer.setOutputFormat(QPrinter::PdfFormat);
    printer.setOutputFileName(fileName);
    report->setupPrinter(&printer);
    QPainter painter;
    if (!painter.begin(&printer))
        return false;
    for (int page = 0; page < pages; ++page) {
        if (page > 0)
            printer.newPage();
        state.PauseTiming();
        fill(page);
        state.ResumeTiming();
        PageRenderer::render(report, &painter); // vectors, as ours
    }
    if (!painter.end())
        return false;
    PdfDocumentInfo info;
    info.title = Report::typeName(report->type());
    info.creator = QStringLiteral("coagulation-bench");
    return PdfFinisher::finish(fileName, info, nullptr);
}

void printPatients(benchmark::State& state, BenchWorkspace* workspace, int count)
{
    const QList<qint64> ids = workspace->patientIds(count);
    if (ids.size() < count) {
        state.SkipWithError("the workspace holds too few patients");
        return;
    }
    ReportPrinter printer;
    printer.setWorkspace(workspace->workspace());
    printer.setOutputFileName(workspace->scratchFile(QStringLiteral("patients.pdf")));
    for (auto _ : state) {
        if (!printer.store(ids, workspace->profile()->dataDatabase(), DataStorage::StoreAtOnce))
            state.SkipWithError("the printer refused the job");
    }
    state.counters[counter::pages] = count;
}

void patientFloor(benchmark::State& state, BenchWorkspace* workspace, int count)
{
    const QList<qint64> ids = workspace->patientIds(count);
    Report report(workspace->profile(), workspace->itemFactory());
    if (ids.size() < count || !report.load(workspace->templateFile(patientTemplateKey))) {
        state.SkipWithError("the patient template does not load");
        return;
    }
    const QSqlDatabase database = workspace->profile()->dataDatabase();
    const auto fill = [&](int page) {
        report.fetchData(int(ids.at(page)), database);
    };
    const QString fileName = workspace->scratchFile(QStringLiteral("patients-floor.pdf"));
    for (auto _ : state) {
        if (!renderPages(state, &report, count, fill, fileName))
            state.SkipWithError("cannot write the PDF");
    }
    state.counters[counter::pages] = count;
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

void printQc(benchmark::State& state, BenchWorkspace* workspace, int points)
{
    Report report(workspace->profile(), workspace->itemFactory());
    std::unique_ptr<QcSeries> series;
    const int pages = prepareQc(state, workspace, points, &report, &series);
    if (pages == 0)
        return;
    ReportPrinter printer;
    printer.setWorkspace(workspace->workspace());
    printer.setOutputFileName(workspace->scratchFile(QStringLiteral("qc.pdf")));
    for (auto _ : state) {
        if (!printer.store(QList<QcExportData*>{series->data()}, DataStorage::StoreAtOnce))
            state.SkipWithError("the printer refused the job");
    }
    state.counters[counter::pages] = pages;
}

void qcFloor(benchmark::State& state, BenchWorkspace* workspace, int points)
{
    Report report(workspace->profile(), workspace->itemFactory());
    std::unique_ptr<QcSeries> series;
    const int pages = prepareQc(state, workspace, points, &report, &series);
    if (pages == 0)
        return;
    const auto fill = [&](int page) {
        report.setCurrentPage(page + 1);
        report.fetchQcData(series->data());
    };
    const QString fileName = workspace->scratchFile(QStringLiteral("qc-floor.pdf"));
    for (auto _ : state) {
        if (!renderPages(state, &report, pages, fill, fileName))
            state.SkipWithError("cannot write the PDF");
    }
    state.counters[counter::pages] = pages;
}

} // namespace

void registerPrintBenchmarks(const BenchConfig& config, BenchWorkspace* workspace)
{
    // About a hundred pages per measurement, at least one job; the largest job runs once.
    for (int count : config.patientCounts) {
        const int iterations = qMax(1, 100 / count);
        const int repetitions = count >= 1000 ? 1 : config.repetitions;
        benchmark::RegisterBenchmark(name::patients("ours", count).c_str(), printPatients, workspace, count)
            ->Unit(benchmark::kMillisecond)
            ->UseRealTime()
            ->Iterations(iterations)
            ->Repetitions(repetitions);
        benchmark::RegisterBenchmark(name::patients("floor", count).c_str(), patientFloor, workspace, count)
            ->Unit(benchmark::kMillisecond)
            ->UseRealTime()
            ->Iterations(iterations)
            ->Repetitions(repetitions);
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
    benchmark::RegisterBenchmark(name::qc("ours", config.qcPoints).c_str(), printQc, workspace,
                                 config.qcPoints)
        ->Unit(benchmark::kMillisecond)
        ->UseRealTime()
        ->Iterations(1)
        ->Repetitions(config.repetitions);
    benchmark::RegisterBenchmark(name::qc("floor", config.qcPoints).c_str(), qcFloor, workspace,
                                 config.qcPoints)
        ->Unit(benchmark::kMillisecond)
        ->UseRealTime()
        ->Iterations(1)
        ->Repetitions(config.repetitions);
    // A short QC report beside a patient job of as many pages: what a QC page costs over a patient page.
    benchmark::RegisterBenchmark(name::qc("ours", config.qcShortPoints).c_str(), printQc, workspace,
                                 config.qcShortPoints)
        ->Unit(benchmark::kMillisecond)
        ->UseRealTime()
        ->Iterations(3)
        ->Repetitions(config.repetitions);
    if (!config.patientCounts.contains(config.qcShortPatients))
        benchmark::RegisterBenchmark(name::patients("ours", config.qcShortPatients).c_str(), printPatients,
                                     workspace, config.qcShortPatients)
            ->Unit(benchmark::kMillisecond)
            ->UseRealTime()
            ->Iterations(3)
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
