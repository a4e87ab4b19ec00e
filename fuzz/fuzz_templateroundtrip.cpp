// Whatever loads saves to a template that loads again and saves to the same bytes. Loading adds
// the topmost item first, so each round trip turns the stacking order round: the items come back
// in their order, and the bytes with them, after two.

#include "fuzzworkspace.h"

#include <report.h>

#include <QDataStream>
#include <QIODevice>

#include <cstdio>
#include <cstdlib>

using namespace coagulation;

namespace {

QByteArray saved(Report& report)
{
    QByteArray bytes;
    QDataStream out(&bytes, QIODevice::WriteOnly);
    if (!report.save(out)) {
        std::fprintf(stderr, "save refused: %s\n", qPrintable(report.errorString()));
        std::abort();
    }
    return bytes;
}

// The template saved from a report loaded from bytes; aborts when a saved template does not load.
QByteArray roundTrip(const QByteArray& bytes)
{
    const std::unique_ptr<Report> report = fuzz::loadTemplate(
        reinterpret_cast<const std::uint8_t*>(bytes.constData()), std::size_t(bytes.size()));
    if (!report) {
        std::fprintf(stderr, "a saved template does not load again\n");
        std::abort();
    }
    return saved(*report);
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    const std::unique_ptr<Report> first = fuzz::loadTemplate(data, size);
    if (!first)
        return 0;
    const QByteArray once = saved(*first);
    const QByteArray twice = roundTrip(once);   // the items in the opposite order
    const QByteArray thrice = roundTrip(twice); // back in the order of the first save
    if (twice.size() != once.size() || thrice != once) {
        std::fprintf(stderr, "saving a loaded template changed its bytes\n");
        std::abort();
    }
    return 0;
}
