#include "../common/payload.h"

#include <core/profile.h>
#include <kvcore/assayitem.h>
#include <kvcore/assaytemplate.h>
#include <kvcore/maintenanceexportdata.h>
#include <kvcore/qcexportdata.h>
#include <reportitem.h>

#include <QGraphicsView>
#include <QLocale>
#include <QTest>
#include <QTextBlock>
#include <QTextDocument>
#include <QTextLayout>

using namespace coagulation;
using test::loadPayload;
using test::payloadOf;

class tst_DataBoundItems : public QObject
{
    Q_OBJECT
private Q_SLOTS:
    void fieldPlaceholder();
    void propTexts_data();
    void propTexts();
    void pageProperty();
    void profileItem();
    void shownDataLayout_data();
    void shownDataLayout();
    void monthAndOperator();
    void payloads();
};

void tst_DataBoundItems::fieldPlaceholder()
{
    Profile profile;
    profile.setValue("patient/name", QStringLiteral("姓名"));
    ReportFieldItem named(&profile, "patient", "name");
    QCOMPARE(named.toPlainText(), QStringLiteral("[姓名]"));
    // Bound to data, not typed into.
    QVERIFY(!named.isEditable() && !(named.flags() & QGraphicsItem::ItemIsFocusable));
    ReportFieldItem unnamed(&profile, "patient", "bed");
    QCOMPARE(unnamed.toPlainText(), QStringLiteral("[bed]"));
    unnamed.setAlignment(Qt::AlignHCenter);
    unnamed.setField("name");
    QCOMPARE(unnamed.toPlainText(), QStringLiteral("[姓名]"));
    QCOMPARE(unnamed.alignment(), Qt::Alignment(Qt::AlignHCenter));
    unnamed.setTable("reagent");
    QCOMPARE(unnamed.toPlainText(), QStringLiteral("[name]"));
    unnamed.updateData(); // in no scene: nothing to show yet
    QCOMPARE(unnamed.toPlainText(), QStringLiteral("[name]"));
}

void tst_DataBoundItems::propTexts_data()
{
    QTest::addColumn<QString>("name");
    QTest::addColumn<bool>("withData");
    QTest::addColumn<bool>("withAssay");
    QTest::addColumn<QString>("expected");
    QTest::newRow("item placeholder") << "qc/item" << false << false << "[PT]";
    QTest::newRow("abbr placeholder") << "qc/abbr" << false << false << "[PT-S]";
    QTest::newRow("unit placeholder") << "qc/unit" << false << false << "[s]";
    QTest::newRow("fileno placeholder") << "qc/fileno" << false << false << "[QC01]";
    QTest::newRow("unit without assay") << "qc/unit" << true << false << "[s]";
    QTest::newRow("item without template") << "qc/item" << true << false << "[PT]";
    QTest::newRow("item") << "qc/item" << true << true << "APTT";
    QTest::newRow("abbr") << "qc/abbr" << true << true << "APTT-S";
    QTest::newRow("unit") << "qc/unit" << true << true << "秒";
    QTest::newRow("fileno") << "qc/fileno" << true << false << "QC07";
    QTest::newRow("unknown") << "qc/nothing" << true << true << "qc/nothing";
    QTest::newRow("case sensitive") << "Date" << false << false << "Date";
}

void tst_DataBoundItems::propTexts()
{
    QFETCH(QString, name);
    QFETCH(bool, withData);
    QFETCH(bool, withAssay);
    QFETCH(QString, expected);
    Profile profile;
    Report report(&profile, nullptr);
    AssayTemplate assayTemplate(3, "APTT");
    AssayItem assay(4, "APTT-S", "APTT-S", QStringLiteral("秒"), 1);
    QcExportData data;
    data.controlNo = 7;
    if (withAssay) {
        data.assayTemplate = &assayTemplate;
        data.assayItem = &assay;
    }
    auto* item = new ReportPropItem(&profile, name);
    report.addItem(item);
    if (withData)
        report.prepareQcData(&data);
    item->updateData();
    QCOMPARE(item->toPlainText(), expected);
}

