#include "../common/payload.h"
#include "../common/viewdriver.h"

#include <commands.h>
#include <drawingitems.h>
#include <report.h>

#include <QGraphicsView>
#include <QPainter>
#include <QStyleOptionGraphicsItem>
#include <QTest>
#include <QTextBlock>
#include <QTextDocument>
#include <QUndoStack>

using namespace coagulation;
using test::payloadOf;

namespace {

QImage blankPixmap(int w, int h)
{
    QImage image(w, h, QImage::Format_ARGB32);
    image.fill(Qt::red);
    return image;
}

// An item of the kind, blank or set in every field its payload holds.
std::unique_ptr<ReportItem> sample(const QString& kind, bool filled)
{
    if (kind == "line") {
        auto line = std::make_unique<ReportLineItem>();
        if (filled) {
            line->setLine(QLineF(1.5, 2, 300, -4));
            line->setPen(QPen(QBrush(Qt::darkBlue), 2.5, Qt::DashDotLine, Qt::RoundCap, Qt::MiterJoin));
        }
        return line;
    }
    if (kind == "rect") {
        auto rect = std::make_unique<ReportRectItem>();
        if (filled) {
            rect->setRect(QRectF(10, 20, 30, 40));
            rect->setPen(QPen(Qt::green, 4));
            rect->setBrush(QBrush(QColor(1, 2, 3), Qt::Dense4Pattern));
        }
        return rect;
    }
    if (kind == "image") {
        auto image = std::make_unique<ReportImageItem>();
        QImage source = blankPixmap(7, 5);
        source.setPixelColor(3, 2, Qt::blue);
        if (filled)
            image->setPixmap(QPixmap::fromImage(source));
        return image;
    }
    auto text = std::make_unique<ReportTextItem>(true);
    if (filled) {
        QFont font(QStringLiteral("Noto Sans CJK SC"));
        font.setPixelSize(17);
        font.setBold(true);
        text->setFont(font);
        text->setTextWidth(150);
        text->setPlainText(QStringLiteral("检验科\n第二行"));
        text->setAlignment(Qt::AlignRight);
        text->setPen(QPen(Qt::red)); // ignored by a text item
    }
    return text;
}

} // namespace

class tst_DrawingItems : public QObject
{
    Q_OBJECT
private Q_SLOTS:
    void geometryRoundTrip_data();
    void geometryRoundTrip();
    void defaults();
    void payloadRoundTrip_data();
    void payloadRoundTrip();
    void textFormatAndWidth();
    void imageGeometry();
    void lineSelectionPainting();
    void textEditingChain();
};

void tst_DrawingItems::geometryRoundTrip_data()
{
    QTest::addColumn<QString>("kind");
    QTest::addColumn<QPolygonF>("polygon");
    QTest::newRow("line") << "line" << QPolygonF({QPointF(10, 20), QPointF(110, 70)});
    QTest::newRow("zero line") << "line" << QPolygonF({QPointF(5, 5), QPointF(5, 5)});
    QTest::newRow("rect") << "rect" << QPolygonF({QPointF(-4, 3), QPointF(96, 53)});
    QTest::newRow("inverted rect") << "rect" << QPolygonF({QPointF(50, 50), QPointF(10, 20)});
    QTest::newRow("text fixed") << "text" << QPolygonF({QPointF(0, 0), QPointF(120, 30), QPointF(120, 30)});
    QTest::newRow("image") << "image" << QPolygonF({QPointF(0, 0), QPointF(7, 5)}); // its pixmap size
}

void tst_DrawingItems::geometryRoundTrip()
{
    QFETCH(QString, kind);
    QFETCH(QPolygonF, polygon);
    const auto item = sample(kind, true);
    item->graphicsItem()->setPos(30, 40);
    item->setGeometry(polygon);
    const QPolygonF geometry = item->geometry();
    const QPointF pos = item->graphicsItem()->pos();
    const QTransform transform = item->graphicsItem()->transform();
    item->setGeometry(geometry);
    QCOMPARE(item->geometry(), geometry);
    QCOMPARE(item->graphicsItem()->pos(), pos);
    QCOMPARE(item->graphicsItem()->transform(), transform);
    if (kind == "line" || kind == "rect")
        QCOMPARE(geometry, polygon);
}

