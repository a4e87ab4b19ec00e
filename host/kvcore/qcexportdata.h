#pragma once

#include "qcpoint.h"

#include <QList>

namespace coagulation {

class AssayItem;
class AssayTemplate;

// One QC series as the host hands it to a printer: the control material's limits, its points
// and which of them to print. The pointers are borrowed (see QcSeries for an owner).
struct QcExportData
{
    int hasLimits = 0; // non-zero when the material comes with control limits
    double targetValue = 0.0;
    double upperMarkLimit = 0.0;
    double upperStopLimit = 0.0;
    double lowerMarkLimit = 0.0;
    double lowerStopLimit = 0.0;
    double mean = 0.0; // the material's established mean and SD
    double sd = 0.0;
    qint64 reagentId = 0; // row id in the QC database's "reagent" table
    int controlNo = 0;    // QC file number, see Sample::qcName
    QList<QcPoint> points;
    AssayTemplate* assayTemplate = nullptr;
    AssayItem* assayItem = nullptr;
    int firstIndex = 0;     // first point to print
    int count = 0;          // number of points to print
    double startTime = 0.0; // fixed chart axis start in QcPoint time, 0 for none
    double endTime = 0.0;   // fixed chart axis end, 0 for none
};

} // namespace coagulation
