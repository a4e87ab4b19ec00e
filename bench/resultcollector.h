#pragma once

#include <benchmark/benchmark.h>

#include <map>
#include <string>

namespace coagulation::bench {

// Keeps the outcome of every benchmark instead of printing it, so that one table of ratios can be
// printed at the end. With repetitions the median is kept. Times are wall-clock times, what a
// user waits for (disk syncs included).
class ResultCollector : public benchmark::BenchmarkReporter
{
public:
    struct Result
    {
        double secondsPerIteration = 0.0;
        std::map<std::string, double> counters;
        std::string error; // empty when the benchmark ran
    };

    bool ReportContext(const Context& context) override;
    void ReportRuns(const std::vector<Run>& runs) override;

    // Null when no benchmark of that name ran.
    const Result* result(const std::string& name) const;

private:
    std::map<std::string, Result> m_results;
};

} // namespace coagulation::bench
