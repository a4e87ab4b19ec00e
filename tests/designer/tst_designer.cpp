#include "../common/dialoganswerer.h"
#include "../common/files.h"
#include "../common/viewdriver.h"
#include "../common/workspace.h"

#include <designerdialogs.h>
#include <designerwindow.h>
#include <formattoolbar.h>
#include <geometrypanel.h>
#include <itembox.h>
#include <itemoutline.h>
#include <pagesetupdialog.h>
#include <pageview.h>
#include <previewdata.h>
#include <propertypanel.h>
#include <recentfiles.h>
#include <reportarranger.h>
#include <reporteditor.h>
#include <ruler.h>
#include <styleeditor.h>
#include <toolpalette.h>

#include <commands.h>
#include <core/profile.h>
#include <databounditems.h>
#include <drawingitems.h>
#include <itemfactory.h>
#include <report.h>
#include <reportitemcreator.h>
#include <templatecheck.h>

#include <QAbstractButton>
#include <QAction>
#include <QCheckBox>
#include <QClipboard>
#include <QComboBox>
#include <QDockWidget>
#include <QDoubleSpinBox>
#include <QFontComboBox>
#include <QMenu>
#include <QMimeData>
#include <QPlainTextEdit>
#include <QPrintPreviewDialog>
#include <QPrintPreviewWidget>
#include <QRadioButton>
#include <QScrollBar>
#include <QSettings>
#include <QSpinBox>
#include <QSqlQuery>
#include <QStandardPaths>
#include <QToolBox>
#include <QToolButton>
#include <QtTest>
#include <QUndoStack>
#include <QUndoView>

#include <memory>

using namespace coagulation;

namespace {

// Answers the designer's questions from a script and records what it was told.
class ScriptedDialogs : public DesignerDialogs
{
public:
    kv::ReportType reportType = kv::QcReport;
    bool cancelType = false;
    QString openName;
    QString saveName;
    QMessageBox::StandardButton saveChanges = QMessageBox::Cancel;
    PageSetup pageSetup;
    bool cancelPageSetup = false;
    QColor color;
    QStringList errors;
    int saveQuestions = 0;

    bool chooseReportType(QWidget*, kv::ReportType& type) override
    {
        type = reportType;
        return !cancelType;
    }
    QString openFileName(QWidget*, const QString&) override { return openName; }
    QString saveFileName(QWidget*, const QString&) override { return saveName; }
    QMessageBox::StandardButton askSaveChanges(QWidget*, const QString&) override
    {
        ++saveQuestions;
        return saveChanges;
    }
    void showError(QWidget*, const QString& text) override { errors.append(text); }
    bool overwriteDamaged = false;
    int damagedQuestions = 0;
    bool confirmOverwriteDamaged(QWidget*, const QString&) override
    {
        ++damagedQuestions;
        return overwriteDamaged;
    }
    bool editPageSetup(QWidget*, PageSetup& setup) override
    {
        if (cancelPageSetup)
            return false;
        setup = pageSetup;
        return true;
    }
    QColor chooseColor(QWidget*, const QColor&) override { return color; }
    QString workspaceDirectory(QWidget*, const QString&) override { return {}; }
    std::function<void(PreviewChoice&)> previewChoice;
    bool choosePreview(QWidget*, kv::ReportType, const PreviewData&, PreviewChoice& choice) override
    {
        if (previewChoice)
            previewChoice(choice);
        return true;
    }
};

template <class T> T* findItem(const QList<ReportItem*>& items)
{
    for (ReportItem* item : items)
        if (auto* found = dynamic_cast<T*>(item))
            return found;
    return nullptr;
}

} // namespace

class tst_Designer : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase();
    void init();
    void cleanup();

    void drawTextTypeAndUndo();
    void paletteGroupsAndPointer();
    void fontThroughToolbar();
    void penAndBrush();
    void copyPasteSelection();
    void saveReopenCompare();
    void openErrorShowsReportText();
    void recentFiles();
    void nudgeWithArrowKeys_data();
    void nudgeWithArrowKeys();
    void positionAndSizeFields();
    void titleAndClosing();
    void pageSetupUndo();
    void pageSetupDialog();
    void previewDataFromWorkspace();
    void previewThroughPlugin();
    void arrange_data();
    void arrange();
    void propertyRows_data();
    void propertyRows();
    void propertyEdits();
    void outlineAndContextMenu();
    void zoomRulersGridAndSnap();

private:
    ReportTextItem* addText(const QString& text, const QPointF& pos);
    ReportRectItem* addRect(const QRectF& rect);
    ReportItem* add(const QString& key, const QPointF& pos = QPointF());
    void drag(const QPointF& from, const QPointF& to) { test::ViewDriver(window->view()).drag(from, to); }
    QList<ReportItem*> items() const { return window->report()->reportItems(); }
    QUndoStack* stack() const { return window->report()->undoStack(); }

    test::DemoWorkspace lab{7};
    Profile* profile = nullptr;
    std::unique_ptr<ItemFactory> factory;
    std::unique_ptr<DesignerWindow> window;
    ScriptedDialogs* dialogs = nullptr;
};

void tst_Designer::initTestCase()
{
    QStandardPaths::setTestModeEnabled(true);
    QCoreApplication::setOrganizationName(QStringLiteral("CoagulationTest"));
    QCoreApplication::setApplicationName(QStringLiteral("tst_designer"));
    QSettings().clear(); // a grid or snap setting left by an earlier run would move every drag
    // A workspace on disk: the preview works on a copy of it.
    QVERIFY2(lab.create({12, 20, 3}), qPrintable(lab.errorString()));
    profile = lab.profile();
    factory = std::make_unique<ItemFactory>(profile);
}

void tst_Designer::init()
{
    window = std::make_unique<DesignerWindow>(profile, factory.get());
    auto scripted = std::make_unique<ScriptedDialogs>();
    dialogs = scripted.get();
    window->setDialogs(std::move(scripted));
    window->show();
    window->activateWindow();
    QVERIFY(QTest::qWaitForWindowActive(window.get()));
    window->view()->actualSize();
    window->view()->ensureVisible(QRectF(0, 0, 10, 10), 0, 0);
}

void tst_Designer::cleanup()
{
    window.reset();
}

