#include "qcodecs.h"

#include <QCoreApplication>
#include <QList>
#include <QSet>
#include <QTextCodec>

#include <uchardet/uchardet.h>

#include <memory>
#include <type_traits>

namespace {

/**
 * The table of codec names (on the GUI thread). Qt lists every alias of
 * every codec, and finding the codec of each one opens them all, which takes
 * several times a command's whole start; even the list alone makes the
 * encoding library try every converter it has. So the aliases are resolved
 * in order only as far as a question needs, and the list is taken only when
 * a question needs it: until then, a codec whose index is asked for (UTF-8,
 * or a file's detected codec) takes the next index, and the list adds the
 * other codecs after it. The program lists the table at its start, so the
 * indices it offers and keeps in the configuration follow Qt's order.
 */
class CodecTable
{
public:
    /// Starts anew from Qt's current list of aliases.
    void list()
    {
        m_names.clear();
        m_seen.clear();
        takeList();
    }

    /// The name at `position`, empty beyond the end.
    QByteArray at(qsizetype position)
    {
        if (position >= m_names.size())
            listOnce();
        while (m_names.size() <= position && resolveNext()) { }
        return position >= 0 && position < m_names.size() ? m_names.at(position) : QByteArray();
    }

    /// The position of the codec named `name`, -1 when the list has none.
    qsizetype indexOf(const QByteArray& name)
    {
        qsizetype position = m_names.indexOf(name);
        if (position < 0 && !m_listed && name != "System") {
            m_seen.insert(name);
            m_names.append(name);
            return m_names.size() - 1;
        }
        while (position < 0 && resolveNext()) {
            if (m_names.last() == name)
                position = m_names.size() - 1;
        }
        return position;
    }

    qsizetype size()
    {
        listOnce();
        while (resolveNext()) { }
        return m_names.size();
    }

private:
    void takeList()
    {
        m_listed = true;
        m_aliases = QTextCodec::availableCodecs();
        m_resolved = 0;
    }

    void listOnce()
    {
        if (!m_listed)
            takeList();
    }

    /// Resolves aliases until one adds a codec to the table; false at the end.
    /// The table keeps one entry per codec, under the name the codec reports.
    bool resolveNext()
    {
        while (m_resolved < m_aliases.size()) {
            const QByteArray& alias = m_aliases.at(m_resolved++);
            QTextCodec* codec = alias == "System" ? nullptr : QTextCodec::codecForName(alias);
            if (!codec)
                continue;
            const QByteArray name = codec->name();
            if (name != "System" && !m_seen.contains(name)) {
                m_seen.insert(name);
                m_names.append(name);
                return true;
            }
        }
        return false;
    }

    bool m_listed = false;
    QList<QByteArray> m_aliases;
    qsizetype m_resolved = 0;
    QList<QByteArray> m_names;
    QSet<QByteArray> m_seen;
};

CodecTable& table()
{
    static CodecTable codecs;
    return codecs;
}

QTextCodec* codecAt(int index)
{
    const QByteArray name = index > 0 ? table().at(index - 1) : QByteArray();
    return name.isEmpty() ? nullptr : QTextCodec::codecForName(name);
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
    if (wanted > 0 && table().at(qsizetype(wanted) - 1).isEmpty())
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
    table().list();
}

int codecCount()
{
    return int(table().size()) + 1;
}

QString codecName(int index)
{
    if (index == 0)
        return QCoreApplication::translate("QCodecs", "System");
    return index > 0 ? QString::fromLatin1(table().at(index - 1)) : QString();
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
