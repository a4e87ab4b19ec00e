// Whatever loads saves to a template that loads again and saves to the same bytes.

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

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    const std::unique_ptr<Report> first = fuzz::loadTemplate(data, size);
    if (!first)
        return 0;
    const QByteArray once = saved(*first);
    const std::unique_ptr<Report> second =
        fuzz::loadTemplate(reinterpret_cast<const std::uint8_t*>(once.constData()), std::size_t(once.size()));
    if (!second) {
        std::fprintf(stderr, "a saved template does not load again\n");
        std::abort();
    }
    if (saved(*second) != once) {
        std::fprintf(stderr, "saving a loaded template changed its bytes\n");
        std::abort();
    }
    return 0;
}
