#include "../common/dialoganswerer.h"
#include "../common/viewdriver.h"

#include <core/profile.h>
#include <creators.h>
#include <itemfactory.h>
#include <keyfactories.h>
#include <report.h>
#include <reportitem.h>

#include <QFileDialog>
#include <QFileInfo>
#include <QImageReader>
#include <QSignalSpy>
#include <QSqlQuery>
#include <QTemporaryDir>
#include <QtTest>
#include <QUndoStack>

#include <memory>

using namespace coagulation;

namespace {

// One palette entry as the designer sees it.
struct Entry
{
    QString className;
    QStringList keys;
    QString name;
    QString group;
    QString icon;
};
using Catalogue = QList<Entry>;

Entry proxy(const QString& group, const QString& key, const QString& name)
{
    return {"coagulation::FactoryProxyCreator", {key}, name, group, "toolText"};
}

Entry column(const QString& group, const QString& table, const QString& column, const QString& name)
{
    return {"coagulation::FieldCreator",
            {QStringLiteral("field:/%1/%2").arg(table, column)},
            name,
            group,
            "toolText"};
}

Catalogue basicTools()
{
    return {{"coagulation::ArrowCreator", {"Pointer", "指针"}, "指针", "", "toolArrow"},
            {"coagulation::LineCreator", {"Line", "直线"}, "直线", "", "toolLine"},
            {"coagulation::RectCreator", {"Rect", "矩形"}, "矩形", "", "toolRect"},
            {"coagulation::TextCreator", {"Text", "文本"}, "文本", "", "toolText"},
            {"coagulation::ImageCreator", {"Image", "图像"}, "图像", "", "toolImage"}};
}

Catalogue generalInformation()
{
    return {proxy("通用信息", "profile:/hospital", "医院名称"), proxy("通用信息", "prop:/date", "打印日期"),
            proxy("通用信息", "prop:/time", "打印时间"), proxy("通用信息", "prop:/page", "页码")};
}

// The tools that follow the patient columns.
Catalogue patientTools()
{
    return {{"coagulation::PatientTableCreator", {"Results", "结果"}, "结果", "患者信息", "toolText"}};
}

Catalogue qcInformation()
{
    return {proxy("质控信息", "prop:/qc/item", "项目名称"),
            proxy("质控信息", "prop:/qc/abbr", "项目缩写"),
            proxy("质控信息", "prop:/qc/unit", "项目单位"),
            proxy("质控信息", "prop:/qc/fileno", "QC01"),
            {"coagulation::QcChartCreator", {"QcChart"}, "质控图", "质控信息", "toolChart"},
            {"coagulation::QcInfoTableCreator", {"QcControlInfo"}, "多规则/上下限值", "质控信息", "toolText"},
            {"coagulation::QcInfoDetailsTableCreator",
             {"QcControlInfoDetails"},
             "多规则/上下限值（带计算值）",
             "质控信息",
             "toolText"},
            {"coagulation::QcTableCreator", {"QcTable"}, "质控结果", "质控信息", "toolText"}};
}

Catalogue maintenanceRecords()
{
    return {
        {"coagulation::MaintenanceMonthCreator", {"MaintenanceMonth"}, "维护月份", "维护记录", "toolText"},
        {"coagulation::MaintenanceRecordCreator",
         {"MaintenanceRecord"},
         "维护记录表",
         "维护记录",
         "toolChart"},
        {"coagulation::MaintenanceOperatorCreator",
         {"MaintenanceOperator"},
         "操作者",
         "维护记录",
         "toolText"}};
}

Catalogue catalogue(const Catalogue& patientColumns, const Catalogue& reagentColumns)
{
    return basicTools() + generalInformation() + patientColumns + patientTools() + reagentColumns +
           qcInformation() + maintenanceRecords();
}

bool exec(QSqlDatabase db, const QString& sql)
{
    QSqlQuery query(db);
    return query.exec(sql);
}

// A patient table whose columns are named in part by the profile, and a reagent table.
void setUpLaboratory(Profile& profile, bool withPatientTable)
{
    if (withPatientTable)
        QVERIFY(exec(profile.dataDatabase(), "create table patient (id integer primary key, name text, "
                                             "bed text, sex text, sampleNo text)"));
    QVERIFY(exec(profile.qcDatabase(), "create table reagent (id integer primary key, lot text, "
                                       "expiry DATE, level text)"));
    profile.setValue("patient/name", QStringLiteral("姓名"));
    profile.setValue("patient/sex", QStringLiteral("性别"));
    profile.setValue("patient/sampleNo", QStringLiteral("样本号"));
    profile.setValue("patient/ghost", QStringLiteral("不存在的列")); // no such column
    profile.setValue("reagent/level", QStringLiteral("水平"));
    profile.setValue("reagent/lot", QStringLiteral("批号"));
}

QString kindOf(const ReportItem* item)
{
    if (!item)
        return QStringLiteral("null");
    if (auto* field = dynamic_cast<const ReportFieldItem*>(item))
        return QStringLiteral("field %1|%2").arg(field->table(), field->field());
    if (auto* prop = dynamic_cast<const ReportPropItem*>(item))
        return QStringLiteral("prop ") + prop->propName();
    if (auto* value = dynamic_cast<const ReportProfileItem*>(item))
        return QStringLiteral("profile ") + value->propName();
    if (dynamic_cast<const ReportQcChartItem*>(item))
        return QStringLiteral("qc chart");
    if (dynamic_cast<const ReportMaintenanceRecordItem*>(item))
        return QStringLiteral("maintenance table");
    if (auto* patient = dynamic_cast<const ReportPatientTableItem*>(item))
        return patient->profile() ? QStringLiteral("patient table")
                                  : QStringLiteral("patient table, no profile");
    if (dynamic_cast<const ReportQcInfoDetailsTableItem*>(item))
        return QStringLiteral("qc details table");
    if (dynamic_cast<const ReportQcInfoTableItem*>(item))
        return QStringLiteral("qc info table");
    if (dynamic_cast<const ReportQcTableItem*>(item))
        return QStringLiteral("qc table");
    if (dynamic_cast<const ReportMonthItem*>(item))
        return QStringLiteral("month");
    if (dynamic_cast<const ReportOperatorItem*>(item))
        return QStringLiteral("operator");
    if (dynamic_cast<const ReportTextItem*>(item))
        return QStringLiteral("text");
    if (dynamic_cast<const ReportLineItem*>(item))
        return QStringLiteral("line");
    if (dynamic_cast<const ReportRectItem*>(item))
        return QStringLiteral("rect");
    if (dynamic_cast<const ReportImageItem*>(item))
        return QStringLiteral("image");
    return QStringLiteral("other");
}

// Counts its own destruction, to see who owns it.
class CountingFactory : public CreatorFactory
{
public:
    CountingFactory(int* deaths) : CreatorFactory(nullptr), deaths(deaths) {}
    ~CountingFactory() override { ++*deaths; }
    ReportItem* create(const QString& key) override
    {
        return key == QLatin1String("custom:/rect") ? new ReportRectItem : nullptr;
    }
    int* deaths;
};

} // namespace

