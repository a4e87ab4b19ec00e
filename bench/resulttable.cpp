#include "resulttable.h"

#include "benchmarks.h"
#include "resultcollector.h"

#include <QStringList>

namespace coagulation::bench {
namespace {

QString milliseconds(double seconds)
{
    return QStringLiteral("%1 ms").arg(seconds * 1e3, 0, 'f', 3);
}

QString microseconds(double seconds)
{
    return QStringLiteral("%1 µs").arg(seconds * 1e6, 0, 'f', 2);
}

QString mebibytes(double kib)
{
    return QStringLiteral("%1 MiB").arg(kib / 1024.0, 0, 'f', 1);
}

double counterOf(const ResultCollector::Result* result, const char* name)
{
    if (!result)
        return 0.0;
    const auto it = result->counters.find(name);
    return it == result->counters.end() ? 0.0 : it->second;
}

QString errorOf(const ResultCollector::Result* result)
{
    if (!result)
        return QStringLiteral("not run");
    return result->error.empty() ? QStringLiteral("measured nothing") : QString::fromStdString(result->error);
}

// A benchmark's time divided by `per` (pages, items, or 1), or its error.
ResultTable::Figure timeOf(const ResultCollector::Result* result, double per)
{
    if (!result || !result->error.empty() || per <= 0 || result->secondsPerIteration <= 0)
        return {-1.0, errorOf(result), result != nullptr};
    return {result->secondsPerIteration / per, QString(), false};
}

// One side of a paired comparison, per page.
ResultTable::Figure pairedSide(const ResultCollector::Result* result, const char* side)
{
    // A failed benchmark reports no counters; one that ran and measured nothing failed too.
    const double seconds = counterOf(result, side);
    if (seconds <= 0)
        return {-1.0, errorOf(result), result != nullptr};
    return {seconds, QString(), false};
}

} // namespace

ResultTable::ResultTable(const BenchConfig& config, const ResultCollector& results)
    : m_config(config), m_results(results)
{
    addPrintRows();
    addMemoryRow();
    addQcRows();
    addTemplateRows();
    addDragRows();
}

void ResultTable::addPrintRows()
{
    for (int count : m_config.patientCounts)
        addPairedRow(QStringLiteral("patients %1: per page, ours / floor").arg(count),
                     m_results.result(name::patients(count)), 1.3);
    addRow(QStringLiteral("scaling: per page, %1 / %2 patients")
               .arg(m_config.scalingLarge)
               .arg(m_config.scalingSmall),
           pairedSide(m_results.result(name::patients(m_config.scalingLarge)), counter::oursPerPage),
           pairedSide(m_results.result(name::patients(m_config.scalingSmall)), counter::oursPerPage),
           milliseconds, 1.1);
}

void ResultTable::addMemoryRow()
{
    const auto peak = [this](const std::string& benchmark) -> Figure {
        const auto* result = m_results.result(benchmark);
        const double kib = counterOf(result, counter::peakRssKiB);
        return kib > 0 ? Figure{kib, QString(), false} : Figure{-1.0, errorOf(result), result != nullptr};
    };
    addRow(QStringLiteral("peak RSS: %1 / %2 patients").arg(m_config.scalingLarge).arg(m_config.scalingSmall),
           peak(name::peakMemory(m_config.scalingLarge)), peak(name::peakMemory(m_config.scalingSmall)),
           mebibytes, 1.2);
    // The maintenance table's widgets print through a vector recording, not a page-sized pixmap.
    addRow(QStringLiteral("peak RSS: maintenance / 1 patient"), peak(name::maintenancePeakMemory()),
           peak(name::peakMemory(1)), mebibytes, 1.2);
}

void ResultTable::addQcRows()
{
    const auto* qc = m_results.result(name::qc(m_config.qcPoints));
    addPairedRow(QStringLiteral("QC %1 points, %2 pages: per page, ours / floor")
                     .arg(m_config.qcPoints)
                     .arg(counterOf(qc, counter::pages)),
                 qc, 1.2);
    const auto* shortQc = m_results.result(name::qcAgainstPatients(m_config.qcShortPoints));
    addPairedRow(QStringLiteral("QC %1 pages / %2 patients: per page")
                     .arg(counterOf(shortQc, counter::pages))
                     .arg(m_config.qcShortPatients),
                 shortQc, 0.0);
}

void ResultTable::addTemplateRows()
{
    const int large = m_config.templateItems;
    const int small = m_config.templateItemsSmall;
    const Figure load = timeOf(m_results.result(name::templateFile("load", large)), large);
    addRow(QStringLiteral("template %1 items: per item, load / save").arg(large), load,
           timeOf(m_results.result(name::templateFile("save", large)), large), microseconds, 0.0);
    // Loading must not slow down per item as the template grows.
    addRow(QStringLiteral("template load: per item, %1 / %2 items").arg(large).arg(small), load,
           timeOf(m_results.result(name::templateFile("load", small)), small), microseconds, 0.0);
}

void ResultTable::addDragRows()
{
    // Ours against the same scene changes made by plain Qt items: what our code adds to Qt's.
    const int large = m_config.dragLarge;
    addRow(QStringLiteral("handle drag (%1 moves), %2 items: ours / Qt alone")
               .arg(m_config.dragMoves)
               .arg(large),
           timeOf(m_results.result(name::drag("ours", large)), 1),
           timeOf(m_results.result(name::drag("qt", large)), 1), milliseconds, 1.1);
    // For information: how each side grows with the item count.
    for (const char* side : {"ours", "qt"}) {
        const bool ours = side == std::string("ours");
        addRow(QStringLiteral("%1 (%2 moves): %3 / %4 items")
                   .arg(ours ? QStringLiteral("handle drag") : QStringLiteral("Qt alone, same drag"))
                   .arg(m_config.dragMoves)
                   .arg(m_config.dragLarge)
                   .arg(m_config.dragSmall),
               timeOf(m_results.result(name::drag(side, m_config.dragLarge)), 1),
               timeOf(m_results.result(name::drag(side, m_config.dragSmall)), 1), milliseconds, 0.0);
    }
}

void ResultTable::addRow(const QString& what, const Figure& ours, const Figure& reference,
                         QString (*format)(double), double target, double ratio)
{
    Row row;
    row.what = what;
    row.target = target;
    if (ours.value < 0 || reference.value <= 0) {
        if (ours.failed || reference.failed)
            m_allMeasured = false;
        row.note = ours.value < 0 ? ours.error : reference.error;
    } else {
        row.ours = format(ours.value);
        row.reference = format(reference.value);
        row.ratio = ratio > 0 ? ratio : ours.value / reference.value;
        if (target > 0)
            row.note = row.ratio > target ? QStringLiteral("MISSED") : QStringLiteral("ok");
    }
    m_rows.append(row);
}

void ResultTable::addPairedRow(const QString& what, const ResultCollector::Result* result, double target)
{
    // The median of the pairs' ratios, not the ratio of the medians.
    addRow(what, pairedSide(result, counter::oursPerPage), pairedSide(result, counter::referencePerPage),
           milliseconds, target, counterOf(result, counter::ratio));
}

QString ResultTable::text() const
{
    const QStringList header = {QStringLiteral("measurement"), QStringLiteral("ours"),
                                QStringLiteral("reference"),   QStringLiteral("ratio"),
                                QStringLiteral("target"),      QString()};
    QList<QStringList> cells{header};
    for (const Row& row : m_rows) {
        cells.append({row.what, row.ours, row.reference,
                      row.ratio >= 0 ? QString::number(row.ratio, 'f', 2) : QStringLiteral("-"),
                      row.target > 0 ? QStringLiteral("<= %1").arg(row.target) : QString(), row.note});
    }
    QList<int> widths(header.size(), 2);
    for (const QStringList& line : cells)
        for (int c = 0; c < line.size(); ++c)
            widths[c] = qMax(widths[c], int(line.at(c).size()));

    QString text;
    for (int i = 0; i < cells.size(); ++i) {
        QStringList padded;
        for (int c = 0; c < cells.at(i).size(); ++c)
            padded.append(c == 0 ? cells.at(i).at(c).leftJustified(widths[c])
                                 : cells.at(i).at(c).rightJustified(widths[c]));
        text += QStringLiteral("| ") + padded.join(QStringLiteral(" | ")) + QStringLiteral(" |\n");
        if (i == 0) {
            // Markdown: the first column left-aligned, the figures right-aligned.
            QStringList rule;
            for (int c = 0; c < widths.size(); ++c)
                rule.append(c == 0 ? QString(widths[c], QLatin1Char('-'))
                                   : QString(widths[c] - 1, QLatin1Char('-')) + QLatin1Char(':'));
            text += QStringLiteral("| ") + rule.join(QStringLiteral(" | ")) + QStringLiteral(" |\n");
        }
    }
    return text;
}

} // namespace coagulation::bench
