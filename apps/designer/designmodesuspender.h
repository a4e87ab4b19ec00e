#pragma once

#include <report.h>
#include <tracker.h>

namespace coagulation {

// Position changes made by the designer carry their own undo command; while it works, the
// document must neither snap them to the grid nor record each one again.
class DesignModeSuspender
{
public:
    explicit DesignModeSuspender(Report* report) : report(report), wasOn(report->isDesignMode())
    {
        report->setDesignMode(false);
    }
    ~DesignModeSuspender()
    {
        report->setDesignMode(wasOn);
        if (report->tracker())
            report->tracker()->updateGeometry();
    }
    DesignModeSuspender(const DesignModeSuspender&) = delete;
    DesignModeSuspender& operator=(const DesignModeSuspender&) = delete;

private:
    Report* report;
    bool wasOn;
};

} // namespace coagulation