Q_DECLARE_METATYPE(Catalogue)

class tst_ItemFactory : public QObject
{
    Q_OBJECT
private Q_SLOTS:
    void catalogue_data();
    void catalogue();
    void create_data();
    void create();
    void registration();
    void textCreator();
    void dataCreators();
    void arrowCreator();
    void imageCreator();
};

void tst_ItemFactory::catalogue_data()
{
    QTest::addColumn<bool>("withPatientTable");
    QTest::addColumn<Catalogue>("expected");
    const Catalogue reagent = {column("质控血浆", "reagent", "lot", "批号"),
                               column("质控血浆", "reagent", "level", "水平")};
    QTest::newRow("patient and reagent columns")
        << true
        << ::catalogue({column("患者信息", "patient", "name", "姓名"),
                        column("患者信息", "patient", "sex", "性别"),
                        column("患者信息", "patient", "sampleNo", "样本号")},
                       reagent);
    QTest::newRow("no patient table") << false << ::catalogue({}, reagent);
}

void tst_ItemFactory::catalogue()
{
    QFETCH(bool, withPatientTable);
    QFETCH(Catalogue, expected);
    Profile profile;
    setUpLaboratory(profile, withPatientTable);
    ItemFactory factory(&profile);

    const QList<ReportItemCreator*> creators = factory.creators();
    for (int i = 0; i < qMin(creators.size(), expected.size()); ++i) {
        const ReportItemCreator* c = creators.at(i);
        const Entry& e = expected.at(i);
        const QByteArray where = QByteArray::number(i + 1) + ' ' + e.name.toUtf8();
        QVERIFY2(c->metaObject()->className() == e.className, where);
        QCOMPARE(QStringList(c->keys()), e.keys);
        QCOMPARE(c->name(), e.name);
        QCOMPARE(c->group(), e.group);
        QCOMPARE(c->parent(), &factory);
        for (const QString& key : c->keys())
            QCOMPARE(factory.creator(key), c);
        // The icon is the library's own picture of that name.
        const QImage picture(QStringLiteral(":/resources/%1.png").arg(e.icon));
        QVERIFY2(picture.width() >= 32 && picture.height() >= 32, where);
        QCOMPARE(c->icon().pixmap(picture.size()).toImage().convertToFormat(QImage::Format_ARGB32),
                 picture.convertToFormat(QImage::Format_ARGB32));
    }
    QCOMPARE(creators.size(), expected.size());
}

