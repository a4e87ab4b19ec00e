#pragma once

#include "core_global.h"

class QWidget;

namespace coagulation {

// The application's main window: the one registered with setTopLevelWidget, else the first
// visible top-level QMainWindow, else the active window; null when there is none.
CORE_EXPORT QWidget* topLevelWidget();
CORE_EXPORT void setTopLevelWidget(QWidget* widget);

} // namespace coagulation
