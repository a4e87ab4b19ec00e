#include "../common/files.h"
#include "../common/payload.h"

#include <core/information.h>
#include <core/profile.h>
#include <itemfactory.h>
#include <report.h>
#include <reportitem.h>
#include <templatecheck.h>
#include <tracker.h>

#include <QFile>
#include <QPainter>
#include <QTemporaryDir>
#include <QTextDocument>
#include <QtTest>

#include <memory>

#include <sys/stat.h>

using namespace coagulation;
using test::fileBytes;
using test::payloadOf;
using test::writeFile;

namespace {

QByteArray saved(Report& report)
{
    QByteArray bytes;
    QDataStream out(&bytes, QIODevice::WriteOnly);
    return report.save(out) ? bytes : QByteArray();
}

QByteArray framed(const Report& report, ReportItem* item)
{
    QByteArray bytes;
    QDataStream out(&bytes, QIODevice::WriteOnly);
    out.setVersion(QDataStream::Qt_4_6);
    report.saveItem(out, item);
    return bytes;
}

template <class Item>
Item* place(Report& report, Item* item, const QString& key, const QPointF& pos,
            const QTransform& transform = QTransform())
{
    item->setKey(key);
    item->setPos(pos);
    item->setTransform(transform);
    report.addItem(item);
    return item;
}

// A patient report with one item of every kind that exists, each with its own key, place and
// transform, and non-default contents. Returns the number of items.
int fill(Report& report, Profile* profile)
{
    auto* text = place(report, new ReportTextItem(true), "Text", {20, 30}, QTransform().rotate(90));
    text->setPlainText(QStringLiteral("凝血报告单"));
    text->setTextWidth(200);
    QFont font(QStringLiteral("Noto Sans CJK SC"), 18);
    font.setBold(true);
    text->setFont(font);
    text->setAlignment(Qt::AlignHCenter);

    auto* line = place(report, new ReportLineItem, "直线", {10, 80}, QTransform::fromScale(2, 1));
    line->setLine(0, 0, 300, 0);
    line->setPen(QPen(Qt::blue, 3, Qt::DashLine));

    auto* rect = place(report, new ReportRectItem, "Rect", {40, 120}, QTransform().shear(0.25, 0));
    rect->setRect(0, 0, 120, 60);
    rect->setBrush(QColor(200, 220, 255));

    QImage picture(16, 8, QImage::Format_RGB32);
    picture.fill(Qt::darkGreen);
    auto* image = place(report, new ReportImageItem, "Image", {400, 20},
                        QTransform::fromScale(0.5, 0.75).translate(3, 4));
    image->setPixmap(QPixmap::fromImage(picture));

    place(report, new ReportFieldItem(profile, "patient", "name"), "field:/patient/name", {20, 200});
    place(report, new ReportPropItem(profile, "qc/fileno"), "prop:/qc/fileno", {20, 230});
    place(report, new ReportPropItem(profile, "date"), "prop:/date", {20, 250});
    place(report, new ReportProfileItem(profile, "hospital"), "profile:/hospital", {20, 260});
    place(report, new ReportMonthItem, "MaintenanceMonth", {300, 200}, QTransform().rotate(-45));
    place(report, new ReportOperatorItem, "MaintenanceOperator", {300, 260});

    // Tables and charts, as far as the factory makes them, with their creators' defaults.
    const QStringList tableKeys = {"Results", "QcControlInfo", "QcControlInfoDetails",
                                   "QcTable", "QcChart",       "MaintenanceRecord"};
    qreal y = 320;
    for (const QString& key : tableKeys) {
        if (ReportItem* item = report.factory()->create(key)) {
            item->setKey(key);
            item->graphicsItem()->setPos(30, y);
            item->graphicsItem()->setTransform(QTransform::fromScale(1, 1.5));
            report.addItem(item->graphicsItem());
            y += 60;
        }
    }
    return report.reportItems().size();
}

// Where each item record of a saved report begins, and where the last one ends.
QList<int> recordStarts(const Report& report)
{
    QList<int> starts{41};
    for (ReportItem* item : report.reportItems())
        starts.append(starts.constLast() + framed(report, item).size());
    return starts;
}

// A patient template of raw item records: each a key and the payload bytes as given.
QByteArray templateOf(const QList<std::pair<QString, QByteArray>>& records, qint32 count = -1)
{
    QByteArray bytes;
    QDataStream out(&bytes, QIODevice::WriteOnly);
    out.setVersion(QDataStream::Qt_4_6);
    out << qint32(0x7470726E) << qint8(1) << qint32(96) << qint32(96) << qint32(QPageSize::A4)
        << qint32(QPageLayout::Portrait) << QSizeF(210, 297) << (count < 0 ? qint32(records.size()) : count);
    for (const auto& [key, payload] : records) {
        out << key << QPointF(10, 10) << QTransform();
        out.writeRawData(payload.constData(), int(payload.size()));
    }
    return bytes;
}

QByteArray textPayload(qint8 format, const QString& text, const QFont& font = QFont())
{
    return test::streamed(format, qint32(0), QPen(), QBrush(), font, -1.0, text);
}

// A grid payload whose counts and lists are raw.
QByteArray gridPayload(qint32 rows, qint32 columns, const QByteArray& lists)
{
    return test::streamed(qint8(1), rows, columns, 8.0, 24.0, QSizeF(100, 24)) + lists +
           test::streamed(QFont());
}

QByteArray imagePayload(int width, int height)
{
    QImage image(width, height, QImage::Format_Mono);
    image.fill(1);
    return test::streamed(qint8(1), image);
}

QString nested(const QString& open, const QString& close, int depth)
{
    return open.repeated(depth) + QStringLiteral("x") + close.repeated(depth);
}

} // namespace