void tst_ItemFactory::create_data()
{
    QTest::addColumn<QString>("key");
    QTest::addColumn<QString>("kind");
    QTest::newRow("Text") << "Text"
                          << "text";
    QTest::newRow("文本") << "文本"
                          << "text";
    QTest::newRow("Line") << "Line"
                          << "line";
    QTest::newRow("直线") << "直线"
                          << "line";
    QTest::newRow("Rect") << "Rect"
                          << "rect";
    QTest::newRow("矩形") << "矩形"
                          << "rect";
    QTest::newRow("Image") << "Image"
                           << "image";
    QTest::newRow("图像") << "图像"
                          << "image";
    QTest::newRow("pointer makes nothing") << "Pointer"
                                           << "null";
    QTest::newRow("指针 makes nothing") << "指针"
                                        << "null";
    QTest::newRow("month") << "MaintenanceMonth"
                           << "month";
    QTest::newRow("operator") << "MaintenanceOperator"
                              << "operator";
    QTest::newRow("qc chart") << "QcChart"
                              << "qc chart";
    QTest::newRow("maintenance table") << "MaintenanceRecord"
                                       << "maintenance table";
    QTest::newRow("Results") << "Results"
                             << "patient table";
    QTest::newRow("结果") << "结果"
                          << "patient table";
    QTest::newRow("QcControlInfo") << "QcControlInfo"
                                   << "qc info table";
    QTest::newRow("QcControlInfoDetails") << "QcControlInfoDetails"
                                          << "qc details table";
    QTest::newRow("QcTable") << "QcTable"
                             << "qc table";
    QTest::newRow("offered field") << "field:/patient/name"
                                   << "field patient|name";
    QTest::newRow("field without creator") << "field:/result/value"
                                           << "field result|value";
    QTest::newRow("unnamed column") << "field:/patient/bed"
                                    << "field patient|bed";
    QTest::newRow("empty field name") << "field:/patient/"
                                      << "field patient|";
    QTest::newRow("two empty names") << "field://"
                                     << "field |";
    QTest::newRow("field one name") << "field:/patient"
                                    << "null";
    QTest::newRow("field no name") << "field:/"
                                   << "null";
    QTest::newRow("field three names") << "field:/patient/name/x"
                                       << "null";
    QTest::newRow("field capitals") << "Field:/patient/name"
                                    << "null";
    QTest::newRow("prop date") << "prop:/date"
                               << "prop date";
    QTest::newRow("prop keeps slashes") << "prop:/qc/fileno"
                                        << "prop qc/fileno";
    QTest::newRow("prop without proxy") << "prop:/anything"
                                        << "prop anything";
    QTest::newRow("prop empty") << "prop:/"
                                << "prop ";
    QTest::newRow("prop capitals") << "PROP:/date"
                                   << "null";
    QTest::newRow("prop one slash short") << "prop:date"
                                          << "null";
    QTest::newRow("profile hospital") << "profile:/hospital"
                                      << "profile hospital";
    QTest::newRow("profile empty") << "profile:/"
                                   << "profile ";
    QTest::newRow("profile slashes") << "profile:/a/b"
                                     << "profile a/b";
    QTest::newRow("profile capitals") << "Profile:/hospital"
                                      << "null";
    QTest::newRow("creator keys are case-sensitive") << "text"
                                                     << "null";
    QTest::newRow("creator keys match whole") << " Text"
                                              << "null";
    QTest::newRow("empty key") << ""
                               << "null";
    QTest::newRow("unknown") << "Gadget"
                             << "null";
}

