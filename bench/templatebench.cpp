// Saving and loading a large template file: per item, and loading against saving.
#include "benchmarks.h"
#include "benchworkspace.h"

#include <itemfactory.h>
#include <report.h>
#include <reportitem.h>

#include <QDir>

#include <memory>

namespace coagulation::bench {
namespace {

// The item kinds a patient template is made of: drawing items and data-bound ones.
const QStringList itemKeys = {
    QStringLiteral("Text"),
    QStringLiteral("Line"),
    QStringLiteral("Rect"),
    QStringLiteral("prop:/date"),
    QStringLiteral("prop:/page"),
    QStringLiteral("profile:/hospital"),
    QStringLiteral("field:/patient/name"),
    QStringLiteral("field:/patient/sampleNo"),
};

// A patient report with `count` items spread over the page.
std::unique_ptr<Report> largeTemplate(BenchWorkspace* workspace, int count, QString* errorString)
{
    auto report = std::make_unique<Report>(workspace->profile(), workspace->itemFactory());
    report->setType(kv::PatientReport);
    const QRectF page = report->sceneRect();
    for (int i = 0; i < count; ++i) {
        const QString key = itemKeys.at(i % itemKeys.size());
        ReportItem* item = workspace->itemFactory()->create(key);
        if (!item) {
            *errorString = QStringLiteral("the item factory makes no %1").arg(key);
            return nullptr;
        }
        item->setKey(key);
        const QPointF origin(page.left() + (i * 37) % int(page.width() - 120),
                             page.top() + (i * 53) % int(page.height() - 40));
        if (auto* text = dynamic_cast<ReportTextItem*>(item); text && key == QLatin1String("Text"))
            text->setPlainText(QStringLiteral("检验项目 %1").arg(i));
        item->setGeometry(QPolygonF({origin, origin + QPointF(100, 30)}));
        report->addItem(item->graphicsItem());
    }
    return report;
}

void saveTemplate(benchmark::State& state, BenchWorkspace* workspace, int count)
{
    QString error;
    const std::unique_ptr<Report> report = largeTemplate(workspace, count, &error);
    if (!report) {
        state.SkipWithError(error.toUtf8().constData());
        return;
    }
    const QString fileName = workspace->scratchFile(QStringLiteral("large.rpt"));
    for (auto _ : state) {
        if (!report->save(fileName))
            state.SkipWithError(report->errorString().toUtf8().constData());
    }
    state.counters[counter::items] = count;
}

void loadTemplate(benchmark::State& state, BenchWorkspace* workspace, int count)
{
    const QString fileName = workspace->scratchFile(QStringLiteral("large.rpt"));
    {
        QString error;
        const std::unique_ptr<Report> report = largeTemplate(workspace, count, &error);
        if (!report || !report->save(fileName)) {
            state.SkipWithError(report ? report->errorString().toUtf8().constData()
                                       : error.toUtf8().constData());
            return;
        }
    }
    for (auto _ : state) {
        auto report = std::make_unique<Report>(workspace->profile(), workspace->itemFactory());
        if (!report->load(fileName) || report->reportItems().size() != count)
            state.SkipWithError("the template did not load all its items");
        state.PauseTiming(); // tearing the scene down is not part of loading
        report.reset();
        state.ResumeTiming();
    }
    state.counters[counter::items] = count;
}

} // namespace

void registerTemplateBenchmarks(const BenchConfig& config, BenchWorkspace* workspace)
{
    benchmark::RegisterBenchmark(name::templateFile("save", config.templateItems).c_str(), saveTemplate,
                                 workspace, config.templateItems)
        ->Unit(benchmark::kMillisecond)
        ->UseRealTime()
        ->MinTime(0.2)
        ->Repetitions(config.repetitions);
    for (int count : {config.templateItemsSmall, config.templateItems})
        benchmark::RegisterBenchmark(name::templateFile("load", count).c_str(), loadTemplate, workspace,
                                     count)
            ->Unit(benchmark::kMillisecond)
            ->UseRealTime()
            ->MinTime(0.2)
            ->Repetitions(config.repetitions);
}

} // namespace coagulation::bench
