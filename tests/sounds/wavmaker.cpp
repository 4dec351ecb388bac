#include "wavmaker.h"

#include <QDataStream>
#include <QIODevice>

namespace wav {

QByteArray make(quint16 channels, quint32 rate, quint16 bits, quint32 frames, bool extraChunk)
{
    const quint16 block = quint16(channels * bits / 8);
    const quint32 dataSize = frames * block;
    QByteArray samples(int(dataSize), '\0');
    for (int i = 0; i < samples.size(); ++i)
        samples[i] = char(i * 7);
    const QByteArray list("INFOdata with odd size");

    QByteArray bytes;
    QDataStream out(&bytes, QIODevice::WriteOnly);
    out.setByteOrder(QDataStream::LittleEndian);
    const quint32 listSize = extraChunk ? quint32(8 + list.size() + (list.size() & 1)) : 0;
    out.writeRawData("RIFF", 4);
    out << quint32(4 + 24 + listSize + 8 + dataSize);
    out.writeRawData("WAVEfmt ", 8);
    out << quint32(16) << quint16(1) << channels << rate << quint32(rate * block) << block << bits;
    if (extraChunk) {
        out.writeRawData("LIST", 4);
        out << quint32(list.size());
        out.writeRawData(list.constData(), int(list.size()));
        if (list.size() & 1)
            out << quint8(0);
    }
    out.writeRawData("data", 4);
    out << dataSize;
    out.writeRawData(samples.constData(), int(samples.size()));
    return bytes;
}

} // namespace wav
