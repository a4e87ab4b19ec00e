#pragma once

#include "kvcore_global.h"
#include "qcpoint.h"

#include <QList>

namespace coagulation {

// Mean and sample standard deviation (n - 1) of the QC points that count: points not rejected and
// with a finite value. With fewer than two such points it returns false and leaves *mean and *sd
// as they are. Either pointer may be null.
KVCORE_EXPORT bool statistic(const QList<QcPoint>& points, double* mean, double* sd);

} // namespace coagulation
