#pragma once

#include "core_global.h"

#include <Qt>

namespace coagulation {

// Shows a busy cursor for its lifetime (nothing without a GUI application).
class CORE_EXPORT WaitCursor
{
public:
    explicit WaitCursor(Qt::CursorShape shape = Qt::WaitCursor);
    ~WaitCursor();
    WaitCursor(const WaitCursor&) = delete;
    WaitCursor& operator=(const WaitCursor&) = delete;

private:
    bool active = false;
};

} // namespace coagulation