ReportTextItem* tst_Designer::addText(const QString& text, const QPointF& pos)
{
    auto* item = new ReportTextItem(true);
    item->setKey(QStringLiteral("Text"));
    item->setPlainText(text);
    item->setPos(pos);
    stack()->push(new NewCommand(window->report(), item));
    return item;
}

ReportRectItem* tst_Designer::addRect(const QRectF& rect)
{
    auto* item = new ReportRectItem;
    item->setKey(QStringLiteral("Rect"));
    item->setRect(QRectF(QPointF(), rect.size()));
    item->setPos(rect.topLeft());
    stack()->push(new NewCommand(window->report(), item));
    return item;
}

// An item as the factory makes it for key, added as one undo step.
ReportItem* tst_Designer::add(const QString& key, const QPointF& pos)
{
    ReportItem* item = factory->create(key);
    item->setKey(key);
    item->graphicsItem()->setPos(pos);
    stack()->push(new NewCommand(window->report(), item));
    return item;
}

void tst_Designer::drawTextTypeAndUndo()
{
    ToolPalette* palette = window->toolPalette();
    ReportItemCreator* text = palette->creator(QStringLiteral("Text"));
    QVERIFY(text);
    QCOMPARE(palette->current(), palette->pointer());
    QTest::mouseClick(palette->button(text), Qt::LeftButton);
    QCOMPARE(palette->current(), text);
    QCOMPARE(window->view()->dragMode(), QGraphicsView::NoDrag); // the pointer was left
    QCOMPARE(palette->pointer()->view(), window->view());        // and stays attached, deliberately

    drag(QPointF(100, 100), QPointF(300, 140));
    auto* item = dynamic_cast<ReportTextItem*>(items().value(0));
    QVERIFY(item);
    QCOMPARE(stack()->text(0), QStringLiteral("新建 文本"));
    // The tool has finished: the pointer is back.
    QTRY_COMPARE(palette->current(), palette->pointer());
    QCOMPARE(window->view()->dragMode(), QGraphicsView::RubberBandDrag);

    window->view()->setFocus();
    QTest::keyClicks(window->view()->viewport(), QStringLiteral("INR 1.2"));
    QCOMPARE(item->toPlainText(), QStringLiteral("INR 1.2"));
    // While typing, arrows and Delete edit the text; they neither nudge nor delete the item.
    QTest::keyClick(window->view()->viewport(), Qt::Key_Left);
    QTest::keyClick(window->view()->viewport(), Qt::Key_Delete);
    QTest::keyClicks(window->view()->viewport(), QStringLiteral("3"));
    QCOMPARE(item->toPlainText(), QStringLiteral("INR 1.3"));
    QCOMPARE(item->pos(), QPointF(100, 100));
    QCOMPARE(items().size(), 1);
    QCOMPARE(stack()->count(), 2); // the typing is one merged step
    QCOMPARE(stack()->text(1), QStringLiteral("编辑文字"));
    QVERIFY(window->isWindowModified());

    window->action(QStringLiteral("undo"))->trigger();
    window->action(QStringLiteral("undo"))->trigger();
    QVERIFY(items().isEmpty());
    QVERIFY(!window->action(QStringLiteral("undo"))->isEnabled());
    QVERIFY(!window->isWindowModified());
    window->action(QStringLiteral("redo"))->trigger();
    window->action(QStringLiteral("redo"))->trigger();
    QCOMPARE(item->toPlainText(), QStringLiteral("INR 1.3"));
    QCOMPARE(window->undoView()->stack(), stack());
}

void tst_Designer::paletteGroupsAndPointer()
{
    ToolPalette* palette = window->toolPalette();
    QCOMPARE(palette->creators(), factory->creators());
    auto* box = palette->findChild<QToolBox*>();
    QVERIFY(box);
    QStringList groups;
    for (int i = 0; i < box->count(); ++i)
        groups.append(box->itemText(i));
    QCOMPARE(groups, (QStringList{QStringLiteral("基本工具"), QStringLiteral("通用信息"),
                                  QStringLiteral("患者信息"), QStringLiteral("质控血浆"),
                                  QStringLiteral("质控信息"), QStringLiteral("维护记录")}));
    for (ReportItemCreator* creator : palette->creators()) {
        QAbstractButton* button = palette->button(creator);
        QCOMPARE(button->text(), creator->name());
        QCOMPARE(button->icon().isNull(), creator->icon().isNull());
    }
    QVERIFY(!palette->button(palette->pointer())->icon().isNull());
    // The longest name fits: no button is cut off and no horizontal scroll bar appears.
    QAbstractButton* longest = palette->button(palette->creator(QStringLiteral("QcControlInfoDetails")));
    box->setCurrentWidget(longest->parentWidget());
    window->resizeDocks({window->findChild<QDockWidget*>(QStringLiteral("toolDock"))}, {60}, Qt::Horizontal);
    QTRY_VERIFY(longest->isVisible());
    QTest::qWait(50);
    QVERIFY(longest->width() >= longest->sizeHint().width());
    for (const QScrollBar* bar : box->findChildren<QScrollBar*>())
        QVERIFY(bar->orientation() == Qt::Vertical || !bar->isVisible());

    // A tool given up without creating anything also brings the pointer back.
    ReportItemCreator* rect = palette->creator(QStringLiteral("Rect"));
    palette->activate(rect);
    QCOMPARE(palette->current(), rect);
    rect->finish();
    QTRY_COMPARE(palette->current(), palette->pointer());
    QVERIFY(palette->button(palette->pointer())->isChecked());
}