void tst_DrawingItems::defaults()
{
    // An image has no pen, brush, font or alignment, and takes none.
    ReportImageItem image;
    image.setPen(QPen(Qt::red, 3));
    image.setBrush(Qt::blue);
    image.setAlignment(Qt::AlignRight);
    QCOMPARE(image.pen(), QPen());
    QCOMPARE(image.brush(), QBrush());
    QCOMPARE(image.font(), QFont());
    QCOMPARE(image.alignment(), Qt::Alignment());
    QCOMPARE(image.geometry(), QPolygonF({QPointF(0, 0), QPointF(0, 0)}));
    QCOMPARE(image.cursor().shape(), Qt::SizeAllCursor);

    ReportLineItem line;
    QCOMPARE(line.brush(), QBrush());
    QCOMPARE(line.flags() & (QGraphicsItem::ItemIsMovable | QGraphicsItem::ItemIsSelectable |
                             QGraphicsItem::ItemSendsScenePositionChanges | QGraphicsItem::ItemIsFocusable),
             QGraphicsItem::ItemIsMovable | QGraphicsItem::ItemIsSelectable |
                 QGraphicsItem::ItemSendsScenePositionChanges);
    line.setKey("Line");
    QCOMPARE(line.data(2), QVariant(QStringLiteral("Line")));

    ReportTextItem text(false);
    QCOMPARE(text.pen(), QPen());
    QVERIFY(!(text.flags() & QGraphicsItem::ItemIsFocusable));
    QCOMPARE(text.defaultTextColor(), QColor(Qt::black));
    QVERIFY(ReportTextItem(true).flags() & QGraphicsItem::ItemIsFocusable);
}

void tst_DrawingItems::payloadRoundTrip_data()
{
    QTest::addColumn<QString>("kind");
    QTest::addColumn<QByteArray>("bytes");
    QTest::newRow("line") << "line"
                          << test::streamed(qint8(1), QLineF(1.5, 2, 300, -4),
                                            QPen(QBrush(Qt::darkBlue), 2.5, Qt::DashDotLine, Qt::RoundCap,
                                                 Qt::MiterJoin));
    QTest::newRow("rect") << "rect"
                          << test::streamed(qint8(1), QRectF(10, 20, 30, 40), QPen(Qt::green, 4),
                                            QBrush(QColor(1, 2, 3), Qt::Dense4Pattern));
    const auto image = sample("image", true);
    QTest::newRow("image") << "image"
                           << test::streamed(qint8(1), static_cast<ReportImageItem*>(image.get())->pixmap());
    const auto text = sample("text", true);
    QTest::newRow("text") << "text"
                          << test::streamed(qint8(2), qint32(Qt::AlignRight), QPen(), QBrush(), text->font(),
                                            double(150), QStringLiteral("检验科\n第二行"));
}

// Every field is saved in its place, and loaded back into the same field.
void tst_DrawingItems::payloadRoundTrip()
{
    QFETCH(QString, kind);
    QFETCH(QByteArray, bytes);
    QCOMPARE(payloadOf(sample(kind, true).get()), bytes);
    const auto copy = sample(kind, false);
    QVERIFY(test::loadPayload(copy.get(), bytes));
    QCOMPARE(payloadOf(copy.get()), bytes);
    if (auto* text = dynamic_cast<ReportTextItem*>(copy.get()))
        QCOMPARE(text->document()->lastBlock().blockFormat().alignment(), Qt::Alignment(Qt::AlignRight));
}

