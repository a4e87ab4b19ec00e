#pragma once

#include <QCoreApplication>
#include <QString>

namespace coagulation {

// A workspace to try the report module with: a profile, the three laboratory databases filled by
// the generator, the default templates and the template choices remembered in the profile.
class DemoWorkspace
{
    Q_DECLARE_TR_FUNCTIONS(coagulation::PrintTool)
public:
    static QString profileFileName() { return QStringLiteral("profile.ini"); }

    // Where the default templates are found: beside the installed tool, else in the source tree.
    static QString defaultTemplateSource();

    // Creates the workspace in `folder`, which must be missing or empty unless `force` is given;
    // then an existing workspace there is refreshed and its databases are generated anew.
    static bool create(const QString& folder, const QString& templateSource, int patientCount, bool force,
                       QString* errorString);
};

} // namespace coagulation
