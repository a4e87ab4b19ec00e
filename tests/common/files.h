#pragma once
// Whole files read and written in one call, for tests that compare or damage file bytes.
#include <QByteArray>
#include <QFile>

namespace coagulation::test {

// The file's bytes; empty when it cannot be read.
inline QByteArray fileBytes(const QString& fileName)
{
    QFile file(fileName);
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
}

// Replaces the file's contents; false unless every byte was written.
inline bool writeFile(const QString& fileName, const QByteArray& bytes)
{
    QFile file(fileName);
    return file.open(QIODevice::WriteOnly) && file.write(bytes) == bytes.size();
}

} // namespace coagulation::test
