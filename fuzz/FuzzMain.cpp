// One libFuzzer program: the target that VDB_FUZZ_TARGET names, in an application without a screen.
#include <fuzz/FuzzTargets.h>

#include <QApplication>

#include <cstddef>
#include <cstdint>

using namespace Qt::StringLiterals;

extern "C" int LLVMFuzzerInitialize(int* argc, char*** argv);
extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size);

int LLVMFuzzerInitialize(int* argc, char*** argv)
{
    qputenv("QT_QPA_PLATFORM", "offscreen");
    qputenv("TZ", "UTC");
    // Owned by nobody: libFuzzer leaves by _exit().
    static auto* application = new QApplication(*argc, *argv);
    application->setApplicationName(u"fuzz"_s);
    korvel::Fuzz::PrepareApplication();
    return 0;
}

int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    korvel::Fuzz::VDB_FUZZ_TARGET(
        QByteArray(reinterpret_cast<const char*>(data), static_cast<qsizetype>(size)));
    return 0;
}
