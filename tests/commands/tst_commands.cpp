#include <commands.h>
#include <drawingitems.h>
#include <report.h>

#include <QPointer>
#include <QTest>
#include <QUndoStack>

using namespace coagulation;

class tst_Commands : public QObject
{
    Q_OBJECT
private Q_SLOTS:
    void ids();
    void propertySwaps_data();
    void propertySwaps();
    void fontUndoEdges();
    void recordingCommandsChangeNothingOnPush();
    void geometryAndTransform();
    void positionMerge();
    void setupPage();
    void textMerge();
    void ownership();
};

void tst_Commands::ids()
{
    Report report(nullptr, nullptr);
    auto* text = new ReportTextItem(true);
    report.addItem(text);
    const QList<QGraphicsItem*> items{text};
    const std::unique_ptr<QUndoCommand> commands[] = {
        std::make_unique<NewCommand>(nullptr, text),
        std::make_unique<DeleteCommand>(text),
        std::make_unique<TransformCommand>(items),
        std::make_unique<GeometryCommand>(text),
        std::make_unique<PositionCommand>(items),
        std::make_unique<SetupPageCommand>(&report, QPageSize::A4, QPageLayout::Portrait, QSizeF()),
        std::make_unique<FontFamilyCommand>(text, "Sans"),
        std::make_unique<FontBoldCommand>(text, true),
        std::make_unique<FontItalicCommand>(text, true),
        std::make_unique<FontUnderlineCommand>(text, true),
        std::make_unique<TextAlignmentCommand>(text, Qt::AlignLeft),
        std::make_unique<PenCommand>(text, QPen()),
        std::make_unique<BrushCommand>(text, QBrush()),
        std::make_unique<FontSizeCommand>(text, 12),
        std::make_unique<TextCommand>(text, false),
    };
    const int expected[] = {1, 2, 3, 4, 5, 6, 7, 8, 9, 10, 11, 12, 12, 8, 13};
    for (size_t i = 0; i < std::size(expected); ++i)
        QCOMPARE(commands[i]->id(), expected[i]);
    QVERIFY(commands[0]->text().isEmpty());
    // Shared ids never merge.
    QVERIFY(!commands[11]->mergeWith(commands[12].get()));
    QVERIFY(!commands[7]->mergeWith(commands[13].get()));
    QVERIFY(!commands[5]->mergeWith(commands[5].get()));
}

void tst_Commands::propertySwaps_data()
{
    QTest::addColumn<QString>("property");
    QTest::newRow("pen") << "pen";
    QTest::newRow("brush") << "brush";
    QTest::newRow("family") << "family";
    QTest::newRow("underline") << "underline";
    QTest::newRow("alignment") << "alignment";
    QTest::newRow("size") << "size";
}

void tst_Commands::propertySwaps()
{
    QFETCH(QString, property);
    Report report(nullptr, nullptr);
    auto* rect = new ReportRectItem;
    auto* text = new ReportTextItem(true);
    auto* other = new ReportLineItem;
    report.addItem(rect);
    report.addItem(text);
    report.addItem(other);
    other->setSelected(true);
    QFont start(QStringLiteral("DejaVu Sans"));
    start.setPixelSize(11);
    text->setFont(start);

    // The command, how to read what it changes, and the value it sets.
    const auto swap = [&]() -> std::tuple<QUndoCommand*, std::function<QVariant()>, QVariant> {
        if (property == "pen")
            return {new PenCommand(rect, QPen(Qt::red, 3)), [=] { return QVariant::fromValue(rect->pen()); },
                    QVariant::fromValue(QPen(Qt::red, 3))};
        if (property == "brush")
            return {new BrushCommand(rect, QBrush(Qt::blue)),
                    [=] { return QVariant::fromValue(rect->brush()); },
                    QVariant::fromValue(QBrush(Qt::blue))};
        if (property == "family")
            return {new FontFamilyCommand(text, QStringLiteral("Noto Serif CJK SC")),
                    [=] { return QVariant(text->font().family()); }, QStringLiteral("Noto Serif CJK SC")};
        if (property == "underline")
            return {new FontUnderlineCommand(text, true), [=] { return QVariant(text->font().underline()); },
                    true};
        if (property == "alignment")
            return {new TextAlignmentCommand(text, Qt::AlignRight),
                    [=] { return QVariant(int(text->alignment())); }, int(Qt::AlignRight)};
        return {new FontSizeCommand(text, 24), [=] { return QVariant(text->font().pixelSize()); }, 24};
    };
    const auto [command, read, after] = swap();
    const QVariant before = read();
    QVERIFY(before != after);
    report.undoStack()->push(command);
    QCOMPARE(read(), after);
    // The changed item becomes the only selection.
    QCOMPARE(report.selectedItems().size(), 1);
    QVERIFY(!other->isSelected());
    report.undo();
    QCOMPARE(read(), before);
    report.redo();
    QCOMPARE(read(), after);
    report.undo();
    command->undo(); // a second undo after undo does nothing
    QCOMPARE(read(), before);
    report.redo();
    command->redo();
    QCOMPARE(read(), after);
}

