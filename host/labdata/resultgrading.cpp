#include "resultgrading.h"

#include "assaycatalogue.h"

#include <core/analysisresult.h>

namespace coagulation {

GradedResult GradedResult::grade(const AssayDefinition& assay, double value)
{
    // Grade the value as printed, so that "14.5" is never flagged against an upper limit of 14.5.
    const QString fixed = QString::number(value, 'f', assay.precision);
    const double shown = fixed.toDouble();
    GradedResult result{fixed, AnalysisResult::NoFlag};
    if (assay.referenceHigh > assay.referenceLow) {
        if (shown > assay.referenceHigh)
            result.flags |= AnalysisResult::High;
        if (shown < assay.referenceLow)
            result.flags |= AnalysisResult::Low;
    }
    if (assay.criticalHigh > 0 && shown > assay.criticalHigh)
        result.flags |= AnalysisResult::High | AnalysisResult::CriticalHigh;
    if (assay.criticalLow > 0 && shown < assay.criticalLow)
        result.flags |= AnalysisResult::Low | AnalysisResult::CriticalLow;
    if (assay.measureHigh > 0 && shown > assay.measureHigh) {
        result.text = QLatin1Char('>') + QString::number(assay.measureHigh, 'f', assay.precision);
        result.flags |= AnalysisResult::AboveRange;
    } else if (assay.measureLow > 0 && shown < assay.measureLow) {
        result.text = QLatin1Char('<') + QString::number(assay.measureLow, 'f', assay.precision);
        result.flags |= AnalysisResult::BelowRange;
    }
    return result;
}

} // namespace coagulation
