#include "../common/viewdriver.h"

#include <drawingitems.h>
#include <pickmachine.h>
#include <report.h>
#include <reportitemcreator.h>

#include <QGraphicsSceneMouseEvent>
#include <QMetaMethod>
#include <QSignalSpy>
#include <QtTest>
#include <QUndoStack>

#include <memory>

using namespace coagulation;

namespace {

// A rectangle that counts how often its geometry is applied.
class CountingRectItem : public ReportRectItem
{
public:
    int updates = 0;

protected:
    void updateGeometry(const QPolygonF& polygon) override
    {
        ++updates;
        ReportRectItem::updateGeometry(polygon);
    }
};

// A tool making items of type Item (none when Item is void), with its protected side opened.
template <class Item> class TestCreator : public ReportItemCreator
{
public:
    explicit TestCreator(QStringList keyList = {QStringLiteral("Shape"), QStringLiteral("图形")},
                         SelectionMode mode = DragRectSelection)
        : ReportItemCreator(mode), keyList(keyList)
    {}
    QList<QString> keys() const override { return keyList; }
    QString name() const override { return QStringLiteral("shape"); }
    QString group() const override { return QString(); }
    QIcon icon() const override { return QIcon(); }
    ReportItem* create() override
    {
        if constexpr (std::is_void_v<Item>)
            return nullptr;
        else
            return new Item;
    }

    using ReportItemCreator::isActive;
    using ReportItemCreator::machine;
    using ReportItemCreator::selection;

    QStringList keyList;
};

// Counts the scene mouse events that reach the scene past the tool's filter.
class PassedEvents : public QObject
{
public:
    int presses = 0, moves = 0, releases = 0;

protected:
    bool eventFilter(QObject*, QEvent* event) override
    {
        presses += event->type() == QEvent::GraphicsSceneMousePress;
        moves += event->type() == QEvent::GraphicsSceneMouseMove;
        releases += event->type() == QEvent::GraphicsSceneMouseRelease;
        return false;
    }
};

std::unique_ptr<QEvent> sceneEvent(const QString& code)
{
    if (code == QLatin1String("K"))
        return std::make_unique<QEvent>(QEvent::KeyPress);
    static const QHash<QChar, QEvent::Type> types = {{'p', QEvent::GraphicsSceneMousePress},
                                                     {'m', QEvent::GraphicsSceneMouseMove},
                                                     {'r', QEvent::GraphicsSceneMouseRelease},
                                                     {'d', QEvent::GraphicsSceneMouseDoubleClick}};
    auto event = std::make_unique<QGraphicsSceneMouseEvent>(types.value(code.at(0)));
    const QChar b = code.size() > 1 ? code.at(1) : QChar('-');
    event->setButton(b == 'L' ? Qt::LeftButton : b == 'R' ? Qt::RightButton : Qt::NoButton);
    return event;
}

QString actionText(const QList<int>& actions)
{
    QString text;
    for (int a : actions)
        text += QString::number(a);
    return text;
}

ReportRectItem* onlyRect(Report& report)
{
    const QList<ReportItem*> items = report.reportItems();
    return items.size() == 1 ? dynamic_cast<ReportRectItem*>(items.first()) : nullptr;
}

} // namespace

class TestItemCreator : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void pickMachines_data();
    void pickMachines();
    void dragCreatesOneItem();
    void refusedPickIsDropped();
    void metaObjectInterface();
    void otherButtonsPassThrough();
    void snapping_data();
    void snapping();
    void unchangedMoveKeepsGeometry();
    void leaveInTheMiddleOfADrag();
    void prepareAcceptReject();
    void toolWithoutItems();
};

