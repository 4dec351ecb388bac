// The SND reader and the WAV header reader on arbitrary bytes: they never
// crash, hang or read out of bounds; a file the SND reader refuses leaves the
// model empty, and every length it measures is a real, non-negative number.
#include "model/qsounds.h"

#include <QBuffer>
#include <QCoreApplication>
#include <cmath>
#include <cstdint>

namespace {

void checkInfo(const QWAVInfo& info)
{
    if (!std::isfinite(info.duration) || info.duration < 0)
        __builtin_trap();
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size)
{
    static int argc = 1;
    static char name[] = "fuzz_snd";
    static char* argv[] = {name, nullptr};
    static QCoreApplication* application = new QCoreApplication(argc, argv);
    Q_UNUSED(application);

    QByteArray bytes(reinterpret_cast<const char*>(data), qsizetype(size));
    // The same bytes as a WAV file on their own, as an import or a change reads them.
    QWAVInfo info;
    if (!getWAVInfoFromData(bytes, info) && !(info == QWAVInfo()))
        __builtin_trap();
    checkInfo(info);

    QBuffer buffer(&bytes);
    buffer.open(QIODevice::ReadOnly);
    QSounds sounds(nullptr, ctMemory, false, -1);
    if (!sounds.read(buffer)) {
        if (sounds.count() != 0)
            __builtin_trap();
        return 0;
    }
    qsizetype payload = 0;
    for (int i = 0; i < sounds.count(); ++i) {
        checkInfo(sounds.wavInfo(i));
        payload += sounds.sampleData(i).size();
    }
    // Every byte of a sound came from the input.
    if (payload > bytes.size())
        __builtin_trap();
    return 0;
}