void tst_Designer::fontThroughToolbar()
{
    ReportTextItem* item = addText(QStringLiteral("凝血酶原时间"), QPointF(40, 40));
    QFont font(QStringLiteral("DejaVu Sans"));
    font.setPixelSize(14);
    item->setFont(font);
    item->setSelected(true);
    FormatToolBar* bar = window->formatBar();
    QCOMPARE(bar->fontSizeBox()->value(), 14);
    QVERIFY(!bar->boldAction()->isChecked());
    QVERIFY(bar->fontFamilyBox()->isEnabled());
    QVERIFY(!bar->penWidthBox()->isEnabled()); // a text has no pen of its own here
    const int steps = stack()->count();

    bar->fontFamilyBox()->setCurrentFont(QFont(QStringLiteral("Noto Sans CJK SC")));
    QCOMPARE(item->font().family(), QStringLiteral("Noto Sans CJK SC"));
    bar->fontSizeBox()->setValue(20);
    QCOMPARE(item->font().pixelSize(), 20);
    bar->boldAction()->trigger();
    QCOMPARE(item->font().weight(), QFont::Bold);
    bar->italicAction()->trigger();
    QCOMPARE(item->font().style(), QFont::StyleItalic);
    bar->underlineAction()->trigger();
    QVERIFY(item->font().underline());
    bar->alignmentAction(Qt::AlignRight)->trigger();
    QCOMPARE(item->alignment() & Qt::AlignHorizontal_Mask, Qt::AlignRight);
    QCOMPARE(stack()->count(), steps + 6);
    // The controls follow the item, also after an undo step.
    QVERIFY(bar->boldAction()->isChecked());
    QVERIFY(bar->alignmentAction(Qt::AlignRight)->isChecked());

    window->action(QStringLiteral("undo"))->trigger();
    QVERIFY(!(item->alignment() & (Qt::AlignRight | Qt::AlignHCenter)));
    QVERIFY(bar->alignmentAction(Qt::AlignLeft)->isChecked());
    for (int i = 0; i < 5; ++i)
        window->action(QStringLiteral("undo"))->trigger();
    QVERIFY(!bar->boldAction()->isChecked());
    QCOMPARE(bar->fontSizeBox()->value(), 14);
    QCOMPARE(bar->fontFamilyBox()->currentFont().family(), QStringLiteral("DejaVu Sans"));
}

void tst_Designer::penAndBrush()
{
    ReportRectItem* first = addRect(QRectF(20, 20, 100, 50));
    ReportRectItem* second = addRect(QRectF(200, 20, 100, 50));
    ReportTextItem* text = addText(QStringLiteral("x"), QPointF(300, 300));
    first->setSelected(true);
    second->setSelected(true);
    FormatToolBar* bar = window->formatBar();
    QVERIFY(bar->penWidthBox()->isEnabled());
    QVERIFY(!bar->fontFamilyBox()->isEnabled());
    const int steps = stack()->count();

    dialogs->color = QColor(200, 0, 0);
    QTest::mouseClick(bar->penColorButton(), Qt::LeftButton);
    bar->penWidthBox()->setValue(3);
    window->styleEditor()->setPenStyle(Qt::DashLine);
    dialogs->color = QColor(0, 0, 200);
    QTest::mouseClick(bar->brushColorButton(), Qt::LeftButton);
    QCOMPARE(stack()->count(), steps + 4); // one step per change, for both rectangles
    for (ReportRectItem* rect : {first, second}) {
        QCOMPARE(rect->pen().color(), QColor(200, 0, 0));
        QCOMPARE(rect->pen().width(), 3);
        QCOMPARE(rect->pen().style(), Qt::DashLine);
        QCOMPARE(rect->brush().color(), QColor(0, 0, 200));
        QCOMPARE(rect->brush().style(), Qt::SolidPattern); // a colour chosen for no fill fills
        QVERIFY(rect->isSelected());
    }
    QVERIFY(!text->isSelected());

    dialogs->color = QColor(); // cancelled
    QTest::mouseClick(bar->brushColorButton(), Qt::LeftButton);
    QCOMPARE(stack()->count(), steps + 4);

    window->styleEditor()->setBrushStyle(Qt::NoBrush);
    QCOMPARE(second->brush().style(), Qt::NoBrush);
}

void tst_Designer::nudgeWithArrowKeys_data()
{
    QTest::addColumn<int>("key");
    QTest::addColumn<Qt::KeyboardModifiers>("modifiers");
    QTest::addColumn<QPointF>("offset");
    QTest::newRow("right") << int(Qt::Key_Right) << Qt::KeyboardModifiers() << QPointF(10, 0);
    QTest::newRow("up") << int(Qt::Key_Up) << Qt::KeyboardModifiers() << QPointF(0, -10);
    QTest::newRow("alt left") << int(Qt::Key_Left) << Qt::KeyboardModifiers(Qt::AltModifier)
                              << QPointF(-1, 0);
    QTest::newRow("alt down") << int(Qt::Key_Down) << Qt::KeyboardModifiers(Qt::AltModifier) << QPointF(0, 1);
}

void tst_Designer::nudgeWithArrowKeys()
{
    QFETCH(int, key);
    QFETCH(Qt::KeyboardModifiers, modifiers);
    QFETCH(QPointF, offset);
    ReportRectItem* a = addRect(QRectF(100, 100, 40, 40));
    ReportRectItem* b = addRect(QRectF(200, 103, 40, 40)); // off the grid on purpose
    a->setSelected(true);
    b->setSelected(true);
    const int steps = stack()->count();
    window->view()->setFocus();

    QTest::keyClick(window->view(), Qt::Key(key), modifiers);
    QTest::keyClick(window->view(), Qt::Key(key), modifiers);
    QCOMPARE(a->pos(), QPointF(100, 100) + 2 * offset);
    QCOMPARE(b->pos(), QPointF(200, 103) + 2 * offset); // moved by steps, not snapped
    QCOMPARE(stack()->count(), steps + 1);              // recorded as one move
    QVERIFY(dynamic_cast<const PositionCommand*>(stack()->command(steps)));

    window->action(QStringLiteral("undo"))->trigger();
    QCOMPARE(a->pos(), QPointF(100, 100));
    QCOMPARE(b->pos(), QPointF(200, 103));
}

void tst_Designer::positionAndSizeFields()
{
    ReportRectItem* rect = addRect(QRectF(0, 0, 96 / 25.4 * 30, 96 / 25.4 * 20));
    rect->setSelected(true);
    GeometryPanel* panel = window->geometryPanel();
    QCOMPARE(panel->widthBox()->value(), 30.0);
    QCOMPARE(panel->heightBox()->value(), 20.0);
    const int steps = stack()->count();

    panel->xBox()->setValue(25.4);
    QCOMPARE(rect->pos(), QPointF(96, 0));
    panel->widthBox()->setValue(50.8);
    QCOMPARE(rect->rect().width(), 192.0);
    QCOMPARE(stack()->count(), steps + 2);
    QVERIFY(window->report()->tracker()); // the handles follow

    window->action(QStringLiteral("undo"))->trigger();
    QCOMPARE(panel->widthBox()->value(), 30.0);
    window->action(QStringLiteral("undo"))->trigger();
    QCOMPARE(panel->xBox()->value(), 0.0);
}

