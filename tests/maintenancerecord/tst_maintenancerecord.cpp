#include "../common/viewdriver.h"
#include "../common/widgetitemtesting.h"
#include "../common/workspace.h"

#include <chartitems.h>
#include <core/profile.h>
#include <itemfactory.h>
#include <kvcore/maintenanceexportdata.h>
#include <kvcore/maintenancerecorddelegate.h>
#include <kvcore/maintenancerecordmodel.h>
#include <kvcore/maintenancerecords.h>
#include <kvcore/maintenancetableview.h>
#include <recttracker.h>
#include <report.h>
#include <reportprinter.h>

#include <QDataStream>
#include <QDir>
#include <QHeaderView>
#include <QPainter>
#include <QSqlQuery>
#include <QStandardPaths>
#include <QTemporaryDir>
#include <QTest>
#include <QWheelEvent>

#include <memory>

using namespace coagulation;

namespace {

// Records straight from the database: "MM-dd task operator result remark" per record.
QStringList databaseRecords(Profile* profile, int workbench, int recordType, const QString& month)
{
    QSqlQuery query(profile->qcDatabase());
    query.prepare(QStringLiteral("select date, task, operator, result, remark from maintenanceRecord where "
                                 "workbench = ? and recordType = ? and date like ? order by date, id"));
    query.addBindValue(workbench);
    query.addBindValue(recordType);
    query.addBindValue(QString(month + QStringLiteral("-%")));
    QStringList rows;
    if (!query.exec())
        return rows;
    while (query.next()) {
        QStringList row;
        for (int i = 0; i < 5; ++i)
            row.append(query.value(i).toString());
        rows.append(row.join(QLatin1Char('|')));
    }
    return rows;
}

QStringList titles(const QList<ReportMaintenanceRecordItem*>& items)
{
    QStringList list;
    for (ReportMaintenanceRecordItem* item : items)
        list.append(item->view()->title());
    return list;
}

} // namespace

class tst_MaintenanceRecord : public QObject
{
    Q_OBJECT
private Q_SLOTS:
    void initTestCase();
    void emptyTable();
    void consecutiveRecordTypes();
    void monthOfRealRecords();
    void sizedToContents();
    void printedTables();
    void mouseStaysWithTheItem();
    void payloadRoundTrip();

private:
    test::DemoWorkspace m_lab{7, test::DemoWorkspace::InMemory}; // generated once
    QList<Workbench> m_workbenches;
};

void tst_MaintenanceRecord::initTestCase()
{
    QVERIFY2(m_lab.create({0, 0, 2}), qPrintable(m_lab.errorString()));
    m_workbenches = MaintenanceRecords(m_lab.profile()).workbenches();
    QCOMPARE(m_workbenches.size(), 2);
}

// Without maintenance data the table is the empty daily one, and stays so whatever binds data.
void tst_MaintenanceRecord::emptyTable()
{
    Profile profile;
    Report report(&profile, nullptr);
    auto* item = new ReportMaintenanceRecordItem;
    report.addItem(item);
    MaintenanceTableView* view = item->view();
    auto* model = qobject_cast<MaintenanceRecordModel*>(view->model());
    QVERIFY(model);
    QCOMPARE(model->recordType(), MaintenanceManager::DailyMaintenance);
    QVERIFY(qobject_cast<MaintenanceRecordDelegate*>(view->itemDelegate()));
    QCOMPARE(model->rowCount(), 0);
    QCOMPARE(model->headerData(0, Qt::Horizontal).toString(), QStringLiteral("无记录"));
    QCOMPARE(item->focusPolicy(), Qt::NoFocus);
    QVERIFY(item->flags() & QGraphicsItem::ItemSendsScenePositionChanges);
    // The default style pair: pen and brush are not the table's to change.
    item->setPen(QPen(Qt::red, 3));
    QCOMPARE(item->pen(), QPen());
    std::unique_ptr<Tracker> tracker(item->createTracker());
    QVERIFY(dynamic_cast<RectTracker*>(tracker.get()));

    const QSize before = view->size();
    item->updateData(); // a patient or QC report binds no maintenance data
    report.fetchData(1, profile.dataDatabase());
    QCOMPARE(view->title(), QStringLiteral("日保养"));
    QCOMPARE(view->size(), before);
    QCOMPARE(view->minimumWidth(), 0);
    // Outside a scene nothing happens either.
    ReportMaintenanceRecordItem loose;
    loose.updateData();
    QCOMPARE(loose.view()->title(), QStringLiteral("日保养"));
}

