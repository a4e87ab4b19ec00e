#pragma once

#include <QList>

namespace coagulation::bench {

// The sizes the suite runs with; the smoke run only checks that everything runs through.
struct BenchConfig
{
    QList<int> patientCounts{1, 10, 100, 1000};
    int scalingSmall = 10; // per-page time and peak memory at the large count over the small one
    int scalingLarge = 1000;
    int qcPoints = 10000;
    int qcShortPoints = 900;  // a 30-page QC report (30 points a page) ...
    int qcShortPatients = 30; // ... against the same number of patient pages
    int templateItems = 2000;
    int templateItemsSmall = 200; // per-item load time at templateItems over this size
    int dragSmall = 100;
    int dragLarge = 5000;
    int dragMoves = 50;
    int workspacePatients = 1200; // patients generated into the benchmark's database
    int repetitions = 5;          // of the short measurements; the median counts
    int largeRepetitions = 5;     // of the 1000-patient comparison

    static BenchConfig smoke()
    {
        BenchConfig config;
        config.patientCounts = {1, 3};
        config.scalingSmall = 1;
        config.scalingLarge = 3;
        config.qcPoints = 300;
        config.qcShortPoints = 60;
        config.qcShortPatients = 2;
        config.templateItems = 50;
        config.templateItemsSmall = 10;
        config.dragSmall = 5;
        config.dragLarge = 20;
        config.dragMoves = 5;
        config.workspacePatients = 20;
        config.repetitions = 1;
        config.largeRepetitions = 1;
        return config;
    }
};

} // namespace coagulation::bench
