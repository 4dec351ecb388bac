#include "qspritepalette.h"

#include "formats/qrgbpalette.h"
#include "model/qgroupsteps.h"
#include "model/qpalettecommands.h"
#include "model/qspritepalettedata.h"
#include "model/qsprites.h"
#include "util/qprompt.h"

#include <cstring>

QSpritePalette::QSpritePalette(QSprites* owner)
    : m_owner(owner)
{
}

QSpritePalette::~QSpritePalette()
{
    shareData(nullptr);
}

const QRGBA* QSpritePalette::colors() const
{
    return m_data ? m_data->colors : nullptr;
}

QVector<QRgb> QSpritePalette::colorTable() const
{
    return paletteToColorTable(m_data ? m_data->colors : nullptr);
}

int QSpritePalette::index() const
{
    return m_owner->indexOfPalette(this);
}

void QSpritePalette::setColors(const QRGBA* colors, QSpriteShareMode share)
{
    const int position = index();
    PaletteChangeColors* command = nullptr;
    if (!m_owner->isChangeLocked())
        command = new PaletteChangeColors(m_owner, position);

    bool inPlace = false;
    QSpritePaletteData* equal = nullptr;
    if (colors && share != ssmPrivate) {
        for (int i = 0; i < m_owner->paletteCount() && !equal; ++i) {
            const QSpritePaletteData* data = m_owner->paletteAt(i)->data();
            if (i != position && data && data != m_data && data->sameColors(colors))
                equal = m_owner->paletteAt(i)->data();
        }
    }
    if (equal) {
        shareData(equal);
    } else {
        bool own = !m_data || m_data->references < 2 || share == ssmShared || share == ssmReplace;
        if (!own && share == ssmAsk)
            own = prompt().question(tr("Palette changes"),
                                    tr("Do you want to use this colors in all other instances of this palette?"),
                                    QPrompt::Yes | QPrompt::No, QPrompt::Yes)
                == QPrompt::Yes;
        inPlace = m_data && own;
        if (!own)
            shareData(nullptr);
        storeColors(colors);
    }
    if (command) {
        command->setInPlace(inPlace);
        m_owner->pushCommand(command);
    }
    m_owner->paletteChanged(position);
}

void QSpritePalette::setColorTable(const QVector<QRgb>& table, QSpriteShareMode share)
{
    QRGBA colors[256];
    colorTableToPalette(table, colors);
    setColors(colors, share);
}

void QSpritePalette::recordChange()
{
    if (!m_owner->isChangeLocked())
        m_owner->pushCommand(new PaletteChangeInfo(m_owner, index()));
}

void QSpritePalette::setColorCount(quint16 count)
{
    recordChange();
    m_colorCount = qMin<quint16>(count, 256);
    m_owner->paletteChanged(index());
}

void QSpritePalette::setSubItem(const QSubItem& item)
{
    recordChange();
    m_group = item.group;
    m_index = item.index;
    m_owner->paletteChanged(index());
}

void QSpritePalette::setItemGroup(qint32 group)
{
    setSubItem(QSubItem(group, m_index));
}

void QSpritePalette::setItemIndex(qint32 index)
{
    setSubItem(QSubItem(m_group, index));
}

bool QSpritePalette::fromFile(const QString& fileName, QSpriteShareMode share)
{
    QRGBA colors[256];
    if (m_data)
        std::memcpy(colors, m_data->colors, sizeof(colors));
    QRGBPalette reader;
    reader.setPalette(&colors);
    if (!reader.fromFile(fileName))
        return false;
    setColors(colors, share);
    return true;
}

bool QSpritePalette::toFile(const QString& fileName) const
{
    if (!m_data)
        return false;
    QRGBA colors[256];
    std::memcpy(colors, m_data->colors, sizeof(colors));
    QRGBPalette writer;
    writer.setPalette(&colors);
    return writer.toFile(fileName);
}

int QSpritePalette::nextGroup() const
{
    return nextGroupPosition(m_owner->paletteCount(), index(),
                             [this](int i) { return m_owner->paletteAt(i)->itemGroup(); });
}

int QSpritePalette::previousGroup() const
{
    return previousGroupPosition(m_owner->paletteCount(), index(),
                                 [this](int i) { return m_owner->paletteAt(i)->itemGroup(); });
}

void QSpritePalette::shareData(QSpritePaletteData* data)
{
    if (data)
        ++data->references;
    if (m_data && --m_data->references == 0)
        delete m_data;
    m_data = data;
}

void QSpritePalette::storeColors(const QRGBA* colors)
{
    if (!colors) {
        shareData(nullptr);
        return;
    }
    if (!m_data) {
        m_data = new QSpritePaletteData;
        m_data->references = 1;
    }
    std::memcpy(m_data->colors, colors, sizeof(m_data->colors));
}
