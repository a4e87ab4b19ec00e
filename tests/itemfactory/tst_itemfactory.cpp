#include "../common/dialoganswerer.h"
#include "../common/viewdriver.h"

#include <core/profile.h>
#include <creators.h>
#include <itemfactory.h>
#include <keyfactories.h>
#include <report.h>
#include <reportitem.h>

#include <QFileDialog>
#include <QImageReader>
#include <QSignalSpy>
#include <QSqlQuery>
#include <QTemporaryDir>
#include <QtTest>
#include <QUndoStack>

#include <cxxabi.h>
#include <memory>
#include <typeinfo>

using namespace coagulation;

namespace {

// One palette entry as the designer sees it (class names without the namespace).
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
    return {"FactoryProxyCreator", {key}, name, group, "toolText"};
}

Entry column(const QString& group, const QString& table, const QString& column, const QString& name)
{
    return {"FieldCreator", {QStringLiteral("field:/%1/%2").arg(table, column)}, name, group, "toolText"};
}

// Basic tools, general information, the patient columns, the patient tools, the reagent columns,
// QC information and maintenance records, in palette order.
Catalogue catalogue(const Catalogue& patientColumns, const Catalogue& reagentColumns)
{
    const QString qc = QStringLiteral("质控信息"), general = QStringLiteral("通用信息"),
                  maintenance = QStringLiteral("维护记录"),
                  details = QStringLiteral("多规则/上下限值（带计算值）");
    return Catalogue{{"ArrowCreator", {"Pointer", "指针"}, "指针", "", "toolArrow"},
                     {"LineCreator", {"Line", "直线"}, "直线", "", "toolLine"},
                     {"RectCreator", {"Rect", "矩形"}, "矩形", "", "toolRect"},
                     {"TextCreator", {"Text", "文本"}, "文本", "", "toolText"},
                     {"ImageCreator", {"Image", "图像"}, "图像", "", "toolImage"},
                     proxy(general, "profile:/hospital", "医院名称"),
                     proxy(general, "prop:/date", "打印日期"),
                     proxy(general, "prop:/time", "打印时间"),
                     proxy(general, "prop:/page", "页码")} +
           patientColumns +
           Catalogue{{"PatientTableCreator", {"Results", "结果"}, "结果", "患者信息", "toolText"}} +
           reagentColumns +
           Catalogue{
               proxy(qc, "prop:/qc/item", "项目名称"),
               proxy(qc, "prop:/qc/abbr", "项目缩写"),
               proxy(qc, "prop:/qc/unit", "项目单位"),
               proxy(qc, "prop:/qc/fileno", "QC01"),
               {"QcChartCreator", {"QcChart"}, "质控图", qc, "toolChart"},
               {"QcInfoTableCreator", {"QcControlInfo"}, "多规则/上下限值", qc, "toolText"},
               {"QcInfoDetailsTableCreator", {"QcControlInfoDetails"}, details, qc, "toolText"},
               {"QcTableCreator", {"QcTable"}, "质控结果", qc, "toolText"},
               {"MaintenanceMonthCreator", {"MaintenanceMonth"}, "维护月份", maintenance, "toolText"},
               {"MaintenanceRecordCreator", {"MaintenanceRecord"}, "维护记录表", maintenance, "toolChart"},
               {"MaintenanceOperatorCreator", {"MaintenanceOperator"}, "操作者", maintenance, "toolText"}};
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

// The item's own class, and for a data-bound text what it shows.
QString kindOf(const ReportItem* item)
{
    if (!item)
        return QStringLiteral("null");
    int status = 0;
    const std::unique_ptr<char, decltype(&std::free)> name(
        abi::__cxa_demangle(typeid(*item).name(), nullptr, nullptr, &status), &std::free);
    QString kind = QString::fromLatin1(name.get()).remove(QStringLiteral("coagulation::"));
    if (auto* field = dynamic_cast<const ReportFieldItem*>(item))
        kind += QStringLiteral(" %1|%2").arg(field->table(), field->field());
    else if (auto* prop = dynamic_cast<const ReportPropItem*>(item))
        kind += QLatin1Char(' ') + prop->propName();
    else if (auto* value = dynamic_cast<const ReportProfileItem*>(item))
        kind += QLatin1Char(' ') + value->propName();
    else if (auto* patient = dynamic_cast<const ReportPatientTableItem*>(item);
             patient && !patient->profile())
        kind += QStringLiteral(", no profile");
    return kind;
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
    void dataCreators();
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
        QVERIFY2(c->metaObject()->className() == "coagulation::" + e.className, where);
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

// Creators answer to each of their keys (the catalogue checks that); here each kind of item once.
void tst_ItemFactory::create_data()
{
    QTest::addColumn<QString>("key");
    QTest::addColumn<QString>("kind");
    const auto row = [](const char* name, const char* key, const char* kind) {
        QTest::newRow(name) << QString::fromUtf8(key) << QString::fromUtf8(kind);
    };
    row("Text", "Text", "ReportTextItem");
    row("Line", "Line", "ReportLineItem");
    row("Rect", "Rect", "ReportRectItem");
    row("Image", "Image", "ReportImageItem");
    row("pointer makes nothing", "Pointer", "null");
    row("month", "MaintenanceMonth", "ReportMonthItem");
    row("operator", "MaintenanceOperator", "ReportOperatorItem");
    row("qc chart", "QcChart", "ReportQcChartItem");
    row("maintenance table", "MaintenanceRecord", "ReportMaintenanceRecordItem");
    row("Results", "Results", "ReportPatientTableItem");
    row("QcControlInfo", "QcControlInfo", "ReportQcInfoTableItem");
    row("QcControlInfoDetails", "QcControlInfoDetails", "ReportQcInfoDetailsTableItem");
    row("QcTable", "QcTable", "ReportQcTableItem");
    row("offered field", "field:/patient/name", "ReportFieldItem patient|name");
    row("field without creator", "field:/result/value", "ReportFieldItem result|value");
    row("unnamed column", "field:/patient/bed", "ReportFieldItem patient|bed");
    row("empty field name", "field:/patient/", "ReportFieldItem patient|");
    row("two empty names", "field://", "ReportFieldItem |");
    row("field one name", "field:/patient", "null");
    row("field no name", "field:/", "null");
    row("field three names", "field:/patient/name/x", "null");
    row("field capitals", "Field:/patient/name", "null");
    row("prop date", "prop:/date", "ReportPropItem date");
    row("prop keeps slashes", "prop:/qc/fileno", "ReportPropItem qc/fileno");
    row("prop without proxy", "prop:/anything", "ReportPropItem anything");
    row("prop empty", "prop:/", "ReportPropItem ");
    row("prop capitals", "PROP:/date", "null");
    row("prop one slash short", "prop:date", "null");
    row("profile hospital", "profile:/hospital", "ReportProfileItem hospital");
    row("profile empty", "profile:/", "ReportProfileItem ");
    row("profile slashes", "profile:/a/b", "ReportProfileItem a/b");
    row("profile capitals", "Profile:/hospital", "null");
    row("creator keys are case-sensitive", "text", "null");
    row("creator keys match whole", " Text", "null");
    row("empty key", "", "null");
    row("unknown", "Gadget", "null");
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
        QCOMPARE(kindOf(item.get()), QStringLiteral("ReportRectItem"));
        QCOMPARE(factory.creator("custom:/rect"), nullptr);
        delete second; // leaves the keeper before the factory's maps are gone
    }
    QCOMPARE(deaths, 1);
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

    PropItemFactory props(&profile);
    FactoryProxyCreator rejected(&props, "组", "profile:/hospital", "名称");
    QCOMPARE(rejected.create(), nullptr);
    FactoryProxyCreator orphan(nullptr, "组", "prop:/date", "名称");
    QCOMPARE(orphan.create(), nullptr);
    FactoryProxyCreator accepted(&props, "组", "prop:/qc/unit", "项目单位");
    item.reset(accepted.create());
    QCOMPARE(kindOf(item.get()), QStringLiteral("ReportPropItem qc/unit"));
    QCOMPARE(accepted.group(), QStringLiteral("组"));
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
