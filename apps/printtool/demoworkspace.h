#pragma once

#include <QString>

namespace coagulation {

// A workspace to try the report module with: a profile, the three laboratory databases filled by
// the generator, the default templates and the template choices remembered in the profile.
class DemoWorkspace
{
public:
    static QString profileFileName() { return QStringLiteral("profile.ini"); }

    // Where the default templates are found: beside the installed tool, else in the source tree.
    static QString defaultTemplateSource();

    // Creates or refreshes the workspace in `folder`; the databases are generated anew.
    static bool create(const QString& folder, const QString& templateSource, int patientCount,
                       QString* errorString);
};

} // namespace coagulation
