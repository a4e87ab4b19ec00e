#pragma once

#include <QCoreApplication>
#include <QString>

namespace coagulation {

// A PDF file written whole or not at all: the printer writes a temporary file beside the target,
// which replaces the target only once the job has succeeded. Until then an earlier file of that
// name stays as it was; a failed job leaves no temporary file behind.
class PdfOutput
{
    Q_DECLARE_TR_FUNCTIONS(coagulation::PrintTool)
public:
    explicit PdfOutput(const QString& target);
    ~PdfOutput();
    PdfOutput(const PdfOutput&) = delete;
    PdfOutput& operator=(const PdfOutput&) = delete;

    // Makes the folder and the temporary file; false with errorString() when it cannot.
    bool open();
    // Where the printer is to write.
    QString writeFileName() const { return m_temporary.isEmpty() ? m_target : m_temporary; }
    // Puts the written file in place of the target.
    bool commit();
    QString errorString() const { return m_errorString; }

private:
    QString m_target;
    QString m_temporary; // empty when the target is no regular file (a device) and is written directly
    QString m_errorString;
};

} // namespace coagulation
