#pragma once

#include "core_global.h"

#include <QString>

namespace coagulation {

class Profile;

// One measured value of an assay as the host keeps it: a number, or a text that the analyser
// reports instead of one (">150.0", "无凝固"), together with flag bits grading it.
//
// Formats of toString():
//   0 (RawFormat)           the result text as stored; for a result built from a number,
//                           QString::number(value)
//   1 (NumberFormat)        QString::number(value, formatChar, precision)
//   2 (FlaggedNumberFormat) format 1 followed by suffix()
//   any other value behaves as 1.
// A result whose text is not a number is shown as it stands in every format (format 2 still
// appends the mark). When the profile setting "result/decimalSeparator" is "," results are read
// and written with a decimal comma.
//
// Marks given by suffix(), chosen by the profile setting "result/flagStyle":
//   "arrows" (default) "↑↑" critical high, "↓↓" critical low, "↑" high, "↓" low
//   "letters"          "HH", "LL", "H", "L"
//   "none"             always empty
// Only one mark is shown; when several bits are set the first of CriticalHigh, CriticalLow,
// High, Low wins, so all bits set (65535) gives the critical-high mark.
class CORE_EXPORT AnalysisResult
{
public:
    // Bits of the result table's "flag" column.
    enum Flag : int {
        NoFlag = 0,
        High = 0x0001,         // above the reference range
        Low = 0x0002,          // below the reference range
        CriticalHigh = 0x0004, // above the critical limit (set together with High)
        CriticalLow = 0x0008,  // below the critical limit (set together with Low)
        AboveRange = 0x0010,   // above the measuring range; the text reads like ">150.0"
        BelowRange = 0x0020,   // below the measuring range; the text reads like "<0.35"
        NoClot = 0x0040,       // no clot was detected within the measuring time
        Edited = 0x0080,       // changed by hand after measuring
    };

    enum Format : int {
        RawFormat = 0,
        NumberFormat = 1,
        FlaggedNumberFormat = 2,
    };

    explicit AnalysisResult(double value);
    AnalysisResult(const QString& text, Profile* profile);

    bool isNumeric() const { return m_numeric; }
    double value() const { return m_value; } // NaN when the text is not a number
    QString text() const { return m_text; }

    int flags() const { return m_flags; }
    void setFlags(int flags) { m_flags = flags; }
    bool testFlag(Flag flag) const { return (m_flags & flag) == flag && flag != NoFlag; }

    QString toString(Profile* profile, int format, char formatChar = 'f', int precision = 2) const;
    QString suffix(Profile* profile) const;

private:
    QString m_text;
    double m_value;
    bool m_numeric;
    int m_flags = NoFlag;
};

} // namespace coagulation
