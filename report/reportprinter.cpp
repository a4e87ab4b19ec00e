#include "reportprinter.h"

#include "itemfactory.h"
#include "pagerenderer_p.h"
#include "pdffinisher_p.h"
#include "printtimes_p.h"
#include "report.h"
#include "sqlwarning.h"

#include <core/information.h>
#include <core/profile.h>
#include <core/toplevelwidget.h>
#include <core/waitcursor.h>
#include <kvcore/sample.h>
#include <kvcore/workspace.h>

#include <QCoreApplication>
#include <QDir>
#include <QInputDialog>
#include <QPaintEngine>
#include <QPainter>
#include <QPrintDialog>
#include <QPrinter>
#include <QPrinterInfo>
#include <QPrintPreviewDialog>
#include <QPrintPreviewWidget>
#include <QScreen>
#include <QSqlQuery>
#include <QSqlRecord>

namespace coagulation {

namespace {

// Settings key and pick-dialog label of each kind of printout.
struct TemplateChoice
{
    const char* key;
    const char* label;
};

bool templateChoice(kv::ReportType type, kv::SampleType sampleType, TemplateChoice* choice)
{
    switch (type) {
    case kv::PatientReport:
        if (sampleType == kv::QcSample)
            *choice = {"report/qc", QT_TRANSLATE_NOOP("coagulation::ReportPrinter", "质控样本")};
        else
            *choice = {"report/template", QT_TRANSLATE_NOOP("coagulation::ReportPrinter", "病人样本")};
        return true;
    case kv::QcReport:
        *choice = {"report/qctemplate", QT_TRANSLATE_NOOP("coagulation::ReportPrinter", "质控报表")};
        return true;
    case kv::MaintenanceRecordReport:
        *choice = {"report/maintenanceRecord", QT_TRANSLATE_NOOP("coagulation::ReportPrinter", "维护记录")};
        return true;
    default:
        return false;
    }
}

const QString archivalKey = QStringLiteral("report/pdfa");

// "S1, S2, S3" for a few, "S1 … S9 (9)" for many.
QString subjectsText(QStringList subjects)
{
    subjects.removeDuplicates();
    subjects.removeAll(QString());
    if (subjects.size() > 5)
        return QStringLiteral("%1 … %2 (%3)").arg(subjects.first(), subjects.last()).arg(subjects.size());
    return subjects.join(QStringLiteral(", "));
}

// A PDF that was closed in full ends with its trailer's end-of-file marker.
bool isCompletePdf(const QString& fileName)
{
    QFile file(fileName);
    if (!file.open(QIODevice::ReadOnly) || file.size() < 8)
        return false;
    file.seek(qMax<qint64>(0, file.size() - 64));
    return file.read(64).trimmed().endsWith("%%EOF");
}

} // namespace

ReportPrinter::ReportPrinter(QObject* parent) : DataStorage(parent) {}

ReportPrinter::~ReportPrinter() = default;

void ReportPrinter::setWorkspace(Workspace* workspace)
{
    m_workspace = workspace;
    // An earlier factory stays a child until the printer goes.
    if (workspace)
        m_itemFactory = new ItemFactory(workspace->profile(), this);
}

QList<QString> ReportPrinter::enumTemplate(const QString& directory, kv::ReportType type)
{
    QList<QString> names;
    const QFileInfoList entries =
        QDir(directory).entryInfoList({QStringLiteral("*.rpt")}, QDir::Files, QDir::NoSort);
    for (const QFileInfo& entry : entries) {
        if (Report::fileType(entry.absoluteFilePath()) == type)
            names.append(entry.completeBaseName());
    }
    return names;
}

bool ReportPrinter::loadTemplate(Report* report, kv::ReportType type, kv::SampleType sampleType)
{
    TemplateChoice choice;
    if (!templateChoice(type, sampleType, &choice)) {
        information(tr("未知的打印模板类型."), QMessageBox::Ok, QMessageBox::Ok);
        return false;
    }
    Profile* profile = m_workspace->profile();
    const QString key = QString::fromLatin1(choice.key);
    QString name = profile->value(key, QVariant()).toString();
    if (name.isEmpty()) {
        const QList<QString> names = enumTemplate(m_workspace->templateDirectory().path(), type);
        bool ok = false;
        name = QInputDialog::getItem(m_workspace->mainWindow(), QString(),
                                     tr("请选择一个%1打印模板:").arg(tr(choice.label)), names, 0, false, &ok);
        if (!ok)
            return false;
        profile->setValue(key, name, true);
    }
    const QString path = m_workspace->templateDirectory().filePath(name + QLatin1Char('.') + Report::suffix);
    if (report->load(path))
        return true;
    information(tr("无法加载打印模板 %1\n%2").arg(name, report->errorString()), QMessageBox::Ok,
                QMessageBox::Ok);
    return false;
}

bool ReportPrinter::hasWorkspace() const
{
    if (m_workspace && m_workspace->profile())
        return true;
    qWarning("ReportPrinter: no workspace with a profile; call setWorkspace before printing");
    return false;
}

bool ReportPrinter::store(const MaintenanceExportData* data, StoreMode mode)
{
    if (!hasWorkspace())
        return false;
    Report report(m_workspace->profile(), m_itemFactory);
    // A template's own orientation replaces this default.
    report.setOrientation(QPageLayout::Landscape);
    if (!loadTemplate(&report, kv::MaintenanceRecordReport, kv::PatientSample))
        return false;
    Job job;
    job.storeMode = mode;
    job.report = &report;
    job.maintenanceData = data;
    return run(job, &ReportPrinter::printMaintenanceRecord);
}

bool ReportPrinter::store(const QList<QcExportData*>& data, StoreMode mode)
{
    if (!hasWorkspace())
        return false;
    Report report(m_workspace->profile(), m_itemFactory);
    if (!loadTemplate(&report, kv::QcReport, kv::PatientSample))
        return false;
    Job job;
    job.storeMode = mode;
    job.report = &report;
    job.qcData = data;
    return run(job, &ReportPrinter::printQc);
}

bool ReportPrinter::store(const QList<qint64>& patientIds, QSqlDatabase database, StoreMode mode)
{
    if (patientIds.isEmpty())
        return true;
    if (!hasWorkspace())
        return false;
    Report report(m_workspace->profile(), m_itemFactory);
    Report qcSampleReport(m_workspace->profile(), m_itemFactory);
    if (!loadTemplate(&report, kv::PatientReport, kv::PatientSample))
        return false;
    Job job;
    job.storeMode = mode;
    job.report = &report;
    job.qcSampleReport = &qcSampleReport;
    job.patientIds = patientIds;
    job.database = database;
    return run(job, &ReportPrinter::printResult);
}

bool ReportPrinter::run(const Job& job, PageLoop pageLoop)
{
    const Job saved = m_job;
    m_job = job;

    QPrinter printer(QPrinter::HighResolution);
    printer.setDocName(QCoreApplication::applicationName());
    if (!m_outputFileName.isEmpty()) {
        printer.setOutputFormat(QPrinter::PdfFormat);
        printer.setOutputFileName(m_outputFileName);
    }
    if (pageLoop == &ReportPrinter::printMaintenanceRecord)
        printer.setPageOrientation(QPageLayout::Landscape);
    if (pageLoop == &ReportPrinter::printResult)
        printer.setPrintRange(QPrinter::AllPages);
    m_job.report->setupPrinter(&printer);
    m_job.archival = m_workspace->profile()->value(archivalKey).toBool();
    if (m_job.archival)
        printer.setPdfVersion(QPagedPaintDevice::PdfVersion_A1b);

    switch (m_job.storeMode) {
    case StorePreview: {
        QPrintPreviewDialog preview(&printer, topLevelWidget(), Qt::Window);
        // Where nothing maximises the window (no window manager) it must still open large,
        // showing whole pages.
        if (const QScreen* screen = preview.screen())
            preview.resize(screen->availableGeometry().size() * 0.85);
        if (auto* pages = preview.findChild<QPrintPreviewWidget*>())
            pages->fitInView();
        preview.setWindowState((preview.windowState() & ~(Qt::WindowMinimized | Qt::WindowFullScreen)) |
                               Qt::WindowMaximized);
        connect(&preview, &QPrintPreviewDialog::paintRequested, this, pageLoop);
        preview.exec();
        break;
    }
    case StoreWithDialog: {
        QPrintDialog dialog(&printer, nullptr);
        if (pageLoop == &ReportPrinter::printResult)
            dialog.setOption(QAbstractPrintDialog::PrintPageRange, false);
        if (dialog.exec() == QDialog::Accepted)
            (this->*pageLoop)(&printer);
        break;
    }
    default:
        (this->*pageLoop)(&printer);
        break;
    }

    const bool printed = !m_job.printerFailed;
    m_job = saved;
    return printed;
}

bool ReportPrinter::beginPainting(QPainter& painter, QPrinter* printer)
{
    if (painter.begin(printer))
        return true;
    // No page can come out, so nothing is marked as printed either.
    m_job.printerFailed = true;
    information(printerError(printer), QMessageBox::Ok, QMessageBox::Ok);
    return false;
}

bool ReportPrinter::endPainting(QPainter& painter, QPrinter* printer)
{
    if (!painter.end() || printer->printerState() == QPrinter::Error) {
        m_job.printerFailed = true;
        information(tr("打印机 %1 报告了错误.").arg(printer->printerName()), QMessageBox::Ok,
                    QMessageBox::Ok);
        return false;
    }
    // Only a PDF file is finished and checked: a preview paints on the same printer without writing one.
    if (printer->outputFormat() != QPrinter::PdfFormat || printer->outputFileName().isEmpty() ||
        !printer->paintEngine() || printer->paintEngine()->type() != QPaintEngine::Pdf)
        return true;
    PdfDocumentInfo info;
    info.title = QStringList{Report::typeName(m_job.report->type()), subjectsText(m_job.subjects)}
                     .join(QLatin1Char(' '))
                     .trimmed();
    info.author = m_workspace->profile()->value(QStringLiteral("hospital")).toString();
    info.creator = QStringLiteral("CoagulationReport " COAGULATION_REPORT_VERSION);
    info.archival = m_job.archival;
    // Complete as Qt wrote it, finished, and complete again as finished.
    const QString fileName = printer->outputFileName();
    QString error;
    if (isCompletePdf(fileName) && PdfFinisher::finish(fileName, info, &error) && isCompletePdf(fileName))
        return true;
    if (!error.isEmpty())
        qWarning("ReportPrinter: cannot finish %s: %s", qPrintable(fileName), qPrintable(error));
    m_job.printerFailed = true;
    information(tr("文件 %1 没有完整写出.").arg(QDir::toNativeSeparators(fileName)), QMessageBox::Ok,
                QMessageBox::Ok);
    return false;
}

QString ReportPrinter::printerError(const QPrinter* printer) const
{
    if (printer->outputFormat() == QPrinter::PdfFormat && !printer->outputFileName().isEmpty())
        return tr("无法写入文件 %1").arg(QDir::toNativeSeparators(printer->outputFileName()));
    if (QPrinterInfo::availablePrinterNames().isEmpty())
        return tr("没有可用的打印机.");
    return tr("无法打开打印机 %1").arg(printer->printerName());
}

void ReportPrinter::printResult(QPrinter* printer)
{
    WaitCursor cursor(Qt::WaitCursor);
    // Reserved before the first page: a locked database fails the job before anything prints.
    PrintTimes times(m_job.database);
    if (!times.begin()) {
        m_job.printerFailed = true;
        information(times.errorString() + QLatin1Char('\n') + tr("没有打印任何报告."), QMessageBox::Ok,
                    QMessageBox::Ok);
        return;
    }
    QPainter painter;
    if (!beginPainting(painter, printer))
        return;
    QSqlQuery select(m_job.database);
    if (!select.prepare(QStringLiteral("select sampleNo from patient where id=:id")))
        REPORT_SQL_WARNING(select.lastError());
    m_job.subjects.clear();

    Profile* profile = m_workspace->profile();
    for (int i = 0; i < m_job.patientIds.size(); ++i) {
        const qint64 id = m_job.patientIds.at(i);
        QString sampleNo;
        select.bindValue(QStringLiteral(":id"), id);
        if (!select.exec())
            REPORT_SQL_WARNING(select.lastError());
        else if (select.first())
            sampleNo = select.value(0).toString();
        select.finish();

        Report* page = m_job.report;
        if (Sample::sampleTypeOf(sampleNo, profile) == kv::QcSample) {
            if (!m_job.qcSampleTemplateTried) {
                m_job.qcSampleTemplateTried = true;
                m_job.qcSampleTemplateLoaded =
                    loadTemplate(m_job.qcSampleReport, kv::PatientReport, kv::QcSample);
            }
            // Without its template a QC sample is left out; the page break before it stays.
            if (!m_job.qcSampleTemplateLoaded)
                continue;
            page = m_job.qcSampleReport;
        }
        page->fetchData(int(id), m_job.database);
        PageRenderer::render(page, &painter);
        m_job.subjects.append(sampleNo.trimmed());
        times.write(id);
        if (i != m_job.patientIds.size() - 1)
            printer->newPage();
    }
    // The times stand only for pages that came out.
    if (endPainting(painter, printer))
        times.commit();
    else
        times.rollback();
}

void ReportPrinter::printQc(QPrinter* printer)
{
    WaitCursor cursor(Qt::WaitCursor);
    QPainter painter;
    if (!beginPainting(painter, printer))
        return;
    int pagesPrinted = 0;
    m_job.subjects.clear();
    for (QcExportData* data : std::as_const(m_job.qcData)) {
        m_job.report->prepareQcData(data);
        // Items may raise the page count while they prepare or fetch, so it is read every page.
        for (int page = 1; page <= m_job.report->pageCount(); ++page) {
            if (++pagesPrinted > 1)
                printer->newPage();
            m_job.report->setCurrentPage(page);
            m_job.report->fetchQcData(data);
            PageRenderer::render(m_job.report, &painter);
            const QSqlRecord reagent = m_job.report->record(QStringLiteral("reagent"));
            m_job.subjects.append(QStringList{reagent.value(QStringLiteral("name")).toString(),
                                              reagent.value(QStringLiteral("lot")).toString()}
                                      .join(QLatin1Char(' '))
                                      .trimmed());
        }
    }
    endPainting(painter, printer);
}

void ReportPrinter::printMaintenanceRecord(QPrinter* printer)
{
    WaitCursor cursor(Qt::WaitCursor);
    QPainter painter;
    if (!beginPainting(painter, printer))
        return;
    if (m_job.maintenanceData)
        m_job.subjects = QStringList{m_job.maintenanceData->month.toString(QStringLiteral("yyyy-MM"))};
    m_job.report->prepareMaintenanceData(m_job.maintenanceData);
    PageRenderer::render(m_job.report, &painter);
    endPainting(painter, printer);
}

} // namespace coagulation
