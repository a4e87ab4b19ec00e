#include "../common/payload.h"

#include <graphicstableitem.h>

#include <QDataStream>
#include <QGraphicsScene>
#include <QImage>
#include <QPainter>
#include <QStyleOptionGraphicsItem>
#include <QtTest>

using namespace coagulation;
using test::readsAll;
using test::streamed;
using test::written;

namespace {

// A 3 x 2 table with a fourth stored row and a third column setting outside the counts.
void fill(GraphicsTableItem& table)
{
    table.setSpacing(6.0);
    table.setRowHeight(20.0);
    table.setItemText(0, 0, QStringLiteral("代码"));
    table.setItemText(0, 1, QStringLiteral("结果"));
    table.setItemText(1, 1, QStringLiteral("12.3 "));
    table.setItemText(3, 0, QStringLiteral("hidden"));
    table.setColumnWidth(0, 80.0);
    table.setColumnFlags(1, Qt::AlignRight);
    table.setColumnWidth(2, 55.5);
    table.setRowCount(3);
    table.setColumnCount(2);
    table.setSize(QSizeF(300, 80));
    QFont font(QStringLiteral("DejaVu Sans"));
    font.setPixelSize(13);
    table.setFont(font);
}

int darkPixels(const QImage& image, const QRect& area)
{
    int count = 0;
    const QRect r = area & image.rect();
    for (int y = r.top(); y <= r.bottom(); ++y)
        for (int x = r.left(); x <= r.right(); ++x)
            count += qGray(image.pixel(x, y)) < 128;
    return count;
}

QImage render(GraphicsTableItem& table, QStyle::State state = QStyle::State_None)
{
    QImage image(320, 130, QImage::Format_RGB32);
    image.fill(Qt::white);
    QPainter painter(&image);
    QStyleOptionGraphicsItem option;
    option.state = state;
    option.palette.setColor(QPalette::WindowText, Qt::black);
    table.paint(&painter, &option, nullptr);
    return image;
}

} // namespace

class TestGridTable : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void counts();
    void columnSpecs();
    void sizes();
    void payload();
    void brokenPayload_data();
    void brokenPayload();
    void paintsCellTexts();
    void selectionOutline();
    void pointSizeTextKeepsSceneSize();
};

void TestGridTable::counts()
{
    GraphicsTableItem table;
    QCOMPARE(table.rowCount(), 0);
    QCOMPARE(table.columnCount(), 0);
    QCOMPARE(table.spacing(), 8.0);
    QCOMPARE(table.rowHeight(), 24.0);
    QVERIFY(!table.size().isValid());
    QCOMPARE(table.preferredSize(), QSizeF(0, 0));
    QCOMPARE(table.boundingRect(), QRectF(0, 0, 0, 0)); // the invalid size never wins
    QCOMPARE(table.itemText(0, 0), QString());
    QCOMPARE(table.columnWidth(0), 100.0);
    QCOMPARE(table.columnFlags(0), 0);
    QCOMPARE(darkPixels(render(table), QRect(0, 0, 320, 120)), 0);

    // Cells raise the counts.
    table.setItemText(2, 3, QStringLiteral("x"));
    QCOMPARE(table.rowCount(), 3);
    QCOMPARE(table.columnCount(), 4);
    QCOMPARE(table.itemText(2, 3), QStringLiteral("x"));
    QCOMPARE(table.itemText(0, 3), QString());
    QCOMPARE(table.itemText(2, 4), QString());
    QCOMPARE(table.itemText(-1, 0), QString());

    // A shorter row does not lower the counts.
    table.setItemText(0, 1, QStringLiteral("y"));
    QCOMPARE(table.columnCount(), 4);

    // Counts are stored numbers: lowering them keeps the cells.
    table.setRowCount(1);
    table.setColumnCount(1);
    QCOMPARE(table.itemText(2, 3), QStringLiteral("x"));
    QCOMPARE(table.preferredSize(), QSizeF(100, 24));

    table.clear();
    QCOMPARE(table.rowCount(), 0);
    QCOMPARE(table.itemText(2, 3), QString());
    QCOMPARE(table.columnCount(), 1);

    // The scene's index follows cells that grow the table and a clear that shrinks it.
    QGraphicsScene scene(0, 0, 1000, 1000);
    auto* indexed = new GraphicsTableItem;
    indexed->setItemText(0, 0, QStringLiteral("x"));
    scene.addItem(indexed);
    const QPointF lastCell(250, 3.5 * indexed->rowHeight());
    QVERIFY(scene.items(lastCell).isEmpty());
    QCoreApplication::processEvents();
    QVERIFY(scene.items(QPointF(50, 5)).contains(indexed));
    indexed->setItemText(3, 2, QStringLiteral("x"));
    QVERIFY(scene.items(lastCell).contains(indexed));
    indexed->clear();
    QVERIFY(!scene.items(lastCell).contains(indexed));
}

