#pragma once

#include "kvcore_global.h"
#include "qcpoint.h"

#include <QFlags>
#include <QList>
#include <QString>

namespace coagulation {

// The multi-rule (Westgard) evaluation of a QC series against its centre and SD. Points are
// taken in their order; rejected points and points without a finite value take no part (they
// neither count in nor break a run). A rule marks the point that completes it: the second of a
// 2-2s pair, the fourth of a 4-1s run, the tenth and every further point of a 10-x run.
class KVCORE_EXPORT WestgardRules
{
public:
    enum Rule {
        NoRule = 0,
        Rule12s = 0x01, // warning: one value beyond 2 SD
        Rule13s = 0x02, // one value beyond 3 SD
        Rule22s = 0x04, // two consecutive values beyond 2 SD on the same side
        RuleR4s = 0x08, // two consecutive values beyond 2 SD on opposite sides
        Rule41s = 0x10, // four consecutive values beyond 1 SD on the same side
        Rule10x = 0x20, // ten consecutive values on the same side of the centre
    };
    Q_DECLARE_FLAGS(Rules, Rule)

    // Every rule, from the most to the least severe.
    static const QList<Rule>& all();
    // "1-2s", "1-3s", "2-2s", "R-4s", "4-1s", "10-x".
    static QString name(Rule rule);
    // The most severe rule of a set, NoRule for none.
    static Rule mostSevere(Rules rules);
    // Whether the rules call for rejecting the run (anything beyond the 1-2s warning).
    static bool rejects(Rules rules) { return (rules & ~Rules(Rule12s)) != 0; }

    // The rules each point violates, index for index with points; all NoRule for an SD that is
    // not positive and finite.
    static QList<Rules> evaluate(const QList<QcPoint>& points, double centre, double sd);
};

Q_DECLARE_OPERATORS_FOR_FLAGS(WestgardRules::Rules)

} // namespace coagulation
