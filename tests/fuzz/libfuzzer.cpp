// One target for libFuzzer; FUZZ_TARGET is its function.

#include "fuzztargets.h"

#include <QApplication>

#include <cstddef>
#include <cstdint>

extern "C" int LLVMFuzzerInitialize(int *argc, char ***argv)
{
    qputenv("QT_QPA_PLATFORM", "offscreen");
    // The object is never destroyed, because Qt's own destructors run at the end of the process.
    static auto *application = new QApplication(*argc, *argv);
    Q_UNUSED(application)
    return 0;
}

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t *data, std::size_t size)
{
    FuzzTargets::FUZZ_TARGET(QByteArray(reinterpret_cast<const char *>(data), int(size)));
    return 0;
}
