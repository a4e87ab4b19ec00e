#pragma once

#include <QTimer>

namespace coagulation {

// Stands in for the absent user of a run without windows: every modal dialog that opens while
// it lives is cancelled at once, so the tool never waits for an answer nobody can give.
class UnattendedDialogs
{
public:
    UnattendedDialogs();

private:
    QTimer m_timer;
};

} // namespace coagulation
