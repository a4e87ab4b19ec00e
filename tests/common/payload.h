#pragma once

// An item's payload as a template stores it, and reading one back.

#include <reportitembase.h>

#include <QByteArray>
#include <QDataStream>
#include <QIODevice>

namespace coagulation::test {

// What `write` puts on a stream of the template file's version.
template <typename Write> QByteArray written(Write write)
{
    QByteArray bytes;
    QDataStream out(&bytes, QIODevice::WriteOnly);
    out.setVersion(QDataStream::Qt_4_6);
    write(out);
    return bytes;
}

inline QByteArray payloadOf(ReportItem* item)
{
    return written([item](QDataStream& out) { item->save(out); });
}

// The fields streamed as a template stores them.
template <typename... Fields> QByteArray streamed(const Fields&... fields)
{
    return written([&](QDataStream& out) { (out << ... << fields); });
}

// True when `read` took the bytes to their end without a stream error.
template <typename Read> bool readsAll(const QByteArray& bytes, Read read)
{
    QDataStream in(bytes);
    in.setVersion(QDataStream::Qt_4_6);
    read(in);
    return in.status() == QDataStream::Ok && in.atEnd();
}

inline bool loadPayload(ReportItem* item, const QByteArray& bytes)
{
    return readsAll(bytes, [item](QDataStream& in) { item->load(in); });
}

} // namespace coagulation::test