void tst_MaintenanceRecord::consecutiveRecordTypes()
{
    Report report(m_lab.profile(), nullptr);
    auto* upper = new ReportMaintenanceRecordItem;
    auto* lower = new ReportMaintenanceRecordItem;
    report.addItem(upper);
    report.addItem(lower);
    upper->setZValue(2); // filled first
    lower->setZValue(1);

    Workbench workbench = m_workbenches.first();
    MaintenanceExportData data{&workbench, QDate(2024, 6, 12), MaintenanceManager::MonthlyMaintenance};
    report.prepareMaintenanceData(&data);
    QCOMPARE(titles({upper, lower}), (QStringList{QStringLiteral("日保养"), QStringLiteral("周保养")}));
    QCOMPARE(int(data.recordType), 3);
    auto* upperModel = qobject_cast<MaintenanceRecordModel*>(upper->view()->model());
    auto* lowerModel = qobject_cast<MaintenanceRecordModel*>(lower->view()->model());
    QCOMPARE(upperModel->recordType(), MaintenanceManager::DailyMaintenance);
    QCOMPARE(lowerModel->recordType(), MaintenanceManager::WeeklyMaintenance);
    QCOMPARE(upperModel->workbench(), &workbench);
    QCOMPARE(upperModel->month(), QDate(2024, 6, 12));

    // Filling again without resetting the data carries on where the last table stopped.
    for (ReportItem* item : report.reportItems())
        item->updateData();
    QCOMPARE(titles({upper, lower}), (QStringList{QStringLiteral("月保养"), QString()}));
    QCOMPARE(int(data.recordType), 5);
    QVERIFY(upperModel->rowCount() > 0);
    QCOMPARE(lowerModel->rowCount(), 0); // no such record type

    // A new maintenance job starts over.
    report.prepareMaintenanceData(&data);
    QCOMPARE(titles({upper, lower}), (QStringList{QStringLiteral("日保养"), QStringLiteral("周保养")}));
}

void tst_MaintenanceRecord::monthOfRealRecords()
{
    for (const Workbench& bench : m_workbenches) {
        for (const int type : {1, 2, 3}) {
            const QStringList expected =
                databaseRecords(m_lab.profile(), bench.id(), type, QStringLiteral("2024-06"));
            QVERIFY(!expected.isEmpty());
            Workbench workbench = bench;
            MaintenanceRecordModel model(&workbench, QDate(2024, 6, 30),
                                         MaintenanceManager::RecordType(type));
            auto find = [&](Qt::Orientation orientation, int count, const QString& text) {
                for (int i = 0; i < count; ++i) {
                    if (model.headerData(i, orientation).toString().remove(QLatin1Char('\n')) == text)
                        return i;
                }
                return -1;
            };
            // Every record lands in its day's row and its task's column, nothing is lost.
            QSet<QString> days;
            for (const QString& line : expected) {
                const QStringList f = line.split(QLatin1Char('|'));
                const QString day = QDate::fromString(f.at(0), Qt::ISODate).toString(QStringLiteral("MM-dd"));
                days.insert(day);
                const int row = find(Qt::Vertical, model.rowCount(), day);
                const int column = find(Qt::Horizontal, model.columnCount() - 1, f.at(1));
                QVERIFY2(row >= 0 && column >= 0, qPrintable(line));
                const QModelIndex cell = model.index(row, column);
                const QString text = cell.data().toString();
                QVERIFY2(text.startsWith(f.at(2)), qPrintable(line + QStringLiteral(" shows ") + text));
                const bool notable = f.at(3) != QStringLiteral("正常") && f.at(3) != QStringLiteral("已完成");
                QVERIFY2(text.contains(f.at(3)) == notable,
                         qPrintable(line + QStringLiteral(" shows ") + text));
                QCOMPARE(cell.data(MaintenanceRecordModel::NotableResultRole).toBool(), notable);
                const QString remarks = model.index(row, model.columnCount() - 1).data().toString();
                QVERIFY(remarks.contains(f.at(4)));
            }
            QCOMPARE(model.rowCount(), days.size());
            QCOMPARE(model.headerData(model.columnCount() - 1, Qt::Horizontal).toString(),
                     QStringLiteral("备注"));
        }
    }
    // The month is the month of the day given; another month shows other days.
    Workbench workbench = m_workbenches.first();
    MaintenanceRecordModel model(&workbench, QDate(2024, 5, 2), MaintenanceManager::DailyMaintenance);
    QCOMPARE(model.headerData(0, Qt::Vertical).toString().left(2), QStringLiteral("05"));
    model.updateInfo(&workbench, QDate(2023, 1, 1), MaintenanceManager::DailyMaintenance);
    QCOMPARE(model.rowCount(), 0);
    // A workbench of no profile has no records to read.
    Workbench stray(1, QStringLiteral("1号凝血分析仪"));
    model.updateInfo(&stray, QDate(2024, 6, 1), MaintenanceManager::DailyMaintenance);
    QCOMPARE(model.rowCount(), 0);
}

