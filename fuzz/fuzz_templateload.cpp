// Loads arbitrary bytes as a report template. Build with the "fuzz" preset, then from build/fuzz:
//   mkdir -p found && bin/fuzz_templateload -max_len=8192 found ../../fuzz/corpus
// (new inputs go to the first folder; fuzz/corpus holds the templates that tst_templatefile writes
// when COAGULATION_TEMPLATE_CORPUS names a folder).

#include <core/profile.h>
#include <itemfactory.h>
#include <report.h>

#include <QApplication>
#include <QBuffer>
#include <QDataStream>

#include <cstdint>
#include <cstdlib>

using namespace coagulation;

namespace {

ItemFactory* factory = nullptr;

} // namespace

extern "C" int LLVMFuzzerInitialize(int* argc, char*** argv)
{
    qputenv("QT_QPA_PLATFORM", "offscreen");
    qputenv("COAGULATION_NONINTERACTIVE", "1");
    static QApplication app(*argc, *argv);
    static Profile profile;
    profile.setValue("patient/name", QStringLiteral("姓名"));
    static ItemFactory itemFactory(&profile);
    factory = &itemFactory;
    return 0;
}

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size)
{
    QByteArray bytes = QByteArray::fromRawData(reinterpret_cast<const char*>(data), qsizetype(size));
    QBuffer buffer(&bytes);
    buffer.open(QIODevice::ReadOnly);
    QDataStream in(&buffer);
    Report report(factory->profile(), factory);
    if (!report.load(in) && report.errorString().isEmpty())
        std::abort(); // every failure must say why
    return 0;
}
