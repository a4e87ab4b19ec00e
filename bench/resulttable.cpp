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

// Seconds per printed page, or -1 when the benchmark failed or printed nothing.
double perPage(const ResultCollector::Result* result)
{
    const double pages = counterOf(result, counter::pages);
    return result && result->error.empty() && pages > 0 ? result->secondsPerIteration / pages : -1.0;
}

QString errorOf(const ResultCollector::Result* result)
{
    if (!result)
        return QStringLiteral("not run");
    return QString::fromStdString(result->error);
}

} // namespace

ResultTable::ResultTable(const BenchConfig& config, const ResultCollector& results)
    : m_config(config), m_results(results)
{
    addPrintRows();
    addMemoryRow();
    addQcRow();
    addTemplateRow();
    addDragRow();
}

void ResultTable::addPrintRows()
{
    for (int count : m_config.patientCounts) {
        const auto* ours = m_results.result(name::patients("ours", count));
        const auto* floor = m_results.result(name::patients("floor", count));
        Row row;
        row.what = QStringLiteral("patients %1: per page, ours / floor").arg(count);
        const double a = perPage(ours);
        const double b = perPage(floor);
        if (a >= 0 && b > 0) {
            row.ours = milliseconds(a);
            row.reference = milliseconds(b);
            row.ratio = a / b;
        } else {
            row.note = errorOf(a < 0 ? ours : floor);
        }
        row.target = 1.3;
        addRow(row);
    }

    Row row;
    row.what = QStringLiteral("scaling: per page, %1 / %2 patients")
                   .arg(m_config.scalingLarge)
                   .arg(m_config.scalingSmall);
    const double large = perPage(m_results.result(name::patients("ours", m_config.scalingLarge)));
    const double small = perPage(m_results.result(name::patients("ours", m_config.scalingSmall)));
    if (large >= 0 && small > 0) {
        row.ours = milliseconds(large);
        row.reference = milliseconds(small);
        row.ratio = large / small;
    } else {
        row.note = QStringLiteral("missing a patient measurement");
    }
    row.target = 1.1;
    addRow(row);
}

void ResultTable::addMemoryRow()
{
    const auto* large = m_results.result(name::peakMemory(m_config.scalingLarge));
    const auto* small = m_results.result(name::peakMemory(m_config.scalingSmall));
    Row row;
    row.what =
        QStringLiteral("peak RSS: %1 / %2 patients").arg(m_config.scalingLarge).arg(m_config.scalingSmall);
    const double a = counterOf(large, counter::peakRssKiB);
    const double b = counterOf(small, counter::peakRssKiB);
    if (a > 0 && b > 0) {
        row.ours = mebibytes(a);
        row.reference = mebibytes(b);
        row.ratio = a / b;
    } else {
        row.note = errorOf(a > 0 ? small : large);
    }
    row.target = 1.2;
    addRow(row);
}

void ResultTable::addQcRow()
{
    const auto* ours = m_results.result(name::qc("ours"));
    const auto* floor = m_results.result(name::qc("floor"));
    Row row;
    row.what = QStringLiteral("QC %1 points, %2 pages: per page, ours / floor")
                   .arg(m_config.qcPoints)
                   .arg(counterOf(ours, counter::pages));
    const double a = perPage(ours);
    const double b = perPage(floor);
    if (a >= 0 && b > 0) {
        row.ours = milliseconds(a);
        row.reference = milliseconds(b);
        row.ratio = a / b;
    } else {
        row.note = errorOf(a < 0 ? ours : floor);
    }
    row.target = 1.3;
    addRow(row);
}

void ResultTable::addTemplateRow()
{
    const auto* load = m_results.result(name::templateFile("load", m_config.templateItems));
    const auto* save = m_results.result(name::templateFile("save", m_config.templateItems));
    const auto* smallLoad = m_results.result(name::templateFile("load", m_config.templateItemsSmall));
    const auto ran = [](const ResultCollector::Result* r) {
        return r && r->error.empty() && r->secondsPerIteration > 0;
    };

    Row row;
    row.what = QStringLiteral("template %1 items: per item, load / save").arg(m_config.templateItems);
    if (ran(load) && ran(save)) {
        row.ours = microseconds(load->secondsPerIteration / m_config.templateItems);
        row.reference = microseconds(save->secondsPerIteration / m_config.templateItems);
        row.ratio = load->secondsPerIteration / save->secondsPerIteration;
    } else {
        row.note = errorOf(ran(load) ? save : load);
    }
    addRow(row);

    // Loading must not slow down per item as the template grows.
    Row scaling;
    scaling.what = QStringLiteral("template load: per item, %1 / %2 items")
                       .arg(m_config.templateItems)
                       .arg(m_config.templateItemsSmall);
    if (ran(load) && ran(smallLoad)) {
        const double large = load->secondsPerIteration / m_config.templateItems;
        const double small = smallLoad->secondsPerIteration / m_config.templateItemsSmall;
        scaling.ours = microseconds(large);
        scaling.reference = microseconds(small);
        scaling.ratio = large / small;
    } else {
        scaling.note = errorOf(ran(load) ? smallLoad : load);
    }
    addRow(scaling);
}

void ResultTable::addDragRow()
{
    // Ours first; then the same gesture on a plain Qt scene, which shows what the scene itself adds.
    for (const char* side : {"ours", "qt"}) {
        const bool ours = side == std::string("ours");
        const auto* large = m_results.result(name::drag(side, m_config.dragLarge));
        const auto* small = m_results.result(name::drag(side, m_config.dragSmall));
        Row row;
        row.what = QStringLiteral("%1 (%2 moves): %3 / %4 items")
                       .arg(ours ? QStringLiteral("handle drag") : QStringLiteral("Qt alone, same drag"))
                       .arg(m_config.dragMoves)
                       .arg(m_config.dragLarge)
                       .arg(m_config.dragSmall);
        if (large && small && large->error.empty() && small->error.empty() &&
            small->secondsPerIteration > 0) {
            row.ours = milliseconds(large->secondsPerIteration);
            row.reference = milliseconds(small->secondsPerIteration);
            row.ratio = large->secondsPerIteration / small->secondsPerIteration;
        } else {
            row.note = errorOf(large && large->error.empty() ? small : large);
        }
        row.target = ours ? 1.5 : 0.0;
        addRow(row);
    }
}

void ResultTable::addRow(Row row)
{
    if (row.ratio < 0) {
        m_allMet = false;
        if (row.note.isEmpty())
            row.note = QStringLiteral("not measured");
    } else if (row.target > 0 && row.ratio > row.target) {
        m_allMet = false;
        row.note = QStringLiteral("MISSED");
    } else if (row.target > 0) {
        row.note = QStringLiteral("ok");
    }
    m_rows.append(row);
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
