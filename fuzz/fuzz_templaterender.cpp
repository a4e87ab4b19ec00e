// Loads arbitrary bytes as a template, binds the demo data of its report type and renders the
// first pages into a picture, the way a print job does.

#include "fuzzworkspace.h"

#include <core/profile.h>
#include <kvcore/qcseries.h>
#include <report.h>

#include <QImage>
#include <QPainter>

using namespace coagulation;

namespace {

void render(Report& report)
{
    QImage page(210, 297, QImage::Format_ARGB32_Premultiplied);
    page.fill(Qt::white);
    QPainter painter(&page);
    report.render(&painter, QRectF(page.rect()), report.sceneRect(), Qt::KeepAspectRatio);
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    const std::unique_ptr<Report> report = fuzz::loadTemplate(data, size);
    if (!report)
        return 0;
    fuzz::Workspace& w = fuzz::workspace();
    switch (report->type()) {
    case kv::PatientReport:
        report->fetchData(1, w.profile->dataDatabase());
        render(*report);
        break;
    case kv::QcReport:
        if (!w.qc)
            break;
        report->prepareQcData(w.qc->data());
        // The first page, and a middle one where there is one.
        for (int page = 1; page <= qMin(report->pageCount(), 2); ++page) {
            report->setCurrentPage(page);
            report->fetchQcData(w.qc->data());
            render(*report);
        }
        break;
    case kv::MaintenanceRecordReport:
        w.maintenance.recordType = MaintenanceManager::DailyMaintenance;
        report->prepareMaintenanceData(&w.maintenance);
        render(*report);
        break;
    default:
        break;
    }
    return 0;
}