void tst_DataBoundItems::pageProperty()
{
    ReportPropItem outside(nullptr, "page");
    QCOMPARE(outside.toPlainText(), QStringLiteral("1/1"));

    Report report(nullptr, nullptr);
    auto* page = new ReportPropItem(nullptr, "page");
    report.addItem(page);
    report.setCurrentPage(2);
    report.setPageCount(3);
    page->updateData();
    QCOMPARE(page->toPlainText(), QStringLiteral("2/3"));

    ReportPropItem date(nullptr, "date");
    QVERIFY(!date.isEditable());
    QCOMPARE(date.toPlainText(), QLocale().toString(QDate::currentDate(), QLocale::LongFormat));
    ReportPropItem time(nullptr, "time");
    const QTime shown = QTime::fromString(time.toPlainText(), Qt::TextDate);
    QVERIFY(shown.isValid());
    QVERIFY(qAbs(shown.secsTo(QTime::currentTime())) < 5);
    date.setPropName("qc/unit");
    QCOMPARE(date.toPlainText(), QStringLiteral("[s]"));
}

void tst_DataBoundItems::profileItem()
{
    Profile profile;
    profile.setValue("hospital", QStringLiteral("示例市第一人民医院"));
    ReportProfileItem hospital(&profile, "hospital");
    QVERIFY(!hospital.isEditable());
    QCOMPARE(hospital.toPlainText(), QStringLiteral("[hospital]"));
    hospital.updateData(); // works without a scene
    QCOMPARE(hospital.toPlainText(), QStringLiteral("示例市第一人民医院"));
    ReportProfileItem missing(&profile, "nosuchsetting");
    missing.updateData();
    QCOMPARE(missing.toPlainText(), QString());
    missing.setPropName("hospital");
    QCOMPARE(missing.toPlainText(), QStringLiteral("[hospital]"));
}

// Blocks, formats, fragments and laid-out lines are the same.
void compareDocuments(QGraphicsTextItem* shown, QGraphicsTextItem* reference)
{
    QCOMPARE(shown->document()->toHtml(), reference->document()->toHtml());
    QCOMPARE(shown->document()->size(), reference->document()->size());
    QCOMPARE(shown->boundingRect(), reference->boundingRect());
    for (QTextBlock a = shown->document()->begin(), b = reference->document()->begin();
         a.isValid() || b.isValid(); a = a.next(), b = b.next()) {
        QVERIFY(a.isValid() && b.isValid());
        QVERIFY(a.blockFormat() == b.blockFormat() && a.charFormat() == b.charFormat());
        QTextBlock::iterator i = a.begin(), j = b.begin();
        for (; !i.atEnd() && !j.atEnd(); ++i, ++j) {
            QCOMPARE(i.fragment().text(), j.fragment().text());
            QVERIFY(i.fragment().charFormat() == j.fragment().charFormat());
        }
        QVERIFY(i.atEnd() && j.atEnd());
        QCOMPARE(a.layout()->lineCount(), b.layout()->lineCount());
        for (int n = 0; n < a.layout()->lineCount(); ++n)
            QCOMPARE(a.layout()->lineAt(n).naturalTextRect(), b.layout()->lineAt(n).naturalTextRect());
    }
}

