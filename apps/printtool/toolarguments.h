#pragma once

#include <QCoreApplication>
#include <QDate>
#include <QList>
#include <QString>
#include <QStringList>

namespace coagulation {

// The command line of the print tool, checked: every field is valid once parse() succeeds.
class ToolArguments
{
    Q_DECLARE_TR_FUNCTIONS(coagulation::ToolArguments)
public:
    enum Command { NoCommand, Patients, Samples, Qc, Maintenance, Templates, Check, Demo };
    enum Destination { Printer, PdfFile, PrintDialog, Preview };

    // False with errorString() set for anything the tool cannot act on.
    bool parse(const QStringList& arguments);
    QString errorString() const { return m_errorString; }
    // The tool's help, or with a command that command's own.
    static QString helpText(Command command = NoCommand);

    Command command = NoCommand;
    bool help = false;    // --help: show helpText(command) and stop
    bool version = false; // --version
    Destination destination = Printer;
    QString profileFile;
    QString templateDirectory; // empty: the profile's
    QString templateName;      // empty: the remembered one
    QString outputFile;
    bool strict = false;   // content outgrowing its template fails the job instead of a warning
    bool archival = false; // PDF/A-1b
    QList<qint64> ids;     // patients or reagents
    QStringList sampleNumbers;
    QStringList templateFiles; // check: the files, none for every template of the workspace
    QDate from;                // QC range, open when invalid
    QDate to;
    QDate month;            // maintenance, first day of the month
    qint64 workbenchId = 0; // 0: the first workbench
    QString demoFolder;
    int demoPatients = 200;
    QString templateSource; // demo: where the default templates are copied from
    bool force = false;     // demo: into a folder that is not empty
    QString language;       // empty: from the environment

private:
    bool fail(const QString& message);
    bool parseIds(const QStringList& values, const QString& what);
    bool parseDate(const QString& text, const QString& option, QDate* date);

    QString m_errorString;
};

} // namespace coagulation
