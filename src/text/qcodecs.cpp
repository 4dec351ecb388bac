#include "qcodecs.h"

#include <QCoreApplication>
#include <QList>
#include <QSet>
#include <QTextCodec>

#include <uchardet/uchardet.h>

#include <memory>
#include <type_traits>

namespace {

/// The table of codec names, listed on first use (on the GUI thread) and read
/// only afterwards: asking Qt for every codec takes time a command that reads
/// no text should not pay.
QList<QByteArray>& table()
{
    static QList<QByteArray> codecs;
    static bool listed = false;
    if (!listed) {
        listed = true;
        initCodecs();
    }
    return codecs;
}

QTextCodec* codecAt(int index)
{
    if (index <= 0 || index > table().size())
        return nullptr;
    return QTextCodec::codecForName(table().at(index - 1));
}

/// The charset uchardet names for `data`, empty when it cannot tell.
QByteArray detectCharset(const QByteArray& data)
{
    std::unique_ptr<std::remove_pointer_t<uchardet_t>, void (*)(uchardet_t)> detector(
        uchardet_new(), uchardet_delete);
    if (uchardet_handle_data(detector.get(), data.constData(), size_t(data.size())) != 0)
        return QByteArray();
    uchardet_data_end(detector.get());
    return QByteArray(uchardet_get_charset(detector.get()));
}

/// The codec for a name the detector gives. It names some encodings in ways
/// Qt does not know; those are the codecs that contain them.
QTextCodec* codecForDetected(const QByteArray& detected)
{
    if (detected == "UHC") // Korean: unified Hangul code is code page 949
        return QTextCodec::codecForName("windows-949");
    if (detected == "ISO-8859-11") // Thai
        return QTextCodec::codecForName("windows-874");
    return QTextCodec::codecForName(detected);
}

/// getCodec(), also telling the index of the codec chosen: 0 for the locale's.
QTextCodec* chooseCodec(const QByteArray& data, unsigned int wanted, int* index)
{
    if (wanted >= unsigned(codecCount()))
        wanted = 0;
    const QByteArray detected = detectCharset(data);
    // Pure ASCII says nothing about the encoding the author writes in (older
    // detectors reported nothing for it): saving later non-ASCII text as ASCII
    // would lose it, so the wanted codec decides.
    if (!detected.isEmpty() && detected != "ASCII") {
        if (QTextCodec* codec = codecForDetected(detected)) {
            *index = codecIndex(codec->name().constData());
            return codec;
        }
    }
    if (QTextCodec* codec = codecAt(int(wanted))) {
        *index = int(wanted);
        return codec;
    }
    *index = 0;
    return QTextCodec::codecForLocale();
}

} // namespace

void initCodecs()
{
    // Qt lists every alias; the table keeps one entry per codec, under the
    // name the codec reports, so that a detected codec finds its index.
    QList<QByteArray>& codecs = table();
    codecs.clear();
    QSet<QByteArray> seen;
    for (const QByteArray& alias : QTextCodec::availableCodecs()) {
        QTextCodec* codec = alias == "System" ? nullptr : QTextCodec::codecForName(alias);
        if (!codec)
            continue;
        const QByteArray name = codec->name();
        if (name != "System" && !seen.contains(name)) {
            seen.insert(name);
            codecs.append(name);
        }
    }
}

int codecCount()
{
    return int(table().size()) + 1;
}

QString codecName(int index)
{
    if (index == 0)
        return QCoreApplication::translate("QCodecs", "System");
    return index > 0 && index <= table().size() ? QString::fromLatin1(table().at(index - 1)) : QString();
}

int codecIndex(const char* name)
{
    QTextCodec* codec = name ? QTextCodec::codecForName(name) : nullptr;
    if (!codec)
        return 0;
    return int(table().indexOf(codec->name())) + 1;
}

QTextCodec* getCodec(const QByteArray& data, unsigned int wanted)
{
    int index = 0;
    return chooseCodec(data, wanted, &index);
}

QString stringFromData(const QByteArray& data, int wanted, int* used)
{
    int index = 0;
    QTextCodec* codec = chooseCodec(data, unsigned(wanted), &index);
    if (used)
        *used = index;
    return codec->toUnicode(data);
}

QByteArray stringToData(const QString& text, int index)
{
    QTextCodec* codec = codecAt(index);
    return (codec ? codec : QTextCodec::codecForLocale())->fromUnicode(text);
}