// Events: p/m/r/d = press/move/release/double click, L/R = button, K = a key press.
// Actions per event: 0 Begin, 1 Append, 2 Move, 3 End.
void TestItemCreator::pickMachines_data()
{
    QTest::addColumn<int>("mode");
    QTest::addColumn<QStringList>("events");
    QTest::addColumn<QStringList>("actions");
    QTest::addColumn<int>("finalState");

    const int click = ReportItemCreator::ClickPointSelection;
    const int drag = ReportItemCreator::DragRectSelection;
    const auto row = [](const char* name, int mode, const QStringList& events, const QStringList& actions,
                        int finalState) {
        QTest::newRow(name) << mode << events << actions << finalState;
    };
    row("click: left press", click, {"pL", "m", "rL"}, {"013", "", ""}, 0);
    row("click: other input", click, {"pR", "dL", "K"}, {"", "", ""}, 0);
    row("drag: press, moves, release", drag, {"pL", "m", "mL", "rL"}, {"011", "2", "2", "3"}, 0);
    row("drag: idle ignores all but a left press", drag, {"m", "rL", "pR", "dL", "K"}, {"", "", "", "", ""},
        0);
    row("drag: any release ends", drag, {"pL", "rR"}, {"011", "3"}, 0);
    row("drag: presses and other events while dragging", drag, {"pL", "pL", "pR", "dL", "K"},
        {"011", "", "", "", ""}, 1);
}

void TestItemCreator::pickMachines()
{
    QFETCH(int, mode);
    QFETCH(QStringList, events);
    QFETCH(QStringList, actions);
    QFETCH(int, finalState);

    std::unique_ptr<PickMachine> machine;
    if (mode == ReportItemCreator::ClickPointSelection)
        machine = std::make_unique<ClickPointMachine>();
    else
        machine = std::make_unique<DragRectMachine>();
    QCOMPARE(machine->state(), 0);
    for (int i = 0; i < events.size(); ++i)
        QCOMPARE(actionText(machine->pick(sceneEvent(events.at(i)).get())), actions.at(i));
    QCOMPARE(machine->state(), finalState);

    // A tool of an unknown mode has no machine and never reacts.
    TestCreator<ReportRectItem> none(QStringList(), ReportItemCreator::SelectionMode(7));
    QVERIFY(!none.machine());
}

void TestItemCreator::dragCreatesOneItem()
{
    test::DesignCanvas c;
    TestCreator<ReportRectItem> creator({QStringLiteral("Rect")});
    QSignalSpy created(&creator, &ReportItemCreator::created);
    QSignalSpy finished(&creator, &ReportItemCreator::finished);
    creator.enter(&c.driver.view);

    c.driver.press({52, 48});
    QCOMPARE(created.count(), 1);
    ReportRectItem* item = onlyRect(c.report);
    QVERIFY(item);
    QCOMPARE(created.at(0).at(0).value<ReportItem*>(), static_cast<ReportItem*>(item));
    QCOMPARE(creator.reportItem(), static_cast<ReportItem*>(item));
    QCOMPARE(item->key(), QStringLiteral("Rect"));
    QVERIFY(item->isSelected());
    QCOMPARE(item->rect(), QRectF(50, 50, 0, 0)); // two equal snapped points

    c.driver.move({90, 94});
    QCOMPARE(item->rect(), QRectF(50, 50, 40, 40)); // reshaped live
    c.driver.move({149, 151});
    QCOMPARE(item->rect(), QRectF(50, 50, 100, 100));
    QCOMPARE(c.report.undoStack()->count(), 0);
    QCOMPARE(finished.count(), 0);

    c.driver.release({149, 151});
    QCOMPARE(c.report.undoStack()->count(), 1);
    QCOMPARE(finished.count(), 1);
    QCOMPARE(finished.at(0).at(0).value<ReportItem*>(), nullptr);
    QVERIFY(!creator.reportItem());
    QVERIFY(!creator.isActive());
    QCOMPARE(onlyRect(c.report), item);
    QCOMPARE(item->scene(), &c.report);

    c.report.undo();
    QVERIFY(c.report.reportItems().isEmpty());
    c.report.redo();
    QCOMPARE(onlyRect(c.report), item);
    QCOMPARE(item->rect(), QRectF(50, 50, 100, 100));

    // A click without a move makes an item of no size.
    c.driver.press({71, 69});
    c.driver.release({71, 69});
    auto* dot = dynamic_cast<ReportRectItem*>(created.at(1).at(0).value<ReportItem*>());
    QVERIFY(dot);
    QCOMPARE(dot->rect(), QRectF(70, 70, 0, 0));
    QCOMPARE(c.report.undoStack()->count(), 2);
}

