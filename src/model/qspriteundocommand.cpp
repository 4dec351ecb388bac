#include "qspriteundocommand.h"

#include "model/qsprites.h"

#include <cstring>

SpriteUndoCommand::SpriteUndoCommand(QSprites* sprites)
    : QModelUndoCommand(sprites)
    , m_sprites(sprites)
{
}

QStreamCache& SpriteUndoCommand::undoCache()
{
    static QStreamCache cache(ctHardDisk, QStringLiteral("sprUndo"), true, -1);
    return cache;
}

SpriteUndoImage::~SpriteUndoImage()
{
    release();
}

void SpriteUndoImage::hold(const QImage& image)
{
    release();
    if (image.isNull())
        return;
    m_width = image.width();
    m_height = image.height();
    m_format = image.format();
    const QByteArray bytes(reinterpret_cast<const char*>(image.constBits()), image.sizeInBytes());
    m_item = SpriteUndoCommand::undoCache().addItem(bytes, cfNone);
}

QImage SpriteUndoImage::image() const
{
    if (!m_item)
        return QImage();
    QImage image(m_width, m_height, m_format);
    image.fill(0);
    const QByteArray bytes = SpriteUndoCommand::undoCache().itemData(m_item);
    std::memcpy(image.bits(), bytes.constData(), size_t(qMin<qsizetype>(bytes.size(), image.sizeInBytes())));
    return image;
}

void SpriteUndoImage::release()
{
    if (m_item)
        SpriteUndoCommand::undoCache().deleteItem(m_item);
    m_item = nullptr;
}
