// loadPNG on arbitrary bytes: a picture exactly as Qt's own PNG reader gives
// it, or nothing with the fault named. The general reader is only reached for
// files it decodes without a word, so it never prints libpng's complaints; a
// refused file is one the fault check itself refuses.
#include "formats/qimagefiles.h"
#include "formats/qpngfault.h"

#include <QByteArray>
#include <QImage>
#include <cstdint>

namespace {

int messages = 0;

void countMessage(QtMsgType, const QMessageLogContext&, const QString&)
{
    ++messages;
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size)
{
    static const bool counting = [] {
        qInstallMessageHandler(countMessage);
        return true;
    }();
    Q_UNUSED(counting);
    const QByteArray bytes = QByteArray::fromRawData(reinterpret_cast<const char*>(data), qsizetype(size));
    messages = 0;
    QString fault;
    const QImage image = loadPNG(bytes, &fault);
    if (messages != 0)
        __builtin_trap();
    if (!fault.isEmpty()) {
        // Refused by the check, not by the general reader failing (which libpng would have printed).
        if (!image.isNull() || pngFault(bytes).isEmpty())
            __builtin_trap();
        return 0;
    }
    if (image != QImage::fromData(bytes, "PNG"))
        __builtin_trap();
    return 0;
}
