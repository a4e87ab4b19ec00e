#pragma once

#include "core_global.h"

#include <QMessageBox>
#include <QString>

namespace coagulation {

// The host's message box. In a GUI session it shows a modal QMessageBox; in a process that
// cannot or must not block (offscreen/minimal platform, no QApplication, or
// COAGULATION_NONINTERACTIVE set) it writes the text to stderr and answers the default button.
CORE_EXPORT QMessageBox::StandardButton
information(const QString& text, QMessageBox::StandardButtons buttons = QMessageBox::Ok,
            QMessageBox::StandardButton defaultButton = QMessageBox::NoButton);

// What information() was last asked to show, so tests and command-line tools can observe it.
class CORE_EXPORT InformationLog
{
public:
    struct Entry
    {
        QString text;
        QMessageBox::StandardButtons buttons;
        QMessageBox::StandardButton defaultButton = QMessageBox::NoButton;
    };

    static int count();
    static Entry last();
    static QList<Entry> entries();
    static void clear();
    static bool isInteractive();
};

} // namespace coagulation