void tst_Designer::pageSetupUndo()
{
    Report* report = window->report();
    dialogs->pageSetup = {QPageSize::A5, QPageLayout::Landscape, QSizeF()};
    QVERIFY(window->pageSetup());
    QCOMPARE(report->pageSize(), QPageSize::A5);
    QCOMPARE(report->orientation(), QPageLayout::Landscape);
    QCOMPARE(report->sceneRect().size().toSize(), QSize(794, 559));
    QVERIFY(window->isWindowModified());

    dialogs->pageSetup = {QPageSize::Custom, QPageLayout::Portrait, QSizeF(100, 50)};
    QVERIFY(window->pageSetup());
    QCOMPARE(report->pageSizeF(), QSizeF(100, 50));
    QCOMPARE(stack()->count(), 2);

    // An unchanged set-up or a cancelled dialog records nothing.
    QVERIFY(!window->pageSetup());
    dialogs->cancelPageSetup = true;
    QVERIFY(!window->pageSetup());
    QCOMPARE(stack()->count(), 2);

    window->action(QStringLiteral("undo"))->trigger();
    window->action(QStringLiteral("undo"))->trigger();
    QCOMPARE(report->pageSizeF().toSize(), QSize(210, 297));
    QVERIFY(!window->isWindowModified());
}

void tst_Designer::pageSetupDialog()
{
    PageSetupDialog dialog({QPageSize::A5, QPageLayout::Landscape, QSizeF(148, 210)});
    auto* size = dialog.findChild<QComboBox*>();
    const QList<QDoubleSpinBox*> boxes = dialog.findChildren<QDoubleSpinBox*>();
    QCOMPARE(boxes.size(), 6); // width, height, then the four margin guides
    QCOMPARE(size->currentText(), QStringLiteral("A5"));
    QVERIFY(!boxes.at(0)->isEnabled()); // a standard size is not edited in millimetres
    QCOMPARE(dialog.pageSetup().orientation, QPageLayout::Landscape);
    QCOMPARE(dialog.pageSetup().margins, PageSetup().margins);

    size->setCurrentIndex(size->findData(int(QPageSize::A3)));
    QCOMPARE(boxes.at(0)->value(), 297.0);
    QCOMPARE(boxes.at(1)->value(), 420.0);
    size->setCurrentIndex(size->findData(int(QPageSize::Custom)));
    QVERIFY(boxes.at(0)->isEnabled());
    boxes.at(0)->setValue(100);
    boxes.at(1)->setValue(50);
    dialog.findChildren<QRadioButton*>().at(0)->setChecked(true);
    const PageSetup setup = dialog.pageSetup();
    QCOMPARE(setup.pageSize, QPageSize::Custom);
    QCOMPARE(setup.customSize, QSizeF(100, 50));
    QCOMPARE(setup.orientation, QPageLayout::Portrait);

    // A custom size that the report has keeps its millimetres.
    PageSetupDialog custom({QPageSize::Custom, QPageLayout::Portrait, QSizeF(80, 120)});
    QCOMPARE(custom.pageSetup().customSize, QSizeF(80, 120));
}

void tst_Designer::titleAndClosing()
{
    QCOMPARE(window->windowTitle(), QStringLiteral("未命名[*] (样本报告单) - 报表设计器"));
    QVERIFY(!window->isWindowModified());

    // A new template of the chosen type; nothing to save yet, so nothing is asked.
    dialogs->reportType = kv::MaintenanceRecordReport;
    QVERIFY(window->newTemplate());
    QCOMPARE(dialogs->saveQuestions, 0);
    QCOMPARE(window->report()->type(), kv::MaintenanceRecordReport);
    QVERIFY(window->report()->isDesignMode());
    QCOMPARE(window->windowTitle(), QStringLiteral("未命名[*] (维护记录报告单) - 报表设计器"));

    addRect(QRectF(10, 10, 20, 20));
    QVERIFY(window->isWindowModified());
    dialogs->saveChanges = QMessageBox::Cancel;
    QVERIFY(!window->close());
    QVERIFY(window->isVisible());
    QVERIFY(!window->newTemplate());
    QCOMPARE(dialogs->saveQuestions, 2);
    QCOMPARE(items().size(), 1);

    // Undoing back to the clean state clears the mark; closing asks nothing then.
    window->action(QStringLiteral("undo"))->trigger();
    QVERIFY(!window->isWindowModified());
    window->action(QStringLiteral("redo"))->trigger();
    dialogs->saveChanges = QMessageBox::Discard;
    QVERIFY(window->close());
    QCOMPARE(dialogs->saveQuestions, 3);
}

void tst_Designer::previewDataFromWorkspace()
{
    PreviewData data(profile);
    const QList<PreviewData::Option> patients = data.patients();
    QCOMPARE(patients.size(), 12);
    QVERIFY(patients.first().value.toLongLong() > patients.last().value.toLongLong());
    QSqlQuery query(profile->dataDatabase());
    QVERIFY(query.exec(QStringLiteral("SELECT sampleNo FROM patient WHERE id = %1")
                           .arg(patients.first().value.toLongLong())));
    QVERIFY(query.next());
    QVERIFY(patients.first().label.startsWith(query.value(0).toString()));

    const PreviewChoice latest = data.latest();
    QCOMPARE(latest.patientIds, QList<qint64>{patients.first().value.toLongLong()});
    QCOMPARE(latest.reagentIds.size(), 1);
    QCOMPARE(latest.reagentIds.first(), data.reagents().first().value.toLongLong());
    QCOMPARE(latest.month, QDate(2024, 6, 1)); // the generator's last month

    PreviewChoice qc = latest;
    qc.reagentIds.append(data.reagents().last().value.toLongLong());
    QCOMPARE(data.qcData(qc).size(), 2);
    QCOMPARE(data.qcData(qc).first()->points.size(), 20);
    qc.from = qc.to = QDate(1990, 1, 1); // a range without points shows nothing
    QVERIFY(data.qcData(qc).isEmpty());

    const MaintenanceExportData* maintenance = data.maintenanceData(latest);
    QVERIFY(maintenance);
    QCOMPARE(maintenance->month, QDate(2024, 6, 1));
    QVERIFY(!maintenance->workbench->name().isEmpty());

    Profile empty; // no tables at all: nothing to show, no crash
    PreviewData none(&empty);
    QVERIFY(none.patients().isEmpty());
    QVERIFY(none.latest().reagentIds.isEmpty());
    QVERIFY(!none.maintenanceData(none.latest()));
}

