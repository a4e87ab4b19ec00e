#include "statistic.h"

#include <cmath>

namespace coagulation {

bool statistic(const QList<QcPoint>& points, double* mean, double* sd)
{
    double sum = 0.0;
    qsizetype n = 0;
    for (const QcPoint& point : points) {
        if (point.rejected || !std::isfinite(point.value))
            continue;
        sum += point.value;
        ++n;
    }
    if (n < 2)
        return false;
    const double average = sum / double(n);
    // Second pass over the deviations: stable for values far from zero with a small spread.
    double squares = 0.0;
    for (const QcPoint& point : points) {
        if (point.rejected || !std::isfinite(point.value))
            continue;
        const double deviation = point.value - average;
        squares += deviation * deviation;
    }
    if (mean)
        *mean = average;
    if (sd)
        *sd = std::sqrt(squares / double(n - 1));
    return true;
}

} // namespace coagulation
