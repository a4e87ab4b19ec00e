#pragma once

// An item's payload as a template stores it, and reading one back.

#include <reportitembase.h>

#include <QByteArray>
#include <QDataStream>
#include <QIODevice>

namespace coagulation::test {

inline QByteArray payloadOf(ReportItem* item)
{
    QByteArray bytes;
    QDataStream out(&bytes, QIODevice::WriteOnly);
    out.setVersion(QDataStream::Qt_4_6);
    item->save(out);
    return bytes;
}

// The fields streamed as a template stores them.
template <typename... Fields> QByteArray streamed(const Fields&... fields)
{
    QByteArray bytes;
    QDataStream out(&bytes, QIODevice::WriteOnly);
    out.setVersion(QDataStream::Qt_4_6);
    (out << ... << fields);
    return bytes;
}

// True when the item read the payload to its end without a stream error.
inline bool loadPayload(ReportItem* item, const QByteArray& bytes)
{
    QDataStream in(bytes);
    in.setVersion(QDataStream::Qt_4_6);
    item->load(in);
    return in.status() == QDataStream::Ok && in.atEnd();
}

} // namespace coagulation::test