void tst_DrawingItems::textFormatAndWidth()
{
    ReportTextItem text(true);
    const QByteArray bytes = test::streamed(qint8(1), qint32(Qt::AlignHCenter), QPen(), QBrush(), QFont(),
                                            double(-1), QStringLiteral("<b>粗体</b> text"));
    QVERIFY(test::loadPayload(&text, bytes));
    QCOMPARE(text.toPlainText(), QStringLiteral("粗体 text"));
    QCOMPARE(text.alignment(), Qt::Alignment(Qt::AlignHCenter));
    // Saved again as plain text: character formatting is not kept.
    ReportTextItem plain(true);
    QVERIFY(test::loadPayload(&plain, payloadOf(&text)));
    QCOMPARE(plain.toPlainText(), QStringLiteral("粗体 text"));
    QCOMPARE(payloadOf(&text).at(0), char(2));

    // The alignment holds for every block of a new text, plain or HTML.
    ReportTextItem centred(true);
    const auto alignments = [&] {
        QList<int> list;
        for (QTextBlock block = centred.document()->begin(); block.isValid(); block = block.next())
            list.append(int(block.blockFormat().alignment()));
        return list;
    };
    centred.setTextWidth(200);
    centred.setAlignment(Qt::AlignHCenter);
    centred.setPlainText(QStringLiteral("一\n二\n三"));
    QCOMPARE(alignments(), QList<int>(3, Qt::AlignHCenter));
    centred.setHtml(QStringLiteral("<p>a</p><p>b</p>"));
    QCOMPARE(alignments(), QList<int>(2, Qt::AlignHCenter));

    ReportTextItem sized(true);
    sized.setPlainText(QStringLiteral("A text that grows with its content"));
    sized.setGeometry(QPolygonF({QPointF(0, 0), QPointF(80, 20), QPointF(80, 20)}));
    QCOMPARE(sized.textWidth(), 80.0);
    sized.setGeometry(QPolygonF({QPointF(10, 0), QPointF(80, 20), QPointF(11.5, 20)}));
    QCOMPARE(sized.textWidth(), -1.0);
    QCOMPARE(sized.pos(), QPointF(10, 0));
    sized.setGeometry(QPolygonF({QPointF(0, 0), QPointF(60, 20)})); // two points: width from point 1
    QCOMPARE(sized.textWidth(), 60.0);
    sized.setGeometry(QPolygonF({QPointF(5, 5)})); // one point: automatic width
    QCOMPARE(sized.textWidth(), -1.0);
    sized.setGeometry(QPolygonF()); // empty: stays where it is
    QCOMPARE(sized.pos(), QPointF(15, 5));
}

void tst_DrawingItems::imageGeometry()
{
    ReportImageItem image;
    image.setPixmap(QPixmap::fromImage(blankPixmap(50, 20)));
    image.setPos(100, 100);
    image.setGeometry(QPolygonF({QPointF(0, 0), QPointF(100, 10)}));
    QCOMPARE(image.transform(), QTransform::fromScale(2, 0.5));
    QCOMPARE(image.pos(), QPointF(100, 100));
    QCOMPARE(image.geometry(), QPolygonF({QPointF(0, 0), QPointF(50, 20)}));
    QCOMPARE(image.mapRectToScene(QRectF(0, 0, 50, 20)), QRectF(100, 100, 100, 10));

    ReportImageItem empty; // no pixmap: nothing to scale, nothing becomes NaN
    empty.setGeometry(QPolygonF({QPointF(0, 0), QPointF(30, 30)}));
    QVERIFY(empty.transform().isIdentity());

    Report report(nullptr, nullptr);
    report.setDesignMode(true);
    auto* snapped = new ReportImageItem;
    snapped->setPixmap(QPixmap::fromImage(blankPixmap(10, 10)));
    report.addItem(snapped);
    snapped->setSelected(true);
    // The geometry moves the item to an off-grid point; a plain move would be snapped and recorded.
    snapped->setGeometry(QPolygonF({QPointF(3, 3), QPointF(23, 13)}));
    QCOMPARE(snapped->pos(), QPointF(3, 3));
    QCOMPARE(report.undoStack()->count(), 0);
    snapped->setPos(3, 3.5);
    QCOMPARE(snapped->pos(), QPointF(0, 0));
    QCOMPARE(report.undoStack()->count(), 1);
}

