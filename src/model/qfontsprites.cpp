#include "qfontsprites.h"

#include "formats/qoldfont.h"
#include "model/qsprites.h"

#include <QFile>
#include <QFileInfo>

bool loadFont(const QString& path, QString& text, QSprites* sprites)
{
    QFile file(path);
    if (!file.open(QIODevice::ReadOnly))
        return false;
    QOldFont font;
    if (!font.read(file.readAll()))
        return false;
    text = font.definitionText(QFileInfo(path).completeBaseName());

    sprites->clear();
    sprites->clearPalettes();
    QSprites::ChangeLock lock(sprites);
    sprites->setVersion(sffVersion200);
    for (int bank = 0; bank < font.banks(); ++bank) {
        QRGBA colors[256];
        font.bankPalette(bank, colors);
        sprites->addPalette(colors, spsNew, 0, bank);
    }
    for (auto it = font.map().cbegin(); it != font.map().cend(); ++it) {
        QSprite* sprite = sprites->insertSprite(sprites->count());
        QSpriteProperties properties;
        properties.index = qint32(static_cast<signed char>(it.key()));
        properties.palette = 0;
        sprite->setProperties(properties);
        sprite->setImage(font.glyph(it.key()));
    }
    return true;
}