void TestGridTable::columnSpecs()
{
    GraphicsTableItem table;
    table.setColumnWidth(5, 40.0);
    QCOMPARE(table.columnCount(), 6);
    QCOMPARE(table.columnWidth(5), 40.0);
    QCOMPARE(table.preferredSize().width(), 540.0); // five columns of 100 before it

    table.setColumnFlags(7, Qt::AlignRight | Qt::AlignBottom);
    QCOMPARE(table.columnCount(), 8);
    QCOMPARE(table.columnFlags(7), int(Qt::AlignRight | Qt::AlignBottom));
    QCOMPARE(table.columnWidth(7), 100.0);
    QCOMPARE(table.columnFlags(9), 0);

    table.setItemText(1, 0, QStringLiteral("a"));
    table.clear(); // keeps widths, flags and the column count
    QCOMPARE(table.columnCount(), 8);
    QCOMPARE(table.columnWidth(5), 40.0);
    QCOMPARE(table.columnFlags(7), int(Qt::AlignRight | Qt::AlignBottom));
    QCOMPARE(table.preferredSize(), QSizeF(740, 0));
}

void TestGridTable::sizes()
{
    GraphicsTableItem table;
    fill(table);
    QCOMPARE(table.preferredSize(), QSizeF(180, 60)); // 80 + 100; 3 rows of 20
    QCOMPARE(table.boundingRect(), QRectF(0, 0, 300, 80));
    QCOMPARE(table.width(), 300.0);
    QCOMPARE(table.height(), 80.0);

    table.setSize(QSizeF(100, 100));
    QCOMPARE(table.boundingRect(), QRectF(0, 0, 180, 100)); // each side the larger
    table.adjustSize();
    QCOMPARE(table.size(), QSizeF(180, 60));

    GraphicsTableItem copy(table);
    const auto payload = [](const GraphicsTableItem& t) {
        return written([&](QDataStream& out) { t.save(out); });
    };
    QCOMPARE(payload(copy), payload(table));
    copy.setItemText(0, 0, QStringLiteral("changed"));
    QCOMPARE(table.itemText(0, 0), QStringLiteral("代码"));
}

void TestGridTable::payload()
{
    GraphicsTableItem table;
    fill(table);
    QByteArray saved = written([&](QDataStream& out) { table.save(out); });
    const QByteArray expected =
        streamed(qint8(1), qint32(3), qint32(2), 6.0, 20.0, QSizeF(300, 80),
                 qint32(4), // every stored row, also the one beyond the row count
                 qint32(2), QStringLiteral("代码"), QStringLiteral("结果"), qint32(2), QString(),
                 QStringLiteral("12.3 "), qint32(0), qint32(1), QStringLiteral("hidden"),
                 qint32(3), // every stored column setting
                 80.0, qint32(0), 100.0, qint32(Qt::AlignRight), 55.5, qint32(0), table.font());
    QCOMPARE(saved.toHex(), expected.toHex());

    // Read over other cells with a version byte that is not checked, it saves the same bytes again.
    saved[0] = 7;
    GraphicsTableItem loaded;
    loaded.setItemText(9, 9, QStringLiteral("replaced"));
    QVERIFY(readsAll(saved, [&](QDataStream& in) { loaded.load(in); }));
    saved[0] = 1;
    QCOMPARE(written([&](QDataStream& out) { loaded.save(out); }).toHex(), saved.toHex());
}

