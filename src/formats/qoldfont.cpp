#include "qoldfont.h"

#include "qfntheader.h"
#include "qpcx.h"

#include <QLocale>
#include <QRegularExpression>
#include <QStringList>

#include <cstring>

namespace {

struct MapLine
{
    char character;
    int start;
    int width;
};

QPoint pair(const QString& value)
{
    const QStringList parts = value.split(QLatin1Char(','));
    return QPoint(parts.value(0).trimmed().toInt(), parts.value(1).trimmed().toInt());
}

/// The character of a map line's first word: itself, or a "0x" code, with an
/// optional comma behind it.
bool mapCharacter(QString word, char& character)
{
    if (word.size() > 1 && word.endsWith(QLatin1Char(',')))
        word.chop(1);
    if (word.size() == 1) {
        character = char(word.at(0).toLatin1());
        return true;
    }
    if (word.size() > 2 && word.startsWith(QLatin1String("0x"), Qt::CaseInsensitive)) {
        bool ok = false;
        const uint code = QStringView(word).mid(2).toUInt(&ok, 16);
        character = char(code);
        return ok && code < 256;
    }
    return false;
}

} // namespace

bool QOldFont::read(const QByteArray& data)
{
    *this = QOldFont();
    QFNTHeader header;
    QDataStream stream(data);
    stream.setByteOrder(QDataStream::LittleEndian);
    stream >> header;
    if (data.size() < QFNTHeader::size || !header.isValid()) {
        m_fault = QStringLiteral("not an old font file: no \"ElecbyteFnt\" signature at its start");
        return false;
    }
    const auto pastTheEnd = [&data](const char* what, quint32 offset, quint32 size) {
        if (qint64(offset) + size <= data.size())
            return QString();
        const QLocale english(QLocale::English);
        return QStringLiteral("%1 of %2 bytes at byte %3 runs past the end of the file at byte %4")
            .arg(QLatin1String(what), english.toString(size), english.toString(offset), english.toString(data.size()));
    };
    m_fault = pastTheEnd("the glyph picture", header.pcxOffset, header.pcxSize);
    if (m_fault.isEmpty())
        m_fault = pastTheEnd("the definition text", header.textOffset, header.textSize);
    if (!m_fault.isEmpty())
        return false;
    parseText(QString::fromLatin1(data.mid(header.textOffset, header.textSize)));
    m_image = loadPCX(data.mid(header.pcxOffset, header.pcxSize));
    // Glyphs are indices into the colour banks: the picture must have them.
    if (m_image.isNull())
        m_fault = QStringLiteral("the glyph picture at byte %1 is not a readable PCX picture").arg(header.pcxOffset);
    else if (m_image.format() != QImage::Format_Indexed8 || m_image.colorCount() != 256)
        m_fault = QStringLiteral("the glyph picture is not one of 256 colours");
    else if (m_map.isEmpty())
        m_fault = QStringLiteral("the definition text maps no character: it has no [Map] lines");
    if (!m_fault.isEmpty()) {
        m_image = QImage();
        return false;
    }
    return true;
}

