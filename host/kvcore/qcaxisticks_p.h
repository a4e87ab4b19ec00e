#pragma once

#include "qcscaledraw.h"

#include <QList>

namespace coagulation::QcAxisTicks {

// A step of 1, 2 or 5 times a power of ten that splits span into at most maxCount steps.
double niceStep(double span, int maxCount);
// Value ticks on multiples of a nice step, labelled with as many decimals as the step needs.
QList<QcScaleDraw::Tick> values(double lower, double upper, int maxCount);
// Ticks at local midnights (whole QcPoint days), labelled "MM-dd".
QList<QcScaleDraw::Tick> days(double lower, double upper, int maxCount);
// Ticks at point indexes, labelled with the run number counted from firstNumbered (1-based).
QList<QcScaleDraw::Tick> indexes(int first, int last, int firstNumbered, int maxCount);

} // namespace coagulation::QcAxisTicks
