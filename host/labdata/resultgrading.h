#pragma once

#include <QString>

namespace coagulation {

struct AssayDefinition;

// A value as the analyser reports it: rounded to the item's decimals, graded against the
// reference range and critical limits (AnalysisResult flag bits), and written as "<x" or ">x"
// beyond the measuring range.
struct GradedResult
{
    QString text;
    int flags = 0;

    static GradedResult grade(const AssayDefinition& assay, double value);
};

} // namespace coagulation
