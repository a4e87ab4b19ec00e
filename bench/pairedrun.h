#pragma once

#include <benchmark/benchmark.h>

#include <functional>

namespace coagulation::bench {

// A comparison measured in pairs: each job of ours runs right before the same job of the reference,
// so that both meet the machine in the same state (a shared build machine changes speed by tens of
// percent within seconds). Reports seconds per page of each side and, per repetition, their ratio;
// the table takes the median of those ratios. The benchmark must use manual time.
class PairedRun
{
public:
    // Runs one job and returns the seconds it took, or a negative value after telling the
    // benchmark why it could not run.
    using Side = std::function<double()>;

    PairedRun(Side ours, double oursPages, Side reference, double referencePages);

    void run(benchmark::State& state, int jobs) const;

private:
    Side m_ours;
    Side m_reference;
    double m_oursPages;
    double m_referencePages;
};

} // namespace coagulation::bench