// Font commands record a flag or a pixel size; undo writes back what that flag or size means.
void tst_Commands::fontUndoEdges()
{
    ReportTextItem text(true);
    QFont font = text.font();
    font.setWeight(QFont::Weight(600));
    text.setFont(font);
    FontBoldCommand bold(&text, true);
    bold.redo();
    QCOMPARE(text.font().weight(), 700);
    bold.undo(); // the recorded flag is "bold" (600 > 500), so 700 is written again
    QCOMPARE(text.font().weight(), 700);

    font.setWeight(QFont::Weight(300));
    text.setFont(font);
    FontBoldCommand light(&text, true);
    light.redo();
    QCOMPARE(text.font().weight(), 700);
    light.undo();
    QCOMPARE(text.font().weight(), 400);
    FontBoldCommand off(&text, false);
    text.setFont(QFont(font.family(), -1, 700));
    off.redo();
    QCOMPARE(text.font().weight(), 400);
    off.undo();
    QCOMPARE(text.font().weight(), 700);

    font.setStyle(QFont::StyleOblique);
    text.setFont(font);
    FontItalicCommand normal(&text, false);
    normal.redo();
    QCOMPARE(text.font().style(), QFont::StyleNormal);
    normal.undo();
    QCOMPARE(text.font().style(), QFont::StyleItalic);

    font.setPointSizeF(10.5);
    text.setFont(font);
    FontSizeCommand size(&text, 20);
    size.redo();
    QCOMPARE(text.font().pixelSize(), 20);
    size.undo();
    QCOMPARE(text.font().pixelSize(), -1);
    QCOMPARE(text.font().pointSizeF(), 10.5);
    size.redo();
    QCOMPARE(text.font().pixelSize(), 20);
}

void tst_Commands::recordingCommandsChangeNothingOnPush()
{
    Report report(nullptr, nullptr);
    auto* rect = new ReportRectItem;
    rect->setRect(0, 0, 10, 10);
    report.addItem(rect);
    auto* text = new ReportTextItem(true);
    text->setPlainText("a");
    report.addItem(text);

    auto* geometry = new GeometryCommand(rect);
    auto* position = new PositionCommand({rect});
    auto* transform = new TransformCommand({rect});
    auto* textCommand = new TextCommand(text, false);
    rect->setRect(5, 5, 50, 50);
    rect->setPos(30, 40);
    rect->setTransform(QTransform::fromScale(2, 2));
    text->setPlainText("b");
    for (QUndoCommand* c : {static_cast<QUndoCommand*>(geometry), static_cast<QUndoCommand*>(position),
                            static_cast<QUndoCommand*>(transform), static_cast<QUndoCommand*>(textCommand)}) {
        report.undoStack()->push(c);
        QCOMPARE(rect->rect(), QRectF(5, 5, 50, 50));
        QCOMPARE(rect->pos(), QPointF(30, 40));
        QCOMPARE(rect->transform(), QTransform::fromScale(2, 2));
        QCOMPARE(text->toPlainText(), QStringLiteral("b"));
    }
    report.undo();
    QCOMPARE(text->toPlainText(), QStringLiteral("a"));
    report.undo();
    QVERIFY(rect->transform().isIdentity());
    report.undo();
    QCOMPARE(rect->pos(), QPointF(0, 0));
    rect->setPos(30, 40);
    report.undo();
    QCOMPARE(rect->rect(), QRectF(0, 0, 10, 10));
    QCOMPARE(rect->pos(), QPointF(0, 0));
}

void tst_Commands::geometryAndTransform()
{
    Report report(nullptr, nullptr);
    auto* line = new ReportLineItem;
    line->setLine(0, 0, 100, 0);
    line->setPos(10, 10);
    report.addItem(line);
    GeometryCommand command(line);
    line->setGeometry(QPolygonF({QPointF(5, 5), QPointF(50, 70)}));
    line->setPos(20, 20);
    command.undo();
    QCOMPARE(line->line(), QLineF(0, 0, 100, 0));
    QCOMPARE(line->pos(), QPointF(10, 10));
    QVERIFY(line->isSelected());
    command.redo();
    QCOMPARE(line->line(), QLineF(5, 5, 50, 70));
    QCOMPARE(line->pos(), QPointF(20, 20));

    auto* image = new ReportImageItem;
    report.addItem(image);
    image->setPos(7, 7);
    TransformCommand transform({image});
    image->setTransform(QTransform::fromScale(2, 3));
    image->setPos(9, 9);
    transform.undo();
    QVERIFY(image->transform().isIdentity());
    QCOMPARE(image->pos(), QPointF(9, 9)); // positions are refreshed, never restored
    transform.redo();
    QCOMPARE(image->transform(), QTransform::fromScale(2, 3));
    QVERIFY(image->isSelected());
}

