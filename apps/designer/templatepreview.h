#pragma once

#include <QCoreApplication>
#include <QString>

class QWidget;

namespace coagulation {

class Profile;
class Report;
struct PreviewChoice;

// Shows a template as it will print: the storage plug-in's printer fills it with the chosen data
// of a workspace (patients, QC series or a month of maintenance) and opens its print preview.
// Give it a copy of the workspace: the printer records print times as it prints.
class TemplatePreview
{
    Q_DECLARE_TR_FUNCTIONS(coagulation::TemplatePreview)

public:
    // The name under which the template is handed to the printer.
    static QString templateName() { return QStringLiteral("designer-preview"); }

    explicit TemplatePreview(Profile* workspaceProfile);

    // False, with errorString() set, when the preview could not be shown at all.
    bool show(Report* report, const PreviewChoice& choice, QWidget* parent);
    QString errorString() const { return m_errorString; }

private:
    bool fail(const QString& message);

    Profile* m_profile;
    QString m_errorString;
};

} // namespace coagulation
