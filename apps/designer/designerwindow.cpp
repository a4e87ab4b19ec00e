#include "designerwindow.h"

#include "commandnamer.h"
#include "designerdialogs.h"
#include "formattoolbar.h"
#include "itemoutline.h"
#include "pagesetup.h"
#include "pageview.h"
#include "previewdata.h"
#include "previewworkspace.h"
#include "propertypanel.h"
#include "recentfiles.h"
#include "reportarranger.h"
#include "reporteditor.h"
#include "stackordercommand.h"
#include "styleeditor.h"
#include "templatepreview.h"
#include "toolpalette.h"

#include <commands.h>
#include <core/profile.h>
#include <itemfactory.h>
#include <report.h>
#include <reportitembase.h>
#include <templatecheck.h>

#include <QAction>
#include <QActionGroup>
#include <QApplication>
#include <QClipboard>
#include <QCloseEvent>
#include <QDir>
#include <QDockWidget>
#include <QFileInfo>
#include <QLabel>
#include <QLocale>
#include <QMenuBar>
#include <QMimeData>
#include <QScrollArea>
#include <QSettings>
#include <QStatusBar>
#include <QToolBar>
#include <QUndoStack>
#include <QUndoView>

namespace coagulation {

namespace {
// The margin guides are the designer's setting, not the template's.
QMarginsF storedMargins()
{
    const QList<QVariant> m = QSettings().value(QStringLiteral("designer/margins")).toList();
    return m.size() == 4 ? QMarginsF(m[0].toDouble(), m[1].toDouble(), m[2].toDouble(), m[3].toDouble())
                         : PageSetup().margins;
}

void storeMargins(const QMarginsF& m)
{
    QSettings().setValue(QStringLiteral("designer/margins"),
                         QList<QVariant>{m.left(), m.top(), m.right(), m.bottom()});
}
} // namespace

DesignerWindow::DesignerWindow(Profile* profile, ItemFactory* factory, QWidget* parent)
    : QMainWindow(parent), m_profile(profile), m_factory(factory),
      m_dialogs(std::make_unique<DesignerDialogs>()), m_view(new PageView), m_palette(new ToolPalette),
      m_editor(new ReportEditor(this)), m_format(nullptr), m_style(new StyleEditor(m_editor, this)),
      m_arranger(new ReportArranger(m_editor, this)), m_properties(new PropertyPanel(m_editor, m_style)),
      m_outline(new ItemOutline(m_editor)), m_namer(new CommandNamer(this)), m_cursorLabel(new QLabel),
      m_undoView(new QUndoView), m_zoomLabel(new QLabel)
{
    setObjectName(QStringLiteral("designerWindow"));
    m_format = new FormatToolBar(m_editor, m_style);
    setCentralWidget(m_view);
    m_palette->setView(m_view);
    m_namer->setFactory(factory);
    m_style->setColorChooser([this](const QColor& initial) { return m_dialogs->chooseColor(this, initial); });
    m_gridMm = QSettings().value(QStringLiteral("designer/gridMillimetres"), 0.0).toDouble();
    m_view->setMarginGuides(storedMargins());
    createActions();
    createArrangeActions();
    createMenus();
    createDocks();
    addToolBarBreak();
    addToolBar(Qt::TopToolBarArea, m_format);
    statusBar()->addPermanentWidget(m_cursorLabel);
    statusBar()->addPermanentWidget(m_zoomLabel);
    connect(m_view, &PageView::zoomChanged, this,
            [this](double zoom) { m_zoomLabel->setText(tr("%1%").arg(qRound(zoom * 100))); });
    connect(m_view, &PageView::cursorMoved, this, [this](const QPointF& mm) {
        m_cursorLabel->setText(
            tr("%1, %2 毫米").arg(QLocale().toString(mm.x(), 'f', 1), QLocale().toString(mm.y(), 'f', 1)));
    });
    connect(m_view, &PageView::nudgeRequested, m_editor, &ReportEditor::nudge);
    connect(m_view, &PageView::contextMenuRequested, this, [this](const QPoint& at) {
        selectionChanged();
        m_contextMenu->popup(at);
    });
    connect(m_view, &PageView::bindingRequested, this, [this](ReportItem* item) {
        m_report->clearSelection();
        item->graphicsItem()->setSelected(true);
        findChild<QDockWidget*>(QStringLiteral("propertyDock"))->raise();
        m_properties->editBinding();
    });
    connect(QApplication::clipboard(), &QClipboard::dataChanged, this, &DesignerWindow::selectionChanged);
    m_zoomLabel->setText(tr("%1%").arg(100));
    resize(1280, 900);
    newTemplate(kv::PatientReport);
    if (factory)
        setTools(factory->creators());
}

DesignerWindow::~DesignerWindow()
{
    // The tools outlive the window (the item factory owns them): take them off the view first.
    m_palette->setCreators({});
    for (const auto& connection : std::as_const(m_reportConnections))
        disconnect(connection);
}

void DesignerWindow::setDialogs(std::unique_ptr<DesignerDialogs> dialogs)
{
    m_dialogs = std::move(dialogs);
}

void DesignerWindow::setTools(const QList<ReportItemCreator*>& creators)
{
    m_palette->setCreators(creators);
    for (ReportItemCreator* creator : creators)
        m_namer->watch(creator);
}

GeometryPanel* DesignerWindow::geometryPanel() const
{
    return m_properties->geometryPanel();
}

QAction* DesignerWindow::addAction(const QString& name, const QString& text, const QKeySequence& shortcut)
{
    auto* action = new QAction(text, this);
    action->setObjectName(name);
    if (!shortcut.isEmpty())
        action->setShortcut(shortcut);
    QMainWindow::addAction(action);
    return action;
}

QAction* DesignerWindow::action(const QString& name) const
{
    return findChild<QAction*>(name, Qt::FindDirectChildrenOnly);
}

void DesignerWindow::createActions()
{
    connect(addAction(QStringLiteral("new"), tr("新建(&N)..."), QKeySequence::New), &QAction::triggered, this,
            qOverload<>(&DesignerWindow::newTemplate));
    connect(addAction(QStringLiteral("open"), tr("打开(&O)..."), QKeySequence::Open), &QAction::triggered,
            this, &DesignerWindow::open);
    connect(addAction(QStringLiteral("save"), tr("保存(&S)"), QKeySequence::Save), &QAction::triggered, this,
            &DesignerWindow::save);
    connect(addAction(QStringLiteral("saveAs"), tr("另存为(&A)..."), QKeySequence::SaveAs),
            &QAction::triggered, this, &DesignerWindow::saveAs);
    connect(addAction(QStringLiteral("pageSetup"), tr("页面设置(&U)...")), &QAction::triggered, this,
            &DesignerWindow::pageSetup);
    connect(addAction(QStringLiteral("workspace"), tr("选择工作区(&W)...")), &QAction::triggered, this,
            &DesignerWindow::chooseWorkspace);
    connect(addAction(QStringLiteral("preview"), tr("打印预览(&V)..."), QKeySequence(Qt::CTRL | Qt::Key_P)),
            &QAction::triggered, this, &DesignerWindow::preview);
    connect(addAction(QStringLiteral("close"), tr("退出(&X)"), QKeySequence::Quit), &QAction::triggered, this,
            &QWidget::close);

    connect(addAction(QStringLiteral("undo"), tr("撤销(&U)"), QKeySequence::Undo), &QAction::triggered, this,
            [this] { m_report->undo(); });
    connect(addAction(QStringLiteral("redo"), tr("重做(&R)"), QKeySequence::Redo), &QAction::triggered, this,
            [this] { m_report->redo(); });
    connect(addAction(QStringLiteral("cut"), tr("剪切(&T)"), QKeySequence::Cut), &QAction::triggered,
            m_editor, &ReportEditor::cut);
    connect(addAction(QStringLiteral("copy"), tr("复制(&C)"), QKeySequence::Copy), &QAction::triggered,
            m_editor, &ReportEditor::copy);
    connect(addAction(QStringLiteral("paste"), tr("粘贴(&P)"), QKeySequence::Paste), &QAction::triggered,
            m_editor, &ReportEditor::paste);
    connect(addAction(QStringLiteral("delete"), tr("删除(&D)"), QKeySequence::Delete), &QAction::triggered,
            m_editor, &ReportEditor::deleteSelection);
    connect(addAction(QStringLiteral("selectAll"), tr("全选(&L)"), QKeySequence::SelectAll),
            &QAction::triggered, m_editor, &ReportEditor::selectAll);

    connect(addAction(QStringLiteral("zoomIn"), tr("放大(&I)"), QKeySequence::ZoomIn), &QAction::triggered,
            m_view, &PageView::zoomIn);
    connect(addAction(QStringLiteral("zoomOut"), tr("缩小(&O)"), QKeySequence::ZoomOut), &QAction::triggered,
            m_view, &PageView::zoomOut);
    connect(addAction(QStringLiteral("fitPage"), tr("适合页面(&F)"), QKeySequence(Qt::CTRL | Qt::Key_9)),
            &QAction::triggered, m_view, &PageView::fitPage);
    connect(addAction(QStringLiteral("actualSize"), tr("实际大小(&A)"), QKeySequence(Qt::CTRL | Qt::Key_0)),
            &QAction::triggered, m_view, &PageView::actualSize);
}

void DesignerWindow::createArrangeActions()
{
    using Edge = ReportArranger::Edge;
    const std::pair<const char*, Edge> edges[] = {{"alignLeft", ReportArranger::Left},
                                                  {"alignHCenter", ReportArranger::HorizontalCentre},
                                                  {"alignRight", ReportArranger::Right},
                                                  {"alignTop", ReportArranger::Top},
                                                  {"alignVCenter", ReportArranger::VerticalCentre},
                                                  {"alignBottom", ReportArranger::Bottom}};
    const QString edgeTexts[] = {tr("左对齐(&L)"),   tr("水平居中(&C)"), tr("右对齐(&R)"),
                                 tr("顶端对齐(&T)"), tr("垂直居中(&M)"), tr("底端对齐(&B)")};
    for (const auto& [name, edge] : edges)
        connect(addAction(QLatin1String(name), edgeTexts[edge]), &QAction::triggered, m_arranger,
                [this, e = Edge(edge)] { m_arranger->align(e); });
    connect(addAction(QStringLiteral("distributeH"), tr("水平均匀分布(&H)")), &QAction::triggered, m_arranger,
            [this] { m_arranger->distribute(Qt::Horizontal); });
    connect(addAction(QStringLiteral("distributeV"), tr("垂直均匀分布(&V)")), &QAction::triggered, m_arranger,
            [this] { m_arranger->distribute(Qt::Vertical); });
    connect(addAction(QStringLiteral("sameWidth"), tr("相同宽度(&W)")), &QAction::triggered, m_arranger,
            [this] { m_arranger->sameSize(Qt::Horizontal); });
    connect(addAction(QStringLiteral("sameHeight"), tr("相同高度(&E)")), &QAction::triggered, m_arranger,
            [this] { m_arranger->sameSize(Qt::Vertical); });
    connect(addAction(QStringLiteral("bringToFront"), tr("置于顶层(&F)"),
                      QKeySequence(Qt::CTRL | Qt::SHIFT | Qt::Key_BracketRight)),
            &QAction::triggered, m_arranger, &ReportArranger::bringToFront);
    connect(addAction(QStringLiteral("sendToBack"), tr("置于底层(&K)"),
                      QKeySequence(Qt::CTRL | Qt::SHIFT | Qt::Key_BracketLeft)),
            &QAction::triggered, m_arranger, &ReportArranger::sendToBack);
    connect(
        addAction(QStringLiteral("properties"), tr("属性(&P)..."), QKeySequence(Qt::ALT | Qt::Key_Return)),
        &QAction::triggered, this, [this] {
            QDockWidget* dock = findChild<QDockWidget*>(QStringLiteral("propertyDock"));
            dock->show();
            dock->raise();
            m_properties->setFocus(Qt::OtherFocusReason);
        });
}

void DesignerWindow::createViewSettings(QMenu* view)
{
    view->addSeparator();
    QAction* snap = addAction(QStringLiteral("snapToGrid"), tr("对齐网格(&S)"));
    snap->setCheckable(true);
    snap->setChecked(QSettings().value(QStringLiteral("designer/snapToGrid"), true).toBool());
    connect(snap, &QAction::toggled, this, [this](bool on) {
        QSettings().setValue(QStringLiteral("designer/snapToGrid"), on);
        applyGrid();
    });
    view->addAction(snap);
    QMenu* grid = view->addMenu(tr("网格大小(&G)"));
    auto* sizes = new QActionGroup(grid);
    for (double mm : {0.0, 1.0, 2.0, 2.5, 5.0, 10.0}) {
        QAction* choice =
            grid->addAction(mm == 0 ? tr("默认 (10 像素)") : tr("%1 毫米").arg(QLocale().toString(mm)));
        choice->setObjectName(QStringLiteral("grid%1").arg(mm));
        choice->setCheckable(true);
        choice->setChecked(qFuzzyCompare(mm + 1, m_gridMm + 1));
        sizes->addAction(choice);
        connect(choice, &QAction::triggered, this, [this, mm] { setGridMillimetres(mm); });
    }
    QAction* guides = addAction(QStringLiteral("marginGuides"), tr("页边距参考线(&M)"));
    guides->setCheckable(true);
    guides->setChecked(true);
    connect(guides, &QAction::toggled, this,
            [this](bool on) { m_view->setMarginGuides(on ? storedMargins() : QMarginsF()); });
    view->addAction(guides);
}

void DesignerWindow::setGridMillimetres(double millimetres)
{
    m_gridMm = millimetres;
    QSettings().setValue(QStringLiteral("designer/gridMillimetres"), millimetres);
    applyGrid();
}

void DesignerWindow::applyGrid()
{
    if (!m_report)
        return;
    const QSizeF grid = m_gridMm > 0
                            ? QSizeF(m_gridMm * m_report->dpiX() / 25.4, m_gridMm * m_report->dpiY() / 25.4)
                            : QSizeF(10, 10);
    // The document snaps whatever it moves; a grid far below a printer dot lets things lie free.
    const bool snap = action(QStringLiteral("snapToGrid"))->isChecked();
    m_report->setGridSize(snap ? grid : QSizeF(0.01, 0.01));
    m_view->setGridSize(grid);
    m_editor->setGridSize(grid);
}

void DesignerWindow::createMenus()
{
    QMenu* file = menuBar()->addMenu(tr("文件(&F)"));
    file->addAction(action(QStringLiteral("new")));
    file->addAction(action(QStringLiteral("open")));
    QMenu* recent = file->addMenu(tr("最近的文件(&R)"));
    m_recent = new RecentFiles(recent, this);
    connect(m_recent, &RecentFiles::chosen, this, [this](const QString& fileName) {
        if (maybeSave())
            openFile(fileName);
    });
    file->addAction(action(QStringLiteral("save")));
    file->addAction(action(QStringLiteral("saveAs")));
    file->addSeparator();
    file->addAction(action(QStringLiteral("pageSetup")));
    file->addAction(action(QStringLiteral("workspace")));
    file->addAction(action(QStringLiteral("preview")));
    file->addSeparator();
    file->addAction(action(QStringLiteral("close")));

    QMenu* edit = menuBar()->addMenu(tr("编辑(&E)"));
    for (const char* name : {"undo", "redo", "", "cut", "copy", "paste", "delete", "", "selectAll"}) {
        if (*name)
            edit->addAction(action(QLatin1String(name)));
        else
            edit->addSeparator();
    }
    QMenu* view = menuBar()->addMenu(tr("视图(&V)"));
    view->setObjectName(QStringLiteral("viewMenu"));
    for (const char* name : {"zoomIn", "zoomOut", "fitPage", "actualSize"})
        view->addAction(action(QLatin1String(name)));
    createViewSettings(view);

    const char* const arrangeNames[] = {
        "alignLeft", "alignHCenter", "alignRight",  "alignTop", "alignVCenter", "alignBottom",
        "",          "distributeH",  "distributeV", "",         "sameWidth",    "sameHeight",
        "",          "bringToFront", "sendToBack"};
    QMenu* arrange = menuBar()->addMenu(tr("排列(&A)"));
    for (const char* name : arrangeNames) {
        if (*name)
            arrange->addAction(action(QLatin1String(name)));
        else
            arrange->addSeparator();
    }

    m_contextMenu = new QMenu(this);
    for (const char* name : {"cut", "copy", "paste", "delete", ""})
        *name ? (void)m_contextMenu->addAction(action(QLatin1String(name)))
              : (void)m_contextMenu->addSeparator();
    QMenu* order = m_contextMenu->addMenu(tr("顺序(&O)"));
    order->addAction(action(QStringLiteral("bringToFront")));
    order->addAction(action(QStringLiteral("sendToBack")));
    m_contextMenu->addSeparator();
    m_contextMenu->addAction(action(QStringLiteral("properties")));

    QToolBar* main = addToolBar(tr("文件"));
    main->setObjectName(QStringLiteral("fileToolBar"));
    for (const char* name : {"new", "open", "save", "", "undo", "redo", "", "cut", "copy", "paste", "delete",
                             "", "fitPage", "actualSize", "", "preview"}) {
        if (*name)
            main->addAction(action(QLatin1String(name)));
        else
            main->addSeparator();
    }
    const std::pair<const char*, QStyle::StandardPixmap> icons[] = {
        {"new", QStyle::SP_FileIcon},
        {"open", QStyle::SP_DialogOpenButton},
        {"save", QStyle::SP_DialogSaveButton},
        {"undo", QStyle::SP_ArrowBack},
        {"redo", QStyle::SP_ArrowForward},
        {"delete", QStyle::SP_TrashIcon},
        {"preview", QStyle::SP_FileDialogContentsView}};
    for (const auto& [name, pixmap] : icons)
        action(QLatin1String(name))->setIcon(style()->standardIcon(pixmap));
}

void DesignerWindow::createDocks()
{
    auto addDock = [this](QWidget* widget, const QString& title, const QString& name,
                          Qt::DockWidgetArea area) {
        auto* dock = new QDockWidget(title, this);
        dock->setObjectName(name);
        dock->setWidget(widget);
        addDockWidget(area, dock);
        return dock;
    };
    QDockWidget* tools = addDock(m_palette, tr("工具箱"), QStringLiteral("toolDock"), Qt::LeftDockWidgetArea);
    // Scrolled, so that showing and hiding rows never resizes the window.
    auto* scroll = new QScrollArea;
    scroll->setWidget(m_properties);
    scroll->setWidgetResizable(true);
    scroll->setFrameShape(QFrame::NoFrame);
    QDockWidget* properties =
        addDock(scroll, tr("属性"), QStringLiteral("propertyDock"), Qt::RightDockWidgetArea);
    QDockWidget* outline =
        addDock(m_outline, tr("项目列表"), QStringLiteral("outlineDock"), Qt::RightDockWidgetArea);
    QDockWidget* history =
        addDock(m_undoView, tr("操作历史"), QStringLiteral("historyDock"), Qt::RightDockWidgetArea);
    tabifyDockWidget(outline, history);
    outline->raise();
    resizeDocks({properties}, {300}, Qt::Horizontal);
    resizeDocks({properties, outline}, {520, 300}, Qt::Vertical);
    m_undoView->setEmptyLabel(tr("<空>"));
    QMenu* view = menuBar()->findChild<QMenu*>(QStringLiteral("viewMenu"));
    view->addSeparator();
    for (QDockWidget* dock : {tools, properties, outline, history})
        view->addAction(dock->toggleViewAction());
}

Report* DesignerWindow::makeReport()
{
    auto* report = new Report(m_profile, m_factory, this);
    report->setDesignMode(true);
    return report;
}

void DesignerWindow::setReport(Report* report)
{
    for (const auto& connection : std::as_const(m_reportConnections))
        disconnect(connection);
    m_reportConnections.clear();

    Report* old = m_report;
    m_report = report;
    m_editor->setReport(report);
    m_view->setReport(report);
    m_palette->setView(m_view);
    m_undoView->setStack(report->undoStack());
    m_namer->setStack(report->undoStack());
    delete old;
    applyGrid();
    m_outline->rebuild();

    QUndoStack* stack = report->undoStack();
    m_reportConnections = {
        connect(report, &QGraphicsScene::selectionChanged, this, &DesignerWindow::selectionChanged),
        connect(stack, &QUndoStack::indexChanged, m_outline, &ItemOutline::rebuild),
        connect(stack, &QUndoStack::indexChanged, this, &DesignerWindow::selectionChanged),
        connect(stack, &QUndoStack::cleanChanged, this, &DesignerWindow::updateTitle),
        connect(stack, &QUndoStack::canUndoChanged, action(QStringLiteral("undo")), &QAction::setEnabled),
        connect(stack, &QUndoStack::canRedoChanged, action(QStringLiteral("redo")), &QAction::setEnabled),
    };
    action(QStringLiteral("undo"))->setEnabled(stack->canUndo());
    action(QStringLiteral("redo"))->setEnabled(stack->canRedo());
    m_view->fitPage();
    selectionChanged();
    updateTitle();
    Q_EMIT reportChanged(report);
}

void DesignerWindow::selectionChanged()
{
    if (!m_report)
        return;
    m_editor->selectionChanged();
    const int selected = int(m_editor->selectedItems().size());
    for (const char* name : {"cut", "copy", "delete", "bringToFront", "sendToBack"})
        action(QLatin1String(name))->setEnabled(selected > 0);
    for (const char* name : {"alignLeft", "alignHCenter", "alignRight", "alignTop", "alignVCenter",
                             "alignBottom", "sameWidth", "sameHeight"})
        action(QLatin1String(name))->setEnabled(selected > 1);
    for (const char* name : {"distributeH", "distributeV"})
        action(QLatin1String(name))->setEnabled(selected > 2);
    action(QStringLiteral("properties"))->setEnabled(selected > 0);
    action(QStringLiteral("paste"))->setEnabled(m_editor->canPaste(QApplication::clipboard()->mimeData()));
    m_format->refresh();
    m_properties->refresh();
    m_outline->followSelection();
}

bool DesignerWindow::isModified() const
{
    return m_report && !m_report->undoStack()->isClean();
}

void DesignerWindow::updateTitle()
{
    if (!m_report)
        return;
    const QString name =
        m_report->filename().isEmpty() ? tr("未命名") : QFileInfo(m_report->filename()).fileName();
    setWindowTitle(tr("%1[*] (%2) - 报表设计器").arg(name, Report::typeName(m_report->type())));
    setWindowModified(isModified());
}

bool DesignerWindow::maybeSave()
{
    if (!isModified())
        return true;
    const QString name =
        m_report->filename().isEmpty() ? tr("未命名") : QFileInfo(m_report->filename()).fileName();
    switch (m_dialogs->askSaveChanges(this, name)) {
    case QMessageBox::Save:
        return save();
    case QMessageBox::Discard:
        return true;
    default:
        return false;
    }
}

bool DesignerWindow::newTemplate()
{
    if (!maybeSave())
        return false;
    kv::ReportType type = kv::PatientReport;
    if (!m_dialogs->chooseReportType(this, type))
        return false;
    newTemplate(type);
    return true;
}

void DesignerWindow::newTemplate(kv::ReportType type)
{
    Report* report = makeReport();
    report->setType(type);
    setReport(report);
}

bool DesignerWindow::open()
{
    if (!maybeSave())
        return false;
    const QString directory = m_report && !m_report->filename().isEmpty()
                                  ? QFileInfo(m_report->filename()).absolutePath()
                                  : QString();
    const QString fileName = m_dialogs->openFileName(this, directory);
    return !fileName.isEmpty() && openFile(fileName);
}

bool DesignerWindow::openFile(const QString& fileName)
{
    Report* report = makeReport();
    // Items appear in the scene while they load; none of that is an edit of the user's.
    report->setDesignMode(false);
    if (!report->load(fileName)) {
        m_dialogs->showError(
            this, tr("无法打开模板 %1\n%2").arg(QFileInfo(fileName).fileName(), report->errorString()));
        delete report;
        if (!QFileInfo::exists(fileName))
            m_recent->remove(fileName);
        return false;
    }
    restoreFileOrder(report);
    report->setDesignMode(true);
    report->undoStack()->clear();
    report->setFileName(QFileInfo(fileName).absoluteFilePath());
    setReport(report);
    m_recent->add(fileName);
    // The document loads what it can of a damaged file; the user must know that it is
    // incomplete before saving it over the original.
    TemplateCheck check(m_factory);
    m_damagedFile.clear();
    if (!check.check(fileName)) {
        m_damagedFile = report->filename();
        m_dialogs->showError(this, tr("模板 %1 已损坏：%2\n显示的内容可能不完整；保存到此文件前会先询问。")
                                       .arg(QFileInfo(fileName).fileName(), check.errorString()));
    }
    return true;
}

void DesignerWindow::restoreFileOrder(Report* report)
{
    QList<QGraphicsItem*> order;
    for (ReportItem* item : report->reportItems())
        order.append(item->graphicsItem());
    StackOrderCommand::apply(order); // the last loaded becomes the bottom one
}

bool DesignerWindow::save()
{
    if (m_report->filename().isEmpty())
        return saveAs();
    return saveFile(m_report->filename());
}

bool DesignerWindow::saveAs()
{
    QString suggestion = m_report->filename();
    if (suggestion.isEmpty())
        suggestion = Report::typeName(m_report->type()) + QLatin1Char('.') + Report::suffix;
    QString fileName = m_dialogs->saveFileName(this, suggestion);
    if (fileName.isEmpty())
        return false;
    if (QFileInfo(fileName).suffix().isEmpty())
        fileName += QLatin1Char('.') + Report::suffix;
    return saveFile(fileName);
}

bool DesignerWindow::saveFile(const QString& fileName)
{
    const QString target = QFileInfo(fileName).absoluteFilePath();
    if (!m_damagedFile.isEmpty() && target == m_damagedFile &&
        !m_dialogs->confirmOverwriteDamaged(this, QFileInfo(fileName).fileName()))
        return false;
    m_report->setErrorString(QString());
    if (!m_report->save(fileName)) {
        // A file that cannot be opened was already reported by the library itself.
        if (!m_report->errorString().isEmpty())
            m_dialogs->showError(
                this, tr("无法保存模板 %1\n%2").arg(QFileInfo(fileName).fileName(), m_report->errorString()));
        return false;
    }
    m_report->setFileName(target);
    if (target == m_damagedFile)
        m_damagedFile.clear();
    m_report->undoStack()->setClean();
    m_recent->add(fileName);
    updateTitle();
    statusBar()->showMessage(tr("已保存 %1").arg(QFileInfo(fileName).fileName()), 3000);
    return true;
}

bool DesignerWindow::pageSetup()
{
    PageSetup setup = PageSetup::of(m_report);
    setup.margins = storedMargins();
    const PageSetup before = setup;
    if (!m_dialogs->editPageSetup(this, setup))
        return false;
    if (setup.margins != before.margins) {
        storeMargins(setup.margins);
        action(QStringLiteral("marginGuides"))->setChecked(true);
        m_view->setMarginGuides(setup.margins);
    }
    if (setup == before)
        return false;
    auto* command = new SetupPageCommand(m_report, setup.pageSize, setup.orientation, setup.customSize);
    command->setText(tr("页面设置"));
    m_report->undoStack()->push(command);
    return true;
}

void DesignerWindow::chooseWorkspace()
{
    const QString directory = m_dialogs->workspaceDirectory(this, m_workspace);
    if (!directory.isEmpty())
        m_workspace = directory;
}

bool DesignerWindow::preview()
{
    const QString ini = QDir(m_workspace).filePath(workspaceProfileName());
    if (!QFileInfo(ini).isFile()) {
        m_dialogs->showError(this, tr("工作区 %1 中没有配置文件 %2")
                                       .arg(QDir::toNativeSeparators(QDir(m_workspace).absolutePath()),
                                            workspaceProfileName()));
        return false;
    }
    PreviewWorkspace copy(ini);
    if (!copy.profile()) {
        m_dialogs->showError(this, copy.errorString());
        return false;
    }
    PreviewData data(copy.profile());
    PreviewChoice choice = data.latest();
    if (!m_dialogs->choosePreview(this, m_report->type(), data, choice))
        return false;
    TemplatePreview preview(copy.profile());
    if (!preview.show(m_report, choice, this)) {
        m_dialogs->showError(this, preview.errorString());
        return false;
    }
    return true;
}

void DesignerWindow::closeEvent(QCloseEvent* event)
{
    if (maybeSave())
        event->accept();
    else
        event->ignore();
}

} // namespace coagulation
