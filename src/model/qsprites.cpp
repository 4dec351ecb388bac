#include "qsprites.h"

#include "managers/qconfigmanager.h"
#include "model/qspritecommands.h"
#include "model/qspriteimagedata.h"
#include "model/qspritepalettedata.h"
#include "model/qstreamcachefilters.h"
#include "util/qprompt.h"

#include <QSet>

QSprites::QSprites(QProject* project, QStreamCacheType cacheType, bool compress, int level)
    : QProjectFile(project, pftSprites)
    , m_cache(cacheType, QStringLiteral("mugenspr"), compress, level)
    , m_paletteModel(this)
{
    if (configMan)
        m_undoStack.setUndoLimit(configMan->value(QStringLiteral("undo_limit")).toInt());
}

QSprites::~QSprites()
{
    m_undoStack.clear();
    qDeleteAll(m_sprites);
    qDeleteAll(m_palettes);
}

void QSprites::init()
{
    static bool registered = false;
    if (registered)
        return;
    registered = true;
    QStreamCache::registerFilter(cfPCX, new QPCXCacheFilter);
    QStreamCache::registerFilter(cfRLE8, new QRLE8CacheFilter);
    QStreamCache::registerFilter(cfRLE5, new QRLE5CacheFilter);
    QStreamCache::registerFilter(cfLZ5, new QLZ5CacheFilter);
    QStreamCache::registerFilter(cfPNG, new QPNGCacheFilter);
}

QSprite* QSprites::at(int position) const
{
    return position >= 0 && position < m_sprites.size() ? m_sprites.at(position) : nullptr;
}

int QSprites::find(int start, qint32 group, qint32 index) const
{
    for (int i = qMax(start, 0); i < m_sprites.size(); ++i)
        if (m_sprites.at(i)->itemGroup() == group && m_sprites.at(i)->itemIndex() == index)
            return i;
    return -1;
}

QSpritePalette* QSprites::paletteAt(int position) const
{
    return position >= 0 && position < m_palettes.size() ? m_palettes.at(position) : nullptr;
}

int QSprites::findPalette(int start, qint32 group, qint32 index) const
{
    for (int i = qMax(start, 0); i < m_palettes.size(); ++i)
        if (m_palettes.at(i)->itemGroup() == group && m_palettes.at(i)->itemIndex() == index)
            return i;
    return -1;
}

int QSprites::findPalette(const QRGBA* colors, int limit) const
{
    if (!colors)
        return -1;
    const int end = qMin(limit, int(m_palettes.size()));
    for (int i = 0; i < end; ++i) {
        const QSpritePaletteData* data = m_palettes.at(i)->data();
        if (data && data->sameColors(colors))
            return i;
    }
    return -1;
}

qint32 QSprites::nextSpriteIndex(qint32 group) const
{
    qint32 next = 0;
    for (const QSprite* sprite : m_sprites)
        if (sprite->itemGroup() == group)
            next = qMax(next, sprite->itemIndex() + 1);
    return next;
}

qint32 QSprites::nextPaletteIndex(qint32 group) const
{
    qint32 next = 0;
    for (const QSpritePalette* palette : m_palettes)
        if (palette->itemGroup() == group)
            next = qMax(next, palette->itemIndex() + 1);
    return next;
}

int QSprites::groupCount() const
{
    QSet<qint32> groups;
    for (const QSprite* sprite : m_sprites)
        groups.insert(sprite->itemGroup());
    return groups.size();
}

bool QSprites::containsIndexed() const
{
    for (const QSprite* sprite : m_sprites)
        if (sprite->imageData() && sprite->imageData()->format == QImage::Format_Indexed8)
            return true;
    return false;
}

void QSprites::setVersion(quint32 version)
{
    if (version == m_version)
        return;
    m_version = version;
    setModified(true);
}

QSprite* QSprites::add()
{
    return insert(m_sprites.size());
}

QSprite* QSprites::insert(int position)
{
    if (position < 0 || position > m_sprites.size())
        position = m_sprites.size();
    QSprite* sprite = insertSprite(position);
    pushCommand(new SpriteInsert(this, position));
    setModified(true);
    return sprite;
}