void TestGridTable::brokenPayload_data()
{
    QTest::addColumn<QByteArray>("payload");
    QTest::addColumn<QString>("refusal"); // empty: the stream fails

    GraphicsTableItem table;
    fill(table);
    const QByteArray saved = written([&](QDataStream& out) { table.save(out); });
    QTest::newRow("empty") << QByteArray() << QString();
    QTest::newRow("truncated in the cells") << saved.left(60) << QString();
    QTest::newRow("truncated in the font") << saved.left(saved.size() - 3) << QString();

    QByteArray huge = saved;
    QDataStream patch(&huge, QIODevice::ReadWrite);
    patch.skipRawData(1);
    patch << qint32(2000000000);
    QTest::newRow("absurd row count") << huge << "模板超出限制：一个表格的单元格数不能超过 100000。";
    QByteArray cells = saved;
    QDataStream rows(&cells, QIODevice::ReadWrite);
    rows.skipRawData(1 + 4 + 4 + 8 + 8 + 16);
    rows << quint32(0x7fffffff); // stored rows, far more than the bytes left
    QTest::newRow("rows counted past the end") << cells << QString();
}

// A broken template leaves the table as it was and the stream failed.
void TestGridTable::brokenPayload()
{
    QFETCH(QByteArray, payload);
    QFETCH(QString, refusal);
    GraphicsTableItem table;
    table.setItemText(0, 0, QStringLiteral("kept"));
    table.setColumnWidth(0, 33.0);
    QDataStream in(payload);
    in.setVersion(QDataStream::Qt_4_6);
    QString thrown;
    try {
        table.load(in);
    } catch (const QString& message) {
        thrown = message;
    }
    QCOMPARE(thrown, refusal);
    QCOMPARE(in.status() != QDataStream::Ok, refusal.isEmpty());
    QCOMPARE(table.itemText(0, 0), QStringLiteral("kept"));
    QCOMPARE(table.rowCount(), 1);
    QCOMPARE(table.columnWidth(0), 33.0);
    QCOMPARE(table.rowHeight(), 24.0);
}

void TestGridTable::paintsCellTexts()
{
    GraphicsTableItem table;
    table.setSpacing(8.0);
    table.setRowHeight(40.0);
    table.setColumnWidth(0, 120.0);
    table.setColumnWidth(1, 120.0);
    table.setColumnFlags(1, Qt::AlignRight);
    table.setItemText(0, 0, QStringLiteral("MMMM"));
    table.setItemText(1, 1, QStringLiteral("MMMM"));
    table.setItemText(2, 0, QStringLiteral("MMMM"));
    table.setItemText(0, 2, QStringLiteral("MMMM"));
    table.setRowCount(2);    // row 2 is stored but not painted
    table.setColumnCount(2); // so is column 2
    QFont font(QStringLiteral("DejaVu Sans"));
    font.setPixelSize(14);
    table.setFont(font);

    const QImage image = render(table);
    // Row 0, column 0: left-aligned after the padding, vertically centred.
    QVERIFY(darkPixels(image, QRect(8, 14, 40, 12)) > 20);
    QCOMPARE(darkPixels(image, QRect(0, 0, 8, 40)), 0);    // the left padding
    QCOMPARE(darkPixels(image, QRect(80, 0, 40, 40)), 0);  // the rest of the cell
    QCOMPARE(darkPixels(image, QRect(0, 0, 120, 10)), 0);  // centred: nothing near the top
    QCOMPARE(darkPixels(image, QRect(0, 30, 120, 10)), 0); // nor near the bottom
    // Row 0, column 1 is empty.
    QCOMPARE(darkPixels(image, QRect(120, 0, 120, 40)), 0);
    // Row 1, column 1: right-aligned against the right padding.
    QVERIFY(darkPixels(image, QRect(190, 54, 42, 12)) > 20);
    QCOMPARE(darkPixels(image, QRect(120, 40, 60, 40)), 0);
    QCOMPARE(darkPixels(image, QRect(232, 40, 8, 40)), 0);
    QCOMPARE(darkPixels(image, QRect(0, 40, 120, 40)), 0);
    // Outside the counts nothing is painted.
    QCOMPARE(darkPixels(image, QRect(0, 80, 320, 50)), 0);
    QCOMPARE(darkPixels(image, QRect(240, 0, 80, 130)), 0);

    // A line break does not break the cell: the text stays on one centred line.
    table.setItemText(0, 0, QStringLiteral("MM\nMM"));
    table.setRowCount(1);
    const QImage broken = render(table);
    QCOMPARE(darkPixels(broken, QRect(0, 0, 120, 10)), 0);
    QCOMPARE(darkPixels(broken, QRect(0, 30, 120, 10)), 0);
    QVERIFY(darkPixels(broken, QRect(38, 14, 24, 12)) > 20); // the second half beside the first
}

