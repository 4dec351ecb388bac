#include "qcommandkeys.h"

#include <QFont>
#include <QIcon>
#include <QPainter>

namespace QCommandKeys {

namespace {

QString direction(quint32 keys)
{
    QString name;
    if (keys & QCommandElement::KeyU)
        name += QLatin1Char('U');
    if (keys & QCommandElement::KeyD)
        name += QLatin1Char('D');
    if (keys & QCommandElement::KeyB)
        name += QLatin1Char('B');
    if (keys & QCommandElement::KeyF)
        name += QLatin1Char('F');
    return name;
}

/// A modifier tag is narrower than a key: 20 by 32 in its drawing.
bool isTag(const QString& image)
{
    return image.contains(QLatin1String("/mod_"));
}

} // namespace

QStringList imagesOf(const QCommandElement& step)
{
    QStringList images;
    if (step.flags & QCommandElement::FlagHold)
        images.append(QStringLiteral(":/keys/mod_hold.svg"));
    if (step.flags & QCommandElement::FlagRelease)
        images.append(QStringLiteral(":/keys/mod_release.svg"));
    if (step.flags & QCommandElement::FlagDirection)
        images.append(QStringLiteral(":/keys/mod_direction.svg"));
    if (step.flags & QCommandElement::FlagOnly)
        images.append(QStringLiteral(":/keys/mod_only.svg"));
    bool pressed = false;
    const QString arrow = direction(step.keys);
    if (!arrow.isEmpty()) {
        images.append(QStringLiteral(":/keys/dir_%1.svg").arg(arrow));
        pressed = true;
    }
    static const struct { quint32 mask; char name; } buttons[] = {
        {QCommandElement::ButtonA, 'a'}, {QCommandElement::ButtonB, 'b'}, {QCommandElement::ButtonC, 'c'},
        {QCommandElement::ButtonX, 'x'}, {QCommandElement::ButtonY, 'y'}, {QCommandElement::ButtonZ, 'z'},
        {QCommandElement::ButtonS, 's'},
    };
    for (const auto& button : buttons) {
        if (!(step.keys & button.mask))
            continue;
        if (pressed)
            images.append(QStringLiteral(":/keys/mod_plus.svg"));
        images.append(QStringLiteral(":/keys/button_%1.svg").arg(QLatin1Char(button.name)));
        pressed = true;
    }
    return images;
}

QPixmap draw(const QList<QCommandElement>& steps, int height)
{
    const int key = height;
    const int tag = height * 20 / 32;
    const int gap = qMax(2, height / 8);
    const int stepGap = qMax(6, height / 3);
    QFont timeFont;
    timeFont.setPixelSize(qMax(8, height * 3 / 8));
    timeFont.setBold(true);

    // Measure first, so the picture is exactly as wide as the sequence.
    QList<QStringList> images;
    int width = 0;
    for (const QCommandElement& step : steps) {
        images.append(imagesOf(step));
        for (const QString& image : images.last())
            width += (isTag(image) ? tag : key) + gap;
        if (step.time > 0)
            width += QFontMetrics(timeFont).horizontalAdvance(QString::number(step.time)) + gap;
        width += stepGap;
    }
    const qreal ratio = 2.0; // sharp on high-density screens too
    QPixmap picture(QSize(qMax(1, width), height) * ratio);
    picture.setDevicePixelRatio(ratio);
    picture.fill(Qt::transparent);
    QPainter painter(&picture);
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setFont(timeFont);
    int x = 0;
    for (int i = 0; i < steps.size(); ++i) {
        for (const QString& image : images.at(i)) {
            const int w = isTag(image) ? tag : key;
            QIcon(image).paint(&painter, QRect(x, 0, w, height));
            x += w + gap;
            // The time of a release stands right behind its tag.
            if (image.endsWith(QLatin1String("mod_release.svg")) && steps.at(i).time > 0) {
                const QString time = QString::number(steps.at(i).time);
                const int tw = painter.fontMetrics().horizontalAdvance(time);
                painter.setPen(QColor(0x7b, 0x1f, 0xa2));
                painter.drawText(QRect(x - gap, 0, tw + gap, height), Qt::AlignCenter, time);
                x += tw + gap;
            }
        }
        x += stepGap;
    }
    return picture;
}

} // namespace QCommandKeys
