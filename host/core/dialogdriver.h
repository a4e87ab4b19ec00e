#pragma once

#include "core_global.h"

#include <functional>

class QDialog;

namespace coagulation {

// Runs a modal dialog the way information() shows its box. A handler installed by a test or a
// command-line tool answers in the user's place: the dialog is shown (not modally), the handler
// may set its fields and call accept() or reject(), and returns the dialog's result; then the
// dialog is hidden. Without one, a GUI session runs the dialog with
// exec(); a process that must not block (see InformationLog::isInteractive) gets
// QDialog::Rejected, as if the user had cancelled.
CORE_EXPORT int execDialog(QDialog* dialog);

class CORE_EXPORT DialogDriver
{
public:
    using Handler = std::function<int(QDialog* dialog)>;

    static void setHandler(const Handler& handler);
    static void clear();
    static bool hasHandler();
};

} // namespace coagulation
