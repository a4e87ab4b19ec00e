#include "qcaxisticks_p.h"

#include "qcpoint.h"

#include <cmath>

namespace coagulation::QcAxisTicks {

namespace {
// More ticks than this would only blur the labels; it also bounds the loops below.
constexpr int tickLimit = 100;
} // namespace

double niceStep(double span, int maxCount)
{
    maxCount = qBound(1, maxCount, tickLimit);
    if (!std::isfinite(span) || span <= 0.0)
        return 1.0;
    const double rough = span / maxCount;
    const double magnitude = std::pow(10.0, std::floor(std::log10(rough)));
    for (const double factor : {1.0, 2.0, 5.0, 10.0}) {
        if (factor * magnitude >= rough)
            return factor * magnitude;
    }
    return 10.0 * magnitude;
}

QList<QcScaleDraw::Tick> values(double lower, double upper, int maxCount)
{
    QList<QcScaleDraw::Tick> ticks;
    if (!std::isfinite(lower) || !std::isfinite(upper) || upper <= lower)
        return ticks;
    const double step = niceStep(upper - lower, maxCount);
    const int decimals = qMax(0, int(-std::floor(std::log10(step) + 1e-9)));
    for (double n = std::ceil(lower / step - 1e-9); n * step <= upper + step * 1e-9; ++n) {
        const double value = n * step;
        // -0.0 prints as "-0"
        ticks.append({value, QString::number(value == 0.0 ? 0.0 : value, 'f', decimals)});
        if (ticks.size() > tickLimit)
            break;
    }
    return ticks;
}

QList<QcScaleDraw::Tick> days(double lower, double upper, int maxCount)
{
    QList<QcScaleDraw::Tick> ticks;
    if (!std::isfinite(lower) || !std::isfinite(upper) || upper < lower)
        return ticks;
    const double span = upper - lower;
    int step = 1;
    for (const int candidate : {1, 2, 3, 5, 7, 14, 28, 56, 91, 182, 365, 730, 1826, 3652}) {
        step = candidate;
        if (span / candidate <= qMax(1, maxCount))
            break;
    }
    const QString format = span < 1.0 ? QStringLiteral("MM-dd hh:mm") : QStringLiteral("MM-dd");
    for (double day = std::ceil(lower); day <= upper && ticks.size() <= tickLimit; day += step)
        ticks.append({day, QcPoint::toDatetime(day).toString(format)});
    // Less than a day shown: name the ends so the axis still says when.
    if (ticks.isEmpty()) {
        ticks.append({lower, QcPoint::toDatetime(lower).toString(format)});
        if (upper > lower)
            ticks.append({upper, QcPoint::toDatetime(upper).toString(format)});
    }
    return ticks;
}

QList<QcScaleDraw::Tick> indexes(int first, int last, int firstNumbered, int maxCount)
{
    QList<QcScaleDraw::Tick> ticks;
    if (last < first)
        return ticks;
    const qint64 step = qMax<qint64>(1, qint64(niceStep(double(last) - first, maxCount)));
    // Align the ticks to round run numbers.
    const qint64 firstNumber = qint64(first) - firstNumbered + 1;
    qint64 number = (firstNumber / step) * step;
    while (number < firstNumber)
        number += step;
    for (; number + firstNumbered - 1 <= last && ticks.size() <= tickLimit; number += step)
        ticks.append({double(number + firstNumbered - 1), QString::number(number)});
    return ticks;
}

} // namespace coagulation::QcAxisTicks