void tst_Designer::copyPasteSelection()
{
    ReportRectItem* rect = addRect(QRectF(40, 60, 100, 50));
    ReportTextItem* text = addText(QStringLiteral("凝血四项"), QPointF(200, 60));
    addText(QStringLiteral("not copied"), QPointF(200, 300));
    rect->setSelected(true);
    text->setSelected(true);
    QVERIFY(!window->action(QStringLiteral("paste"))->isEnabled() ||
            window->editor()->canPaste(QApplication::clipboard()->mimeData()));

    window->action(QStringLiteral("copy"))->trigger();
    const QMimeData* data = QApplication::clipboard()->mimeData();
    QVERIFY(data->hasFormat(Report::mimeType));
    const int steps = stack()->count();

    window->action(QStringLiteral("paste"))->trigger();
    QCOMPARE(items().size(), 5);
    QCOMPARE(stack()->count(), steps + 1);
    const QList<ReportItem*> pasted = window->editor()->selectedItems();
    QCOMPARE(pasted.size(), 2);
    QVERIFY(!rect->isSelected() && !text->isSelected());
    QCOMPARE(findItem<ReportRectItem>(pasted)->pos(), rect->pos() + QPointF(10, 10));
    QCOMPARE(findItem<ReportTextItem>(pasted)->toPlainText(), QStringLiteral("凝血四项"));

    // A second paste lands one step further; undo takes each paste away whole.
    window->action(QStringLiteral("paste"))->trigger();
    QCOMPARE(items().size(), 7);
    QCOMPARE(findItem<ReportRectItem>(window->editor()->selectedItems())->pos(),
             rect->pos() + QPointF(20, 20));
    window->action(QStringLiteral("undo"))->trigger();
    window->action(QStringLiteral("undo"))->trigger();
    QCOMPARE(items().size(), 3);

    // Into another designer window, through the clipboard.
    DesignerWindow other(profile, factory.get());
    other.setDialogs(std::make_unique<ScriptedDialogs>());
    other.editor()->paste();
    QCOMPARE(other.report()->reportItems().size(), 2);
    QCOMPARE(other.report()->undoStack()->count(), 1);

    // Cut puts the items on the clipboard and takes them away in one step; pasting puts them back.
    rect->setSelected(true);
    window->action(QStringLiteral("cut"))->trigger();
    QCOMPARE(items().size(), 2);
    window->action(QStringLiteral("paste"))->trigger();
    QCOMPARE(items().size(), 3);
    QCOMPARE(window->editor()->selectedItems().first()->graphicsItem()->pos(), QPointF(40, 60));

    // Something else on the clipboard pastes nothing.
    auto* foreign = new QMimeData;
    foreign->setText(QStringLiteral("text"));
    QApplication::clipboard()->setMimeData(foreign);
    QVERIFY(!window->action(QStringLiteral("paste"))->isEnabled());
    const int before = stack()->count();
    window->editor()->paste();
    QCOMPARE(stack()->count(), before);
}

void tst_Designer::saveReopenCompare()
{
    // Overlapping items, restacked and pasted; the reopened template stacks them the same way.
    addRect(QRectF(50, 50, 100, 100));
    addText(QStringLiteral("middle"), QPointF(60, 60));
    addRect(QRectF(70, 70, 100, 100))->setSelected(true);
    window->action(QStringLiteral("sendToBack"))->trigger();
    auto describe = [](const QList<ReportItem*>& list) {
        QStringList keys;
        for (ReportItem* item : list)
            keys.append(QStringLiteral("%1@%2").arg(item->key()).arg(item->graphicsItem()->pos().x()));
        return keys;
    };
    QCOMPARE(describe(items()), QStringList({"Text@60", "Rect@50", "Rect@70"}));
    window->action(QStringLiteral("selectAll"))->trigger();
    window->action(QStringLiteral("copy"))->trigger();
    window->action(QStringLiteral("paste"))->trigger();
    const QStringList stacked = describe(items());
    QCOMPARE(stacked.mid(0, 3), QStringList({"Text@70", "Rect@60", "Rect@80"}));
    window->report()->setPageSize(QPageSize::A5);
    QVERIFY(window->isWindowModified());

    const QString path = lab.filePath(QStringLiteral("result.rpt"));
    dialogs->saveName = lab.filePath(QStringLiteral("result")); // the suffix is added
    window->action(QStringLiteral("save"))->trigger();
    QVERIFY(QFileInfo::exists(path));
    QVERIFY(!window->isWindowModified());
    QCOMPARE(window->windowTitle(), QStringLiteral("result.rpt[*] (样本报告单) - 报表设计器"));
    QCOMPARE(window->recentFiles()->files().value(0), QFileInfo(path).absoluteFilePath());
    QCOMPARE(Report::fileType(path), kv::PatientReport);

    DesignerWindow reopened(profile, factory.get());
    reopened.setDialogs(std::make_unique<ScriptedDialogs>());
    QVERIFY(reopened.openFile(path));
    Report* copy = reopened.report();
    QCOMPARE(copy->pageSize(), QPageSize::A5);
    QCOMPARE(copy->undoStack()->count(), 0);
    QVERIFY(copy->isDesignMode());
    QVERIFY(!reopened.isWindowModified());
    QCOMPARE(describe(copy->reportItems()), stacked);

    // Saving again needs no name; a failing save reports the report's own error text.
    dialogs->saveName.clear();
    addRect(QRectF(0, 0, 10, 10));
    QVERIFY(window->save());
    window->report()->setType(kv::NoReport);
    addRect(QRectF(0, 0, 10, 10));
    QVERIFY(!window->save());
    QCOMPARE(dialogs->errors.value(0), QStringLiteral("无法保存模板 result.rpt\n未知的报表类型"));
    QVERIFY(window->isWindowModified());
}