void TestGridTable::selectionOutline()
{
    GraphicsTableItem table;
    table.setColumnWidth(0, 50.0);
    table.setRowCount(1);
    table.setSize(QSizeF(200, 60)); // the outline follows the size, not the cells

    QCOMPARE(darkPixels(render(table), QRect(0, 0, 320, 120)), 0);
    const QImage image = render(table, QStyle::State_Selected);
    QVERIFY(darkPixels(image, QRect(0, 0, 201, 1)) > 50);  // top edge, dashed
    QVERIFY(darkPixels(image, QRect(200, 0, 1, 61)) > 15); // right edge
    QVERIFY(darkPixels(image, QRect(0, 60, 201, 1)) > 50); // bottom edge
    QCOMPARE(darkPixels(image, QRect(1, 1, 199, 59)), 0);  // not filled
    QCOMPARE(darkPixels(image, QRect(202, 0, 118, 120)), 0);
    QCOMPARE(darkPixels(image, QRect(0, 62, 320, 58)), 0);

    // Cells larger than the size: the outline still follows the size, not the bounding rectangle.
    table.setRowCount(4);
    table.setSize(QSizeF(30, 20));
    QCOMPARE(table.boundingRect(), QRectF(0, 0, 50, 96));
    const QImage small = render(table, QStyle::State_Selected);
    QVERIFY(darkPixels(small, QRect(30, 0, 1, 21)) > 5);
    QVERIFY(darkPixels(small, QRect(0, 20, 31, 1)) > 10);
    QCOMPARE(darkPixels(small, QRect(32, 0, 288, 120)), 0);
    QCOMPARE(darkPixels(small, QRect(0, 22, 320, 98)), 0);
}

namespace {

// Height, in scene units, of the dark pixels of a table painted onto a device of the given
// resolution, the way a report is rendered onto a printer page.
double textHeightAt(GraphicsTableItem& table, int dpi)
{
    const double scale = dpi / 96.0;
    QImage image(qRound(200 * scale), qRound(40 * scale), QImage::Format_RGB32);
    image.setDotsPerMeterX(qRound(dpi / 0.0254));
    image.setDotsPerMeterY(qRound(dpi / 0.0254));
    image.fill(Qt::white);
    QPainter painter(&image);
    painter.scale(scale, scale);
    QStyleOptionGraphicsItem option;
    table.paint(&painter, &option, nullptr);
    painter.end();
    int top = image.height(), bottom = -1;
    for (int y = 0; y < image.height(); ++y)
        for (int x = 0; x < image.width(); ++x)
            if (qGray(image.pixel(x, y)) < 128) {
                top = qMin(top, y);
                bottom = qMax(bottom, y);
            }
    return bottom < top ? 0.0 : (bottom - top + 1) / scale;
}

} // namespace

void TestGridTable::pointSizeTextKeepsSceneSize()
{
    GraphicsTableItem table;
    table.setColumnWidth(0, 200.0);
    table.setRowHeight(40.0);
    table.setItemText(0, 0, QStringLiteral("Hg"));
    QFont font(QStringLiteral("DejaVu Sans"));
    font.setPointSizeF(9.0);
    table.setFont(font);

    // On a printer the text must be as tall, in scene units, as on the screen.
    const double screen = textHeightAt(table, 96);
    const double printer = textHeightAt(table, 1200);
    QVERIFY(screen > 8.0);
    QVERIFY2(qAbs(printer - screen) < 0.25 * screen,
             qPrintable(QStringLiteral("screen %1, printer %2").arg(screen).arg(printer)));
}

QTEST_MAIN(TestGridTable)
#include "tst_gridtable.moc"
