// loadPNG on arbitrary bytes: a picture exactly as Qt's own PNG reader gives
// it, or nothing with the fault named. The general reader is only reached for
// files it decodes without a word, so it never prints libpng's complaints; a
// refused file is one the fault check itself refuses. Each input is tried as
// it is and with every chunk's checksum made right, so that mutations reach
// past the checksums into the chunks and the compressed rows.
#include "formats/qimagefiles.h"
#include "formats/qpngfault.h"

#include <QByteArray>
#include <QImage>
#include <QtEndian>
#include <cstdint>
#include <zlib.h>

namespace {

int messages = 0;

void countMessage(QtMsgType, const QMessageLogContext&, const QString&)
{
    ++messages;
}

QByteArray withGoodChecksums(QByteArray bytes)
{
    if (!bytes.startsWith("\x89PNG\r\n\x1a\n"))
        return bytes;
    for (qsizetype at = 8; bytes.size() - at >= 12;) {
        const qsizetype length = qFromBigEndian<quint32>(bytes.constData() + at);
        if (length > bytes.size() - at - 12)
            break;
        const auto* typed = reinterpret_cast<const Bytef*>(bytes.constData() + at + 4);
        qToBigEndian(quint32(crc32(0, typed, uInt(length + 4))), bytes.data() + at + 8 + length);
        at += 12 + length;
    }
    return bytes;
}

void check(const QByteArray& bytes)
{
    messages = 0;
    QString fault;
    const QImage image = loadPNG(bytes, &fault);
    if (messages != 0)
        __builtin_trap();
    if (!fault.isEmpty()) {
        // Refused by the check, not by the general reader failing (which libpng would have printed).
        if (!image.isNull() || pngFault(bytes).isEmpty())
            __builtin_trap();
        return;
    }
    if (image != QImage::fromData(bytes, "PNG"))
        __builtin_trap();
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
    check(bytes);
    const QByteArray repaired = withGoodChecksums(bytes);
    if (repaired != bytes)
        check(repaired);
    return 0;
}
