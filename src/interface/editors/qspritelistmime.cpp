#include "qspritelistmime.h"

#include <QMimeData>
#include <QString>
#include <QStringList>

namespace QSpriteListMime {

const char* const mimeType = "application/x-pugilforge-sprites";

QMimeData* encode(const QList<QSubItem>& sprites)
{
    QStringList lines;
    lines.reserve(sprites.size());
    for (const QSubItem& sprite : sprites)
        lines.append(QStringLiteral("%1,%2").arg(sprite.group).arg(sprite.index));
    const QString text = lines.join(QLatin1Char('\n'));
    auto* data = new QMimeData;
    data->setData(QLatin1String(mimeType), text.toUtf8());
    data->setText(text);
    return data;
}

QList<QSubItem> decode(const QMimeData* data)
{
    QList<QSubItem> sprites;
    if (!data || !data->hasFormat(QLatin1String(mimeType)))
        return sprites;
    const QString text = QString::fromUtf8(data->data(QLatin1String(mimeType)));
    for (const QString& line : text.split(QLatin1Char('\n'), Qt::SkipEmptyParts)) {
        const QStringList pair = line.split(QLatin1Char(','));
        bool okGroup = false;
        bool okIndex = false;
        const int group = pair.size() == 2 ? pair[0].trimmed().toInt(&okGroup) : 0;
        const int index = pair.size() == 2 ? pair[1].trimmed().toInt(&okIndex) : 0;
        if (okGroup && okIndex)
            sprites.append(QSubItem(group, index));
    }
    return sprites;
}

} // namespace QSpriteListMime
