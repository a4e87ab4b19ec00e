#pragma once

#include "kvcore_global.h"

#include <QDateTime>

namespace coagulation {

// One QC measurement.
//
// Time unit: fractional days since 1970-01-01T00:00:00 local time. The whole part counts local
// calendar days and the fraction is the local wall-clock time divided by 24 h, so floor() and
// ceil() of a time are local midnights (whole days on a chart axis), also across daylight-saving
// changes. Times are exact to the millisecond.
struct KVCORE_EXPORT QcPoint
{
    double time = 0.0;
    double value = 0.0;
    bool rejected = false; // excluded from the statistics (e.g. a run repeated after a violation)

    // An invalid QDateTime for a time that is not finite or lies beyond the year 9999.
    static QDateTime toDatetime(double time);
    // 0 for an invalid date-time.
    static double fromDatetime(const QDateTime& datetime);
};

} // namespace coagulation