void tst_Designer::openErrorShowsReportText()
{
    addRect(QRectF(0, 0, 10, 10));
    Report* current = window->report();
    const QString path = lab.filePath(QStringLiteral("broken.rpt"));
    QVERIFY(test::writeFile(path, "not a template"));

    dialogs->saveChanges = QMessageBox::Discard;
    dialogs->openName = path;
    QVERIFY(!window->open());
    QCOMPARE(dialogs->errors.value(0), QStringLiteral("无法打开模板 broken.rpt\n错误的文件格式"));
    QCOMPARE(window->report(), current); // the document in the window stays

    QVERIFY(!window->openFile(lab.filePath(QStringLiteral("missing.rpt"))));
    QVERIFY(dialogs->errors.value(1).startsWith(QStringLiteral("无法打开模板 missing.rpt\n")));
    QCOMPARE(dialogs->errors.size(), 2);

    // A template cut short inside its last item opens as what could be read, with a warning;
    // saving over it is asked first, and a "no" leaves the file as it was.
    addText(QStringLiteral("凝血"), QPointF(10, 10));
    const QString damaged = lab.filePath(QStringLiteral("damaged.rpt"));
    QVERIFY(window->saveFile(damaged));
    const qint64 size = QFileInfo(damaged).size() - 6;
    QVERIFY(QFile::resize(damaged, size));
    QVERIFY(window->openFile(damaged));
    QVERIFY(dialogs->errors.value(2).startsWith(QStringLiteral("模板 damaged.rpt 已损坏：")));
    addRect(QRectF(0, 0, 10, 10));
    QVERIFY(!window->save());
    QCOMPARE(dialogs->damagedQuestions, 1);
    QCOMPARE(QFileInfo(damaged).size(), size);
    dialogs->overwriteDamaged = true;
    QVERIFY(window->save());
    QVERIFY(TemplateCheck(factory.get()).check(damaged));
    QVERIFY(window->save()); // repaired: no more questions
    QCOMPARE(dialogs->damagedQuestions, 2);
}

void tst_Designer::previewThroughPlugin()
{
    // Without a workspace the user hears why nothing is shown.
    window->setWorkspaceDirectory(lab.filePath(QStringLiteral("nowhere")));
    QVERIFY(!window->preview());
    QVERIFY(dialogs->errors.value(0).contains(QStringLiteral("profile.ini")));

    window->setWorkspaceDirectory(QFileInfo(lab.profileFile()).path());
    addText(QStringLiteral("凝血检验报告单"), QPointF(100, 40));
    add(QStringLiteral("field:/patient/name"), QPointF(100, 100));

    const QString workspaceFile = profile->fileName();
    auto printedTimes = [&] {
        QSqlQuery query(profile->dataDatabase());
        query.exec(QStringLiteral("SELECT group_concat(coalesce(printTime, '-')) FROM patient"));
        return query.next() ? query.value(0).toString() : QString();
    };
    const QString printedBefore = printedTimes();
    int pages = -1;
    bool usable = false;
    const auto look = [&](QDialog* dialog) {
        if (auto* widget = dialog->findChild<QPrintPreviewWidget*>()) {
            pages = widget->pageCount();
            // Opened large and fitted to the page, also without a window manager.
            usable = dialog->width() > 600 && dialog->height() > 400 &&
                     widget->zoomMode() == QPrintPreviewWidget::FitInView;
        }
        dialog->reject();
    };
    test::DialogAnswerer answerer;
    answerer.then(look).then(look);
    QVERIFY(window->preview());
    QCOMPARE(answerer.shown(), QStringList{"QPrintPreviewDialog"});
    QCOMPARE(pages, 1); // the latest patient
    QVERIFY(usable);
    QCOMPARE(window->report()->reportItems().size(), 2); // the designer's document is untouched
    QCOMPARE(window->report()->currentPage(), 1);
    dialogs->previewChoice = [](PreviewChoice& choice) {
        choice.patientIds = {1, 2, 3};
    };
    QVERIFY(window->preview());
    QCOMPARE(answerer.shown().size(), 2);
    QCOMPARE(pages, 3);

    // The template was handed over for this preview only, and no patient counts as printed.
    QVERIFY(Profile(workspaceFile).value(QStringLiteral("report/template")).toString().isEmpty());
    QCOMPARE(printedTimes(), printedBefore);
    QVERIFY(!printedBefore.isEmpty());
}

void tst_Designer::recentFiles()
{
    QMenu menu;
    RecentFiles recent(&menu);
    for (const QString& name : recent.files())
        recent.remove(name);
    QVERIFY(!menu.isEnabled());
    for (int i = 0; i < 10; ++i)
        recent.add(lab.filePath(QStringLiteral("t%1.rpt").arg(i)));
    QStringList files = recent.files();
    QCOMPARE(files.size(), RecentFiles::maximum);
    QCOMPARE(QFileInfo(files.first()).fileName(), QStringLiteral("t9.rpt"));
    QCOMPARE(QFileInfo(files.last()).fileName(), QStringLiteral("t2.rpt"));
    recent.add(lab.filePath(QStringLiteral("t5.rpt"))); // opened again: first, not twice
    files = recent.files();
    QCOMPARE(files.size(), RecentFiles::maximum);
    QCOMPARE(QFileInfo(files.first()).fileName(), QStringLiteral("t5.rpt"));
    QCOMPARE(files.count(files.first()), 1);

    QCOMPARE(menu.actions().size(), RecentFiles::maximum);
    QSignalSpy chosen(&recent, &RecentFiles::chosen);
    menu.actions().at(1)->trigger();
    QCOMPARE(chosen.value(0).value(0).toString(), files.at(1));
    recent.remove(files.at(1));
    QCOMPARE(menu.actions().size(), RecentFiles::maximum - 1);
}

