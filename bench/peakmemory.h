#pragma once

#include <QStringList>

namespace coagulation::bench {

// Runs a program in a child process and reports the child's peak resident memory.
class PeakMemory
{
public:
    // Peak resident set in KiB, or -1 when the program could not be run or did not exit with 0.
    static long ofProgram(const QString& program, const QStringList& arguments, QString* errorString);
};

} // namespace coagulation::bench