void QOldFont::parseText(const QString& text)
{
    *this = QOldFont();
    enum { none, def, map } section = none;
    QList<MapLine> lines;
    for (const QString& raw : text.split(QLatin1Char('\n'))) {
        // ";" starts a comment everywhere; the map writes that character as 0x3B.
        const QString line = raw.left(raw.indexOf(QLatin1Char(';'))).trimmed();
        if (line.isEmpty())
            continue;
        if (line.startsWith(QLatin1Char('[')) && line.endsWith(QLatin1Char(']')) && line.size() > 2) {
            const QString name = line.mid(1, line.size() - 2).trimmed().toLower();
            section = name == QLatin1String("def") ? def : (name == QLatin1String("map") ? map : none);
            continue;
        }
        if (section == def) {
            const int equals = line.indexOf(QLatin1Char('='));
            if (equals > 0)
                parseDefinition(line.left(equals).trimmed().toLower(), line.mid(equals + 1).trimmed());
        } else if (section == map) {
            static const QRegularExpression separators(QStringLiteral("[\\s,]+"));
            static const QRegularExpression space(QStringLiteral("\\s"));
            const int gap = line.indexOf(space);
            MapLine entry { 0, 0, 0 };
            if (!mapCharacter(gap < 0 ? line : line.left(gap), entry.character))
                continue;
            const QStringList numbers
                = gap < 0 ? QStringList() : line.mid(gap).split(separators, Qt::SkipEmptyParts);
            entry.start = numbers.value(0).toInt();
            entry.width = numbers.size() > 1 ? numbers.at(1).toInt() : -1;
            lines.append(entry);
        }
    }
    // The type and size may come after the map; places are settled once all is read.
    for (int i = 0; i < lines.size(); ++i) {
        const MapLine& entry = lines.at(i);
        m_map.insert(entry.character,
            m_fixed ? QPoint(i * m_size.width(), m_size.width())
                    : QPoint(entry.start, entry.width < 0 ? m_size.width() : entry.width));
    }
}

void QOldFont::parseDefinition(const QString& key, const QString& value)
{
    if (key == QLatin1String("type")) {
        m_fixed = value.compare(QLatin1String("fixed"), Qt::CaseInsensitive) == 0;
    } else if (key == QLatin1String("colors")) {
        const int colors = value.toInt();
        m_colors = colors >= 1 && colors <= 256 ? colors : 256;
    } else if (key == QLatin1String("size")) {
        const QPoint size = pair(value);
        m_size = QSize(qMax(0, size.x()), qMax(0, size.y()));
    } else if (key == QLatin1String("spacing")) {
        m_spacing = pair(value);
    } else if (key == QLatin1String("offset")) {
        m_offset = pair(value);
    }
}

QString QOldFont::definitionText(const QString& name) const
{
    return QStringLiteral("[FNT v2]\nfntversion = 2,00\nname = \"%1\"\n\n[Def]\ntype = Bitmap\nsize = %2,%3\n"
                          "spacing = %4,%5\noffset = %6,%7\nfile = %1.sff\n")
        .arg(name)
        .arg(m_size.width())
        .arg(m_size.height())
        .arg(m_spacing.x())
        .arg(m_spacing.y())
        .arg(m_offset.x())
        .arg(m_offset.y());
}

void QOldFont::bankPalette(int bank, QRGBA (&palette)[256]) const
{
    std::memset(static_cast<void*>(palette), 0, sizeof palette);
    const int slice = banks() - 1 - bank;
    if (slice < 0 || bank < 0)
        return;
    const QVector<QRgb> table = m_image.colorTable();
    for (int k = 0; k < m_colors; ++k) {
        const int index = slice * m_colors + k;
        if (index >= table.size())
            break;
        palette[k] = QRGBA::fromQRgb(table.at(index));
        palette[k].a = k == 0 ? 0 : 255;
    }
}

QImage QOldFont::glyph(char character) const
{
    const auto it = m_map.constFind(character);
    if (it == m_map.cend() || m_image.isNull())
        return QImage();
    const int width = m_fixed ? m_size.width() : it->y();
    const int height = qMin(m_size.height(), m_image.height());
    // No glyph of a real font comes near this; a larger one is a damaged map.
    constexpr int largest = 4096;
    if (width <= 0 || height <= 0 || width > largest || height > largest)
        return QImage();
    QImage glyph(width, height, QImage::Format_Indexed8);
    glyph.fill(0);
    const int left = it->x();
    const int from = qMax(0, left);
    const int to = qMin(m_image.width(), left + width);
    const uchar shift = uchar(m_colors == 256 ? 0 : m_colors);
    for (int y = 0; y < height; ++y) {
        const uchar* source = m_image.constScanLine(y);
        uchar* target = glyph.scanLine(y);
        for (int x = from; x < to; ++x)
            target[x - left] = uchar(source[x] + shift);
    }
    return glyph;
}
