// loadPNG on arbitrary bytes gives exactly what Qt's own PNG reader gives:
// the fast decoder takes a file only when it decodes it to the same image.
// A file whose chunks claim more than it holds gives nothing, unread.
#include "formats/qimagefiles.h"
#include "formats/qpngdecoder.h"

#include <QByteArray>
#include <QImage>
#include <QLoggingCategory>
#include <cstdint>

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size)
{
    // libpng's complaints about damaged files would drown the fuzzer's output.
    static const bool quiet = [] {
        QLoggingCategory::setFilterRules(QStringLiteral("qt.gui.imageio*=false"));
        return true;
    }();
    Q_UNUSED(quiet);
    const QByteArray bytes = QByteArray::fromRawData(reinterpret_cast<const char*>(data), qsizetype(size));
    if (QPngDecoder::claimsPastEnd(bytes)) {
        if (!loadPNG(bytes).isNull())
            __builtin_trap();
        return 0;
    }
    if (loadPNG(bytes) != QImage::fromData(bytes, "PNG"))
        __builtin_trap();
    return 0;
}
