#include "qspritefileimport.h"

#include "formats/qimagefiles.h"
#include "model/qsprite.h"
#include "model/qsprites.h"
#include "util/qprompt.h"

#include <QCoreApplication>
#include <QDir>
#include <QFileInfo>
#include <QImage>
#include <QRegularExpression>

QStringList QSpriteFileImport::numberedSeries(const QString& first)
{
    const QFileInfo info(first);
    static const QRegularExpression numbered(QStringLiteral("^(.*?)(\\d+)$"));
    const QRegularExpressionMatch match = numbered.match(info.completeBaseName());
    if (!match.hasMatch())
        return { first };
    const QString prefix = match.captured(1);
    const QString digits = match.captured(2);
    const QString suffix = info.suffix().isEmpty() ? QString() : QLatin1Char('.') + info.suffix();
    QStringList files;
    for (qint64 number = digits.toLongLong();; ++number) {
        // "walk9.png" goes on with "walk10.png"; zero-padded names keep their width.
        const QString name = prefix + QStringLiteral("%1").arg(number, digits.size(), 10, QLatin1Char('0')) + suffix;
        const QString path = info.dir().filePath(name);
        if (!QFileInfo::exists(path))
            break;
        files.append(path);
    }
    return files;
}

QList<QImage> QSpriteFileImport::read(const QStringList& files)
{
    m_error.clear();
    QList<QImage> images;
    bool trueColour = false;
    for (const QString& file : files) {
        const QImage image = loadImage(file);
        if (image.isNull()) {
            m_error = QCoreApplication::translate("QSpriteFileImport", "%1: not an image this program can read")
                          .arg(QDir::toNativeSeparators(file));
            return {};
        }
        trueColour |= image.format() != QImage::Format_Indexed8;
        images.append(image);
    }
    if (trueColour && m_sprites->getVersion() < QSprites::defaultVersion) {
        const QPrompt::Button answer = prompt().question(
            QCoreApplication::translate("QSpriteFileImport", "Add sprites"),
            QCoreApplication::translate("QSpriteFileImport",
                                        "This sprite file is saved with 8-bit sprites only. The true-colour "
                                        "pictures will be reduced to 256 colours when it is saved. Add them?"),
            QPrompt::Yes | QPrompt::No, QPrompt::Yes);
        if (answer != QPrompt::Yes)
            return {};
    }
    return images;
}

int QSpriteFileImport::add(const QStringList& files, int group, int index, int step)
{
    const QList<QImage> images = read(files);
    if (images.isEmpty())
        return 0;
    m_sprites->beginMacro(QCoreApplication::translate("QSpriteFileImport", "add sprites"));
    for (int i = 0; i < images.size(); ++i) {
        QSprite* sprite = m_sprites->add();
        sprite->setImage(images.at(i));
        sprite->setItem(group, index + i * step);
    }
    m_sprites->endMacro();
    return images.size();
}