void tst_Commands::positionMerge()
{
    Report report(nullptr, nullptr);
    auto* a = new ReportRectItem;
    auto* b = new ReportRectItem;
    report.addItem(a);
    report.addItem(b);
    QUndoStack* stack = report.undoStack();
    stack->push(new PositionCommand({a, b}));
    a->setPos(10, 0);
    b->setPos(0, 10);
    stack->push(new PositionCommand({a, b}));
    a->setPos(20, 0);
    QCOMPARE(stack->count(), 1);
    stack->push(new PositionCommand({b, a})); // same items, other order: no merge
    QCOMPARE(stack->count(), 2);
    stack->push(new PositionCommand({a}));
    QCOMPARE(stack->count(), 3);
    stack->undo();
    stack->undo();
    stack->undo();
    // The merged command restores the positions before the first move.
    QCOMPARE(a->pos(), QPointF(0, 0));
    QCOMPARE(b->pos(), QPointF(0, 0));
    QVERIFY(a->isSelected() && b->isSelected());
    stack->redo();
    QCOMPARE(a->pos(), QPointF(20, 0));
    QCOMPARE(b->pos(), QPointF(0, 10));
}

void tst_Commands::setupPage()
{
    Report report(nullptr, nullptr);
    report.setPageSizeF(QSizeF(100, 50));
    report.undoStack()->push(
        new SetupPageCommand(&report, QPageSize::A5, QPageLayout::Landscape, QSizeF(1, 1)));
    QCOMPARE(report.pageSize(), QPageSize::A5);
    QCOMPARE(report.orientation(), QPageLayout::Landscape);
    QCOMPARE(report.pageSizeF(), QSizeF(148, 210)); // the custom size is not used for a standard id
    report.undo();
    QCOMPARE(report.pageSize(), QPageSize::Custom);
    QCOMPARE(report.pageSizeF(), QSizeF(100, 50));
    QCOMPARE(report.orientation(), QPageLayout::Portrait);
    QCOMPARE(report.sceneRect().size(), QSizeF(100 * 96 / 25.4, 50 * 96 / 25.4));
    report.undoStack()->push(
        new SetupPageCommand(&report, QPageSize::Custom, QPageLayout::Portrait, QSizeF(80, 120)));
    QCOMPARE(report.pageSizeF(), QSizeF(80, 120));
    QCOMPARE(report.undoStack()->count(), 1); // never merges: the redo branch was dropped
}

void tst_Commands::textMerge()
{
    ReportTextItem text(true);
    ReportTextItem other(true);
    TextCommand first(&text, false);
    TextCommand follow(&text, true);
    TextCommand fresh(&text, false);
    TextCommand elsewhere(&other, true);
    QVERIFY(first.mergeWith(&follow));
    QVERIFY(!first.mergeWith(&fresh));
    QVERIFY(!first.mergeWith(&elsewhere));
    QVERIFY(!first.isTextChanged());
    text.setPlainText("x");
    QVERIFY(first.isTextChanged());
}

void tst_Commands::ownership()
{
    Report report(nullptr, nullptr);
    QPointer<ReportTextItem> created = new ReportTextItem(true);
    report.undoStack()->push(new NewCommand(&report, created));
    QCOMPARE(created->scene(), &report);
    report.undo();
    QVERIFY(!created->scene());
    report.redo();
    QCOMPARE(created->scene(), &report);
    report.undoStack()->clear(); // in the scene: left to it
    QVERIFY(created);

    QPointer<ReportTextItem> undone = new ReportTextItem(true);
    report.undoStack()->push(new NewCommand(&report, undone));
    report.undo();
    report.undoStack()->clear(); // outside the scene: the command deletes it
    QVERIFY(!undone);

    auto owner = std::make_unique<Report>(nullptr, nullptr);
    QPointer<ReportTextItem> kept = new ReportTextItem(true);
    owner->addItem(kept);
    owner->undoStack()->push(new DeleteCommand(kept));
    QVERIFY(!kept->scene());
    owner->undo();
    QCOMPARE(kept->scene(), owner.get());
    owner->undoStack()->clear();
    QVERIFY(kept);

    QPointer<ReportTextItem> deleted = new ReportTextItem(true);
    owner->addItem(deleted);
    owner->undoStack()->push(new DeleteCommand(deleted));
    owner.reset(); // the stack still owns the deleted item and frees it once
    QVERIFY(!deleted);
    QVERIFY(!kept);
}

QTEST_MAIN(tst_Commands)
#include "tst_commands.moc"
