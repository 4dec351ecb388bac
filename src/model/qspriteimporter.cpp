#include "qspriteimporter.h"

#include "formats/qimagefiles.h"
#include "formats/qrgbpalette.h"
#include "model/qspritecommands.h"
#include "model/qsprites.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>

namespace {

/// The text of a line without its comment, trimmed.
QString stripped(const QString& line)
{
    const int comment = line.indexOf(QLatin1Char(';'));
    return (comment >= 0 ? line.left(comment) : line).trimmed();
}

/// Two integers "a, b"; false unless both are there.
bool pairOf(const QString& value, qint32& first, qint32& second)
{
    const QStringList parts = value.split(QLatin1Char(','));
    if (parts.size() != 2)
        return false;
    bool okFirst = false;
    bool okSecond = false;
    first = parts.at(0).trimmed().toInt(&okFirst);
    second = parts.at(1).trimmed().toInt(&okSecond);
    return okFirst && okSecond;
}

} // namespace

QSpriteImporter::QSpriteImporter(QSprites* sprites)
    : m_sprites(sprites)
{
}

QString QSpriteImporter::resolve(const QString& name) const
{
    return QDir(m_directory).absoluteFilePath(name.trimmed());
}

int QSpriteImporter::read(const QString& path, int at)
{
    QFile file(path);
    if (!file.open(QIODevice::ReadOnly))
        return 0;
    m_directory = QFileInfo(path).absolutePath();
    const QStringList lines = QString::fromUtf8(file.readAll()).split(QLatin1Char('\n'));
    int position = at < 0 || at > m_sprites->count() ? m_sprites->count() : at;
    const int first = position;

    m_sprites->beginMacro(QStringLiteral("import"));
    QString section;
    Section keys;
    auto finish = [&]() {
        if (section == QLatin1String("spritedef"))
            addSprite(keys, position++);
        else if (section == QLatin1String("palettedef"))
            addPalette(keys);
        keys.clear();
    };
    for (const QString& raw : lines) {
        const QString line = stripped(raw);
        if (line.startsWith(QLatin1Char('[')) && line.endsWith(QLatin1Char(']'))) {
            finish();
            section = line.mid(1, line.size() - 2).trimmed().toLower();
            continue;
        }
        const int equals = line.indexOf(QLatin1Char('='));
        if (equals <= 0)
            continue;
        const QString key = line.left(equals).trimmed().toLower();
        const QString value = line.mid(equals + 1).trimmed();
        if (section.isEmpty()) {
            if (key == QLatin1String("noduplicatepal"))
                m_noDuplicatePalettes = value.toInt() > 0;
            continue;
        }
        keys.insert(key, value);
    }
    finish();
    m_sprites->endMacro();
    m_sprites->setModified(true);
    return position - first;
}

void QSpriteImporter::addSprite(const Section& keys, int position)
{
    QSprite* sprite = nullptr;
    {
        QSprites::ChangeLock lock(m_sprites);
        sprite = m_sprites->insertSprite(position);
        QSpriteProperties properties;
        properties.group = keys.value(QStringLiteral("group")).toInt();
        properties.index = keys.value(keys.contains(QStringLiteral("image")) ? QStringLiteral("image")
                                                                             : QStringLiteral("number"))
                               .toInt();
        properties.x = keys.value(QStringLiteral("xaxis")).toInt();
        properties.y = keys.value(QStringLiteral("yaxis")).toInt();
        properties.flags = quint16(keys.value(QStringLiteral("flags")).toUInt());
        qint32 group = 0;
        qint32 index = 0;
        if (pairOf(keys.value(QStringLiteral("palette")), group, index))
            properties.palette = m_sprites->findPalette(0, group, index);
        sprite->setProperties(properties);
    }
    // The insertion goes on the stack before the picture, which may bring a
    // palette of its own: undoing replays them the other way round.
    m_sprites->pushCommand(new SpriteInsert(m_sprites, position));

    const QString name = keys.value(keys.contains(QStringLiteral("file")) ? QStringLiteral("file")
                                                                          : QStringLiteral("pcxfile"));
    if (name.isEmpty())
        return;
    const QString fileName = resolve(name);
    if (const QSprite* loader = m_loaded.value(fileName)) {
        QSprites::ChangeLock lock(m_sprites);
        sprite->shareImage(loader->imageData());
        return;
    }
    const QImage image = loadImage(fileName);
    if (image.isNull())
        return;
    sprite->setImage(image, ssmShared);
    m_loaded.insert(fileName, sprite);
}

void QSpriteImporter::addPalette(const Section& keys)
{
    QRGBA colors[256];
    QRGBPalette reader;
    reader.setPalette(&colors);
    if (!reader.fromFile(resolve(keys.value(QStringLiteral("file")))))
        return;
    m_sprites->addPalette(colors, m_noDuplicatePalettes ? spsReuse : spsNew,
                          keys.value(QStringLiteral("group")).toInt(), keys.value(QStringLiteral("number")).toInt());
}
