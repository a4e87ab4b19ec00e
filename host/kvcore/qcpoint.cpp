#include "qcpoint.h"

#include <cmath>

namespace coagulation {

namespace {
constexpr qint64 msecsPerDay = 24 * 60 * 60 * 1000;
constexpr double dayLimit = 3000000.0; // about 8000 years either side of 1970

QDate epoch()
{
    return QDate(1970, 1, 1);
}
} // namespace

QDateTime QcPoint::toDatetime(double time)
{
    if (!std::isfinite(time) || std::fabs(time) > dayLimit)
        return QDateTime();
    qint64 days = qint64(std::floor(time));
    qint64 msecs = qint64(std::llround((time - double(days)) * double(msecsPerDay)));
    if (msecs >= msecsPerDay) {
        ++days;
        msecs -= msecsPerDay;
    }
    return QDateTime(epoch().addDays(days), QTime::fromMSecsSinceStartOfDay(int(msecs)), Qt::LocalTime);
}

double QcPoint::fromDatetime(const QDateTime& datetime)
{
    if (!datetime.isValid())
        return 0.0;
    const QDateTime local = datetime.toLocalTime();
    return double(epoch().daysTo(local.date())) +
           double(local.time().msecsSinceStartOfDay()) / double(msecsPerDay);
}

} // namespace coagulation
