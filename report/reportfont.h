#pragma once

#include "report_global.h"

#include <QFont>

namespace coagulation {

// Fonts on a report fall back to Simplified Chinese glyphs; without this the system fallback
// may pick the Japanese shapes of the same characters.
REPORT_EXPORT QFont withChineseFallback(const QFont& font);

// The font with its size fixed in scene units: a point size would otherwise be resolved at the
// paint device's resolution, and text drawn straight onto a 1200 dpi printer would come out
// many times too large. dpi is the scene's units per inch.
REPORT_EXPORT QFont sceneFont(const QFont& font, int dpi);

} // namespace coagulation
