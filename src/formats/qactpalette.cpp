#include "qactpalette.h"

#include "qrgbpalette.h"

#include <QIODevice>

#include <cstring>

bool QACTPalette::fromFile(QIODevice* device, QRGBA (*palette)[256])
{
    // 768 bytes of colours, and in newer files a colour count and a transparent index.
    const QByteArray bytes = device->readAll();
    if (bytes.size() != 768 && bytes.size() != 772) {
        m_fault = QStringLiteral("an ACT palette has 768 bytes of colours (772 with a colour count), this file has %1")
                      .arg(bytes.size());
        return false;
    }
    QRGB triples[256];
    std::memcpy(static_cast<void*>(triples), bytes.constData(), sizeof triples);
    for (int i = 0; i < 256; ++i)
        (*palette)[i] = QRGBA::fromRGB(triples[i]);
    invertPalette(palette);
    return true;
}
