#pragma once

#include "report_global.h"

#include <QFont>

namespace coagulation {

// Fonts on a report fall back to Simplified Chinese glyphs; without this the system fallback
// may pick the Japanese shapes of the same characters.
REPORT_EXPORT QFont withChineseFallback(const QFont& font);

} // namespace coagulation
