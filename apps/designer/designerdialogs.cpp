#include "designerdialogs.h"

#include "pagesetupdialog.h"

#include <report.h>

#include <QColorDialog>
#include <QCoreApplication>
#include <QFileDialog>
#include <QInputDialog>

namespace coagulation {

namespace {
QString tr(const char* text)
{
    return QCoreApplication::translate("coagulation::DesignerDialogs", text);
}

QString templateFilter()
{
    return tr("报表模板 (*.%1);;所有文件 (*)").arg(Report::suffix);
}
} // namespace

bool DesignerDialogs::chooseReportType(QWidget* parent, kv::ReportType& type)
{
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
    return QFileDialog::getOpenFileName(parent, tr("打开模板"), directory, templateFilter());
}

QString DesignerDialogs::saveFileName(QWidget* parent, const QString& suggestion)
{
    return QFileDialog::getSaveFileName(parent, tr("保存模板"), suggestion, templateFilter());
}

QMessageBox::StandardButton DesignerDialogs::askSaveChanges(QWidget* parent, const QString& documentName)
{
    return QMessageBox::question(
        parent, tr("报表设计器"), tr("模板“%1”已被修改。\n是否保存修改？").arg(documentName),
        QMessageBox::Save | QMessageBox::Discard | QMessageBox::Cancel, QMessageBox::Save);
}

void DesignerDialogs::showError(QWidget* parent, const QString& text)
{
    QMessageBox::warning(parent, tr("报表设计器"), text);
}

bool DesignerDialogs::editPageSetup(QWidget* parent, PageSetup& setup)
{
    PageSetupDialog dialog(setup, parent);
    if (dialog.exec() != QDialog::Accepted)
        return false;
    setup = dialog.pageSetup();
    return true;
}

QColor DesignerDialogs::chooseColor(QWidget* parent, const QColor& initial)
{
    return QColorDialog::getColor(initial, parent, QString(), QColorDialog::ShowAlphaChannel);
}

QString DesignerDialogs::workspaceDirectory(QWidget* parent, const QString& current)
{
    return QFileDialog::getExistingDirectory(parent, tr("选择工作区"), current);
}

} // namespace coagulation
