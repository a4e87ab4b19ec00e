#pragma once

#include "toolarguments.h"

#include <kvcore/datastorage.h>

namespace coagulation {

class Profile;
class Workspace;

// Runs one command of the print tool; messages for the user go to stderr, results to stdout.
class PrintTool
{
public:
    enum ExitCode { Success = 0, Failure = 1, UsageError = 2 };

    int run(const ToolArguments& arguments);

private:
    int createDemo(const ToolArguments& arguments);
    int listTemplates(DataStorage* printer, Workspace* workspace);
    int print(const ToolArguments& arguments, DataStorage* printer, Workspace* workspace);
    // Checks (and for --template sets, for this run only) the template the job will use.
    bool chooseTemplate(const ToolArguments& arguments, DataStorage* printer, Workspace* workspace);
    int fail(const QString& message, int code = Failure);
};

} // namespace coagulation
