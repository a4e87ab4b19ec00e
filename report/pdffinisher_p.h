#pragma once

#include <QString>

namespace coagulation {

// What a finished PDF file says about itself.
struct PdfDocumentInfo
{
    QString title;
    QString author;
    QString creator;
    bool archival = false; // PDF/A-1b: the file was written as such, its metadata must say so
};

// Finishes a PDF file that Qt has written: corrects the text layer of its fonts (see
// ToUnicodeMap and GlyphSources) and gives it title, author and creator, the same in the document information
// and in the XMP metadata, as PDF/A wants them. The file is replaced only when all of that worked.
class PdfFinisher
{
public:
    static bool finish(const QString& fileName, const PdfDocumentInfo& info, QString* errorString);
};

} // namespace coagulation
