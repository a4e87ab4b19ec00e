#include "analysisresult.h"

#include "profile.h"

#include <QtNumeric>

#include <cmath>

namespace coagulation {

namespace {

bool usesDecimalComma(Profile* profile)
{
    return profile &&
           profile->value(QStringLiteral("result/decimalSeparator")).toString() == QLatin1String(",");
}

char checkedFormatChar(char formatChar)
{
    switch (formatChar) {
    case 'e':
    case 'E':
    case 'f':
    case 'g':
    case 'G':
        return formatChar;
    default:
        return 'g';
    }
}

// QString::number treats a negative precision as 6; very large ones only produce noise digits.
int checkedPrecision(int precision)
{
    if (precision < 0)
        return 6;
    return qMin(precision, 32);
}

} // namespace

AnalysisResult::AnalysisResult(double value)
    : m_text(QString::number(value)), m_value(value), m_numeric(std::isfinite(value))
{}

AnalysisResult::AnalysisResult(const QString& text, Profile* profile) : m_text(text)
{
    QString number = text.trimmed();
    if (usesDecimalComma(profile))
        number.replace(QLatin1Char(','), QLatin1Char('.'));
    bool ok = false;
    const double value = number.toDouble(&ok);
    m_numeric = ok && std::isfinite(value);
    m_value = m_numeric ? value : qQNaN();
}

QString AnalysisResult::toString(Profile* profile, int format, char formatChar, int precision) const
{
    QString shown;
    if (!m_numeric || format == RawFormat) {
        shown = m_text;
    } else {
        shown = QString::number(m_value, checkedFormatChar(formatChar), checkedPrecision(precision));
        if (usesDecimalComma(profile))
            shown.replace(QLatin1Char('.'), QLatin1Char(','));
    }
    if (format == FlaggedNumberFormat)
        shown += suffix(profile);
    return shown;
}

QString AnalysisResult::suffix(Profile* profile) const
{
    const QString style = profile ? profile->value(QStringLiteral("result/flagStyle")).toString() : QString();
    if (style == QLatin1String("none"))
        return QString();
    const bool letters = style == QLatin1String("letters");
    if (m_flags & CriticalHigh)
        return letters ? QStringLiteral("HH") : QStringLiteral("↑↑");
    if (m_flags & CriticalLow)
        return letters ? QStringLiteral("LL") : QStringLiteral("↓↓");
    if (m_flags & High)
        return letters ? QStringLiteral("H") : QStringLiteral("↑");
    if (m_flags & Low)
        return letters ? QStringLiteral("L") : QStringLiteral("↓");
    return QString();
}

} // namespace coagulation
