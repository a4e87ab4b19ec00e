#include "pagesetup.h"

#include <report.h>

namespace coagulation {

PageSetup PageSetup::of(const Report* report)
{
    PageSetup setup;
    setup.pageSize = report->pageSize();
    setup.orientation = report->orientation();
    setup.customSize = report->pageSizeF();
    return setup;
}

bool PageSetup::operator==(const PageSetup& other) const
{
    return pageSize == other.pageSize && orientation == other.orientation &&
           (pageSize != QPageSize::Custom || customSize == other.customSize);
}

} // namespace coagulation
