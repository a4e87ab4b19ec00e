#include "../common/payload.h"

#include <commands.h>
#include <drawingitems.h>
#include <report.h>

#include <QBuffer>
#include <QGraphicsView>
#include <QPainter>
#include <QStyleOptionGraphicsItem>
#include <QTest>
#include <QTextBlock>
#include <QTextCursor>
#include <QTextDocument>
#include <QUndoStack>

using namespace coagulation;
using test::payloadOf;

namespace {

void loadPayload(ReportItem* item, const QByteArray& bytes)
{
    QDataStream in(bytes);
    in.setVersion(QDataStream::Qt_4_6);
    item->load(in);
    QCOMPARE(in.status(), QDataStream::Ok);
    QVERIFY(in.atEnd());
}

QImage blankPixmap(int w, int h)
{
    QImage image(w, h, QImage::Format_ARGB32);
    image.fill(Qt::red);
    return image;
}

} // namespace

class tst_DrawingItems : public QObject
{
    Q_OBJECT
private Q_SLOTS:
    void geometryRoundTrip_data();
    void geometryRoundTrip();
    void defaults();
    void linePayload();
    void rectPayload();
    void imagePayload();
    void textPayload();
    void textHtmlFormat();
    void textWidthFromGeometry();
    void alignmentSurvivesNewText();
    void imageGeometryScales();
    void setGeometryIsOneNotification();
    void lineSelectionPainting();
    void textEditingChain();
    void nonEditableTextDoesNotEdit();
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
    QTest::newRow("image") << "image" << QPolygonF({QPointF(0, 0), QPointF(40, 20)});
}

void tst_DrawingItems::geometryRoundTrip()
{
    QFETCH(QString, kind);
    QFETCH(QPolygonF, polygon);
    std::unique_ptr<ReportItem> item;
    if (kind == "line")
        item = std::make_unique<ReportLineItem>();
    else if (kind == "rect")
        item = std::make_unique<ReportRectItem>();
    else if (kind == "text") {
        auto* text = new ReportTextItem(true);
        text->setPlainText("凝血酶原时间");
        item.reset(text);
    } else {
        auto* image = new ReportImageItem;
        image->setPixmap(QPixmap::fromImage(blankPixmap(40, 20)));
        item.reset(image);
    }
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
    ReportImageItem image;
    QCOMPARE(image.pen(), QPen());
    QCOMPARE(image.brush(), QBrush());
    QCOMPARE(image.font(), QFont());
    QCOMPARE(image.alignment(), Qt::Alignment());
    image.setPen(QPen(Qt::red, 3));
    image.setBrush(Qt::blue);
    image.setAlignment(Qt::AlignRight);
    QCOMPARE(image.pen(), QPen());
    QCOMPARE(image.brush(), QBrush());
    QCOMPARE(image.alignment(), Qt::Alignment());
    QCOMPARE(image.key(), QString());
    QVERIFY(!image.createTracker());
    QCOMPARE(image.geometry(), QPolygonF({QPointF(0, 0), QPointF(0, 0)}));
    QCOMPARE(image.cursor().shape(), Qt::SizeAllCursor);
    QCOMPARE(ReportItem::fromGraphicsItem(&image), static_cast<ReportItem*>(&image));

    ReportLineItem line;
    QCOMPARE(line.brush(), QBrush());
    QVERIFY(line.flags() & QGraphicsItem::ItemIsMovable);
    QVERIFY(line.flags() & QGraphicsItem::ItemIsSelectable);
    QVERIFY(line.flags() & QGraphicsItem::ItemSendsScenePositionChanges);
    QVERIFY(!(line.flags() & QGraphicsItem::ItemIsFocusable));

    ReportTextItem text(false);
    QCOMPARE(text.pen(), QPen());
    QVERIFY(!(text.flags() & QGraphicsItem::ItemIsFocusable));
    QCOMPARE(text.defaultTextColor(), QColor(Qt::black));
    ReportTextItem editable(true);
    QVERIFY(editable.flags() & QGraphicsItem::ItemIsFocusable);

    line.setKey("Line");
    QCOMPARE(line.key(), QStringLiteral("Line"));
    QCOMPARE(line.data(2), QVariant(QStringLiteral("Line")));
}