void tst_ItemFactory::create()
{
    QFETCH(QString, key);
    QFETCH(QString, kind);
    Profile profile;
    setUpLaboratory(profile, true);
    ItemFactory factory(&profile);
    std::unique_ptr<ReportItem> item(factory.create(key));
    QCOMPARE(kindOf(item.get()), kind);
    if (item)
        QCOMPARE(item->key(), QString()); // the caller sets the key
}

void tst_ItemFactory::registration()
{
    Profile profile;
    int deaths = 0;
    {
        ItemFactory factory(&profile);
        const int standard = factory.creators().size();
        ReportItemCreator* text = factory.creator("Text");

        // A later creator takes over a key; both stay in the palette.
        QObject keeper;
        auto* second = new TextCreator(QStringLiteral("其他"), &keeper);
        factory.registerCreator(second);
        QCOMPARE(factory.creator("Text"), second);
        QCOMPARE(factory.creator("文本"), second);
        QCOMPARE(factory.creators().size(), standard + 1);
        QCOMPARE(factory.creators().last(), second);
        QVERIFY(factory.creators().contains(text));
        QCOMPARE(second->parent(), &keeper); // a creator with a parent stays with it
        factory.registerCreator(nullptr);
        QCOMPARE(factory.creators().size(), standard + 1);

        // The pointer ignores the parent it is given and is adopted on registration.
        ArrowCreator arrow(&keeper);
        QCOMPARE(arrow.parent(), nullptr);
        QCOMPARE(factory.creator("Pointer")->parent(), &factory);

        // Key factories are asked after the creators, in registration order, and owned.
        factory.registerFactory(new CountingFactory(&deaths));
        std::unique_ptr<ReportItem> item(factory.create("custom:/rect"));
        QCOMPARE(kindOf(item.get()), QStringLiteral("rect"));
        QCOMPARE(factory.creator("custom:/rect"), nullptr);
        delete second; // leaves the keeper before the factory's maps are gone
    }
    QCOMPARE(deaths, 1);
}

void tst_ItemFactory::textCreator()
{
    Profile profile;
    ItemFactory factory(&profile);
    Report report(&profile, &factory);
    test::ViewDriver driver(&report);
    driver.view.activateWindow();
    QVERIFY(QTest::qWaitForWindowActive(&driver.view));

    auto* item = dynamic_cast<ReportTextItem*>(factory.create("Text"));
    QVERIFY(item);
    QVERIFY(item->isEditable());
    QCOMPARE(item->textInteractionFlags(), Qt::TextEditorInteraction);
    report.addItem(item);
    QCOMPARE(report.focusItem(), item); // ready for typing
    QTest::keyClicks(driver.view.viewport(), "abc");
    QCOMPARE(item->toPlainText(), QStringLiteral("abc"));
}

void tst_ItemFactory::dataCreators()
{
    Profile profile;
    setUpLaboratory(profile, true);
    ItemFactory factory(&profile);

    auto* field = qobject_cast<FieldCreator*>(factory.creator("field:/patient/sex"));
    QVERIFY(field);
    QCOMPARE(QStringList(field->keys()), QStringList{"field:/patient/sex"});
    std::unique_ptr<ReportItem> item(field->create());
    auto* fieldItem = dynamic_cast<ReportFieldItem*>(item.get());
    QVERIFY(fieldItem);
    QVERIFY(!fieldItem->isEditable());
    QCOMPARE(fieldItem->profile(), &profile);
    QCOMPARE(fieldItem->toPlainText(), QStringLiteral("[性别]"));

    // A column without a display name has no creator, but its key still loads.
    QCOMPARE(factory.creator("field:/patient/bed"), nullptr);

    PropItemFactory props(&profile);
    FactoryProxyCreator rejected(&props, "组", "profile:/hospital", "名称");
    QCOMPARE(rejected.create(), nullptr);
    FactoryProxyCreator orphan(nullptr, "组", "prop:/date", "名称");
    QCOMPARE(orphan.create(), nullptr);
    FactoryProxyCreator accepted(&props, "组", "prop:/qc/unit", "项目单位");
    item.reset(accepted.create());
    QCOMPARE(kindOf(item.get()), QStringLiteral("prop qc/unit"));
    QCOMPARE(accepted.group(), QStringLiteral("组"));
}

