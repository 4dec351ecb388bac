// Every palette reader on the same arbitrary bytes, as a file of any name would reach it.
#include "formats/qabstractpalette.h"

#include <QBuffer>
#include <QByteArray>
#include <cstdint>

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size)
{
    const QByteArray bytes = QByteArray::fromRawData(reinterpret_cast<const char*>(data), qsizetype(size));
    const char* const magics[] = { "RIFF", "JASC", "ASEF", "ROWS", "ACT!" };
    for (const char* magic : magics) {
        for (const QString& suffix : { QStringLiteral("pal"), QStringLiteral("aco") }) {
            const auto reader = QAbstractPalette::forFile(suffix, QByteArray(magic));
            QRGBA table[256];
            QBuffer buffer;
            buffer.setData(bytes);
            buffer.open(QIODevice::ReadOnly);
            reader->fromFile(&buffer, &table);
        }
    }
    return 0;
}
