#pragma once

// What a printed PDF holds as a reader finds it: its pages, and the answers of poppler-utils and qpdf.

#include <QFile>
#include <QProcess>
#include <QRegularExpression>
#include <QStandardPaths>
#include <QStringList>

namespace coagulation::test {

// Pages of a PDF written by Qt: one "/Type /Page" object per page; -1 when it cannot be read.
inline int pdfPageCount(const QString& fileName)
{
    QFile file(fileName);
    if (!file.open(QIODevice::ReadOnly))
        return -1;
    static const QRegularExpression page(QStringLiteral("/Type\\s*/Page(?![a-zA-Z])"));
    return int(QString::fromLatin1(file.readAll()).count(page));
}

// Standard output of a PDF tool; empty when the tool is missing or fails.
inline QString pdfTool(const QString& tool, const QStringList& arguments)
{
    QProcess process;
    process.start(tool, arguments);
    if (!process.waitForFinished(60000) || process.exitStatus() != QProcess::NormalExit ||
        process.exitCode() != 0)
        return QString();
    return QString::fromUtf8(process.readAllStandardOutput());
}

inline bool hasPdfTools()
{
    for (const char* tool : {"pdftotext", "pdfinfo", "pdffonts", "pdfimages", "qpdf"}) {
        if (QStandardPaths::findExecutable(QString::fromLatin1(tool)).isEmpty())
            return false;
    }
    return true;
}

// The text of each page, in page order.
inline QStringList pdfPageTexts(const QString& fileName)
{
    QStringList pages =
        pdfTool(QStringLiteral("pdftotext"), {fileName, QStringLiteral("-")}).split(QLatin1Char('\f'));
    if (!pages.isEmpty() && pages.constLast().trimmed().isEmpty())
        pages.removeLast();
    return pages;
}

// A field of pdfinfo's report, such as "Title" or "Page size".
inline QString pdfInfo(const QString& fileName, const QString& field)
{
    const QRegularExpression line(QStringLiteral("^%1:\\s*(.*)$").arg(field),
                                  QRegularExpression::MultilineOption);
    return line.match(pdfTool(QStringLiteral("pdfinfo"), {fileName})).captured(1).trimmed();
}

} // namespace coagulation::test