void tst_DataBoundItems::shownDataLayout_data()
{
    QTest::addColumn<int>("alignment");
    QTest::addColumn<double>("width");
    QTest::addColumn<QString>("before"); // shown first (null: only the placeholder; "<": rich text)
    QTest::addColumn<QString>("text");
    const QString wrapped = QStringLiteral("示例市第一人民医院 检验科 凝血功能检测报告单 Coagulation report");
    const QString twoLines = QStringLiteral("12.3 s\n参考 10.0-13.0");
    QTest::newRow("left") << int(Qt::AlignLeft) << -1.0 << QString() << QStringLiteral("张三");
    QTest::newRow("centre, wrapped") << int(Qt::AlignHCenter) << 120.0 << QString() << wrapped;
    QTest::newRow("right, two lines") << int(Qt::AlignRight) << 200.0 << QString() << twoLines;
    QTest::newRow("justified, wrapped") << int(Qt::AlignJustify) << 90.0 << QString() << wrapped;
    QTest::newRow("none, empty") << 0 << 80.0 << QString() << QString();
    QTest::newRow("two lines, then one")
        << int(Qt::AlignRight) << 200.0 << twoLines << QStringLiteral("张三");
    QTest::newRow("a value, then empty") << int(Qt::AlignHCenter) << 80.0 << wrapped << QString();
    QTest::newRow("empty, then lines")
        << int(Qt::AlignLeft) << 120.0 << QStringLiteral("") << QStringLiteral("a\r\nb\n\n李四");
    QTest::newRow("rich text, then lines")
        << int(Qt::AlignHCenter) << 120.0
        << QStringLiteral("<p style='margin-top:6px'><b>粗体</b> text</p><p>二</p>") << twoLines;
}

// Bound data gets its text and alignment in one layout pass; the document must be the one that
// setting the text and then merging the alignment over it gives, whatever it held before.
void tst_DataBoundItems::shownDataLayout()
{
    QFETCH(int, alignment);
    QFETCH(double, width);
    QFETCH(QString, before);
    QFETCH(QString, text);
    Profile profile;
    ReportProfileItem shown(&profile, "hospital");
    ReportTextItem reference(false);
    for (ReportTextItem* item : {static_cast<ReportTextItem*>(&shown), &reference}) {
        item->setFont(shown.font());
        item->setTextWidth(width);
        item->setAlignment(Qt::Alignment(alignment));
    }
    if (before.startsWith(QLatin1Char('<'))) {
        shown.setHtml(before);
        reference.setHtml(before);
    } else if (!before.isNull()) {
        profile.setValue("hospital", before);
        shown.updateData();
        reference.setPlainText(before);
    }
    reference.setPlainText(text);

    profile.setValue("hospital", text);
    int changes = 0; // each one lays the document out
    connect(shown.document(), &QTextDocument::contentsChange, this, [&changes](int, int, int) { ++changes; });
    shown.updateData();
    QCOMPARE(shown.toPlainText(), reference.toPlainText());
    if (!before.startsWith(QLatin1Char('<'))) // rich text is replaced as a whole, laid out twice
        QCOMPARE(changes, 1);

    compareDocuments(&shown, &reference);
    if (QTest::currentTestFailed() || before.startsWith(QLatin1Char('<')))
        return;
    // Replaced, not set anew: no undo history piles up page after page.
    QVERIFY(shown.document()->availableUndoSteps() <= reference.document()->availableUndoSteps());
    // A template's text loads into the same document, over a placeholder or a new item's text.
    ReportProfileItem loadedField(&profile, "hospital");
    QVERIFY(loadPayload(&loadedField, payloadOf(&shown)));
    compareDocuments(&loadedField, &reference);
    if (QTest::currentTestFailed())
        return;
    ReportTextItem loadedText(false);
    QVERIFY(loadPayload(&loadedText, payloadOf(&reference)));
    compareDocuments(&loadedText, &reference);
}

