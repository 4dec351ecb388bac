// An old font file from arbitrary bytes: header, definition text, PCX, then
// every glyph and colour bank it defines; or the fault that refused it.
#include "formats/qoldfont.h"

#include <QByteArray>
#include <cstdint>

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size)
{
    const QByteArray bytes = QByteArray::fromRawData(reinterpret_cast<const char*>(data), qsizetype(size));
    QOldFont font;
    // The text alone too: a damaged header must not keep the parser from being reached.
    font.parseText(QString::fromLatin1(bytes));
    if (!font.read(bytes)) {
        // A refusal always says why, and keeps no picture.
        if (font.fault().isEmpty() || !font.image().isNull())
            __builtin_trap();
        return 0;
    }
    if (!font.fault().isEmpty())
        __builtin_trap();
    for (auto it = font.map().cbegin(); it != font.map().cend(); ++it)
        font.glyph(it.key());
    QRGBA palette[256];
    for (int bank = 0; bank < font.banks(); ++bank)
        font.bankPalette(bank, palette);
    font.definitionText(QStringLiteral("fuzz"));
    return 0;
}