class tst_TemplateFile : public QObject
{
    Q_OBJECT
private Q_SLOTS:
    void init();
    void cleanupTestCase();
    void header_data();
    void header();
    void roundTrip();
    void failedSave();
    void damagedFiles();
    void damagedTemplates_data();
    void damagedTemplates();
    void hostileTemplates_data();
    void hostileTemplates();
    void htmlReadsNothingOutside();

private:
    QTemporaryDir dir;
    Profile profile;
    std::unique_ptr<ItemFactory> factory;
};

void tst_TemplateFile::init()
{
    factory = std::make_unique<ItemFactory>(&profile);
    profile.setValue("hospital", QStringLiteral("第一人民医院"));
    profile.setValue("patient/name", QStringLiteral("姓名"));
}

// COAGULATION_TEMPLATE_CORPUS names a folder that receives the templates written here, as seeds
// for the template fuzzer.
void tst_TemplateFile::cleanupTestCase()
{
    const QString corpus = qEnvironmentVariable("COAGULATION_TEMPLATE_CORPUS");
    if (corpus.isEmpty())
        return;
    QDir().mkpath(corpus);
    const QStringList names = QDir(dir.path()).entryList({"*.rpt"}, QDir::Files);
    for (const QString& name : names) {
        QFile::remove(QDir(corpus).filePath(name));
        QVERIFY(QFile::copy(dir.filePath(name), QDir(corpus).filePath(name)));
    }
}

void tst_TemplateFile::header_data()
{
    QTest::addColumn<int>("type");
    QTest::addColumn<QByteArray>("tag");
    QTest::addColumn<QString>("name");
    QTest::newRow("patient") << int(kv::PatientReport) << QByteArray("tprn") << QStringLiteral("样本报告单");
    QTest::newRow("qc") << int(kv::QcReport) << QByteArray("tprq") << QStringLiteral("质控报告单");
    QTest::newRow("maintenance") << int(kv::MaintenanceRecordReport) << QByteArray("tprm")
                                 << QStringLiteral("维护记录报告单");
}

// An empty report of each type: its name, its exact bytes, and read back.
void tst_TemplateFile::header()
{
    QFETCH(int, type);
    QFETCH(QByteArray, tag);
    QFETCH(QString, name);
    QCOMPARE(Report::typeName(kv::ReportType(type)), name);
    QCOMPARE(Report::typeName(kv::ReportType(4 * type - 1)), QString()); // no type: -1, 3, 7
    Report report(&profile, factory.get());
    report.setType(kv::ReportType(type));
    // Version 1, 96 x 96 dpi, A4 (7) portrait (0), 210 x 297 mm, no items.
    const QByteArray expected =
        tag +
        QByteArray::fromHex("0100000060000000600000000700000000406a400000000000407290000000000000000000");
    QCOMPARE(saved(report), expected);
    const QString fileName = dir.filePath(QStringLiteral("type%1.").arg(type) + Report::suffix);
    QVERIFY(report.save(fileName));
    QCOMPARE(fileBytes(fileName), expected);
    QCOMPARE(report.filename(), QString()); // callers name the document themselves
    QCOMPARE(Report::fileType(fileName), kv::ReportType(type));

    Report loaded(&profile, factory.get());
    QVERIFY(loaded.load(fileName));
    QCOMPARE(loaded.type(), kv::ReportType(type));
    QCOMPARE(loaded.pageSize(), QPageSize::A4);
    QCOMPARE(loaded.pageSizeF(), QSizeF(210, 297));
    QVERIFY(loaded.reportItems().isEmpty());
    QCOMPARE(Report::suffix, QStringLiteral("rpt"));
    QCOMPARE(Report::mimeType, QStringLiteral("application/x-qt-windows-mime;value=\"ReportItems\""));
}

