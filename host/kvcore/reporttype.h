#pragma once

namespace coagulation::kv {

// The kinds of report the host prints; -1 means none.
enum ReportType : int {
    NoReport = -1,
    PatientReport = 0,
    QcReport = 1,
    MaintenanceRecordReport = 2,
};

} // namespace coagulation::kv