// A tool that keeps only picks of some size.
class SizedRectCreator : public TestCreator<ReportRectItem>
{
protected:
    bool accept(const QPolygonF& selection) const override
    {
        return selection.boundingRect().width() >= 20 && selection.boundingRect().height() >= 20;
    }
};

void TestItemCreator::refusedPickIsDropped()
{
    test::DesignCanvas c;
    SizedRectCreator creator;
    QSignalSpy finished(&creator, &ReportItemCreator::finished);
    creator.enter(&c.driver.view);

    c.driver.drag({50, 50}, {61, 90}); // 10 wide after snapping: refused
    QVERIFY(c.report.reportItems().isEmpty());
    QCOMPARE(c.report.undoStack()->count(), 0);
    QCOMPARE(finished.count(), 1);
    QCOMPARE(finished.at(0).at(0).value<ReportItem*>(), nullptr);

    c.driver.drag({50, 50}, {81, 90});
    QVERIFY(onlyRect(c.report));
    QCOMPARE(c.report.undoStack()->count(), 1);
}

// The host connects to the tool by name: signals first, then the public slots, in this order.
void TestItemCreator::metaObjectInterface()
{
    const QMetaObject& meta = ReportItemCreator::staticMetaObject;
    QStringList methods;
    for (int i = meta.methodOffset(); i < meta.methodCount(); ++i) {
        const QMetaMethod m = meta.method(i);
        methods << QString::fromLatin1(m.methodSignature()) + (m.methodType() == QMetaMethod::Signal
                                                                   ? QStringLiteral(" signal")
                                                                   : QStringLiteral(" slot"));
    }
    QCOMPARE(methods, QStringList({"created(coagulation::ReportItem*) signal",
                                   "finished(coagulation::ReportItem*) signal", "enter(QGraphicsView*) slot",
                                   "leave() slot", "prepare(coagulation::ReportItem*) slot", "accept() slot",
                                   "reject() slot", "finish() slot"}));
}

void TestItemCreator::otherButtonsPassThrough()
{
    test::DesignCanvas c;
    PassedEvents passed;
    c.report.installEventFilter(&passed); // before the tool: it sees what the tool lets through
    TestCreator<ReportRectItem> creator;
    QSignalSpy created(&creator, &ReportItemCreator::created);
    creator.enter(&c.driver.view);

    c.driver.move({30, 30}); // idle moves go to the scene
    c.driver.press({40, 40}, Qt::RightButton);
    c.driver.move({80, 80});
    c.driver.release({80, 80}, Qt::RightButton);
    c.driver.press({40, 40}, Qt::MiddleButton);
    c.driver.release({40, 40}, Qt::MiddleButton);
    QCOMPARE(passed.presses, 2);
    QCOMPARE(passed.releases, 2);
    QCOMPARE(passed.moves, 2);
    QCOMPARE(created.count(), 0);
    QVERIFY(c.report.reportItems().isEmpty());
    QCOMPARE(c.report.undoStack()->count(), 0);
    QVERIFY(!creator.isActive());

    // A left drag is the tool's alone.
    c.driver.drag({40, 40}, {80, 80});
    QCOMPARE(passed.presses, 2);
    QCOMPARE(passed.moves, 2);
    QCOMPARE(passed.releases, 2);
    QCOMPARE(c.report.undoStack()->count(), 1);

    // Left, the tool lets everything through again.
    creator.leave();
    QVERIFY(!creator.report());
    QVERIFY(!creator.view());
    c.driver.drag({100, 100}, {150, 150});
    QCOMPARE(passed.presses, 3);
    QCOMPARE(c.report.undoStack()->count(), 1);
}

