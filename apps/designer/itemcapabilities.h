#pragma once

namespace coagulation {

class ReportItem;

// Which style properties an item really uses; the others are ignored by its setters, so
// the designer offers only these.
struct ItemCapabilities
{
    bool font = false;
    bool alignment = false;
    bool pen = false;
    bool brush = false;

    static ItemCapabilities of(const ReportItem* item);
};

} // namespace coagulation
