#pragma once

#include "benchconfig.h"

#include <QString>

namespace coagulation::bench {

class ResultCollector;

// The one table `make bench` prints: each measurement beside its reference, their ratio and the
// target the ratio must meet.
class ResultTable
{
public:
    ResultTable(const BenchConfig& config, const ResultCollector& results);

    QString text() const;
    // False when a ratio misses its target or a measurement failed.
    bool allTargetsMet() const { return m_allMet; }

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
    void addQcRow();
    void addTemplateRow();
    void addDragRow();
    void addRow(Row row);

    const BenchConfig& m_config;
    const ResultCollector& m_results;
    QList<Row> m_rows;
    bool m_allMet = true;
};

} // namespace coagulation::bench
