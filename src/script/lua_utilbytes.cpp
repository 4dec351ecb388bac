// Util: numbers read from and written to bytes, for the binary files
// scripts take apart (sprites, sounds, palettes), little-endian as the
// engine's files are; and text from and to bytes of an encoding.
#include "qluabindings.h"
#include "qluaqt.h"
#include "text/qcodecs.h"

#include <QTextCodec>
#include <QtEndian>

#include <cstring>

namespace {

// The value of type T at `offset` (0-based) of `bytes`.
template<class T>
T read(const QByteArray& bytes, int offset)
{
    if (offset < 0 || qsizetype(offset) + qsizetype(sizeof(T)) > bytes.size())
        throw lua::fault(QStringLiteral("Util: %1 bytes at offset %2 are past the end of %3 bytes")
                             .arg(sizeof(T)).arg(offset).arg(bytes.size()));
    T value;
    std::memcpy(&value, bytes.constData() + offset, sizeof(T));
    return qFromLittleEndian(value);
}

template<class T>
double readAt(const QByteArray& bytes, int offset) { return double(read<T>(bytes, offset)); }
template<class T>
double readFirst(const QByteArray& bytes) { return double(read<T>(bytes, 0)); }

// A number out of the type's range wraps as the cast does: fromUint8(256) is a zero byte.
template<class T>
QByteArray write(double value)
{
    T typed;
    if constexpr (std::is_floating_point_v<T>)
        typed = T(value);
    else
        typed = T(qint64(value));
    typed = qToLittleEndian(typed);
    return QByteArray(reinterpret_cast<const char*>(&typed), qsizetype(sizeof(T)));
}

// "4D 55 47 45": the bytes in hex, for a script's messages.
QString showBytes(const QByteArray& bytes) { return QString::fromLatin1(bytes.toHex(' ').toUpper()); }

QTextCodec* namedCodec(const QString& name)
{
    QTextCodec* codec = QTextCodec::codecForName(name.toLatin1());
    if (!codec)
        throw lua::fault(QStringLiteral("unknown encoding %1").arg(name));
    return codec;
}

// toString(bytes): text of bytes in the encoding detected, the locale's when unsure.
QString toText(const QByteArray& bytes) { return stringFromData(bytes, 0, nullptr); }
QString toTextIn(const QByteArray& bytes, const QString& encoding) { return namedCodec(encoding)->toUnicode(bytes); }
QByteArray fromText(const QString& text) { return stringToData(text, 0); }
QByteArray fromTextIn(const QString& text, const QString& encoding) { return namedCodec(encoding)->fromUnicode(text); }

} // namespace

void registerLuaBytes(lua_State* state)
{
    using namespace luabind;
    module(state)[
        def("toString", &toText), def("toString", &toTextIn),
        def("fromString", &fromText), def("fromString", &fromTextIn)
    ];
    module(state, "Util")[
        def("toInt8", &readAt<qint8>), def("toInt8", &readFirst<qint8>),
        def("toInt16", &readAt<qint16>), def("toInt16", &readFirst<qint16>),
        def("toInt32", &readAt<qint32>), def("toInt32", &readFirst<qint32>),
        def("toUint8", &readAt<quint8>), def("toUint8", &readFirst<quint8>),
        def("toUint16", &readAt<quint16>), def("toUint16", &readFirst<quint16>),
        def("toUint32", &readAt<quint32>), def("toUint32", &readFirst<quint32>),
        def("toFloat", &readAt<float>), def("toFloat", &readFirst<float>),
        def("toDouble", &readAt<double>), def("toDouble", &readFirst<double>),
        def("fromInt8", &write<qint8>), def("fromInt16", &write<qint16>), def("fromInt32", &write<qint32>),
        def("fromUint8", &write<quint8>), def("fromUint16", &write<quint16>), def("fromUint32", &write<quint32>),
        def("fromFloat", &write<float>), def("fromDouble", &write<double>),
        def("showBytes", &showBytes)
    ];
}