void tst_DrawingItems::lineSelectionPainting()
{
    ReportLineItem line;
    line.setLine(QLineF(10, 20, 190, 20));
    line.setPen(QPen(Qt::red, 7));
    QStyleOptionGraphicsItem option;
    option.palette.setColor(QPalette::WindowText, Qt::black);

    auto render = [&](bool selected) {
        QImage image(200, 40, QImage::Format_ARGB32);
        image.fill(Qt::white);
        QPainter painter(&image);
        option.state = selected ? QStyle::State_Selected : QStyle::State_None;
        line.paint(&painter, &option, nullptr);
        return image;
    };
    auto count = [](const QImage& image, const QColor& color) {
        int n = 0;
        for (int x = 0; x < image.width(); ++x)
            n += image.pixelColor(x, 20) == color;
        return n;
    };
    const QImage plain = render(false);
    QVERIFY(count(plain, Qt::red) > 170);
    QCOMPARE(count(plain, Qt::black), 0);
    const QImage selected = render(true);
    // Dashes of window text over a white contrast line, along the line itself.
    QVERIFY(count(selected, Qt::black) > 40);
    QVERIFY(count(selected, Qt::white) > 40);
    QVERIFY(count(selected, Qt::black) > count(selected, Qt::white)); // dashes, not dots
    QCOMPARE(selected.pixelColor(100, 17), QColor(Qt::red));          // the pen's body stays
    QCOMPARE(selected.pixelColor(100, 5), QColor(Qt::white));         // no bounding box
}

void tst_DrawingItems::textEditingChain()
{
    test::DesignCanvas canvas;
    Report& report = canvas.report;
    QGraphicsView& view = canvas.driver.view;
    view.activateWindow();
    QVERIFY(QTest::qWaitForWindowActive(&view));
    auto* text = new ReportTextItem(true);
    text->setPlainText(QStringLiteral("PT"));
    text->setPos(100, 100);
    report.addItem(text);

    QPoint at = view.mapFromScene(text->mapToScene(text->boundingRect().center()));
    QTest::mouseDClick(view.viewport(), Qt::LeftButton, {}, at);
    QCOMPARE(text->textInteractionFlags(), Qt::TextEditorInteraction);
    QVERIFY(text->hasFocus());
    // A double click selects the word under the cursor; finish the click, then type at the end.
    QTest::mouseRelease(view.viewport(), Qt::LeftButton, {}, at);
    QTest::keyClick(view.viewport(), Qt::Key_End);
    QTest::keyClicks(view.viewport(), QStringLiteral("-S1"));
    QCOMPARE(text->toPlainText(), QStringLiteral("PT-S1"));

    text->clearFocus();
    QCOMPARE(text->textInteractionFlags(), Qt::NoTextInteraction);
    QCOMPARE(report.undoStack()->count(), 1); // three keystrokes, one merged step
    report.undo();
    QCOMPARE(text->toPlainText(), QStringLiteral("PT"));
    report.redo();
    QCOMPARE(text->toPlainText(), QStringLiteral("PT-S1"));

    // A second session with no change pushes nothing.
    text->setSelected(false);
    at = view.mapFromScene(text->mapToScene(text->boundingRect().center())); // the view may have scrolled
    QTest::mouseDClick(view.viewport(), Qt::LeftButton, {}, at);
    QTest::mouseRelease(view.viewport(), Qt::LeftButton, {}, at);
    QVERIFY(text->hasFocus());
    text->clearFocus();
    QCOMPARE(report.undoStack()->count(), 1);
    QCOMPARE(report.undoStack()->index(), 1);

    // A text that is not editable is not edited by a double click, nor after it is made so.
    auto* field = new ReportTextItem(false);
    field->setPlainText(QStringLiteral("[姓名]"));
    field->setPos(100, 300);
    report.addItem(field);
    at = view.mapFromScene(field->sceneBoundingRect().center());
    QTest::mouseDClick(view.viewport(), Qt::LeftButton, {}, at);
    QCOMPARE(field->textInteractionFlags(), Qt::NoTextInteraction);
    text->setTextInteractionFlags(Qt::TextEditorInteraction);
    text->setEditable(false);
    QCOMPARE(text->textInteractionFlags(), Qt::NoTextInteraction);
}

QTEST_MAIN(tst_DrawingItems)
#include "tst_drawingitems.moc"
