#pragma once

#include <kvcore/reporttype.h>

#include <QMainWindow>
#include <QPointer>

#include <report.h>

#include <memory>

class QAction;
class QMenu;
class QLabel;
class QUndoView;

namespace coagulation {

class CommandNamer;
class DesignerDialogs;
class FormatToolBar;
class GeometryPanel;
class ItemFactory;
class ItemOutline;
class PageView;
class PropertyPanel;
class Profile;
class RecentFiles;
class Report;
class ReportArranger;
class ReportEditor;
class ReportItemCreator;
class StyleEditor;
class ToolPalette;

// The template designer's main window: one report template on a canvas with rulers, with the
// creation tools, the format bar, the property panel, the outline and the undo history around it.
class DesignerWindow : public QMainWindow
{
    Q_OBJECT
public:
    DesignerWindow(Profile* profile, ItemFactory* factory, QWidget* parent = nullptr);

    // The settings file of a workspace folder.
    static QString workspaceProfileName() { return QStringLiteral("profile.ini"); }
    ~DesignerWindow() override;

    // Replaces the questions asked of the user (tests answer them without a human).
    void setDialogs(std::unique_ptr<DesignerDialogs> dialogs);
    DesignerDialogs* dialogs() const { return m_dialogs.get(); }
    // The palette starts with the factory's creators; a host may offer others.
    void setTools(const QList<ReportItemCreator*>& creators);

    Report* report() const { return m_report; }
    PageView* view() const { return m_view; }
    ToolPalette* toolPalette() const { return m_palette; }
    ReportEditor* editor() const { return m_editor; }
    FormatToolBar* formatBar() const { return m_format; }
    GeometryPanel* geometryPanel() const;
    StyleEditor* styleEditor() const { return m_style; }
    ReportArranger* arranger() const { return m_arranger; }
    PropertyPanel* propertyPanel() const { return m_properties; }
    ItemOutline* outline() const { return m_outline; }
    // The menu a right click on the canvas shows.
    QMenu* contextMenu() const { return m_contextMenu; }
    // The grid in millimetres; 0 is the document's own grid of 10 x 10 units.
    double gridMillimetres() const { return m_gridMm; }
    void setGridMillimetres(double millimetres);
    QUndoView* undoView() const { return m_undoView; }
    RecentFiles* recentFiles() const { return m_recent; }
    QAction* action(const QString& name) const;
    bool isModified() const;
    // The workspace folder whose data fills a preview.
    QString workspaceDirectory() const { return m_workspace; }
    void setWorkspaceDirectory(const QString& directory) { m_workspace = directory; }

public Q_SLOTS:
    // Asks for the type (and for unsaved changes) and starts an empty template.
    bool newTemplate();
    void newTemplate(kv::ReportType type);
    bool open();
    bool openFile(const QString& fileName);
    bool save();
    bool saveAs();
    bool saveFile(const QString& fileName);
    bool pageSetup();
    void chooseWorkspace();
    // Print preview of the template filled with the workspace's data.
    bool preview();

Q_SIGNALS:
    void reportChanged(coagulation::Report* report);

protected:
    void closeEvent(QCloseEvent* event) override;

private:
    void createActions();
    void createMenus();
    void createDocks();
    void setReport(Report* report);
    Report* makeReport();
    // False when the user cancels; saves or discards as the user says.
    bool maybeSave();
    void updateTitle();
    void selectionChanged();
    QAction* addAction(const QString& name, const QString& text, const QKeySequence& shortcut = {});
    void createArrangeActions();
    void createViewSettings(QMenu* view);
    void applyGrid();
    // The file keeps its topmost item first and loading stacks it at the bottom: turn that round.
    static void restoreFileOrder(Report* report);

    Profile* m_profile;
    ItemFactory* m_factory;
    std::unique_ptr<DesignerDialogs> m_dialogs;
    QPointer<Report> m_report;
    PageView* m_view;
    ToolPalette* m_palette;
    ReportEditor* m_editor;
    FormatToolBar* m_format;
    StyleEditor* m_style;
    ReportArranger* m_arranger;
    PropertyPanel* m_properties;
    ItemOutline* m_outline;
    CommandNamer* m_namer;
    QMenu* m_contextMenu = nullptr;
    QLabel* m_cursorLabel;
    double m_gridMm = 0;
    QUndoView* m_undoView;
    RecentFiles* m_recent = nullptr;
    QLabel* m_zoomLabel;
    QString m_workspace;
    QString m_damagedFile; // opened although it did not load completely
    QList<QMetaObject::Connection> m_reportConnections;
};

} // namespace coagulation
