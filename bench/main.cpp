// coagulation-bench: the report module's speed and memory against Qt's own rendering, as one
// table of ratios on standard output (progress on standard error).
//
//   coagulation-bench [--smoke] [--benchmark_filter=...]
//   coagulation-bench --print-child PROFILE COUNT PDF   (used by the memory measurement)
#include "benchmarks.h"
#include "benchworkspace.h"
#include "resultcollector.h"
#include "resulttable.h"

#include <QApplication>

#include <cstdio>
#include <cstring>
#include <vector>

using namespace coagulation::bench;

int main(int argc, char** argv)
{
    // Headless, and no message box may wait for a user.
    if (!qEnvironmentVariableIsSet("QT_QPA_PLATFORM"))
        qputenv("QT_QPA_PLATFORM", "offscreen");
    qputenv("COAGULATION_NONINTERACTIVE", "1");
    QApplication app(argc, argv);

    const QStringList arguments = QCoreApplication::arguments();
    if (arguments.size() >= 2 && arguments.at(1) == QLatin1String("--print-child"))
        return runPrintChild(arguments.mid(2));

    BenchConfig config;
    for (int i = 1; i < argc; ++i) {
        if (std::strcmp(argv[i], "--smoke") == 0) {
            config = BenchConfig::smoke();
            for (int j = i; j + 1 < argc; ++j)
                argv[j] = argv[j + 1];
            --argc;
            break;
        }
    }
    // Repetitions of different benchmarks run interleaved in random order, so that a busy spell of
    // the machine does not fall on one side of a comparison only.
    std::vector<char*> args(argv, argv + argc);
    char interleave[] = "--benchmark_enable_random_interleaving=true";
    args.insert(args.begin() + 1, interleave);
    int count = int(args.size());
    benchmark::Initialize(&count, args.data());
    if (benchmark::ReportUnrecognizedArguments(count, args.data()))
        return 2;

    std::fprintf(stderr, "Generating the benchmark workspace (%d patients)...\n", config.workspacePatients);
    BenchWorkspace workspace(config.workspacePatients);
    if (!workspace.isValid()) {
        std::fprintf(stderr, "%s\n", qPrintable(workspace.errorString()));
        return 1;
    }

    const QString warmUpError = warmUpPrinting(&workspace);
    if (!warmUpError.isEmpty()) {
        std::fprintf(stderr, "Warming up: %s\n", qPrintable(warmUpError));
        return 1;
    }
    registerPrintBenchmarks(config, &workspace);
    registerTemplateBenchmarks(config, &workspace);
    registerDragBenchmarks(config);

    ResultCollector results;
    benchmark::RunSpecifiedBenchmarks(&results);
    benchmark::Shutdown();

    const ResultTable table(config, results);
    std::fputs(qPrintable(table.text()), stdout);
    // Missed targets show in the table; a measurement that could not be made fails the run.
    return table.allMeasured() ? 0 : 1;
}
