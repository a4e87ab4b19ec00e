#pragma once

#include "tableitems.h"

namespace coagulation {

// The row labels of the QC information tables; each table translates them in its own context.
enum QcInfoLabel {
    UpperStopLabel,
    UpperMarkLabel,
    TargetLabel,
    LowerMarkLabel,
    LowerStopLabel,
    MeanLabel,
    SdLabel,
    CvLabel,
    CountLabel,
    ComputedMeanLabel,
    ComputedSdLabel,
    ComputedCvLabel
};

// The control limits of the QC material, or its mean, SD and CV when it has no limits.
class REPORT_EXPORT ReportQcInfoTableItem : public ReportTableItem
{
    Q_DECLARE_TR_FUNCTIONS(coagulation::ReportQcInfoTableItem)
public:
    ReportQcInfoTableItem();

    static const char* const labels[]; // by QcInfoLabel

    void updateData() override;
};

// The QC information plus the number of printed points and the mean, SD and CV computed from
// them. The label column hugs its longest label; the value column takes the rest of the width.
class REPORT_EXPORT ReportQcInfoDetailsTableItem : public ReportTableItem
{
    Q_DECLARE_TR_FUNCTIONS(coagulation::ReportQcInfoDetailsTableItem)
public:
    ReportQcInfoDetailsTableItem();

    static const char* const labels[]; // by QcInfoLabel

    void updateData() override;
    void updateColumnWidths(const QSizeF& size);

protected:
    // The value column is sized from point 1 as given, not measured from point 0.
    void updateGeometry(const QPolygonF& polygon) override;
};

} // namespace coagulation