void tst_TemplateFile::roundTrip()
{
    Report report(&profile, factory.get());
    report.setType(kv::MaintenanceRecordReport);
    report.setPageSizeF(QSizeF(100, 50));
    report.setOrientation(QPageLayout::Landscape);
    const int placed = fill(report, &profile);
    // A tracker in the scene is no part of the template.
    report.setDesignMode(true);
    report.reportItems().constFirst()->graphicsItem()->setSelected(true);
    QVERIFY(report.tracker());
    QVERIFY(report.tracker()->scene() == &report);

    const QString fileName = dir.filePath("all.rpt");
    QVERIFY(report.save(fileName));

    Report loaded(&profile, factory.get());
    QVERIFY(loaded.load(fileName));
    QCOMPARE(loaded.type(), kv::MaintenanceRecordReport);
    QCOMPARE(loaded.pageSize(), QPageSize::Custom);
    QCOMPARE(loaded.pageSizeF(), QSizeF(100, 50));
    QCOMPARE(loaded.orientation(), QPageLayout::Landscape);
    QCOMPARE(loaded.sceneRect(), report.sceneRect());

    const QList<ReportItem*> originals = report.reportItems();
    const QList<ReportItem*> copies = loaded.reportItems();
    QCOMPARE(copies.size(), placed); // every item placed, read back
    // The item saved first (the topmost) is added first, so the stacking order turns round.
    for (int i = 0; i < originals.size(); ++i) {
        ReportItem* original = originals.at(i);
        ReportItem* copy = copies.at(copies.size() - 1 - i);
        QCOMPARE(copy->key(), original->key());
        QCOMPARE(copy->graphicsItem()->pos(), original->graphicsItem()->pos());
        QCOMPARE(copy->graphicsItem()->transform(), original->graphicsItem()->transform());
        QCOMPARE(payloadOf(copy), payloadOf(original));
    }
    // Loading again adds to what the scene holds.
    QVERIFY(loaded.load(fileName));
    QCOMPARE(loaded.reportItems().size(), 2 * placed);
    // Each axis has its own resolution; only a loaded template changes them.
    QByteArray bytes = fileBytes(fileName);
    Report dense(&profile, factory.get());
    QDataStream dpi(QByteArray(bytes).replace(5, 8, test::streamed(qint32(150), qint32(300))));
    QVERIFY(dense.load(dpi));
    QCOMPARE(dense.dpiX(), 150);
    QCOMPARE(dense.dpiY(), 300);
    QCOMPARE(dense.sceneRect(), QRectF(0, 0, 50 * 150 / 25.4, 100 * 300 / 25.4));
    // The item list on its own, cut short: false and empty.
    QDataStream in(bytes.mid(37).chopped(3));
    in.setVersion(QDataStream::Qt_4_6);
    QList<ReportItem*> read = copies;
    QVERIFY(!loaded.loadItems(in, read));
    QVERIFY(read.isEmpty());
}

void tst_TemplateFile::failedSave()
{
    // A report of no type is no template: nothing is written, and an existing file stays.
    Report report(&profile, factory.get());
    QByteArray bytes;
    QDataStream out(&bytes, QIODevice::WriteOnly);
    QVERIFY(!report.save(out));
    QCOMPARE(report.errorString(), QStringLiteral("未知的报表类型"));
    QVERIFY(bytes.isEmpty());
    const QString fileName = dir.filePath("kept.rpt");
    QVERIFY(writeFile(fileName, "existing"));
    report.setErrorString(QString());
    QVERIFY(!report.save(fileName));
    QCOMPARE(report.errorString(), QStringLiteral("未知的报表类型"));
    QCOMPARE(fileBytes(fileName), QByteArray("existing"));

    // A file that cannot be written is told to the user; the error string is left alone.
    report.setType(kv::PatientReport);
    report.setErrorString(QStringLiteral("earlier"));
    InformationLog::clear();
    QVERIFY(!report.save(dir.filePath("no/such/folder/x.rpt")));
    QCOMPARE(InformationLog::count(), 1);
    QVERIFY(!InformationLog::last().text.isEmpty());
    QCOMPARE(InformationLog::last().buttons, QMessageBox::StandardButtons(QMessageBox::Ok));
    QCOMPARE(InformationLog::last().defaultButton, QMessageBox::Ok);
    QCOMPARE(report.errorString(), QStringLiteral("earlier"));
}