void QSprites::remove(unsigned int position)
{
    if (position >= unsigned(m_sprites.size()))
        return;
    if (!isChangeLocked())
        pushCommand(new SpriteRemove(this, int(position)));
    deleteSprite(int(position));
    setModified(true);
}

void QSprites::move(unsigned int from, unsigned int to)
{
    const unsigned int size = unsigned(m_sprites.size());
    if (from >= size || to >= size || from == to)
        return;
    moveSprite(int(from), int(to));
    pushCommand(new SpriteMove(this, int(from), int(to)));
    setModified(true);
}

void QSprites::clear()
{
    m_undoStack.clear();
    beginResetModel();
    qDeleteAll(m_sprites);
    m_sprites.clear();
    m_cache.clear();
    endResetModel();
    setModified(true);
}

QList<int> QSprites::spritePositions(qint32 group, bool wholeGroup, qint32 first, qint32 last) const
{
    QList<int> positions;
    for (int i = 0; i < m_sprites.size(); ++i) {
        const QSprite* sprite = m_sprites.at(i);
        if (group >= 0 && sprite->itemGroup() != group)
            continue;
        if (!wholeGroup && (sprite->itemIndex() < first || sprite->itemIndex() > last))
            continue;
        positions.append(i);
    }
    return positions;
}

void QSprites::removeGroup(qint32 group, bool wholeGroup, qint32 first, qint32 last)
{
    const QList<int> positions = spritePositions(group, wholeGroup, first, last);
    beginMacro(QStringLiteral("removeGroup"));
    for (int i = positions.size() - 1; i >= 0; --i)
        remove(unsigned(positions.at(i)));
    endMacro();
}

void QSprites::renameGroup(qint32 group, qint32 newGroup, bool wholeGroup, qint32 first, qint32 last)
{
    beginMacro(QStringLiteral("renameGroup"));
    for (int position : spritePositions(group, wholeGroup, first, last))
        m_sprites.at(position)->setItemGroup(newGroup);
    endMacro();
}

void QSprites::fullAxis(qint32 x, qint32 y, bool relative, qint32 group)
{
    beginMacro(QStringLiteral("fullAxis"));
    for (int position : spritePositions(group, true, 0, 0)) {
        QSprite* sprite = m_sprites.at(position);
        sprite->setOffset(relative ? sprite->offset() + QPoint(x, y) : QPoint(x, y));
    }
    endMacro();
}

void QSprites::crop(qint32 group)
{
    beginMacro(QStringLiteral("cropAll"));
    for (int position : spritePositions(group, true, 0, 0))
        m_sprites.at(position)->crop();
    endMacro();
}

int QSprites::findBaseSprite(const QSpriteImageData* data, int upTo) const
{
    for (int i = 0; i <= upTo && i < m_sprites.size(); ++i)
        if (m_sprites.at(i)->imageData() == data)
            return i;
    return -1;
}

int QSprites::findBasePalette(const QSpritePaletteData* data, int upTo) const
{
    for (int i = 0; i <= upTo && i < m_palettes.size(); ++i)
        if (m_palettes.at(i)->data() == data)
            return i;
    return -1;
}

void QSprites::undo()
{
    m_undoStack.undo();
}

void QSprites::redo()
{
    m_undoStack.redo();
}

void QSprites::pushCommand(QUndoCommand* command)
{
    if (isChangeLocked())
        delete command;
    else
        m_undoStack.push(command);
}

void QSprites::beginMacro(const QString& name)
{
    if (!isChangeLocked())
        m_undoStack.beginMacro(name);
}

void QSprites::endMacro()
{
    if (!isChangeLocked())
        m_undoStack.endMacro();
}

bool QSprites::canDiscard()
{
    if (!m_modified)
        return true;
    return prompt().question(tr("Discard changes"),
                             tr("Do you really want to discard the changes made in the sprites and/or palettes?"),
                             QPrompt::Yes | QPrompt::No, QPrompt::No)
        == QPrompt::Yes;
}

void QSprites::setModified(bool modified)
{
    m_modified = modified;
    if (!m_changing)
        emit changed();
}

