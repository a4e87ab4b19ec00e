#pragma once

#include "kvcore_global.h"

namespace coagulation {

// The bounds of a QC chart's time axis, in QcPoint time (fractional days).
class KVCORE_EXPORT QcPlotScale
{
public:
    QcPlotScale() = default;
    QcPlotScale(double lowerBound, double upperBound) : m_lower(lowerBound), m_upper(upperBound) {}

    double lowerBound() const { return m_lower; }
    double upperBound() const { return m_upper; }
    double width() const { return m_upper - m_lower; }
    // A default-constructed scale: no axis range at all.
    bool isNull() const { return m_lower == 0.0 && m_upper == 0.0; }

    bool operator==(const QcPlotScale& other) const
    {
        return m_lower == other.m_lower && m_upper == other.m_upper;
    }
    bool operator!=(const QcPlotScale& other) const { return !(*this == other); }

private:
    double m_lower = 0.0;
    double m_upper = 0.0;
};

} // namespace coagulation
