#pragma once

// Readers for the Qt values inside item payloads that do not trust the counts in the file.
// They read exactly the bytes that QDataStream's own operators read, but check every count
// against the bytes left in the stream before anything is reserved (Qt's list readers reserve
// the count first), decode pictures within the template's pixel bounds, and clamp fonts to
// sizes that can be laid out. On a short or damaged stream they set its status and return a
// default value.

#include <QBrush>
#include <QFont>
#include <QImage>
#include <QList>
#include <QPen>
#include <QPixmap>
#include <QStringList>

#include <initializer_list>

class QDataStream;

namespace coagulation::payload {

// The bytes left on the stream's device, or -1 where the device cannot tell (a pipe).
qint64 bytesLeft(QDataStream& in);

// True when count elements of at least bytesEach bytes can still follow; otherwise the stream
// is marked as read past its end.
bool fits(QDataStream& in, quint32 count, qint64 bytesEach);

// Geometry that is not finite cannot be placed or painted: the payload counts as damaged.
void requireFinite(QDataStream& in, std::initializer_list<double> values);

QPen readPen(QDataStream& in);
QBrush readBrush(QDataStream& in);
QFont readFont(QDataStream& in);
QImage readImage(QDataStream& in);
QPixmap readPixmap(QDataStream& in);

// A list of rows of strings, the encoding of QList<QStringList>; the cells count towards the
// table's bounds and the characters towards the template's.
QList<QStringList> readStringTable(QDataStream& in);

// A text of at most the bounded length, counted towards the template's characters.
QString readText(QDataStream& in);

// The font with its sizes and spacing pulled into a range that text layout can handle.
QFont saneFont(const QFont& font);

} // namespace coagulation::payload