void tst_MaintenanceRecord::sizedToContents()
{
    Report report(m_lab.profile(), nullptr);
    auto* item = new ReportMaintenanceRecordItem;
    report.addItem(item);
    Workbench workbench = m_workbenches.first();
    MaintenanceExportData data{&workbench, QDate(2024, 6, 1), MaintenanceManager::DailyMaintenance};
    report.prepareMaintenanceData(&data);

    MaintenanceTableView* view = item->view();
    const int rows = view->model()->rowCount();
    const int columns = view->model()->columnCount();
    QVERIFY(rows > 20);
    QCOMPARE(columns, 6); // five daily tasks and the remarks
    int height = view->horizontalHeader()->height();
    for (int r = 0; r < rows; ++r)
        height += view->rowHeight(r);
    int width = view->verticalHeader()->width();
    for (int c = 0; c < columns; ++c)
        width += view->columnWidth(c);
    QCOMPARE(view->size(), QSize(width, height));
    QCOMPARE(view->minimumSize(), view->maximumSize());
    QCOMPARE(item->size(), QSizeF(width, height));
    // Every task column fits its widest text, and the corner fits the title.
    const QFontMetrics metrics(view->font());
    QVERIFY(view->verticalHeader()->width() >= metrics.horizontalAdvance(QStringLiteral("日保养")));
    for (int c = 0; c < columns - 1; ++c) {
        for (int r = 0; r < rows; ++r) {
            const QStringList lines = view->model()->index(r, c).data().toString().split(QLatin1Char('\n'));
            for (const QString& line : lines)
                QVERIFY(view->columnWidth(c) >= metrics.horizontalAdvance(line));
        }
    }
    // Long remarks wrap within a bounded width and are cut after two lines, so no row is taller
    // than two single-line rows.
    QCOMPARE(view->columnWidth(columns - 1), view->remarkWidth());
    int lowest = view->rowHeight(0);
    int highest = lowest;
    for (int r = 0; r < rows; ++r) {
        lowest = qMin(lowest, view->rowHeight(r));
        highest = qMax(highest, view->rowHeight(r));
    }
    QVERIFY2(highest > lowest && highest <= 2 * lowest,
             qPrintable(QStringLiteral("%1 %2").arg(lowest).arg(highest)));
    const QString cut = MaintenanceRecordDelegate::fitted(QString(100, QChar(0x4e00)), view->font(), 200);
    QCOMPARE(cut.count(QLatin1Char('\n')), MaintenanceRecordDelegate::maxLines - 1);
    QVERIFY(cut.endsWith(QChar(0x2026)));
    QVERIFY(metrics.horizontalAdvance(cut.section(QLatin1Char('\n'), -1)) <= 200);
}

