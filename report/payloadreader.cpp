#include "payloadreader_p.h"

#include "templatelimits_p.h"

#include <QBitmap>
#include <QDataStream>
#include <QImageReader>
#include <QIODevice>
#include <QtEndian>
#include <QTransform>

#include <cmath>

namespace coagulation::payload {

namespace {

constexpr qint64 colorBytes = 11;     // colour model, alpha, red, green, blue, padding
constexpr qint64 pointBytes = 16;     // two doubles
constexpr qint64 transformBytes = 72; // nine doubles
constexpr qint64 stringBytes = 4;     // the length of an empty or null string

constexpr double maxPointSize = 1000.0;
constexpr int maxPixelSize = 2000;
constexpr double maxSpacing = 1000.0;    // pixels between letters or words
constexpr double maxPercentage = 1000.0; // letter spacing as a percentage
constexpr int maxStretch = 4000;

bool ok(const QDataStream& in)
{
    return in.status() == QDataStream::Ok;
}

// Appends n bytes of the stream to raw, so that Qt's own reader can take them from there.
void copyBytes(QDataStream& in, QByteArray& raw, qint64 n)
{
    if (!ok(in))
        return;
    const qsizetype at = raw.size();
    raw.resize(at + n);
    if (in.readRawData(raw.data() + at, int(n)) != n)
        in.setStatus(QDataStream::ReadPastEnd);
}

// Copies a count (quint32) and then count elements of bytesEach bytes.
quint32 copyCounted(QDataStream& in, QByteArray& raw, qint64 bytesEach)
{
    const qsizetype at = raw.size();
    copyBytes(in, raw, 4);
    if (!ok(in))
        return 0;
    const quint32 count = in.byteOrder() == QDataStream::BigEndian
                              ? qFromBigEndian<quint32>(raw.constData() + at)
                              : qFromLittleEndian<quint32>(raw.constData() + at);
    if (!fits(in, count, bytesEach))
        return 0;
    // In slices, so that a device that cannot tell its size still gets no more memory than it
    // delivers.
    for (qint64 left = count * bytesEach; left > 0 && ok(in); left -= 65536)
        copyBytes(in, raw, qMin<qint64>(left, 65536));
    return count;
}

QDataStream& configuredLike(QDataStream& stream, const QDataStream& in)
{
    stream.setVersion(in.version());
    stream.setByteOrder(in.byteOrder());
    stream.setFloatingPointPrecision(in.floatingPointPrecision());
    return stream;
}

// The value that Qt's own reader makes of the bytes copied from offset on.
template <class T> T valueAt(const QDataStream& in, const QByteArray& raw, qsizetype offset = 0)
{
    QDataStream rawIn(raw);
    configuredLike(rawIn, in).skipRawData(int(offset));
    T value;
    rawIn >> value;
    return value;
}

bool isGradient(quint8 style)
{
    return style == Qt::LinearGradientPattern || style == Qt::RadialGradientPattern ||
           style == Qt::ConicalGradientPattern;
}

// Lowers the decoders' allocation limit for the length of one picture.
class AllocationLimit
{
public:
    explicit AllocationLimit(int megabytes) : m_previous(QImageReader::allocationLimit())
    {
        if (m_previous <= 0 || m_previous > megabytes)
            QImageReader::setAllocationLimit(megabytes);
    }
    ~AllocationLimit() { QImageReader::setAllocationLimit(m_previous); }

private:
    int m_previous;
};

} // namespace

qint64 bytesLeft(QDataStream& in)
{
    QIODevice* device = in.device();
    if (!device)
        return 0;
    if (device->isSequential())
        return -1;
    return qMax<qint64>(0, device->size() - device->pos());
}

bool fits(QDataStream& in, quint32 count, qint64 bytesEach)
{
    const qint64 left = bytesLeft(in);
    if (left < 0 || qint64(count) * bytesEach <= left)
        return true;
    in.setStatus(QDataStream::ReadPastEnd);
    return false;
}

void requireFinite(QDataStream& in, std::initializer_list<double> values)
{
    for (double value : values) {
        if (!std::isfinite(value)) {
            in.setStatus(QDataStream::ReadCorruptData);
            return;
        }
    }
}

QBrush readBrush(QDataStream& in)
{
    QByteArray raw;
    copyBytes(in, raw, 1 + colorBytes); // style, colour
    if (!ok(in))
        return QBrush();
    const quint8 style = quint8(raw.at(0));
    if (style == Qt::TexturePattern) {
        // As Qt reads it, with the picture decoded within bounds.
        QBrush brush(valueAt<QColor>(in, raw, 1));
        if (in.version() >= QDataStream::Qt_5_5)
            brush.setTextureImage(readImage(in));
        else
            brush.setTexture(readPixmap(in));
        QTransform transform;
        in >> transform;
        if (!ok(in))
            return QBrush();
        brush.setTransform(transform);
        return brush;
    }
    if (isGradient(style)) {
        copyBytes(in, raw, 4 * 4); // type, spread, coordinate mode, interpolation mode
        const qint32 type = ok(in) ? valueAt<qint32>(in, raw, 1 + colorBytes) : 0;
        TemplateLimits::checkGradientStops(copyCounted(in, raw, 8 + colorBytes));
        if (type == QGradient::LinearGradient)
            copyBytes(in, raw, 2 * pointBytes);
        else if (type == QGradient::RadialGradient)
            copyBytes(in, raw, 2 * pointBytes + 8 + (in.version() >= QDataStream::Qt_6_0 ? 8 : 0));
        else
            copyBytes(in, raw, pointBytes + 8);
    }
    copyBytes(in, raw, transformBytes);
    return ok(in) ? valueAt<QBrush>(in, raw) : QBrush();
}

QPen readPen(QDataStream& in)
{
    QByteArray raw;
    copyBytes(in, raw, 2 + 1 + 8); // style bits, cosmetic, width
    const QBrush brush = readBrush(in);
    if (!ok(in))
        return QPen();
    {
        QDataStream out(&raw, QIODevice::Append);
        configuredLike(out, in) << QBrush(); // stands in for the brush read above
    }
    copyBytes(in, raw, 8);   // miter limit
    copyCounted(in, raw, 8); // dash pattern
    // The dash offset, then from 5.0 on whether the width is the default one.
    copyBytes(in, raw, 8 + (in.version() >= QDataStream::Qt_5_0 ? 1 : 0));
    if (!ok(in))
        return QPen();
    QPen pen = valueAt<QPen>(in, raw);
    pen.setBrush(brush);
    return pen;
}

namespace {

// A size in points in place of whatever size the font has. Qt keeps a pixel size when the
// point size is set to the value it already holds, so the pixel size goes first.
void setPointSize(QFont& font, double points)
{
    font.setPixelSize(maxPixelSize);
    font.setPointSizeF(points);
}

} // namespace

QFont saneFont(const QFont& font)
{
    QFont result = font;
    const double points = font.pointSizeF();
    const bool pointsOk = std::isfinite(points) && points > 0;
    const double fallback = QFont().pointSizeF();
    if (font.pixelSize() > maxPixelSize)
        result.setPixelSize(maxPixelSize);
    else if (font.pixelSize() <= 0 && font.pixelSize() != -1)
        setPointSize(result, pointsOk ? qMin(points, maxPointSize) : fallback);
    else if (font.pixelSize() == -1 && !pointsOk)
        setPointSize(result, fallback);
    else if (font.pixelSize() == -1 && points > maxPointSize)
        setPointSize(result, maxPointSize);

    const double letters = font.letterSpacing();
    const double letterLimit =
        font.letterSpacingType() == QFont::PercentageSpacing ? maxPercentage : maxSpacing;
    if (!std::isfinite(letters) || letters > letterLimit || letters < -letterLimit)
        result.setLetterSpacing(font.letterSpacingType(),
                                std::isfinite(letters) ? qBound(-letterLimit, letters, letterLimit) : 0.0);
    const double words = font.wordSpacing();
    if (!std::isfinite(words) || words > maxSpacing || words < -maxSpacing)
        result.setWordSpacing(std::isfinite(words) ? qBound(-maxSpacing, words, maxSpacing) : 0.0);
    if (font.stretch() > maxStretch)
        result.setStretch(maxStretch);
    return result;
}

QFont readFont(QDataStream& in)
{
    QFont font;
    in >> font;
    return ok(in) ? saneFont(font) : QFont();
}

QImage readImage(QDataStream& in)
{
    qint32 marker = 0;
    in >> marker;
    if (!ok(in) || !marker)
        return QImage();
    QIODevice* device = in.device();
    if (!device) {
        in.setStatus(QDataStream::ReadPastEnd);
        return QImage();
    }
    // Only the form Qt writes; no guessing among other decoders.
    QImageReader reader(device, "png");
    reader.setAutoDetectImageFormat(false);
    const QSize size = reader.size();
    if (size.isValid())
        TemplateLimits::checkPixels(qint64(size.width()) * size.height());
    const AllocationLimit limit(int(TemplateLimits::maxImagePixels * 8 / (1024 * 1024)));
    QImage image = reader.read();
    if (image.isNull())
        in.setStatus(QDataStream::ReadPastEnd);
    else if (!size.isValid())
        TemplateLimits::checkPixels(qint64(image.width()) * image.height());
    return image;
}

QPixmap readPixmap(QDataStream& in)
{
    const QImage image = readImage(in);
    if (image.isNull())
        return QPixmap();
    if (image.depth() == 1)
        return QBitmap::fromImage(image);
    return QPixmap::fromImage(image);
}

QString readText(QDataStream& in)
{
    QString text;
    in >> text;
    if (ok(in))
        TemplateLimits::checkText(text.size());
    return text;
}

QList<QStringList> readStringTable(QDataStream& in)
{
    quint32 rows = 0;
    in >> rows;
    if (!ok(in) || !fits(in, rows, 4))
        return {};
    QList<QStringList> table;
    qint64 cells = 0;
    for (quint32 r = 0; r < rows && ok(in); ++r) {
        quint32 columns = 0;
        in >> columns;
        if (!ok(in) || !fits(in, columns, stringBytes))
            break;
        TemplateLimits::checkColumns(columns);
        cells += columns;
        TemplateLimits::checkCells(cells);
        QStringList row;
        for (quint32 c = 0; c < columns && ok(in); ++c)
            row.append(readText(in));
        table.append(row);
    }
    if (!ok(in))
        return {};
    return table;
}

} // namespace coagulation::payload