void tst_DrawingItems::linePayload()
{
    ReportLineItem line;
    line.setLine(QLineF(1.5, 2, 300, -4));
    const QPen pen(QBrush(Qt::darkBlue), 2.5, Qt::DashDotLine, Qt::RoundCap, Qt::MiterJoin);
    line.setPen(pen);
    const QByteArray bytes = payloadOf(&line);
    QCOMPARE(bytes, test::streamed(qint8(1), QLineF(1.5, 2, 300, -4), pen));
    QCOMPARE(bytes.at(0), char(1));
    QCOMPARE(bytes.mid(1, 8), QByteArray::fromHex("3ff8000000000000")); // 1.5 as a big-endian double

    ReportLineItem copy;
    loadPayload(&copy, bytes);
    QCOMPARE(copy.line(), line.line());
    QCOMPARE(copy.pen(), pen);
    QCOMPARE(payloadOf(&copy), bytes);
}

void tst_DrawingItems::rectPayload()
{
    ReportRectItem rect;
    rect.setRect(QRectF(10, 20, 30, 40));
    rect.setPen(QPen(Qt::green, 4));
    rect.setBrush(QBrush(QColor(1, 2, 3), Qt::Dense4Pattern));
    const QByteArray bytes = payloadOf(&rect);
    QCOMPARE(bytes, test::streamed(qint8(1), QRectF(10, 20, 30, 40), QPen(Qt::green, 4),
                                   QBrush(QColor(1, 2, 3), Qt::Dense4Pattern)));
    ReportRectItem copy;
    loadPayload(&copy, bytes);
    QCOMPARE(copy.rect(), rect.rect());
    QCOMPARE(copy.pen(), rect.pen());
    QCOMPARE(copy.brush(), rect.brush());
    QCOMPARE(payloadOf(&copy), bytes);
}

void tst_DrawingItems::imagePayload()
{
    ReportImageItem image;
    QImage source = blankPixmap(7, 5);
    source.setPixelColor(3, 2, Qt::blue);
    image.setPixmap(QPixmap::fromImage(source));
    const QByteArray bytes = payloadOf(&image);
    QCOMPARE(bytes.at(0), char(1));
    QCOMPARE(bytes.mid(1), test::streamed(image.pixmap()));
    ReportImageItem copy;
    loadPayload(&copy, bytes);
    QCOMPARE(copy.pixmap().size(), QSize(7, 5));
    QCOMPARE(copy.pixmap().toImage().pixelColor(3, 2), QColor(Qt::blue));
    QCOMPARE(copy.pixmap().toImage().pixelColor(0, 0), QColor(Qt::red));
    QCOMPARE(payloadOf(&copy), bytes);
}

void tst_DrawingItems::textPayload()
{
    ReportTextItem text(true);
    QFont font(QStringLiteral("Noto Sans CJK SC"));
    font.setPixelSize(17);
    font.setBold(true);
    text.setFont(font);
    text.setTextWidth(150);
    text.setPlainText(QStringLiteral("检验科\n第二行"));
    text.setAlignment(Qt::AlignRight);
    text.setPen(QPen(Qt::red)); // ignored by a text item
    const QByteArray bytes = payloadOf(&text);
    QCOMPARE(bytes, test::streamed(qint8(2), qint32(Qt::AlignRight), QPen(), QBrush(), text.font(),
                                   double(150), QStringLiteral("检验科\n第二行")));

    ReportTextItem copy(true);
    loadPayload(&copy, bytes);
    QCOMPARE(copy.toPlainText(), QStringLiteral("检验科\n第二行"));
    QCOMPARE(copy.textWidth(), 150.0);
    QCOMPARE(copy.alignment(), Qt::Alignment(Qt::AlignRight));
    QCOMPARE(copy.font().pixelSize(), 17);
    QVERIFY(copy.font().bold());
    QCOMPARE(copy.font().family(), QStringLiteral("Noto Sans CJK SC"));
    QCOMPARE(copy.document()->lastBlock().blockFormat().alignment(), Qt::Alignment(Qt::AlignRight));
    QCOMPARE(payloadOf(&copy), bytes);
}

void tst_DrawingItems::textHtmlFormat()
{
    ReportTextItem text(true);
    const QByteArray bytes = test::streamed(qint8(1), qint32(Qt::AlignHCenter), QPen(), QBrush(), QFont(),
                                            double(-1), QStringLiteral("<b>粗体</b> text"));
    loadPayload(&text, bytes);
    QCOMPARE(text.toPlainText(), QStringLiteral("粗体 text"));
    QCOMPARE(text.alignment(), Qt::Alignment(Qt::AlignHCenter));
    // Saved again as plain text: character formatting is not kept.
    ReportTextItem plain(true);
    loadPayload(&plain, payloadOf(&text));
    QCOMPARE(plain.toPlainText(), QStringLiteral("粗体 text"));
    QCOMPARE(payloadOf(&text).at(0), char(2));
}