void TestItemCreator::snapping_data()
{
    QTest::addColumn<int>("modifiers");
    QTest::addColumn<QPointF>("from");
    QTest::addColumn<QPointF>("to");
    QTest::addColumn<QPointF>("start");
    QTest::addColumn<QPointF>("end");

    const double diagonal = std::hypot(100.0, 40.0);
    QTest::newRow("grid") << int(Qt::NoModifier) << QPointF(52, 48) << QPointF(133, 127) << QPointF(50, 50)
                          << QPointF(130, 130);
    QTest::newRow("alt: no grid") << int(Qt::AltModifier) << QPointF(53, 47) << QPointF(133, 127)
                                  << QPointF(53, 47) << QPointF(133, 127);
    QTest::newRow("shift: angle wins over grid")
        << int(Qt::ShiftModifier) << QPointF(52, 48) << QPointF(151, 92) << QPointF(50, 50)
        << QPointF(50 + diagonal, 50);
    const double slant = std::hypot(100.0, 80.0) / std::sqrt(2.0);
    QTest::newRow("shift: diagonal") << int(Qt::ShiftModifier) << QPointF(50, 50) << QPointF(148, 131)
                                     << QPointF(50, 50) << QPointF(50 + slant, 50 + slant);
}

void TestItemCreator::snapping()
{
    QFETCH(int, modifiers);
    QFETCH(QPointF, from);
    QFETCH(QPointF, to);
    QFETCH(QPointF, start);
    QFETCH(QPointF, end);

    test::DesignCanvas c;
    TestCreator<ReportLineItem> creator;
    creator.enter(&c.driver.view);

    c.driver.drag(from, to, Qt::KeyboardModifiers(modifiers));
    const QList<ReportItem*> items = c.report.reportItems();
    QCOMPARE(items.size(), 1);
    auto* line = dynamic_cast<ReportLineItem*>(items.first());
    QVERIFY(line);
    QCOMPARE(line->line().p1(), start);
    QCOMPARE(line->line().p2(), end);
}

void TestItemCreator::unchangedMoveKeepsGeometry()
{
    test::DesignCanvas c;
    TestCreator<CountingRectItem> creator;
    creator.enter(&c.driver.view);

    c.driver.press({50, 50});
    auto* item = dynamic_cast<CountingRectItem*>(creator.reportItem());
    QVERIFY(item);
    QCOMPARE(item->updates, 2); // one per appended point
    c.driver.move({53, 52});    // the same grid point
    QCOMPARE(item->updates, 2);
    c.driver.move({61, 50});
    QCOMPARE(item->updates, 3);
    c.driver.move({59, 54});
    QCOMPARE(item->updates, 3);
    c.driver.release({59, 54});
    QCOMPARE(item->rect(), QRectF(50, 50, 10, 0));
}

void TestItemCreator::leaveInTheMiddleOfADrag()
{
    test::DesignCanvas c;
    TestCreator<ReportRectItem> creator;
    QSignalSpy finished(&creator, &ReportItemCreator::finished);
    creator.enter(&c.driver.view);

    c.driver.press({50, 50});
    c.driver.move({100, 100});
    QCOMPARE(c.report.reportItems().size(), 1);
    creator.leave();
    QVERIFY(c.report.reportItems().isEmpty());
    QCOMPARE(finished.count(), 1);
    QCOMPARE(finished.at(0).at(0).value<ReportItem*>(), nullptr);
    QVERIFY(creator.isActive());
    QCOMPARE(creator.machine()->state(), int(DragRectMachine::Dragging));

    // Back on the view, the drag goes on without an item: only the points change.
    creator.enter(&c.driver.view);
    c.driver.move({150, 120});
    QCOMPARE(creator.selection(), QPolygonF({QPointF(50, 50), QPointF(150, 120)}));
    QVERIFY(c.report.reportItems().isEmpty());
    c.driver.release({150, 120});
    QVERIFY(!creator.isActive());
    QCOMPARE(creator.machine()->state(), int(DragRectMachine::Idle));
    QCOMPARE(finished.count(), 1);
    QCOMPARE(c.report.undoStack()->count(), 0);

    // The next drag starts afresh.
    c.driver.drag({200, 200}, {260, 230});
    QVERIFY(onlyRect(c.report));
    QCOMPARE(onlyRect(c.report)->rect(), QRectF(200, 200, 60, 30));
    QCOMPARE(c.report.undoStack()->count(), 1);
}