// A template cut short, or with a damaged header or item frame, loads to a failure with a
// message or to a page with what could be read, never to a crash.
void tst_TemplateFile::damagedFiles()
{
    Report report(&profile, factory.get());
    report.setType(kv::PatientReport);
    const int placed = fill(report, &profile);
    const QByteArray bytes = saved(report);
    const QList<int> starts = recordStarts(report);
    QCOMPARE(starts.constLast(), bytes.size());
    QList<int> payloads; // where each record's payload begins
    for (int i = 0; i < placed; ++i)
        payloads.append(starts.at(i + 1) - payloadOf(report.reportItems().at(i)).size());
    auto load = [](const QByteArray& damaged, Report& loaded) {
        QDataStream in(damaged);
        return loaded.load(in);
    };

    // Cuts: every byte of the header and the first frame, each record's first and last bytes and
    // the middle of its payload, every 97th byte and the last few.
    QList<int> cuts;
    for (int size = 0; size <= payloads.at(0); ++size)
        cuts.append(size);
    for (int i = 0; i < placed; ++i)
        cuts << starts.at(i) << starts.at(i) + 1 << payloads.at(i) - 1 << payloads.at(i) << payloads.at(i) + 1
             << (payloads.at(i) + starts.at(i + 1)) / 2 << starts.at(i + 1) - 1;
    for (int size = payloads.at(0); size < bytes.size() - 4; size += 97)
        cuts.append(size);
    for (int size = bytes.size() - 4; size < bytes.size(); ++size)
        cuts.append(size);
    const QStringList failures = {QStringLiteral("错误的文件格式"), QStringLiteral("无法创建  对象")};
    // libpng prints its own complaint about every cut picture.
    for (const int size : std::as_const(cuts)) {
        Report loaded(&profile, factory.get());
        const QByteArray where = "cut at " + QByteArray::number(size);
        // A header cut short is no template; a cut item list loads no items.
        if (size < 37)
            QVERIFY2(!load(bytes.left(size), loaded) &&
                         loaded.errorString() == QStringLiteral("错误的文件格式"),
                     where);
        else if (load(bytes.left(size), loaded))
            QVERIFY2(loaded.reportItems().isEmpty(), where);
        else
            QVERIFY2(failures.contains(loaded.errorString()),
                     QByteArray(where + ": " + loaded.errorString().toUtf8()));
    }

    // Damage to the header and the frames (count, key, position, transform): each byte of the
    // header and the first frame inverted, then one to three bytes anywhere flipped or replaced,
    // 600 templates in all. A key length that no longer fits shifts every later field; what the
    // payload readers then meet is theirs to survive, so the key lengths stay as they are.
    QList<int> framing;
    for (int i = 0; i < 41; ++i)
        framing.append(i);
    for (int i = 0; i < placed; ++i) {
        for (int at = starts.at(i) + 4; at < payloads.at(i); ++at)
            framing.append(at);
    }
    QList<QByteArray> damages;
    for (int i = 0; framing.at(i) < payloads.at(0); ++i) {
        damages.append(bytes);
        damages.last()[framing.at(i)] = char(~bytes.at(framing.at(i)));
    }
    QRandomGenerator random(20261123);
    while (damages.size() < 600) {
        QByteArray damaged = bytes;
        const int changes = 1 + random.bounded(3);
        for (int i = 0; i < changes; ++i) {
            const int at = framing.at(random.bounded(framing.size()));
            if (random.bounded(2))
                damaged[at] = char(damaged.at(at) ^ (1 << random.bounded(8)));
            else
                damaged[at] = char(random.bounded(256));
        }
        damages.append(damaged);
    }
    for (int round = 0; round < damages.size(); ++round) {
        const QByteArray& damaged = damages.at(round);
        Report loaded(&profile, factory.get());
        const QByteArray where = "round " + QByteArray::number(round);
        if (!load(damaged, loaded))
            QVERIFY2(!loaded.errorString().isEmpty(), where);
        QVERIFY2(loaded.reportItems().size() <= placed, where);
    }
}

