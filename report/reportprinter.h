#pragma once

#include "report_global.h"

#include <kvcore/datastorage.h>
#include <kvcore/sampletype.h>

#include <QList>
#include <QSqlDatabase>
#include <QString>
#include <QStringList>

class QPainter;
class QPrinter;

namespace coagulation {

class ItemFactory;
class Report;

// The host's printing back-end: prints patients' results, QC series and maintenance months
// through the template chosen for each kind of printout, at once, after a print dialog or from a
// maximised preview.
class REPORT_EXPORT ReportPrinter : public DataStorage
{
    Q_OBJECT
public:
    explicit ReportPrinter(QObject* parent = nullptr);
    ~ReportPrinter() override;

    Workspace* workspace() const { return m_workspace; }
    ItemFactory* itemFactory() const { return m_itemFactory; }

    // When set, jobs write a PDF file there instead of going to the default printer (a print
    // dialog starts with it as its destination).
    QString outputFileName() const { return m_outputFileName; }
    void setOutputFileName(const QString& fileName) { m_outputFileName = fileName; }

    void setWorkspace(Workspace* workspace) override;
    QList<QString> enumTemplate(const QString& directory, kv::ReportType type) override;
    // Each returns false when the template cannot be chosen or loaded, the printer cannot be
    // opened, the pages did not all come out or the print times could not be reserved (the user
    // has been told); true otherwise, also when the user cancelled a dialog.
    bool store(const MaintenanceExportData* data, StoreMode mode) override;
    bool store(const QList<QcExportData*>& data, StoreMode mode) override;
    bool store(const QList<qint64>& patientIds, QSqlDatabase database, StoreMode mode) override;

public Q_SLOTS:
    // The page loops; a preview dialog runs them again for every repaint.
    void printResult(QPrinter* printer);
    void printQc(QPrinter* printer);
    void printMaintenanceRecord(QPrinter* printer);

private:
    using PageLoop = void (ReportPrinter::*)(QPrinter*);

    // What describes the running job; saved and restored around every store call.
    struct Job
    {
        StoreMode storeMode = StoreAtOnce;
        QSqlDatabase database;
        QList<qint64> patientIds;
        QList<QcExportData*> qcData;
        Report* report = nullptr;
        Report* qcSampleReport = nullptr;
        bool qcSampleTemplateTried = false;
        bool qcSampleTemplateLoaded = false;
        const MaintenanceExportData* maintenanceData = nullptr;
        bool printerFailed = false;
        bool archival = false; // PDF/A-1b
        QStringList subjects;  // what the printed pages are about, for the document title
    };

    bool hasWorkspace() const;
    bool loadTemplate(Report* report, kv::ReportType type, kv::SampleType sampleType);
    bool run(const Job& job, PageLoop pageLoop);
    bool beginPainting(QPainter& painter, QPrinter* printer);
    // Ends the job's pages; false (the user has been told) when they did not all come out.
    bool endPainting(QPainter& painter, QPrinter* printer);
    QString printerError(const QPrinter* printer) const;

    Workspace* m_workspace = nullptr;
    ItemFactory* m_itemFactory = nullptr;
    Job m_job;
    QString m_outputFileName;
};

} // namespace coagulation
