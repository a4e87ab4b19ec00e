#pragma once

#include "report_global.h"

#include <QList>

class QEvent;

namespace coagulation {

// Turns the scene's mouse events into the creation steps of a tool.
class REPORT_EXPORT PickMachine
{
public:
    enum PickAction { Begin = 0, Append = 1, Move = 2, End = 3 };

    virtual ~PickMachine();
    // The actions an event asks for, in order; empty when the event is not the tool's.
    virtual QList<int> pick(const QEvent* event) = 0;

    int state() const { return m_state; }
    void setState(int state) { m_state = state; }

private:
    int m_state = 0;
};

// One left click makes a one-point item and commits it.
class REPORT_EXPORT ClickPointMachine : public PickMachine
{
public:
    QList<int> pick(const QEvent* event) override;
};

// Press anchors both corners, moves drag the second one, the release commits.
class REPORT_EXPORT DragRectMachine : public PickMachine
{
public:
    enum State { Idle = 0, Dragging = 1 };

    QList<int> pick(const QEvent* event) override;
};

} // namespace coagulation
