#include "pagesetup.h"

#include <report.h>

namespace coagulation {

PageSetup PageSetup::of(const Report* report)
{
    return {report->pageSize(), report->orientation(), report->pageSizeF()};
}

bool PageSetup::operator==(const PageSetup& other) const
{
    return pageSize == other.pageSize && orientation == other.orientation &&
           (pageSize != QPageSize::Custom || customSize == other.customSize);
}

} // namespace coagulation