void tst_Designer::arrange_data()
{
    QTest::addColumn<QString>("action");
    QTest::addColumn<QList<int>>("selected"); // indexes into a, b, c in the order of selecting
    QTest::addColumn<QList<QRectF>>("boxes"); // a, b, c afterwards
    QTest::addColumn<QString>("order");       // bottom to top afterwards
    QTest::addColumn<QString>("step");
    const QList<int> all{0, 1, 2};
    const QRectF a(10, 10, 40, 20), b(100, 50, 60, 30), c(200, 20, 20, 10);
    auto at = [](const QRectF& r, double x, double y) {
        return QRectF(QPointF(x, y), r.size());
    };
    const auto row = [](const char* name, const char* action, const QList<int>& selected,
                        const QList<QRectF>& boxes, const char* order, const char* step) {
        QTest::newRow(name) << QString(action) << selected << boxes << QString(order)
                            << QString::fromUtf8(step);
    };
    row("left", "alignLeft", all, {a, at(b, 10, 50), at(c, 10, 20)}, "abc", "左对齐");
    row("h centre", "alignHCenter", all, {at(a, 95, 10), at(b, 85, 50), at(c, 105, 20)}, "abc", "水平居中");
    row("right", "alignRight", all, {at(a, 180, 10), at(b, 160, 50), c}, "abc", "右对齐");
    row("top", "alignTop", all, {a, at(b, 100, 10), at(c, 200, 10)}, "abc", "顶端对齐");
    row("v centre", "alignVCenter", all, {at(a, 10, 35), at(b, 100, 30), at(c, 200, 40)}, "abc", "垂直居中");
    row("bottom", "alignBottom", all, {at(a, 10, 60), b, at(c, 200, 70)}, "abc", "底端对齐");
    row("distribute h", "distributeH", all, {a, at(b, 95, 50), c}, "abc", "水平均匀分布");
    row("distribute v", "distributeV", all, {a, b, at(c, 200, 35)}, "abc", "垂直均匀分布");
    row("same width as the first chosen", "sameWidth", {1, 0, 2},
        {QRectF(10, 10, 60, 20), QRectF(100, 50, 60, 30), QRectF(200, 20, 60, 10)}, "abc", "相同宽度");
    row("same height", "sameHeight", all, {a, QRectF(100, 50, 60, 20), QRectF(200, 20, 20, 20)}, "abc",
        "相同高度");
    row("to front", "bringToFront", {0}, {a, b, c}, "bca", "置于顶层");
    row("to back", "sendToBack", {2, 1}, {a, b, c}, "bca", "置于底层");
}

void tst_Designer::arrange()
{
    QFETCH(QString, action);
    QFETCH(QList<int>, selected);
    QFETCH(QList<QRectF>, boxes);
    QFETCH(QString, order);
    QFETCH(QString, step);
    const QList<ReportItem*> abc = {addRect(QRectF(10, 10, 40, 20)), addRect(QRectF(100, 50, 60, 30)),
                                    addRect(QRectF(200, 20, 20, 10))};
    auto state = [&] {
        QString stacking;
        for (ReportItem* item : items())
            stacking.prepend(QChar(char16_t(u'a' + abc.indexOf(item))));
        QList<QRectF> now;
        for (ReportItem* item : abc)
            now.append(ItemBox::sceneRect(item));
        return std::make_pair(now, stacking);
    };
    const auto before = state();
    for (int i : selected)
        abc.at(i)->graphicsItem()->setSelected(true);
    const int steps = stack()->count();

    window->action(action)->trigger();
    QCOMPARE(stack()->count(), steps + 1);
    QCOMPARE(stack()->text(steps), step);
    const auto after = state();
    QCOMPARE(after.first, boxes);
    QCOMPARE(after.second, order);
    window->action(QStringLiteral("undo"))->trigger();
    QCOMPARE(state(), before);
    window->action(QStringLiteral("redo"))->trigger();
    QCOMPARE(state(), after);
    // Done once, doing it again changes nothing and records nothing.
    window->action(action)->trigger();
    QCOMPARE(stack()->count(), steps + 1);
}

void tst_Designer::propertyRows_data()
{
    QTest::addColumn<QString>("key");
    QTest::addColumn<QString>("rows"); // b binding, t text, f font, a alignment, p pen, r brush, g geometry
    const auto row = [](const char* key, const char* rows) {
        QTest::newRow(key) << QString(key) << QString(rows);
    };
    row("Text", "tfag"); // free text
    row("field:/patient/name", "bfag");
    row("prop:/date", "bfag");
    row("Rect", "prg");
    row("Line", "pg");
    row("Results", "faprg");
}

void tst_Designer::propertyRows()
{
    QFETCH(QString, key);
    QFETCH(QString, rows);
    ReportItem* item = add(key);
    PropertyPanel* panel = window->propertyPanel();
    QVERIFY(!panel->fontFamilyBox()->isVisibleTo(panel)); // nothing selected: nothing to edit
    item->graphicsItem()->setSelected(true);
    const std::pair<char, QWidget*> controls[] = {
        {'b', panel->bindingBox()},   {'t', panel->textEdit()},    {'f', panel->fontFamilyBox()},
        {'a', panel->alignmentBox()}, {'p', panel->penWidthBox()}, {'r', panel->brushStyleBox()},
        {'g', panel->geometryPanel()}};
    for (const auto& [row, control] : controls)
        QVERIFY2(control->isVisibleTo(panel) == rows.contains(QLatin1Char(row)), &row);
    if (rows.contains(QLatin1Char('b')))
        QCOMPARE(panel->bindingBox()->currentData().toString(), key);
}

void tst_Designer::propertyEdits()
{
    PropertyPanel* panel = window->propertyPanel();
    ReportTextItem* text = addText(QStringLiteral("凝血"), QPointF(40, 40));
    text->setSelected(true);
    const int steps = stack()->count();
    panel->textEdit()->setPlainText(QStringLiteral("凝血四项"));
    panel->commitText();
    panel->boldBox()->click();
    panel->alignmentBox()->activated(2);
    QCOMPARE(text->toPlainText(), QStringLiteral("凝血四项"));
    QCOMPARE(text->font().weight(), QFont::Bold);
    QCOMPARE(text->alignment() & Qt::AlignHorizontal_Mask, Qt::AlignRight);
    QCOMPARE(stack()->count(), steps + 3);
    for (int i = 0; i < 3; ++i)
        window->action(QStringLiteral("undo"))->trigger();
    QCOMPARE(panel->textEdit()->toPlainText(), QStringLiteral("凝血"));

    // A field shows another column: one step, in the same place and style.
    ReportItem* field = add(QStringLiteral("field:/patient/name"), QPointF(100, 200));
    QFont font(QStringLiteral("Noto Sans CJK SC"));
    font.setPixelSize(18);
    field->setFont(font);
    window->report()->clearSelection();
    field->graphicsItem()->setSelected(true);
    QComboBox* binding = panel->bindingBox();
    QVERIFY(binding->count() > 1);
    QVERIFY(binding->findData(QStringLiteral("prop:/date")) < 0); // only columns for a column
    const int other = binding->currentIndex() == 0 ? 1 : 0;
    const QString key = binding->itemData(other).toString();
    QVERIFY(key.startsWith(QStringLiteral("field:/")));
    binding->activated(other);
    ReportItem* replaced = window->editor()->currentItem();
    QVERIFY(dynamic_cast<ReportFieldItem*>(replaced));
    QCOMPARE(replaced->key(), key);
    QCOMPARE(replaced->graphicsItem()->pos(), QPointF(100, 200));
    QCOMPARE(replaced->font().pixelSize(), 18);
    QCOMPARE(stack()->text(stack()->index() - 1), QStringLiteral("更改内容"));
    window->action(QStringLiteral("undo"))->trigger();
    QVERIFY(!replaced->graphicsItem()->scene());
    QVERIFY(field->graphicsItem()->scene());
    window->action(QStringLiteral("redo"))->trigger();
    QCOMPARE(items().first(), replaced);
}

