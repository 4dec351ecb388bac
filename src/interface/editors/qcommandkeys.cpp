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

QPixmap draw(const QList<QCommandElement>& steps, int height, int maxWidth)
{
    const int key = height;
    const int tag = height * 20 / 32;
    const int gap = qMax(2, height / 8);
    const int stepGap = qMax(8, height / 2);
    const int rowGap = qMax(3, height / 5);
    QFont timeFont;
    timeFont.setPixelSize(qMax(8, height / 2));
    timeFont.setBold(true);
    const QFontMetrics metrics(timeFont);
    const auto timeText = [](const QCommandElement& step) { return QString::number(step.time); };

    // Lay the steps out first, so the picture is exactly as big as the sequence.
    QList<QStringList> images;
    QList<QPoint> origins;
    int x = 0;
    int y = 0;
    int width = 0;
    for (const QCommandElement& step : steps) {
        images.append(imagesOf(step));
        int stepWidth = 0;
        for (const QString& image : images.last())
            stepWidth += (isTag(image) ? tag : key) + gap;
        if (step.time > 0 && (step.flags & QCommandElement::FlagRelease))
            stepWidth += metrics.horizontalAdvance(timeText(step)) + gap;
        if (maxWidth > 0 && x > 0 && x + stepWidth > maxWidth) {
            x = 0;
            y += height + rowGap;
        }
        origins.append(QPoint(x, y));
        width = qMax(width, x + stepWidth - gap);
        x += stepWidth + stepGap - gap;
    }
    const qreal ratio = 2.0; // sharp on high-density screens too
    QPixmap picture(QSize(qMax(1, width), y + height) * ratio);
    picture.setDevicePixelRatio(ratio);
    picture.fill(Qt::transparent);
    QPainter painter(&picture);
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setFont(timeFont);
    for (int i = 0; i < steps.size(); ++i) {
        int left = origins.at(i).x();
        const int top = origins.at(i).y();
        for (const QString& image : images.at(i)) {
            const int w = isTag(image) ? tag : key;
            QIcon(image).paint(&painter, QRect(left, top, w, height));
            left += w + gap;
            // The time of a release stands right behind its tag.
            if (image.endsWith(QLatin1String("mod_release.svg")) && steps.at(i).time > 0) {
                const QString time = timeText(steps.at(i));
                const int tw = metrics.horizontalAdvance(time);
                painter.setPen(QColor(0x7b, 0x1f, 0xa2));
                painter.drawText(QRect(left, top, tw, height), Qt::AlignCenter, time);
                left += tw + gap;
            }
        }
    }
    return picture;
}

} // namespace QCommandKeys
