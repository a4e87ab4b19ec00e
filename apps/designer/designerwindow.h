#pragma once

#include <kvcore/reporttype.h>

#include <QMainWindow>
#include <QPointer>

#include <report.h>

#include <memory>

class QAction;
class QLabel;
class QUndoView;

namespace coagulation {

class DesignerDialogs;
class FormatToolBar;
class GeometryPanel;
class ItemFactory;
class PageView;
class Profile;
class RecentFiles;
class Report;
class ReportEditor;
class ReportItemCreator;
class ToolPalette;

// The template designer's main window: one report template on a canvas, with the creation
// tools, the format bar, the position fields and the undo history around it.
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
    GeometryPanel* geometryPanel() const { return m_geometry; }
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

    Profile* m_profile;
    ItemFactory* m_factory;
    std::unique_ptr<DesignerDialogs> m_dialogs;
    QPointer<Report> m_report;
    PageView* m_view;
    ToolPalette* m_palette;
    ReportEditor* m_editor;
    FormatToolBar* m_format;
    GeometryPanel* m_geometry;
    QUndoView* m_undoView;
    RecentFiles* m_recent = nullptr;
    QLabel* m_zoomLabel;
    QString m_workspace;
    QList<QMetaObject::Connection> m_reportConnections;
};

} // namespace coagulation
