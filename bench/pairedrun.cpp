#include "pairedrun.h"

#include "benchmarks.h"

#include <utility>

namespace coagulation::bench {

namespace {
bool oursFirst = false; // alternates over all pairs of the run
} // namespace

PairedRun::PairedRun(Side ours, double oursPages, Side reference, double referencePages)
    : m_ours(std::move(ours)), m_reference(std::move(reference)), m_oursPages(oursPages),
      m_referencePages(referencePages)
{}

void PairedRun::run(benchmark::State& state, int jobs) const
{
    double ours = 0.0;
    double reference = 0.0;
    for (auto _ : state) {
        double seconds = 0.0;
        for (int job = 0; job < jobs; ++job) {
            // Each side goes first in turn: the first job of a pair may warm caches for the second.
            oursFirst = !oursFirst;
            const double first = oursFirst ? m_ours() : m_reference();
            const double second = first < 0 ? -1.0 : oursFirst ? m_reference() : m_ours();
            if (second < 0)
                return;
            ours += oursFirst ? first : second;
            reference += oursFirst ? second : first;
            seconds += first + second;
        }
        state.SetIterationTime(seconds);
    }
    const double runs = double(jobs) * double(state.iterations());
    state.counters[counter::oursPerPage] = ours / (runs * m_oursPages);
    state.counters[counter::referencePerPage] = reference / (runs * m_referencePages);
    state.counters[counter::ratio] = (ours / m_oursPages) / (reference / m_referencePages);
}

} // namespace coagulation::bench
