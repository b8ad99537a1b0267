// One target under libFuzzer; FUZZ_TARGET is its function.

#include "fuzztargets.h"

#include <QApplication>

#include <cstddef>
#include <cstdint>

extern "C" int LLVMFuzzerInitialize(int *argc, char ***argv)
{
    qputenv("QT_QPA_PLATFORM", "offscreen");
    // Lives as long as the process: Qt's own destructors come after it otherwise.
    static auto *application = new QApplication(*argc, *argv);
    Q_UNUSED(application)
    return 0;
}

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t *data, std::size_t size)
{
    FuzzTargets::FUZZ_TARGET(QByteArray(reinterpret_cast<const char *>(data), int(size)));
    return 0;
}
