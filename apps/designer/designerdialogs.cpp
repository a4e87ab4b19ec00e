#include "designerdialogs.h"

#include "pagesetupdialog.h"
#include "previewdialog.h"

#include <core/information.h>
#include <report.h>

#include <QColorDialog>
#include <QCoreApplication>
#include <QFileDialog>
#include <QInputDialog>

namespace coagulation {

namespace {
QString templateFilter()
{
    return DesignerDialogs::tr("报表模板 (*.%1);;所有文件 (*)").arg(Report::suffix);
}
} // namespace

bool DesignerDialogs::chooseReportType(QWidget* parent, kv::ReportType& type)
{
    if (!InformationLog::isInteractive())
        return false;
    QStringList names;
    for (kv::ReportType t : {kv::PatientReport, kv::QcReport, kv::MaintenanceRecordReport})
        names.append(Report::typeName(t));
    bool ok = false;
    const QString chosen =
        QInputDialog::getItem(parent, tr("新建模板"), tr("报表类型:"), names, 0, false, &ok);
    if (!ok || !names.contains(chosen))
        return false;
    type = kv::ReportType(names.indexOf(chosen));
    return true;
}

QString DesignerDialogs::openFileName(QWidget* parent, const QString& directory)
{
    if (!InformationLog::isInteractive())
        return {};
    return QFileDialog::getOpenFileName(parent, tr("打开模板"), directory, templateFilter());
}

QString DesignerDialogs::saveFileName(QWidget* parent, const QString& suggestion)
{
    if (!InformationLog::isInteractive())
        return {};
    return QFileDialog::getSaveFileName(parent, tr("保存模板"), suggestion, templateFilter());
}

QMessageBox::StandardButton DesignerDialogs::askSaveChanges(QWidget* parent, const QString& documentName)
{
    if (!InformationLog::isInteractive())
        return QMessageBox::Cancel; // nothing is lost without an answer
    return QMessageBox::question(
        parent, tr("报表设计器"), tr("模板“%1”已被修改。\n是否保存修改？").arg(documentName),
        QMessageBox::Save | QMessageBox::Discard | QMessageBox::Cancel, QMessageBox::Save);
}

void DesignerDialogs::showError(QWidget*, const QString& text)
{
    // The host's box: modal for a user, observable (and not blocking) for tools and tests.
    information(text);
}

bool DesignerDialogs::confirmOverwriteDamaged(QWidget* parent, const QString& documentName)
{
    if (!InformationLog::isInteractive())
        return false;
    return QMessageBox::warning(parent, tr("报表设计器"),
                                tr("模板“%1”打开时已损坏，当前内容可能不完整。\n仍要覆盖原文件吗？"
                                   "（可用“另存为”保存到新文件。）")
                                    .arg(documentName),
                                QMessageBox::Yes | QMessageBox::No, QMessageBox::No) == QMessageBox::Yes;
}

bool DesignerDialogs::editPageSetup(QWidget* parent, PageSetup& setup)
{
    if (!InformationLog::isInteractive())
        return false;
    PageSetupDialog dialog(setup, parent);
    if (dialog.exec() != QDialog::Accepted)
        return false;
    setup = dialog.pageSetup();
    return true;
}

QColor DesignerDialogs::chooseColor(QWidget* parent, const QColor& initial)
{
    if (!InformationLog::isInteractive())
        return {};
    return QColorDialog::getColor(initial, parent, QString(), QColorDialog::ShowAlphaChannel);
}

bool DesignerDialogs::choosePreview(QWidget* parent, kv::ReportType type, const PreviewData& data,
                                    PreviewChoice& choice)
{
    if (!InformationLog::isInteractive())
        return false;
    PreviewDialog dialog(type, data, choice, parent);
    if (dialog.exec() != QDialog::Accepted)
        return false;
    choice = dialog.choice();
    return true;
}

QString DesignerDialogs::workspaceDirectory(QWidget* parent, const QString& current)
{
    if (!InformationLog::isInteractive())
        return {};
    return QFileDialog::getExistingDirectory(parent, tr("选择工作区"), current);
}

} // namespace coagulation