// Three tables of a month on a maintenance template: on the page each shows its own widget's
// pixels, and printed by the printing service each comes out whole and nothing else.
void tst_MaintenanceRecord::printedTables()
{
    ReportPrinter printer;
    printer.setWorkspace(m_lab.workspace());
    Workbench workbench = m_workbenches.at(1);
    const QString fileName = m_lab.templatePath(QStringLiteral("maintenance"));
    {
        Report built(m_lab.profile(), printer.itemFactory());
        built.setType(kv::MaintenanceRecordReport);
        QFont font(QStringLiteral("Noto Sans CJK SC"));
        font.setPixelSize(11);
        for (int i = 0; i < 3; ++i) {
            ReportItem* item = printer.itemFactory()->create(QStringLiteral("MaintenanceRecord"));
            QVERIFY(dynamic_cast<ReportMaintenanceRecordItem*>(item));
            item->setKey(QStringLiteral("MaintenanceRecord"));
            item->setFont(font);
            built.addItem(item->graphicsItem());
        }
        // Tables are filled from the top of the stack, which a load turns round: the lowest here
        // gets the daily records on the page, so it goes first.
        MaintenanceExportData data{&workbench, QDate(2024, 6, 1), MaintenanceManager::DailyMaintenance};
        built.prepareMaintenanceData(&data);
        const QList<ReportItem*> filled = built.reportItems();
        double y = 40;
        for (int i = 0; i < filled.size(); ++i) {
            filled.at(filled.size() - 1 - i)->graphicsItem()->setPos(40, y);
            y += dynamic_cast<ReportMaintenanceRecordItem*>(filled.at(i))->size().height() + 20;
        }
        QVERIFY2(y < built.sceneRect().height(), "three tables of a month fit on one page");
        QVERIFY(built.save(fileName));
    }
    // The page as the printing service makes it.
    Report report(m_lab.profile(), printer.itemFactory());
    QVERIFY(report.load(fileName));
    MaintenanceExportData data{&workbench, QDate(2024, 6, 1), MaintenanceManager::DailyMaintenance};
    report.prepareMaintenanceData(&data);
    QList<ReportMaintenanceRecordItem*> items;
    for (ReportItem* item : report.reportItems())
        items.append(dynamic_cast<ReportMaintenanceRecordItem*>(item));
    QCOMPARE(titles(items),
             (QStringList{QStringLiteral("日保养"), QStringLiteral("周保养"), QStringLiteral("月保养")}));
    QCOMPARE(items.at(0)->pos(), QPointF(40, 40));

    // The table's own pixels are what the scene shows (the proxy paints the widget).
    QImage page(report.sceneRect().size().toSize() + QSize(1, 1), QImage::Format_RGB32);
    page.fill(Qt::white);
    {
        QPainter painter(&page); // one scene unit to a pixel
        report.render(&painter, QRectF(QPointF(0, 0), report.sceneRect().size()), report.sceneRect());
    }
    for (ReportMaintenanceRecordItem* item : items) {
        const QImage table = item->view()->grab().toImage().convertToFormat(QImage::Format_RGB32);
        QCOMPARE(table.size(), item->size().toSize());
        QCOMPARE(page.copy(QRect(item->pos().toPoint(), table.size())), table);
        // The title in the corner is as dark as the rest of the header, not greyed out.
        const QImage corner =
            page.copy(QRect(item->pos().toPoint(), QSize(item->view()->verticalHeader()->width(),
                                                         item->view()->horizontalHeader()->height())));
        int dark = 0;
        for (int y = 0; y < corner.height(); ++y) {
            for (int x = 0; x < corner.width(); ++x)
                dark += qGray(corner.pixel(x, y)) < 80 ? 1 : 0;
        }
        QVERIFY2(dark > 10, qPrintable(item->view()->title()));
    }

    m_lab.profile()->setValue(QStringLiteral("report/maintenanceRecord"), QStringLiteral("maintenance"));
    QTemporaryDir tmp;
    const QString pdfPath =
        QDir(test::outputDir(QStringLiteral("maintenance"), tmp)).filePath(QStringLiteral("maintenance.pdf"));
    printer.setOutputFileName(pdfPath);
    MaintenanceExportData job{&workbench, QDate(2024, 6, 1), MaintenanceManager::DailyMaintenance};
    QVERIFY(printer.store(&job, DataStorage::StoreAtOnce));
    QCOMPARE(int(job.recordType), 4); // daily, weekly and monthly were printed

    // On paper: ink only where the three tables stand, and their bottom rows reach the paper.
    if (QStandardPaths::findExecutable(QStringLiteral("pdftoppm")).isEmpty())
        QSKIP("pdftoppm is not installed");
    const QImage png = test::pdfToPng(pdfPath);
    QVERIFY(!png.isNull());
    const double scale = png.width() / report.sceneRect().width();
    int inkOutside = 0;
    QList<int> inkInBottomRow(items.size(), 0);
    for (int y = 0; y < png.height(); ++y) {
        for (int x = 0; x < png.width(); ++x) {
            if (qGray(png.pixel(x, y)) > 200)
                continue;
            const QPointF at(x / scale, y / scale);
            bool inside = false;
            for (int i = 0; i < items.size(); ++i) {
                const QRectF rect = items.at(i)->sceneBoundingRect().adjusted(-2, -2, 2, 2);
                if (rect.contains(at)) {
                    inside = true;
                    if (at.y() > rect.bottom() - 30)
                        ++inkInBottomRow[i];
                }
            }
            inkOutside += inside ? 0 : 1;
        }
    }
    QCOMPARE(inkOutside, 0);
    for (const int ink : inkInBottomRow)
        QVERIFY(ink > 50);
}

