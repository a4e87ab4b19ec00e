// Loads arbitrary bytes as a report template: it loads or is refused with a message, within
// the sanitizers' bounds on memory and time.

#include "fuzzworkspace.h"

#include <report.h>

using namespace coagulation;

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    fuzz::loadTemplate(data, size);
    return 0;
}