void QSprites::itemChanged(int position)
{
    if (position >= 0 && position < m_sprites.size())
        emit dataChanged(index(position), index(position));
    setModified(true);
}

void QSprites::paletteChanged(int position)
{
    if (position >= 0 && position < m_palettes.size())
        emit m_paletteModel.dataChanged(m_paletteModel.index(position), m_paletteModel.index(position));
    setModified(true);
}

void QSprites::beginChange()
{
    if (m_changing++ == 0)
        beginMacro(QString());
}

void QSprites::endChange()
{
    if (m_changing == 0 || --m_changing > 0)
        return;
    endMacro();
    emit changed();
}

int QSprites::rowCount(const QModelIndex& parent) const
{
    return parent.isValid() ? 0 : m_sprites.size();
}

QVariant QSprites::data(const QModelIndex& index, int role) const
{
    const QSprite* sprite = at(index.row());
    if (!sprite || role != Qt::DisplayRole)
        return QVariant();
    return QStringLiteral("%1, %2").arg(sprite->itemGroup()).arg(sprite->itemIndex());
}

QSprite* QSprites::insertSprite(int position)
{
    position = qBound(0, position, int(m_sprites.size()));
    beginInsertRows(QModelIndex(), position, position);
    QSprite* sprite = new QSprite(this);
    m_sprites.insert(position, sprite);
    endInsertRows();
    return sprite;
}

void QSprites::deleteSprite(int position)
{
    beginRemoveRows(QModelIndex(), position, position);
    delete m_sprites.takeAt(position);
    endRemoveRows();
}

void QSprites::moveSprite(int from, int to)
{
    beginMoveRows(QModelIndex(), from, from, QModelIndex(), to > from ? to + 1 : to);
    m_sprites.move(from, to);
    endMoveRows();
}

QSpritePalette* QSprites::insertPaletteObject(int position)
{
    position = qBound(0, position, int(m_palettes.size()));
    m_paletteModel.beginInsertRows(QModelIndex(), position, position);
    QSpritePalette* palette = new QSpritePalette(this);
    m_palettes.insert(position, palette);
    m_paletteModel.endInsertRows();
    return palette;
}

void QSprites::deletePalette(int position)
{
    m_paletteModel.beginRemoveRows(QModelIndex(), position, position);
    delete m_palettes.takeAt(position);
    m_paletteModel.endRemoveRows();
}

void QSprites::movePaletteObject(int from, int to)
{
    m_paletteModel.beginMoveRows(QModelIndex(), from, from, QModelIndex(), to > from ? to + 1 : to);
    m_palettes.move(from, to);
    m_paletteModel.endMoveRows();
}

int QSprites::imageSharer(int position) const
{
    const QSprite* sprite = at(position);
    if (!sprite || !sprite->imageIsShared())
        return -1;
    for (int i = 0; i < m_sprites.size(); ++i)
        if (i != position && m_sprites.at(i)->imageData() == sprite->imageData())
            return i;
    return -1;
}

int QSprites::paletteSharer(int position) const
{
    const QSpritePalette* palette = paletteAt(position);
    if (!palette || !palette->data() || palette->data()->references < 2)
        return -1;
    for (int i = 0; i < m_palettes.size(); ++i)
        if (i != position && m_palettes.at(i)->data() == palette->data())
            return i;
    return -1;
}

void QSprites::restoreImage(int position, const QImage& image, int sharer)
{
    QSprite* sprite = at(position);
    if (at(sharer) && sharer != position) {
        sprite->shareImage(at(sharer)->imageData());
    } else {
        if (sprite->imageIsShared())
            sprite->shareImage(nullptr);
        sprite->storeImage(image);
    }
    itemChanged(position);
}

void QSprites::restoreColors(int position, const QRGBA* colors, int sharer)
{
    QSpritePalette* palette = paletteAt(position);
    if (paletteAt(sharer) && sharer != position) {
        palette->shareData(paletteAt(sharer)->data());
    } else {
        if (palette->data() && palette->data()->references > 1)
            palette->shareData(nullptr);
        palette->storeColors(colors);
    }
    paletteChanged(position);
}