void tst_TemplateFile::damagedTemplates_data()
{
    QTest::addColumn<QByteArray>("bytes"); // null: no file at all
    QTest::addColumn<QString>("problem");  // what the check names; empty: the template is complete
    QTest::addColumn<QString>("error");    // what loading says; empty: it loads
    QTest::addColumn<int>("items");        // loaded
    QTest::addColumn<int>("type");         // after loading into a maintenance report

    Profile profile;
    ItemFactory factory(&profile);
    Report report(&profile, &factory);
    report.setType(kv::PatientReport);
    const int n = fill(report, &profile);
    const QList<ReportItem*> items = report.reportItems();
    const QByteArray bytes = saved(report);
    const QString count = QString::number(n);
    const QList<int> starts = recordStarts(report);
    auto indexOf = [&](const QString& key) {
        for (int i = 0; i < items.size(); ++i) {
            if (items.at(i)->key() == key)
                return i;
        }
        return -1;
    };
    auto patched = [&](int at, const QByteArray& with) {
        return QByteArray(bytes).replace(at, with.size(), with);
    };
    auto doubleBytes = [](double value) {
        QByteArray out;
        QDataStream(&out, QIODevice::WriteOnly) << value;
        return out;
    };
    const QString loads;
    const QString format = QStringLiteral("错误的文件格式");
    const QString newer = QStringLiteral("无法读取高版本的文档");
    const QString noKey = QStringLiteral("无法创建  对象"); // a frame cut before its key
    const int patient = kv::PatientReport;
    const int none = kv::NoReport;
    const QString cutAt = QStringLiteral("文件在第 %1 个项目处被截断 (共 %2 个项目)");
    const QString endedIn = QStringLiteral("文件在第 %1 个项目 (%2) 中结束, 或该项目已损坏 (共 %3 个项目)");

    QTest::newRow("complete") << bytes << QString() << loads << n << patient;
    QTest::newRow("version 0") << patched(4, QByteArray(1, 0)) << QString() << loads << n << patient;
    QTest::newRow("version 2") << patched(4, "\x02") << newer << newer << 0 << patient;
    QTest::newRow("version 0x80") << patched(4, "\x80") << newer << newer << 0 << patient;
    QTest::newRow("version 0xFF") << patched(4, "\xff") << newer << newer << 0 << patient;
    QTest::newRow("tag unreversed") << patched(0, "nrpt") << format << format << 0 << none;
    QTest::newRow("too short for a tag") << QByteArray("tpr") << format << format << 0 << none;
    QFile missing(dir.filePath("damaged.rpt"));
    QVERIFY(!missing.open(QIODevice::ReadOnly));
    QTest::newRow("no file") << QByteArray() << QStringLiteral("文件不存在") << missing.errorString() << 0
                             << int(kv::MaintenanceRecordReport);
    QTest::newRow("cut in the header") << bytes.left(20) << format << format << 0 << patient;
    QTest::newRow("cut after the header")
        << bytes.left(41) << cutAt.arg(1).arg(count) << noKey << 0 << patient;
    QTest::newRow("cut in a frame") << bytes.left(starts.at(1) + 3) << cutAt.arg(2).arg(count) << noKey << 0
                                    << patient;
    QTest::newRow("cut in a payload")
        << bytes.left(starts.at(2) - 3) << endedIn.arg(2).arg(items.at(1)->key(), count) << loads << 0
        << patient;
    QTest::newRow("one byte short") << bytes.left(bytes.size() - 1)
                                    << endedIn.arg(count, items.constLast()->key(), count) << loads << 0
                                    << patient;
    QTest::newRow("trailing bytes") << bytes + "xyz"
                                    << QStringLiteral("最后一个项目之后还有 3 字节多余的数据") << loads << n
                                    << patient;
    QTest::newRow("dpi 0") << patched(5, QByteArray(4, 0)) << QStringLiteral("分辨率无效: 0 x 96 dpi")
                           << loads << n << patient;
    QTest::newRow("dpi negative") << patched(9, QByteArray::fromHex("ffffffa0"))
                                  << QStringLiteral("分辨率无效: 96 x -96 dpi") << loads << n << patient;
    QTest::newRow("page width negative")
        << patched(21, doubleBytes(-210)) << QStringLiteral("纸张尺寸无效: -210 x 297 mm") << loads << n
        << patient;
    QTest::newRow("page height 0") << patched(29, doubleBytes(0))
                                   << QStringLiteral("纸张尺寸无效: 210 x 0 mm") << loads << n << patient;
    // A frame whose position is not a number: the stream stops there, before the file ends.
    QTest::newRow("position not a number")
        << patched(starts.at(1) + 4 + 2 * items.at(1)->key().size(), doubleBytes(qQNaN()))
        << QStringLiteral("第 2 个项目 (%1) 的内容已损坏").arg(items.at(1)->key()) << loads << 0 << patient;
    QTest::newRow("negative count") << bytes.left(37) + QByteArray::fromHex("ffffffff")
                                    << QStringLiteral("项目数无效: -1") << loads << 0 << patient;

    const int image = indexOf(QStringLiteral("Image"));
    const int png = bytes.indexOf("\x89PNG", starts.at(image));
    QVERIFY(image >= 0 && png > 0 && png < starts.at(image + 1));
    QTest::newRow("undecodable image")
        << patched(png + 1, "XXX") << endedIn.arg(image + 1).arg(QStringLiteral("Image"), count) << loads << 0
        << patient;
    // The result table's row count follows its frame (key, position, transform) and version byte.
    const int table = indexOf(QStringLiteral("Results"));
    QVERIFY(table >= 0);
    const int rows = starts.at(table + 1) - payloadOf(items.at(table)).size() + 1;
    const QString tooLarge = QStringLiteral("模板超出限制：一个表格的单元格数不能超过 100000。");
    QTest::newRow("over-large grid count")
        << patched(rows, QByteArray::fromHex("7fffffff"))
        << QStringLiteral("第 %1 个项目 (Results): ").arg(table + 1) + tooLarge << tooLarge << 0 << patient;

    // A key the factory makes nothing of: the items read before it are dropped too.
    for (const QString& key :
         {QStringLiteral("Gadget"), QStringLiteral("Pointer"), QStringLiteral("field:/patient")}) {
        Report unknown(&profile, &factory);
        unknown.setType(kv::QcReport);
        place(unknown, new ReportRectItem, "Rect", {5, 5});
        place(unknown, new ReportRectItem, key, {5, 50});
        place(unknown, new ReportLineItem, "Line", {5, 90});
        const QString error = QStringLiteral("无法创建 %1 对象").arg(key);
        QTest::newRow(qPrintable("key " + key))
            << saved(unknown) << QStringLiteral("第 2 个项目: ") + error << error << 0 << int(kv::QcReport);
    }
}

