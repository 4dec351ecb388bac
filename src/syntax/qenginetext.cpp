#include "qenginetext.h"

#include "text/qcodecs.h"

#include <QTextCodec>

namespace {

// Encodings in which a byte of 0x80 or more may pair with the next byte,
// "]" (0x5D) included.
bool pairsBytes(const QTextCodec* codec)
{
    static const QList<QByteArray> names = {"Shift_JIS", "GBK", "GB18030", "GB2312", "Big5", "Big5-HKSCS",
                                            "EUC-KR", "EUC-JP", "windows-949", "cp949", "windows-936"};
    const QByteArray name = codec->name();
    return std::any_of(names.cbegin(), names.cend(),
                       [&name](const QByteArray& known) { return name.compare(known, Qt::CaseInsensitive) == 0; });
}

// One line of a double-byte file. A header's closing bracket is the last "]"
// before a comment (";" is never the second half of a character): decoding
// the part before it on its own leaves a stray first half as one unknown
// character instead of letting it take the bracket.
QString decodeLine(const QTextCodec* codec, const QByteArray& line)
{
    const qsizetype start = line.indexOf('[');
    const bool header = start >= 0 && line.left(start).trimmed().isEmpty();
    qsizetype comment = line.indexOf(';');
    if (comment < 0)
        comment = line.size();
    const qsizetype close = header ? line.lastIndexOf(']', comment - 1) : -1;
    if (close < 0)
        return codec->toUnicode(line);
    return codec->toUnicode(line.left(close)) + QLatin1Char(']') + codec->toUnicode(line.mid(close + 1));
}

} // namespace

bool isEngineText(const QByteArray& data)
{
    qsizetype controls = 0;
    for (const char byte : data) {
        const auto c = static_cast<unsigned char>(byte);
        if (c == 0)
            return false;
        // Tabs, line ends, form feeds and the old end-of-file mark are text.
        if (c < 0x20 && c != '\t' && c != '\n' && c != '\r' && c != '\f' && c != 0x1A)
            ++controls;
    }
    return controls <= data.size() / 100;
}

QString decodeEngineText(const QByteArray& data, int wanted, int* used)
{
    const QTextCodec* codec = getCodec(data, unsigned(wanted));
    if (used)
        *used = codecIndex(codec->name().constData());
    return decodeEngineText(data, codec);
}

QString decodeEngineText(const QByteArray& data, const QTextCodec* codec)
{
    if (!pairsBytes(codec))
        return codec->toUnicode(data);
    QString text;
    text.reserve(data.size());
    qsizetype start = 0;
    while (start <= data.size()) {
        qsizetype end = data.indexOf('\n', start);
        if (end < 0)
            end = data.size();
        const QByteArray line = data.mid(start, end - start);
        if (start > 0)
            text += QLatin1Char('\n');
        // Lines of plain ASCII need no care.
        const bool plain = std::all_of(line.cbegin(), line.cend(), [](char c) { return (c & 0x80) == 0; });
        text += plain ? QString::fromLatin1(line) : decodeLine(codec, line);
        start = end + 1;
    }
    return text;
}