void tst_DataBoundItems::monthAndOperator()
{
    ReportMonthItem month;
    QCOMPARE(month.toPlainText(), QDate::currentDate().toString("yyyy-MM"));
    ReportOperatorItem op;
    // Typed into on the page.
    QVERIFY(month.isEditable() && op.isEditable() && (op.flags() & QGraphicsItem::ItemIsFocusable));
    QCOMPARE(op.toPlainText(), QStringLiteral("操作者"));
    op.updateData();
    QCOMPARE(op.toPlainText(), QStringLiteral("操作者"));

    Report report(nullptr, nullptr);
    auto* inReport = new ReportMonthItem;
    inReport->setPlainText("as designed");
    report.addItem(inReport);
    report.fetchQcData(nullptr); // no maintenance data: left alone
    QCOMPARE(inReport->toPlainText(), QStringLiteral("as designed"));
    MaintenanceExportData data;
    data.month = QDate(2026, 2, 14);
    report.prepareMaintenanceData(&data);
    QCOMPARE(inReport->toPlainText(), QStringLiteral("2026-02"));
}

void tst_DataBoundItems::payloads()
{
    Profile profile;
    profile.setValue("patient/name", QStringLiteral("姓名"));
    ReportFieldItem field(&profile, "patient", "name");
    field.setAlignment(Qt::AlignRight);
    const QByteArray fieldBytes = payloadOf(&field);
    // The text payload first, then the version, the table and the field.
    ReportTextItem asText(false);
    asText.setAlignment(Qt::AlignRight);
    asText.setFont(field.font());
    asText.setPlainText(field.toPlainText());
    QCOMPARE(fieldBytes, payloadOf(&asText) +
                             test::streamed(qint8(1), QStringLiteral("patient"), QStringLiteral("name")));

    ReportFieldItem loadedField(&profile);
    QVERIFY(loadPayload(&loadedField, fieldBytes));
    QCOMPARE(loadedField.table(), QStringLiteral("patient"));
    QCOMPARE(loadedField.field(), QStringLiteral("name"));
    QCOMPARE(loadedField.toPlainText(), QStringLiteral("[姓名]"));
    QCOMPARE(loadedField.alignment(), Qt::Alignment(Qt::AlignRight));

    // The saved text stands until the next refresh, even when the display name changed since.
    profile.setValue("patient/name", QStringLiteral("患者姓名"));
    ReportFieldItem stale(&profile);
    QVERIFY(loadPayload(&stale, fieldBytes));
    QCOMPARE(stale.toPlainText(), QStringLiteral("[姓名]"));

    ReportPropItem prop(&profile, "qc/fileno");
    ReportPropItem loadedProp(&profile);
    QVERIFY(loadPayload(&loadedProp, payloadOf(&prop)));
    QCOMPARE(payloadOf(&loadedProp), payloadOf(&prop)); // name and text "[QC01]"
    // A page number printed as "2/3" comes back as "2/3", not as a fresh "1/1".
    ReportPropItem page(&profile, "page");
    page.setPlainText(QStringLiteral("2/3"));
    ReportPropItem loadedPage(&profile);
    QVERIFY(loadPayload(&loadedPage, payloadOf(&page)));
    QCOMPARE(loadedPage.toPlainText(), QStringLiteral("2/3"));

    ReportProfileItem hospital(&profile, "hospital");
    ReportProfileItem loadedHospital(&profile);
    QVERIFY(loadPayload(&loadedHospital, payloadOf(&hospital)));
    QCOMPARE(payloadOf(&loadedHospital), payloadOf(&hospital));

    // Month and operator items carry the text payload only.
    ReportOperatorItem op;
    op.setPlainText(QStringLiteral("审核者"));
    ReportTextItem plain(true);
    plain.setFont(op.font());
    plain.setPlainText(QStringLiteral("审核者"));
    QCOMPARE(payloadOf(&op), payloadOf(&plain));
    ReportMonthItem month;
    ReportMonthItem loadedMonth;
    month.setPlainText("2025-01");
    QVERIFY(loadPayload(&loadedMonth, payloadOf(&month)));
    QCOMPARE(loadedMonth.toPlainText(), QStringLiteral("2025-01"));
}

QTEST_MAIN(tst_DataBoundItems)
#include "tst_databounditems.moc"
