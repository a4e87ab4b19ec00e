#pragma once

#include "benchconfig.h"

#include <benchmark/benchmark.h>

#include <QStringList>

#include <string>

namespace coagulation::bench {

class BenchWorkspace;

// Names under which the benchmarks report; the result table looks them up.
namespace name {
inline std::string patients(int count)
{
    return "patients/" + std::to_string(count);
}
inline std::string peakMemory(int count)
{
    return "memory/" + std::to_string(count);
}
inline std::string maintenancePeakMemory()
{
    return "memory/maintenance";
}
inline std::string qc(int points)
{
    return "qc/" + std::to_string(points);
}
inline std::string qcAgainstPatients(int points)
{
    return "qc-against-patients/" + std::to_string(points);
}
inline std::string templateFile(const char* what, int items) // what: "load" or "save"
{
    return "template/" + std::string(what) + '/' + std::to_string(items);
}
inline std::string drag(const char* side, int items) // side: "ours" or "qt"
{
    return "drag/" + std::string(side) + '/' + std::to_string(items);
}
} // namespace name

// Counters the benchmarks set, per iteration.
namespace counter {
inline const char* const pages = "pages";
inline const char* const items = "items";
inline const char* const peakRssKiB = "peak_rss_kib";
// Of a paired comparison: seconds per page of each side, and their ratio.
inline const char* const oursPerPage = "ours_per_page";
inline const char* const referencePerPage = "reference_per_page";
inline const char* const ratio = "ratio";
} // namespace counter

void registerDragBenchmarks(const BenchConfig& config);
void registerTemplateBenchmarks(const BenchConfig& config, BenchWorkspace* workspace);
void registerPrintBenchmarks(const BenchConfig& config, BenchWorkspace* workspace);

// Prints one patient and one QC page untimed. What a process does once (finding the installed fonts
// behind the PDF's fonts, loading font engines) would otherwise fall on whichever side of a
// comparison comes first. Returns why a job did not print, or an empty string.
QString warmUpPrinting(BenchWorkspace* workspace);

// The child process of the memory measurement: prints the first COUNT patients of the profile's
// database to PDF, or with "maintenance" for COUNT the maintenance report of the demo month.
// Arguments: PROFILE COUNT PDF. Returns the exit code.
int runPrintChild(const QStringList& arguments);

} // namespace coagulation::bench