// What loading makes of a damaged template (the page without its items, or nothing with a
// message), and the check naming the damage and the item.
void tst_TemplateFile::damagedTemplates()
{
    QFETCH(QByteArray, bytes);
    QFETCH(QString, problem);
    QFETCH(QString, error);
    QFETCH(int, items);
    QFETCH(int, type);
    const QString fileName = dir.filePath(QStringLiteral("damaged.rpt"));
    QFile::remove(fileName);
    if (!bytes.isNull())
        QVERIFY(writeFile(fileName, bytes));
    TemplateCheck check(factory.get());
    QCOMPARE(check.check(fileName), problem.isEmpty());
    QCOMPARE(check.errorString(), problem);
    QCOMPARE(int(Report::fileType(fileName)), bytes.isNull() ? int(kv::NoReport) : type);

    Report loaded(&profile, factory.get());
    loaded.setType(kv::MaintenanceRecordReport);
    QCOMPARE(loaded.load(fileName), error.isEmpty());
    QCOMPARE(loaded.errorString(), error);
    QCOMPARE(loaded.reportItems().size(), items);
    QCOMPARE(int(loaded.type()), type);
    // The item list on its own lets a creation message through to its caller.
    if (error.startsWith(QStringLiteral("无法创建 ")) && bytes.size() > 41) {
        QDataStream in(bytes.mid(37));
        in.setVersion(QDataStream::Qt_4_6);
        QList<ReportItem*> read;
        QString thrown;
        try {
            loaded.loadItems(in, read);
        } catch (const QString& message) {
            thrown = message;
        }
        QCOMPARE(thrown, error);
        QVERIFY(read.isEmpty());
    }
}