void tst_ItemFactory::arrowCreator()
{
    Profile profile;
    ItemFactory factory(&profile);
    Report report(&profile, &factory);
    report.setDesignMode(true);
    auto* rect = new ReportRectItem;
    rect->setRect(0, 0, 40, 40);
    rect->setPos(100, 100);
    report.addItem(rect);
    test::ViewDriver driver(&report);

    ReportItemCreator* arrow = factory.creator("Pointer");
    QVERIFY(arrow);
    QCOMPARE(arrow->create(), nullptr);
    arrow->enter(&driver.view);
    QCOMPARE(driver.view.dragMode(), QGraphicsView::RubberBandDrag);

    // A drag around the item selects it through the view and creates nothing.
    driver.drag(QPointF(80, 80), QPointF(170, 170));
    QVERIFY(rect->isSelected());
    QCOMPARE(report.reportItems().size(), 1);
    QCOMPARE(report.undoStack()->count(), 0);

    arrow->leave();
    QCOMPARE(driver.view.dragMode(), QGraphicsView::NoDrag);
    QCOMPARE(arrow->view(), &driver.view); // still attached, deliberately
}

void tst_ItemFactory::imageCreator()
{
    Profile profile;
    ItemFactory factory(&profile);
    Report report(&profile, &factory);
    report.setDesignMode(true);
    test::ViewDriver driver(&report);
    auto* tool = qobject_cast<ImageCreator*>(factory.creator("图像"));
    QVERIFY(tool);

    QStringList patterns;
    for (const QByteArray& format : QImageReader::supportedImageFormats())
        patterns << "*." + QString::fromLatin1(format);
    QVERIFY(patterns.contains("*.png"));
    const QString expectedFilter = "所有格式(" + patterns.join(';') + ");;所有文件(*.*)";

    QString askedFilter;
    QWidget* askedParent = nullptr;
    test::DialogAnswerer dialogs;
    dialogs.then([&](QDialog* dialog) {
        auto* files = qobject_cast<QFileDialog*>(dialog);
        QVERIFY(files);
        askedParent = files->parentWidget();
        askedFilter = files->nameFilters().join(";;");
        QCOMPARE(files->fileMode(), QFileDialog::ExistingFile);
        files->reject();
    });
    QSignalSpy finished(tool, &ReportItemCreator::finished);

    // Cancelled: nothing is made, and the designer hears that the tool is done.
    tool->enter(&driver.view);
    QCOMPARE(dialogs.shown(), QStringList{"QFileDialog"});
    QCOMPARE(askedFilter, expectedFilter);
    QCOMPARE(askedParent, driver.view.window());
    QCOMPARE(finished.size(), 1);
    QCOMPARE(finished.at(0).at(0).value<ReportItem*>(), nullptr);
    QVERIFY(report.reportItems().isEmpty());
    QCOMPARE(report.undoStack()->count(), 0);
    tool->leave();

    QTemporaryDir dir;
    QImage picture(40, 20, QImage::Format_RGB32);
    picture.fill(Qt::red);
    const QString fileName = dir.filePath("logo.png");
    QVERIFY(picture.save(fileName));
    dialogs.chooseFile(fileName);
    tool->enter(&driver.view);
    QCOMPARE(dialogs.shown().size(), 2);
    QCOMPARE(report.undoStack()->count(), 1);
    const QList<ReportItem*> items = report.reportItems();
    QCOMPARE(items.size(), 1);
    auto* image = dynamic_cast<ReportImageItem*>(items.first());
    QVERIFY(image);
    QCOMPARE(image->key(), QStringLiteral("Image"));
    QCOMPARE(image->pixmap().size(), QSize(40, 20));
    const QPixmap pixmap(fileName);
    QCOMPARE(image->transform(),
             QTransform::fromScale(double(pixmap.widthMM()) / 40, double(pixmap.heightMM()) / 20));
    tool->leave();
}

QTEST_MAIN(tst_ItemFactory)
#include "tst_itemfactory.moc"
