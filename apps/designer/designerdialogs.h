#pragma once

#include "pagesetup.h"

#include <kvcore/reporttype.h>

#include <QColor>
#include <QCoreApplication>
#include <QMessageBox>
#include <QString>

class QWidget;

namespace coagulation {

class PreviewData;
struct PreviewChoice;

// Every question the designer asks its user. The window asks through this object, so tests
// and scripts replace it with one that answers without a human. In a process that must not
// block (see InformationLog::isInteractive) these defaults answer as if the user cancelled.
class DesignerDialogs
{
    Q_DECLARE_TR_FUNCTIONS(coagulation::DesignerDialogs)

public:
    virtual ~DesignerDialogs() = default;

    // The type of a new template; false when the user cancels.
    virtual bool chooseReportType(QWidget* parent, kv::ReportType& type);
    virtual QString openFileName(QWidget* parent, const QString& directory);
    virtual QString saveFileName(QWidget* parent, const QString& suggestion);
    // Save, Discard or Cancel for a document with unsaved changes.
    virtual QMessageBox::StandardButton askSaveChanges(QWidget* parent, const QString& documentName);
    virtual void showError(QWidget* parent, const QString& text);
    // Whether to save over a template that was damaged when it was opened; no unless the user
    // says yes.
    virtual bool confirmOverwriteDamaged(QWidget* parent, const QString& documentName);
    virtual bool editPageSetup(QWidget* parent, PageSetup& setup);
    // An invalid colour when the user cancels.
    virtual QColor chooseColor(QWidget* parent, const QColor& initial);
    // What a preview of a template of this type shows; false when the user cancels.
    virtual bool choosePreview(QWidget* parent, kv::ReportType type, const PreviewData& data,
                               PreviewChoice& choice);
    // The workspace folder whose data fills a preview; empty when cancelled.
    virtual QString workspaceDirectory(QWidget* parent, const QString& current);
};

} // namespace coagulation