// Templates made to hang, crash or exhaust the loader: each loads to what it can show, or is
// refused with a message that names the bound it broke.
void tst_TemplateFile::hostileTemplates_data()
{
    QTest::addColumn<QByteArray>("bytes");
    QTest::addColumn<QString>("refusal"); // empty: loads
    QTest::addColumn<int>("items");

    // The font size of a template found by fuzzing: pixel size -1501801469.
    QFont font(QStringLiteral("Noto Sans CJK SC"), 12);
    QByteArray badFont = textPayload(2, QStringLiteral("\u0D05\r"), font);
    const int pixelSizeAt = test::streamed(qint8(2), qint32(0), QPen(), QBrush()).size() + 4 + 2 * 16 + 8;
    const QByteArray hugeNegative = test::streamed(qint32(-1501801469));
    badFont.replace(pixelSizeAt, 4, hugeNegative);
    QTest::newRow("font size out of range") << templateOf({{"Text", badFont}}) << QString() << 1;

    auto html = [](const QString& text) {
        return templateOf({{"Text", textPayload(1, text)}});
    };
    const QString table = QStringLiteral("<table><tr><td>");
    const QString tableEnd = QStringLiteral("</td></tr></table>");
    QTest::newRow("tables 20 deep") << html(nested(table, tableEnd, 20)) << "HTML 表格的嵌套层数不能超过 4"
                                    << 0;
    QTest::newRow("tables 4 deep") << html(nested(table, tableEnd, 4)) << QString() << 1;
    QTest::newRow("elements 3000 deep")
        << html(nested("<div>", "</div>", 3000)) << "HTML 元素的嵌套层数不能超过 64" << 0;
    QTest::newRow("unclosed paragraphs") << html(QStringLiteral("<p>a").repeated(500)) << QString() << 1;
    QTest::newRow("colspan") << html("<table><tr><td colspan=\"2000000\">x</td></tr></table>")
                             << "HTML 单元格的跨行或跨列数不能超过 100" << 0;
    QTest::newRow("long text") << templateOf({{"Text", textPayload(2, QString(70000, u'x'))}})
                               << "一段文字的字符数不能超过 65536" << 0;

    const QByteArray bigPicture = imagePayload(8000, 4000);
    QList<std::pair<QString, QByteArray>> pictures;
    for (int i = 0; i < 16; ++i)
        pictures.append({"Image", bigPicture});
    QTest::newRow("sixteen 8000x4000 pictures")
        << templateOf(pictures) << "一张图片的像素数不能超过 16777216" << 0;
    const QByteArray largest = imagePayload(4096, 4096);
    QTest::newRow("pictures together")
        << templateOf({{"Image", largest}, {"Image", largest}, {"Image", largest}})
        << "模板中所有图片的像素数不能超过 33554432" << 0;
    QTest::newRow("two largest pictures")
        << templateOf({{"Image", largest}, {"Image", largest}}) << QString() << 2;

    const QByteArray noLists = test::streamed(quint32(0), quint32(0));
    auto grid = [](const QByteArray& payload) {
        return templateOf({{"Results", payload}});
    };
    QTest::newRow("65536 x 65536 grid")
        << grid(gridPayload(65536, 65536, noLists)) << "一个表格的单元格数不能超过 100000" << 0;
    QTest::newRow("1001 columns") << grid(gridPayload(1, 1001, noLists)) << "一个表格的列数不能超过 1000"
                                  << 0;
    QList<std::pair<QString, QByteArray>> grids;
    for (int i = 0; i < 3; ++i)
        grids.append({"Results", gridPayload(1000, 100, noLists)});
    QTest::newRow("cells together") << templateOf(grids) << "模板中所有表格的单元格数不能超过 200000" << 0;
    const QByteArray gridHead = test::streamed(qint8(1), 1, 1, 8.0, 24.0, QSizeF());
    const QByteArray pastTheEnd = test::streamed(quint32(0x7fffffff));
    QTest::newRow("grid rows counted past the end") << grid(gridHead + pastTheEnd) << QString() << 0;
    QTest::newRow("row cells counted past the end")
        << grid(gridHead + test::streamed(quint32(1)) + pastTheEnd) << QString() << 0;
    QTest::newRow("column specs counted past the end")
        << grid(gridHead + test::streamed(quint32(0)) + pastTheEnd) << QString() << 0;
    const QByteArray penHead = test::streamed(qint8(1), QLineF(0, 0, 10, 0), quint16(Qt::CustomDashLine),
                                              false, 1.0, QBrush(Qt::black), 2.0);
    QTest::newRow("dashes counted past the end")
        << templateOf({{"Line", penHead + test::streamed(quint32(0x20000000))}}) << QString() << 0;
    QByteArray stops =
        test::streamed(qint8(1), QRectF(0, 0, 10, 10), QPen(), quint8(Qt::LinearGradientPattern),
                       QColor(Qt::red), qint32(QGradient::LinearGradient), 0, 0, 0, quint32(1000));
    for (int i = 0; i < 1000; ++i)
        stops += test::streamed(1.0 - i / 1000.0, QColor(Qt::blue));
    stops += test::streamed(QPointF(), QPointF(1, 1), QTransform());
    QTest::newRow("1000 unsorted gradient stops")
        << templateOf({{"Rect", stops}}) << "渐变的色标数不能超过 256" << 0;
    QTest::newRow("blocks") << templateOf({{"QcTable", test::streamed(qint8(1), qint32(2000000000), 20.0,
                                                                      QSizeF(300, 100))}})
                            << "多列表格的列块数不能超过 100" << 0;
    QTest::newRow("width not finite")
        << templateOf({{"Text", test::streamed(qint8(2), qint32(0), QPen(), QBrush(), QFont(), qQNaN(),
                                               QString("x"))}})
        << QString() << 0;
    QTest::newRow("items") << templateOf({{"Line", test::streamed(qint8(1), QLineF(), QPen())}}, 20000)
                           << "模板中的项目数不能超过 10000" << 0;
}

