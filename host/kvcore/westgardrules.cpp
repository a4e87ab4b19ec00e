#include "westgardrules.h"

#include <cmath>

namespace coagulation {

const QList<WestgardRules::Rule>& WestgardRules::all()
{
    static const QList<Rule> rules = {Rule13s, RuleR4s, Rule22s, Rule41s, Rule10x, Rule12s};
    return rules;
}

QString WestgardRules::name(Rule rule)
{
    switch (rule) {
    case Rule12s:
        return QStringLiteral("1-2s");
    case Rule13s:
        return QStringLiteral("1-3s");
    case Rule22s:
        return QStringLiteral("2-2s");
    case RuleR4s:
        return QStringLiteral("R-4s");
    case Rule41s:
        return QStringLiteral("4-1s");
    case Rule10x:
        return QStringLiteral("10-x");
    default:
        return QString();
    }
}

WestgardRules::Rule WestgardRules::mostSevere(Rules rules)
{
    for (const Rule rule : all()) {
        if (rules & rule)
            return rule;
    }
    return NoRule;
}

QList<WestgardRules::Rules> WestgardRules::evaluate(const QList<QcPoint>& points, double centre, double sd)
{
    QList<Rules> result(points.size());
    if (!std::isfinite(centre) || !std::isfinite(sd) || sd <= 0.0)
        return result;
    double previous = 0.0; // z of the previous counted point
    bool hasPrevious = false;
    int above1s = 0; // lengths of the current runs
    int below1s = 0;
    int above = 0;
    int below = 0;
    for (qsizetype i = 0; i < points.size(); ++i) {
        const QcPoint& point = points.at(i);
        if (point.rejected || !std::isfinite(point.value))
            continue;
        const double z = (point.value - centre) / sd;
        Rules& rules = result[i];
        if (std::fabs(z) > 2.0)
            rules |= Rule12s;
        if (std::fabs(z) > 3.0)
            rules |= Rule13s;
        if (hasPrevious && ((z > 2.0 && previous > 2.0) || (z < -2.0 && previous < -2.0)))
            rules |= Rule22s;
        if (hasPrevious && ((z > 2.0 && previous < -2.0) || (z < -2.0 && previous > 2.0)))
            rules |= RuleR4s;
        above1s = z > 1.0 ? above1s + 1 : 0;
        below1s = z < -1.0 ? below1s + 1 : 0;
        if (above1s >= 4 || below1s >= 4)
            rules |= Rule41s;
        above = z > 0.0 ? above + 1 : 0;
        below = z < 0.0 ? below + 1 : 0;
        if (above >= 10 || below >= 10)
            rules |= Rule10x;
        previous = z;
        hasPrevious = true;
    }
    return result;
}

} // namespace coagulation
