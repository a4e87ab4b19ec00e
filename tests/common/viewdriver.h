#pragma once

// Drives a real graphics view with mouse events, the way a user's hand would.

#include <report.h>

#include <QApplication>
#include <QGraphicsView>
#include <QMouseEvent>
#include <QTest>

namespace coagulation::test {

class ViewDriver
{
public:
    explicit ViewDriver(QGraphicsScene* scene) : view(scene)
    {
        view.setAlignment(Qt::AlignLeft | Qt::AlignTop);
        view.setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
        view.setVerticalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
        view.viewport()->setMouseTracking(true); // as soon as an item shows a cursor
        view.resize(900, 1200);
        view.show();
        if (!QTest::qWaitForWindowExposed(&view))
            qWarning("view not exposed");
    }
    // Drives a view shown by someone else, such as a designer window's page.
    explicit ViewDriver(QGraphicsView* shown) : target(shown) {}

    void press(const QPointF& scenePos, Qt::MouseButton button = Qt::LeftButton,
               Qt::KeyboardModifiers modifiers = Qt::NoModifier)
    {
        buttons |= button;
        send(QEvent::MouseButtonPress, scenePos, button, modifiers);
    }
    void move(const QPointF& scenePos, Qt::KeyboardModifiers modifiers = Qt::NoModifier)
    {
        send(QEvent::MouseMove, scenePos, Qt::NoButton, modifiers);
    }
    void release(const QPointF& scenePos, Qt::MouseButton button = Qt::LeftButton,
                 Qt::KeyboardModifiers modifiers = Qt::NoModifier)
    {
        buttons &= ~Qt::MouseButtons(button);
        send(QEvent::MouseButtonRelease, scenePos, button, modifiers);
    }
    void drag(const QPointF& from, const QPointF& to, Qt::KeyboardModifiers modifiers = Qt::NoModifier)
    {
        press(from, Qt::LeftButton, modifiers);
        move((from + to) / 2, modifiers);
        move(to, modifiers);
        release(to, Qt::LeftButton, modifiers);
    }

    QGraphicsView view;

private:
    void send(QEvent::Type type, const QPointF& scenePos, Qt::MouseButton button,
              Qt::KeyboardModifiers modifiers)
    {
        const QPoint local = target->mapFromScene(scenePos);
        QMouseEvent event(type, local, target->viewport()->mapToGlobal(local), button, buttons, modifiers);
        QApplication::sendEvent(target->viewport(), &event);
    }

    QGraphicsView* target = &view;
    Qt::MouseButtons buttons;
};

// A design-mode report in a driven view.
struct DesignCanvas
{
    DesignCanvas() : report(nullptr, nullptr), driver(&report) { report.setDesignMode(true); }

    Report report;
    ViewDriver driver;
};

} // namespace coagulation::test