void tst_TemplateFile::hostileTemplates()
{
    QFETCH(QByteArray, bytes);
    QFETCH(QString, refusal);
    QFETCH(int, items);

    if (bytes.size() < 65536) // seeds for the fuzzer, see cleanupTestCase
        QVERIFY(writeFile(
            dir.filePath(QStringLiteral("hostile-%1.rpt").arg(QTest::currentDataTag()).replace(' ', '-')),
            bytes));
    QDataStream in(bytes);
    Report report(&profile, factory.get());
    if (!refusal.isEmpty()) {
        QVERIFY(!report.load(in));
        QVERIFY2(report.errorString().startsWith(QStringLiteral("模板超出限制：") + refusal),
                 qPrintable(report.errorString()));
        QVERIFY(report.reportItems().isEmpty());
        return;
    }
    QVERIFY2(report.load(in), qPrintable(report.errorString()));
    QCOMPARE(report.reportItems().size(), items);
    for (ReportItem* item : report.reportItems()) {
        const QFont font = item->font();
        QVERIFY(font.pixelSize() == -1 ? font.pointSizeF() > 0 : font.pixelSize() > 0);
    }
    // The page still prints.
    QImage page(210, 297, QImage::Format_ARGB32_Premultiplied);
    QPainter painter(&page);
    report.render(&painter);
}

// HTML in a template shows pictures only from the template itself: a picture file, a device
// that never ends and a pipe that never delivers all come out as Qt's missing-picture sign.
void tst_TemplateFile::htmlReadsNothingOutside()
{
    QImage picture(40, 30, QImage::Format_RGB32);
    picture.fill(Qt::red);
    const QString pictureFile = dir.filePath("picture.png");
    QVERIFY(picture.save(pictureFile));
    const QString pipe = dir.filePath("pipe");
    QCOMPARE(::mkfifo(QFile::encodeName(pipe).constData(), 0600), 0);

    const QStringList names = {pictureFile, "/dev/zero", pipe, "/etc/passwd"};
    QString html;
    for (const QString& name : names)
        html += QStringLiteral("<img src=\"%1\"><link rel=\"stylesheet\" href=\"%1\">").arg(name);
    QDataStream in(templateOf({{"Text", textPayload(1, html)}}));
    Report report(&profile, factory.get());
    QVERIFY(report.load(in));
    auto* text = dynamic_cast<ReportTextItem*>(report.reportItems().value(0));
    QVERIFY(text && report.reportItems().size() == 1);
    QImage page(210, 297, QImage::Format_ARGB32_Premultiplied);
    QPainter painter(&page);
    report.render(&painter);
    for (const QString& name : names) {
        const QVariant shown = text->document()->resource(QTextDocument::ImageResource, QUrl(name));
        QCOMPARE(shown.value<QImage>().size(), QSize(16, 16));
    }
}

QTEST_MAIN(tst_TemplateFile)
#include "tst_templatefile.moc"