void tst_Designer::outlineAndContextMenu()
{
    ReportRectItem* rect = addRect(QRectF(20, 20, 100, 50));
    ReportTextItem* text = addText(QStringLiteral("凝血检验报告单"), QPointF(200, 30));
    ReportItem* field = add(QStringLiteral("field:/patient/name"), QPointF(300, 300));
    ItemOutline* outline = window->outline();
    QCOMPARE(outline->topLevelItemCount(), 3);
    QStringList rows;
    for (int i = 0; i < 3; ++i)
        rows.append(QStringList{outline->topLevelItem(i)->text(0), outline->topLevelItem(i)->text(1),
                                outline->topLevelItem(i)->text(2)}
                        .join(QLatin1Char('|')));
    QCOMPARE(rows,
             QStringList({"数据字段|field:/patient/name|姓名", "文本|Text|凝血检验报告单", "矩形|Rect|"}));

    outline->topLevelItem(2)->setSelected(true);
    QVERIFY(rect->isSelected());
    window->report()->clearSelection();
    QVERIFY(!window->action(QStringLiteral("delete"))->isEnabled());
    field->graphicsItem()->setSelected(true);
    QVERIFY(outline->topLevelItem(0)->isSelected() && !outline->topLevelItem(2)->isSelected());

    // The selection goes in one step, the outline with it.
    window->action(QStringLiteral("selectAll"))->trigger();
    QCOMPARE(window->editor()->selectedItems().size(), 3);
    text->setSelected(false);
    const int steps = stack()->count();
    window->action(QStringLiteral("delete"))->trigger();
    QCOMPARE(items(), QList<ReportItem*>{text});
    QCOMPARE(outline->topLevelItemCount(), 1);
    QCOMPARE(stack()->count(), steps + 1);
    window->action(QStringLiteral("undo"))->trigger();
    QCOMPARE(outline->topLevelItemCount(), 3);
    QVERIFY(rect->scene() && field->graphicsItem()->scene());

    QStringList entries;
    for (QAction* action : window->contextMenu()->actions())
        entries.append(action->menu() ? action->menu()->title() : action->objectName());
    QCOMPARE(entries, QStringList({"cut", "copy", "paste", "delete", "", "顺序(&O)", "", "properties"}));

    // A double click on a data field opens the choice of what it shows.
    window->report()->clearSelection();
    const QPoint at = window->view()->mapFromScene(field->graphicsItem()->sceneBoundingRect().center());
    QTest::mouseDClick(window->view()->viewport(), Qt::LeftButton, Qt::NoModifier, at);
    QVERIFY(field->graphicsItem()->isSelected());
    QTRY_VERIFY(window->propertyPanel()->bindingBox()->view()->isVisible());
    window->propertyPanel()->bindingBox()->hidePopup();
}

void tst_Designer::zoomRulersGridAndSnap()
{
    PageView* view = window->view();
    QCOMPARE(view->zoom(), 1.0);
    QWheelEvent wheel(QPointF(200, 200), view->viewport()->mapToGlobal(QPoint(200, 200)), QPoint(),
                      QPoint(0, 120), Qt::NoButton, Qt::ControlModifier, Qt::NoScrollPhase, false);
    QApplication::sendEvent(view->viewport(), &wheel);
    QCOMPARE(view->zoom(), 1.25);
    QCOMPARE(view->transform().m11(), 1.25);
    window->action(QStringLiteral("fitPage"))->trigger();
    const QRect page = view->mapFromScene(window->report()->sceneRect()).boundingRect();
    QVERIFY(view->viewport()->rect().contains(page));
    QVERIFY(page.height() > view->viewport()->height() * 0.9 ||
            page.width() > view->viewport()->width() * 0.9);
    window->action(QStringLiteral("actualSize"))->trigger();
    QCOMPARE(view->zoom(), 1.0);
    view->ensureVisible(QRectF(0, 0, 10, 10), 0, 0);

    Ruler* ruler = view->horizontalRuler();
    QVERIFY(ruler->isVisible());
    QCOMPARE(ruler->labelStep(), 20.0); // 100 %: 3.78 pixels per millimetre
    view->setZoom(4);
    QCOMPARE(ruler->labelStep(), 5.0);
    view->actualSize();
    test::ViewDriver(view).move(QPointF(189, 50));
    QVERIFY(qAbs(ruler->cursorPosition() - 189) < 1.5);
    QVERIFY(qAbs(view->verticalRuler()->cursorPosition() - 50) < 1.5);

    window->setGridMillimetres(5);
    const double g = 5 * 96 / 25.4;
    QCOMPARE(window->report()->gridSize(), QSizeF(g, g));
    ReportRectItem* rect = addRect(QRectF(100, 100, 40, 40));
    drag(QPointF(120, 120), QPointF(133, 127));
    QCOMPARE(rect->pos(), QPointF(6 * g, 6 * g));
    QCOMPARE(stack()->text(1), QStringLiteral("移动 1 项"));
    window->action(QStringLiteral("snapToGrid"))->trigger(); // off: the item goes where it is put
    drag(QPointF(130, 130), QPointF(143, 137));
    QVERIFY(QLineF(rect->pos(), QPointF(6 * g + 13, 6 * g + 7)).length() < 0.02);
    window->action(QStringLiteral("snapToGrid"))->trigger();
    const QPointF corner = rect->mapToScene(rect->rect().bottomRight());
    drag(corner, corner + QPointF(30, 30));                 // the bottom-right handle
    QCOMPARE(stack()->text(2), QStringLiteral("调整大小")); // the two moves are one step
    window->styleEditor()->setPenWidth(2);
    QCOMPARE(stack()->text(3), QStringLiteral("线宽"));
    window->setGridMillimetres(0);
    QCOMPARE(window->report()->gridSize(), QSizeF(10, 10));
}

QTEST_MAIN(tst_Designer)
#include "tst_designer.moc"
