#include "resultcollector.h"

#include <cstdio>

namespace coagulation::bench {

bool ResultCollector::ReportContext(const Context&)
{
    return true;
}

void ResultCollector::ReportRuns(const std::vector<Run>& runs)
{
    for (const Run& run : runs) {
        const bool aggregate = run.run_type == Run::RT_Aggregate;
        if (aggregate && run.aggregate_name != "median")
            continue;
        const std::string name = run.run_name.function_name;
        // A repeated benchmark reports every repetition first, then the median, which wins.
        Result result;
        if (run.error_occurred) {
            result.error = run.error_message.empty() ? "failed" : run.error_message;
        } else {
            const double iterations = run.iterations > 0 ? double(run.iterations) : 1.0;
            result.secondsPerIteration = run.real_accumulated_time / iterations;
            for (const auto& [key, counter] : run.counters)
                result.counters[key] = counter.value;
        }
        if (!aggregate && run.repetition_index + 1 >= run.repetitions)
            std::fprintf(stderr, "  %-24s %s\n", name.c_str(),
                         result.error.empty() ? "done" : result.error.c_str());
        m_results[name] = result;
    }
}

const ResultCollector::Result* ResultCollector::result(const std::string& name) const
{
    const auto it = m_results.find(name);
    return it == m_results.end() ? nullptr : &it->second;
}

} // namespace coagulation::bench
