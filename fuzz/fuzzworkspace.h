#pragma once

// What the fuzz targets share: an offscreen application, a small demo workspace (generated
// databases, a QC series, a workbench) and the item factory, made once per process and closed
// before the toolkit's own globals go away, so that a run ends with exit code 0.

#include <kvcore/maintenanceexportdata.h>

#include <cstddef>
#include <cstdint>
#include <memory>

namespace coagulation {

class ItemFactory;
class Profile;
class QcSeries;
class Report;

namespace fuzz {

struct Workspace
{
    Profile* profile = nullptr;
    ItemFactory* factory = nullptr;
    QcSeries* qc = nullptr; // null when the demo has no QC data
    MaintenanceExportData maintenance;
};

// Sets everything up on the first call (from LLVMFuzzerInitialize, defined beside it).
Workspace& workspace(int* argc = nullptr, char*** argv = nullptr);

// The bytes loaded as a template into a new report; null when loading refuses them. A refusal
// without a message is a fault and aborts.
std::unique_ptr<Report> loadTemplate(const std::uint8_t* data, std::size_t size);

} // namespace fuzz
} // namespace coagulation
