#pragma once

#include <QMarginsF>
#include <QPageLayout>
#include <QPageSize>
#include <QSizeF>

namespace coagulation {

class Report;

// A page set-up as the page dialog edits it and SetupPageCommand applies it. The margins are
// the designer's guides only: a template keeps no margins of its own.
struct PageSetup
{
    QPageSize::PageSizeId pageSize = QPageSize::A4;
    QPageLayout::Orientation orientation = QPageLayout::Portrait;
    QSizeF customSize{210, 297}; // millimetres, used when pageSize is Custom
    QMarginsF margins{10, 10, 10, 10};

    static PageSetup of(const Report* report);
    // Compares the page only, which is what the template keeps.
    bool operator==(const PageSetup& other) const;
    bool operator!=(const PageSetup& other) const { return !(*this == other); }
};

} // namespace coagulation
