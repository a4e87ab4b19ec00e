#include "pdffinisher_p.h"

#include "glyphsources_p.h"
#include "tounicodemap_p.h"

#include <QDateTime>
#include <QFile>
#include <QFontDatabase>
#include <QHash>
#include <QRawFont>
#include <QRegularExpression>

#include <qpdf/QPDF.hh>
#include <qpdf/QPDFObjectHandle.hh>
#include <qpdf/QPDFWriter.hh>

#include <cerrno>
#include <cstdio>
#include <cstring>
#include <exception>
#include <map>
#include <memory>
#include <optional>
#include <set>
#include <vector>

namespace coagulation {

namespace {

std::string utf8(const QString& text)
{
    return text.toStdString();
}

// The installed font a PDF font was made from, found by its PostScript name (the base font name
// without the subset tag), or null.
std::optional<QRawFont> installedFont(const QByteArray& baseFont)
{
    static QHash<QByteArray, std::optional<QRawFont>> cache;
    const QByteArray name = baseFont.mid(baseFont.indexOf('+') + 1);
    const auto cached = cache.constFind(name);
    if (cached != cache.constEnd())
        return *cached;
    std::optional<QRawFont> found;
    // PostScript names are the family without blanks, then the style: look only at such families.
    const QByteArray utf16Name =
        QByteArray(reinterpret_cast<const char*>(QString::fromLatin1(name).utf16()), name.size() * 2);
    QByteArray bigEndian = utf16Name;
    for (qsizetype i = 0; i + 1 < bigEndian.size(); i += 2)
        std::swap(bigEndian[i], bigEndian[i + 1]);
    const QString lowerName = QString::fromLatin1(name).toLower();
    const QStringList families = QFontDatabase::families();
    for (const QString& family : families) {
        if (!lowerName.startsWith(QString(family).remove(QLatin1Char(' ')).toLower()))
            continue;
        const QStringList styles = QFontDatabase::styles(family);
        for (const QString& style : styles) {
            const QRawFont font = QRawFont::fromFont(QFontDatabase::font(family, style, 12));
            const QByteArray names = font.fontTable("name");
            if (names.contains(name) || names.contains(bigEndian)) {
                found = font;
                break;
            }
        }
        if (found)
            break;
    }
    cache.insert(name, found);
    return found;
}

// The embedded subset of a Type0 font, with its glyphs renumbered from those of the installed font.
QRawFont subsetOf(QPDFObjectHandle font)
{
    QPDFObjectHandle descendants = font.getKey("/DescendantFonts");
    if (!descendants.isArray() || descendants.getArrayNItems() < 1)
        return QRawFont();
    QPDFObjectHandle file = descendants.getArrayItem(0).getKey("/FontDescriptor").getKey("/FontFile2");
    if (!file.isStream())
        return QRawFont();
    const std::shared_ptr<Buffer> data = file.getStreamData(qpdf_dl_generalized);
    return QRawFont(QByteArray(reinterpret_cast<const char*>(data->getBuffer()), qsizetype(data->getSize())),
                    12);
}

// Gives the glyphs of `font` that have no text the code point they were substituted for.
int addSubstitutes(ToUnicodeMap& map, QPDFObjectHandle font, const QRawFont& installed)
{
    const QRawFont subset = subsetOf(font);
    const QByteArray maxp = subset.fontTable("maxp");
    if (maxp.size() < 6)
        return 0;
    const uint glyphCount = (uchar(maxp.at(4)) << 8) | uchar(maxp.at(5));
    static QHash<QString, std::shared_ptr<GlyphSources>> cache;
    std::shared_ptr<GlyphSources>& sources = cache[installed.familyName() + installed.styleName()];
    int added = 0;
    for (uint code = 1; code < glyphCount; ++code) {
        if (!map.text(code).isEmpty())
            continue;
        if (!sources)
            sources = std::make_shared<GlyphSources>(installed);
        const QString text = sources->textOf(subset, code);
        if (!text.isEmpty()) {
            map.setText(code, text);
            ++added;
        }
    }
    return added;
}

// The fonts the pages draw text with, each once.
std::vector<QPDFObjectHandle> pageFonts(QPDF& pdf)
{
    std::vector<QPDFObjectHandle> fonts;
    std::set<QPDFObjGen> seen;
    for (QPDFObjectHandle page : pdf.getAllPages()) {
        QPDFObjectHandle dictionary = page.getKey("/Resources").getKey("/Font");
        if (!dictionary.isDictionary())
            continue;
        for (const auto& [name, font] : dictionary.ditems()) {
            if (font.isIndirect() && seen.insert(font.getObjGen()).second)
                fonts.push_back(font);
        }
    }
    return fonts;
}

// The corrected text maps of the file's fonts, by their streams. Read into a document of its own
// that is gone before the writer reads every object of the file: the two never take memory together.
std::map<QPDFObjGen, std::string> correctedTextLayer(const char* path)
{
    QPDF pdf;
    pdf.setSuppressWarnings(true);
    pdf.processFile(path);
    std::map<QPDFObjGen, std::string> maps;
    for (QPDFObjectHandle object : pageFonts(pdf)) {
        if (!object.isDictionaryOfType("/Font"))
            continue;
        QPDFObjectHandle toUnicode = object.getKey("/ToUnicode");
        if (!toUnicode.isStream())
            continue;
        const std::shared_ptr<Buffer> data = toUnicode.getStreamData(qpdf_dl_generalized);
        ToUnicodeMap map;
        if (!map.parse(
                QByteArray(reinterpret_cast<const char*>(data->getBuffer()), qsizetype(data->getSize()))))
            continue;
        QPDFObjectHandle baseFont = object.getKey("/BaseFont");
        const std::optional<QRawFont> font = installedFont(
            baseFont.isName() ? QByteArray::fromStdString(baseFont.getName()).mid(1) : QByteArray());
        const int substitutes = font ? addSubstitutes(map, object, *font) : 0;
        if (map.replaceRadicals(font ? &*font : nullptr) + map.replaceLigatures() + substitutes == 0)
            continue;
        maps[toUnicode.getObjGen()] = map.toCMap().toStdString();
    }
    return maps;
}

QString xmlEscaped(const QString& text)
{
    return text.toHtmlEscaped();
}

// "D:20240601083000+08'00'" as an XMP date, or the current time when it cannot be read.
QDateTime dateOf(const QString& pdfDate)
{
    static const QRegularExpression form(QStringLiteral("^D:(\\d{14})(?:(Z)|([+-])(\\d\\d)'(\\d\\d)'?)?"));
    const QRegularExpressionMatch match = form.match(pdfDate);
    if (!match.hasMatch())
        return QDateTime::currentDateTime();
    QDateTime time = QDateTime::fromString(match.captured(1), QStringLiteral("yyyyMMddHHmmss"));
    int offset = 0;
    if (!match.captured(3).isEmpty())
        offset = (match.captured(4).toInt() * 3600 + match.captured(5).toInt() * 60) *
                 (match.captured(3) == QLatin1String("-") ? -1 : 1);
    time.setOffsetFromUtc(offset);
    return time;
}

QString pdfDateOf(const QDateTime& time)
{
    const int offset = time.offsetFromUtc();
    const int minutes = qAbs(offset) / 60;
    return QStringLiteral("D:%1%2%3'%4'")
        .arg(time.toString(QStringLiteral("yyyyMMddHHmmss")), QLatin1String(offset < 0 ? "-" : "+"))
        .arg(minutes / 60, 2, 10, QLatin1Char('0'))
        .arg(minutes % 60, 2, 10, QLatin1Char('0'));
}

QByteArray xmpPacket(const PdfDocumentInfo& info, const QString& producer, const QDateTime& created)
{
    const QString date = created.toString(Qt::ISODate);
    QString xmp =
        QStringLiteral("<?xpacket begin=\"\uFEFF\" id=\"W5M0MpCehiHzreSzNTczkc9d\"?>\n"
                       "<x:xmpmeta xmlns:x=\"adobe:ns:meta/\">\n"
                       "<rdf:RDF xmlns:rdf=\"http://www.w3.org/1999/02/22-rdf-syntax-ns#\">\n"
                       "<rdf:Description rdf:about=\"\" xmlns:dc=\"http://purl.org/dc/elements/1.1/\">\n"
                       "<dc:format>application/pdf</dc:format>\n"
                       "<dc:title><rdf:Alt><rdf:li xml:lang=\"x-default\">%1</rdf:li></rdf:Alt></dc:title>\n"
                       "<dc:creator><rdf:Seq><rdf:li>%2</rdf:li></rdf:Seq></dc:creator>\n"
                       "</rdf:Description>\n"
                       "<rdf:Description rdf:about=\"\" xmlns:xmp=\"http://ns.adobe.com/xap/1.0/\">\n"
                       "<xmp:CreatorTool>%3</xmp:CreatorTool>\n"
                       "<xmp:CreateDate>%4</xmp:CreateDate>\n"
                       "<xmp:ModifyDate>%4</xmp:ModifyDate>\n"
                       "<xmp:MetadataDate>%4</xmp:MetadataDate>\n"
                       "</rdf:Description>\n"
                       "<rdf:Description rdf:about=\"\" xmlns:pdf=\"http://ns.adobe.com/pdf/1.3/\">\n"
                       "<pdf:Producer>%5</pdf:Producer>\n"
                       "</rdf:Description>\n")
            .arg(xmlEscaped(info.title), xmlEscaped(info.author), xmlEscaped(info.creator), date,
                 xmlEscaped(producer));
    if (info.archival)
        xmp += QStringLiteral(
            "<rdf:Description rdf:about=\"\" xmlns:pdfaid=\"http://www.aiim.org/pdfa/ns/id/\">\n"
            "<pdfaid:part>1</pdfaid:part>\n"
            "<pdfaid:conformance>B</pdfaid:conformance>\n"
            "</rdf:Description>\n");
    xmp += QStringLiteral("</rdf:RDF>\n</x:xmpmeta>\n<?xpacket end=\"w\"?>");
    return xmp.toUtf8();
}

void setMetadata(QPDF& pdf, const PdfDocumentInfo& info)
{
    QPDFObjectHandle trailer = pdf.getTrailer();
    QPDFObjectHandle documentInfo = trailer.getKey("/Info");
    if (!documentInfo.isDictionary()) {
        documentInfo = pdf.makeIndirectObject(QPDFObjectHandle::newDictionary());
        trailer.replaceKey("/Info", documentInfo);
    }
    const auto text = [&](const char* key) {
        QPDFObjectHandle value = documentInfo.getKey(key);
        return value.isString() ? QString::fromStdString(value.getUTF8Value()) : QString();
    };
    const QDateTime created = dateOf(text("/CreationDate"));
    const QString producer = text("/Producer");
    documentInfo.replaceKey("/Title", QPDFObjectHandle::newUnicodeString(utf8(info.title)));
    documentInfo.replaceKey("/Author", QPDFObjectHandle::newUnicodeString(utf8(info.author)));
    documentInfo.replaceKey("/Creator", QPDFObjectHandle::newUnicodeString(utf8(info.creator)));
    documentInfo.replaceKey("/CreationDate", QPDFObjectHandle::newString(utf8(pdfDateOf(created))));
    documentInfo.replaceKey("/ModDate", QPDFObjectHandle::newString(utf8(pdfDateOf(created))));

    QPDFObjectHandle metadata = pdf.newStream(xmpPacket(info, producer, created).toStdString());
    metadata.getDict().replaceKey("/Type", QPDFObjectHandle::newName("/Metadata"));
    metadata.getDict().replaceKey("/Subtype", QPDFObjectHandle::newName("/XML"));
    pdf.getRoot().replaceKey("/Metadata", metadata);
}

} // namespace

bool PdfFinisher::finish(const QString& fileName, const PdfDocumentInfo& info, QString* errorString)
{
    const QByteArray path = QFile::encodeName(fileName);
    const QByteArray partPath = path + ".part";
    try {
        const std::map<QPDFObjGen, std::string> textLayer = correctedTextLayer(path.constData());
        QPDF pdf;
        pdf.setSuppressWarnings(true);
        pdf.processFile(path.constData());
        for (const auto& [stream, cmap] : textLayer)
            pdf.getObjectByObjGen(stream).replaceStreamData(cmap, QPDFObjectHandle::newNull(),
                                                            QPDFObjectHandle::newNull());
        setMetadata(pdf, info);
        QPDFWriter writer(pdf, partPath.constData());
        // PDF/A-1 is PDF 1.4: no object or cross-reference streams.
        writer.setObjectStreamMode(qpdf_o_disable);
        // Streams Qt has compressed are copied as they are; only the new ones get compressed.
        writer.setDecodeLevel(qpdf_dl_none);
        writer.write();
    } catch (const std::exception& error) {
        std::remove(partPath.constData());
        if (errorString)
            *errorString = QString::fromLocal8Bit(error.what());
        return false;
    }
    // Replaces the file in one step: it is either Qt's or the finished one, never half of it.
    if (std::rename(partPath.constData(), path.constData()) != 0) {
        std::remove(partPath.constData());
        if (errorString)
            *errorString = QString::fromLocal8Bit(std::strerror(errno));
        return false;
    }
    return true;
}

} // namespace coagulation
