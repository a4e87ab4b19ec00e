#include "overflowpreflight.h"

#include "overflowcheck.h"

#include <core/profile.h>
#include <itemfactory.h>
#include <kvcore/maintenanceexportdata.h>
#include <kvcore/qcexportdata.h>
#include <kvcore/sample.h>
#include <kvcore/workbench.h>
#include <kvcore/workspace.h>
#include <report.h>

#include <QSqlRecord>

#include <cstdio>
#include <memory>

namespace coagulation {

bool OverflowPreflight::load(Report* report, const QString& key) const
{
    const QString name = m_workspace->profile()->value(key).toString();
    return !name.isEmpty() &&
           report->load(m_workspace->templateDirectory().filePath(name + QLatin1Char('.') + Report::suffix));
}

QStringList OverflowPreflight::patients(const QList<qint64>& ids)
{
    Profile* profile = m_workspace->profile();
    ItemFactory factory(profile);
    // The patient template, and the QC sample template once a QC sample comes.
    struct Page
    {
        std::unique_ptr<Report> report;
        std::unique_ptr<OverflowCheck> check;
    };
    Page pages[2];
    QStringList warnings;
    for (const qint64 id : ids) {
        Report probe(profile, &factory);
        probe.fetchData(int(id), profile->dataDatabase());
        const QSqlRecord patient = probe.record(QStringLiteral("patient"));
        const QString sampleNo = patient.value(QStringLiteral("sampleNo")).toString();
        const bool qcSample = Sample::sampleTypeOf(sampleNo, profile) == kv::QcSample;
        Page& page = pages[qcSample ? 1 : 0];
        if (!page.report) {
            page.report = std::make_unique<Report>(profile, &factory);
            if (!load(page.report.get(),
                      qcSample ? QStringLiteral("report/qc") : QStringLiteral("report/template")))
                continue; // the report stays without a check: nothing of this kind is printed
            page.check = std::make_unique<OverflowCheck>(page.report.get());
        }
        if (!page.check)
            continue;
        page.report->fetchData(int(id), profile->dataDatabase());
        warnings += page.check->check(
            tr("病人 %1（样本号 %2）").arg(patient.value(QStringLiteral("name")).toString(), sampleNo));
    }
    return warnings;
}

QStringList OverflowPreflight::qc(const QList<QcExportData*>& series)
{
    Profile* profile = m_workspace->profile();
    ItemFactory factory(profile);
    Report report(profile, &factory);
    if (!load(&report, QStringLiteral("report/qctemplate")))
        return {};
    const OverflowCheck check(&report);
    QStringList warnings;
    for (const QcExportData* data : series) {
        report.prepareQcData(data);
        for (int page = 1; page <= report.pageCount(); ++page) {
            report.setCurrentPage(page);
            report.fetchQcData(data);
            const QSqlRecord reagent = report.record(QStringLiteral("reagent"));
            warnings += check.check(tr("质控品 %1 %2（批号 %3）第 %4 页")
                                        .arg(reagent.value(QStringLiteral("name")).toString(),
                                             reagent.value(QStringLiteral("level")).toString(),
                                             reagent.value(QStringLiteral("lot")).toString())
                                        .arg(page));
        }
    }
    return warnings;
}

QStringList OverflowPreflight::maintenance(const MaintenanceExportData& data)
{
    Profile* profile = m_workspace->profile();
    ItemFactory factory(profile);
    Report report(profile, &factory);
    if (!load(&report, QStringLiteral("report/maintenanceRecord")))
        return {};
    const OverflowCheck check(&report);
    MaintenanceExportData copy = data; // binding advances its record type
    report.prepareMaintenanceData(&copy);
    return check.check(tr("%1 %2 的维护记录")
                           .arg(data.workbench ? data.workbench->name() : QString(),
                                data.month.toString(QStringLiteral("yyyy-MM"))));
}

bool OverflowPreflight::passes(const QStringList& warnings, bool strict)
{
    for (const QString& warning : warnings)
        std::fprintf(stderr, "coagulation-print: %s\n", qUtf8Printable(tr("警告：%1").arg(warning)));
    if (!strict || warnings.isEmpty())
        return true;
    std::fprintf(stderr, "coagulation-print: %s\n",
                 qUtf8Printable(tr("有 %1 处内容超出模板留出的位置（--strict），没有打印，也没有记录打印时间")
                                    .arg(warnings.size())));
    return false;
}

} // namespace coagulation
