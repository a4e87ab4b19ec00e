#pragma once

#include <QPageLayout>
#include <QPageSize>
#include <QSizeF>

namespace coagulation {

class Report;

// A page set-up as the page dialog edits it and SetupPageCommand applies it.
struct PageSetup
{
    QPageSize::PageSizeId pageSize = QPageSize::A4;
    QPageLayout::Orientation orientation = QPageLayout::Portrait;
    QSizeF customSize{210, 297}; // millimetres, used when pageSize is Custom

    static PageSetup of(const Report* report);
    bool operator==(const PageSetup& other) const;
    bool operator!=(const PageSetup& other) const { return !(*this == other); }
};

} // namespace coagulation