void TestItemCreator::prepareAcceptReject()
{
    test::DesignCanvas c;
    TestCreator<ReportRectItem> creator{QStringList()};
    QSignalSpy created(&creator, &ReportItemCreator::created);
    QSignalSpy finished(&creator, &ReportItemCreator::finished);
    creator.enter(&c.driver.view);

    // Nothing pending: accept and reject are silent, finish always speaks.
    creator.accept();
    creator.reject();
    QCOMPARE(finished.count(), 0);
    creator.finish();
    QCOMPARE(finished.count(), 1);
    QCOMPARE(finished.at(0).at(0).value<ReportItem*>(), nullptr);

    auto* existing = new ReportRectItem;
    c.report.addItem(existing);
    existing->setSelected(true);
    auto* first = new ReportRectItem;
    first->setKey(QStringLiteral("old"));
    creator.prepare(first);
    QCOMPARE(first->key(), QString()); // a tool without keys gives an empty key
    QCOMPARE(created.count(), 1);
    QCOMPARE(first->scene(), &c.report);
    // The new item becomes the only selection.
    QCOMPARE(c.report.selectedItems(), QList<QGraphicsItem*>{first});
    delete existing;

    auto* second = new ReportRectItem;
    creator.prepare(second); // drops the first
    QCOMPARE(finished.count(), 2);
    QCOMPARE(finished.at(1).at(0).value<ReportItem*>(), nullptr);
    QCOMPARE(created.count(), 2);
    QCOMPARE(c.report.reportItems(), QList<ReportItem*>{second});
    QVERIFY(second->isSelected());

    creator.finish();
    QCOMPARE(finished.count(), 3);
    QCOMPARE(finished.at(2).at(0).value<ReportItem*>(), static_cast<ReportItem*>(second));

    creator.reject();
    QCOMPARE(finished.count(), 4);
    QVERIFY(c.report.reportItems().isEmpty());
    QCOMPARE(c.report.undoStack()->count(), 0);

    auto* third = new ReportRectItem;
    creator.prepare(third);
    creator.accept();
    QCOMPARE(finished.count(), 5);
    QCOMPARE(c.report.undoStack()->count(), 1);
    QCOMPARE(c.report.reportItems(), QList<ReportItem*>{third});
}

void TestItemCreator::toolWithoutItems()
{
    test::DesignCanvas c;
    TestCreator<void> creator;
    QSignalSpy created(&creator, &ReportItemCreator::created);
    QSignalSpy finished(&creator, &ReportItemCreator::finished);
    creator.enter(&c.driver.view);

    c.driver.press({50, 50});
    c.driver.move({90, 70});
    QCOMPARE(creator.selection(), QPolygonF({QPointF(50, 50), QPointF(90, 70)}));
    c.driver.release({90, 70});
    QVERIFY(c.report.reportItems().isEmpty());
    QCOMPARE(created.count(), 0);
    QCOMPARE(finished.count(), 0);
    QCOMPARE(c.report.undoStack()->count(), 0);

    // Clicks of a click tool end at once.
    TestCreator<ReportRectItem> clicker(QStringList(), ReportItemCreator::ClickPointSelection);
    creator.leave();
    clicker.enter(&c.driver.view);
    c.driver.press({120, 40});
    QVERIFY(!clicker.isActive());
    QCOMPARE(clicker.selection(), QPolygonF({QPointF(120, 40)}));
    QCOMPARE(onlyRect(c.report)->rect().topLeft(), QPointF(120, 40)); // a one-point geometry
    c.driver.release({120, 40});
    QCOMPARE(c.report.undoStack()->count(), 1);
}

QTEST_MAIN(TestItemCreator)
#include "tst_itemcreator.moc"