void tst_DrawingItems::textWidthFromGeometry()
{
    ReportTextItem text(true);
    text.setPlainText(QStringLiteral("A text that grows with its content"));
    text.setGeometry(QPolygonF({QPointF(0, 0), QPointF(80, 20), QPointF(80, 20)}));
    QCOMPARE(text.textWidth(), 80.0);
    text.setGeometry(QPolygonF({QPointF(10, 0), QPointF(80, 20), QPointF(11.5, 20)}));
    QCOMPARE(text.textWidth(), -1.0);
    QCOMPARE(text.pos(), QPointF(10, 0));
    text.setGeometry(QPolygonF({QPointF(0, 0), QPointF(60, 20)})); // two points: width from point 1
    QCOMPARE(text.textWidth(), 60.0);
    text.setGeometry(QPolygonF({QPointF(5, 5)})); // one point: automatic width
    QCOMPARE(text.textWidth(), -1.0);
    text.setGeometry(QPolygonF()); // empty: stays where it is
    QCOMPARE(text.pos(), QPointF(15, 5));
}

void tst_DrawingItems::alignmentSurvivesNewText()
{
    ReportTextItem text(true);
    text.setTextWidth(200);
    text.setAlignment(Qt::AlignHCenter);
    text.setPlainText(QStringLiteral("一\n二\n三"));
    for (QTextBlock block = text.document()->begin(); block.isValid(); block = block.next())
        QCOMPARE(block.blockFormat().alignment(), Qt::Alignment(Qt::AlignHCenter));
    text.setHtml(QStringLiteral("<p>a</p><p>b</p>"));
    for (QTextBlock block = text.document()->begin(); block.isValid(); block = block.next())
        QCOMPARE(block.blockFormat().alignment(), Qt::Alignment(Qt::AlignHCenter));
}

void tst_DrawingItems::imageGeometryScales()
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
}

void tst_DrawingItems::setGeometryIsOneNotification()
{
    Report report(nullptr, nullptr);
    report.setDesignMode(true);
    auto* image = new ReportImageItem;
    image->setPixmap(QPixmap::fromImage(blankPixmap(10, 10)));
    report.addItem(image);
    image->setSelected(true);
    // The geometry moves the item to an off-grid point; a plain move would be snapped and recorded.
    image->setGeometry(QPolygonF({QPointF(3, 3), QPointF(23, 13)}));
    QCOMPARE(image->pos(), QPointF(3, 3));
    QCOMPARE(report.undoStack()->count(), 0);
    image->setPos(3, 3.5);
    QCOMPARE(image->pos(), QPointF(0, 0));
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
    Report report(nullptr, nullptr);
    report.setDesignMode(true);
    auto* text = new ReportTextItem(true);
    text->setPlainText(QStringLiteral("PT"));
    text->setPos(100, 100);
    report.addItem(text);
    QGraphicsView view(&report);
    view.show();
    view.activateWindow();
    QVERIFY(QTest::qWaitForWindowActive(&view));

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
}

void tst_DrawingItems::nonEditableTextDoesNotEdit()
{
    Report report(nullptr, nullptr);
    auto* text = new ReportTextItem(false);
    text->setPlainText(QStringLiteral("[姓名]"));
    report.addItem(text);
    QGraphicsView view(&report);
    view.show();
    view.activateWindow();
    QVERIFY(QTest::qWaitForWindowActive(&view));
    QTest::mouseDClick(view.viewport(), Qt::LeftButton, {},
                       view.mapFromScene(text->sceneBoundingRect().center()));
    QCOMPARE(text->textInteractionFlags(), Qt::NoTextInteraction);

    auto* editable = new ReportTextItem(true);
    report.addItem(editable);
    editable->setTextInteractionFlags(Qt::TextEditorInteraction);
    editable->setEditable(false);
    QCOMPARE(editable->textInteractionFlags(), Qt::NoTextInteraction);
}

QTEST_MAIN(tst_DrawingItems)
#include "tst_drawingitems.moc"
