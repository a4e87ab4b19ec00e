#pragma once

#include "benchconfig.h"
#include "resultcollector.h"

#include <QString>

namespace coagulation::bench {

// The one table `make bench` prints: each measurement beside its reference, their ratio and the
// target the ratio must meet.
class ResultTable
{
public:
    ResultTable(const BenchConfig& config, const ResultCollector& results);

    QString text() const;
    // False when a benchmark that ran could not measure (a filtered-out one is no failure).
    bool allMeasured() const { return m_allMeasured; }

    // One measured figure (seconds, KiB), or below 0 with the reason it is missing.
    struct Figure
    {
        double value = -1.0;
        QString error;
        bool failed = false; // the benchmark ran and reported an error
    };

private:
    struct Row
    {
        QString what;
        QString ours;
        QString reference;
        double ratio = -1.0; // below 0: not measured
        double target = 0.0; // 0: no target
        QString note;
    };

    void addPrintRows();
    void addMemoryRow();
    void addQcRows();
    void addTemplateRows();
    void addDragRows();
    // `ratio`: when above 0, the ratio measured in pairs rather than ours / reference.
    void addRow(const QString& what, const Figure& ours, const Figure& reference, QString (*format)(double),
                double target, double ratio = -1.0);
    void addPairedRow(const QString& what, const ResultCollector::Result* result, double target);

    const BenchConfig& m_config;
    const ResultCollector& m_results;
    QList<Row> m_rows;
    bool m_allMeasured = true;
};

} // namespace coagulation::bench
