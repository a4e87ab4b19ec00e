#include "dialogdriver.h"

#include "information.h"

#include <QDialog>

namespace coagulation {

namespace {
DialogDriver::Handler& handler()
{
    static DialogDriver::Handler current;
    return current;
}
} // namespace

void DialogDriver::setHandler(const Handler& newHandler)
{
    handler() = newHandler;
}

void DialogDriver::clear()
{
    handler() = Handler();
}

bool DialogDriver::hasHandler()
{
    return bool(handler());
}

int execDialog(QDialog* dialog)
{
    if (!dialog)
        return QDialog::Rejected;
    if (handler()) {
        // Shown as to a user, so the dialog fills its fields from what it edits (a print dialog
        // its printer) and a preview renders.
        dialog->show();
        const int result = handler()(dialog);
        dialog->hide();
        return result;
    }
    if (InformationLog::isInteractive())
        return dialog->exec();
    return QDialog::Rejected;
}

} // namespace coagulation
