#pragma once

#include "toolarguments.h"

#include <kvcore/datastorage.h>

#include <QCoreApplication>

namespace coagulation {

class ItemFactory;
class Profile;
class ReportPrinter;
class Workspace;

// Runs one command of the print tool; messages for the user go to stderr, results to stdout.
class PrintTool
{
    Q_DECLARE_TR_FUNCTIONS(coagulation::PrintTool)
public:
    enum ExitCode { Success = 0, Failure = 1, UsageError = 2 };

    int run(const ToolArguments& arguments);

private:
    int createDemo(const ToolArguments& arguments);
    int listTemplates(DataStorage* printer, Workspace* workspace);
    int checkTemplates(const QStringList& files, ItemFactory* factory);
    int print(const ToolArguments& arguments, ReportPrinter* printer, Workspace* workspace);
    // Checks (and for --template sets, for this run only) the template the job will use.
    bool chooseTemplate(const ToolArguments& arguments, DataStorage* printer, Workspace* workspace);
    // The template remembered under the key loads completely; its data fields' columns are added to
    // the columns the job needs.
    bool checkTemplate(const QString& settingKey, ReportPrinter* printer, Workspace* workspace,
                       QStringList* patientColumns);
    int fail(const QString& message, int code = Failure);
};

} // namespace coagulation
