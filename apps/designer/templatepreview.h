#pragma once

#include <QCoreApplication>
#include <QString>

class QWidget;

namespace coagulation {

class Profile;
class Report;

// Shows a template as it will print: the storage plug-in's printer fills it with data from a
// workspace (a few patients, QC series or a month of maintenance) and opens its print preview.
class TemplatePreview
{
    Q_DECLARE_TR_FUNCTIONS(coagulation::TemplatePreview)

public:
    // The name under which the template is handed to the printer.
    static QString templateName() { return QStringLiteral("designer-preview"); }

    explicit TemplatePreview(Profile* workspaceProfile);

    // False, with errorString() set, when the preview could not be shown at all.
    bool show(Report* report, QWidget* parent);
    QString errorString() const { return m_errorString; }

private:
    bool fail(const QString& message);

    Profile* m_profile;
    QString m_errorString;
};

} // namespace coagulation