void tst_MaintenanceRecord::mouseStaysWithTheItem()
{
    Profile profile;
    Report report(&profile, nullptr);
    report.setDesignMode(true);
    auto* item = new ReportMaintenanceRecordItem;
    report.addItem(item);
    item->setPos(100, 100);
    item->setGeometry(QPolygonF({QPointF(0, 0), QPointF(300, 150)}));
    test::MouseCounter counter;
    item->view()->installEventFilter(&counter);
    item->view()->viewport()->installEventFilter(&counter);
    item->view()->horizontalHeader()->viewport()->installEventFilter(&counter);

    test::ViewDriver driver(&report);
    for (const QPointF& at : {QPointF(150, 110), QPointF(250, 200)}) {
        driver.press(at);
        driver.release(at);
        QVERIFY(item->isSelected());
        const QPoint local = driver.view.mapFromScene(at);
        QWheelEvent wheel(local, driver.view.viewport()->mapToGlobal(local), QPoint(), QPoint(0, -120),
                          Qt::NoButton, Qt::NoModifier, Qt::NoScrollPhase, false);
        QApplication::sendEvent(driver.view.viewport(), &wheel);
        QTest::mouseDClick(driver.view.viewport(), Qt::LeftButton, Qt::NoModifier, local);
    }
    QCOMPARE(counter.count, 0);
    const QPointF before = item->pos();
    driver.drag(QPointF(200, 180), QPointF(260, 220));
    QCOMPARE(counter.count, 0);
    QVERIFY(item->pos() != before);
}

void tst_MaintenanceRecord::payloadRoundTrip()
{
    ReportMaintenanceRecordItem item;
    item.setGeometry(QPolygonF({QPointF(0, 0), QPointF(500, 300)}));
    QFont font(QStringLiteral("Noto Sans CJK SC"));
    font.setPixelSize(10);
    item.setFont(font);
    const QByteArray bytes = test::payloadOf(&item);
    QCOMPARE(bytes, test::streamed(qint8(1), QRectF(0, 0, 500, 300), QPen(), QBrush(), font));
    ReportMaintenanceRecordItem copy;
    QVERIFY(test::loadPayload(&copy, bytes));
    QCOMPARE(copy.geometry(), QPolygonF({QPointF(0, 0), QPointF(500, 300)}));
    QCOMPARE(copy.font().pixelSize(), 10);
    QCOMPARE(copy.view()->font().pixelSize(), 10);
}

QTEST_MAIN(tst_MaintenanceRecord)
#include "tst_maintenancerecord.moc"
