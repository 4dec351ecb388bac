#include "qimagefiles.h"

#include "qpcx.h"
#include "qpngdecoder.h"
#include "qpngfault.h"

#include <QBuffer>
#include <QFile>
#include <QFileInfo>
#include <QSaveFile>

#include <cstring>

QImage::Format depthToFormat(int depth)
{
    switch (depth) {
    case 5:
    case 8:
        return QImage::Format_Indexed8;
    case 24:
        return QImage::Format_RGB32;
    case 32:
        return QImage::Format_ARGB32;
    default:
        return QImage::Format_Invalid;
    }
}

int formatToDepth(QImage::Format format)
{
    switch (format) {
    case QImage::Format_Indexed8:
        return 8;
    case QImage::Format_RGB32:
        return 24;
    case QImage::Format_ARGB32:
        return 32;
    default:
        return 0;
    }
}

static bool isPcxName(const QString& path)
{
    return QFileInfo(path).suffix().compare(QLatin1String("pcx"), Qt::CaseInsensitive) == 0;
}

QImage loadImage(const QString& path, QString* fault)
{
    if (fault)
        fault->clear();
    QFile file(path);
    if (!file.open(QIODevice::ReadOnly)) {
        if (fault)
            *fault = QStringLiteral("can't read the file");
        return QImage();
    }
    const QByteArray data = file.readAll();
    // A PNG is known by its signature, whatever its name, so that libpng never
    // sees a damaged one.
    if (data.startsWith("\x89PNG"))
        return loadPNG(data, fault);
    const QImage image = isPcxName(path) ? loadPCX(data) : QImage(path);
    if (image.isNull() && fault)
        *fault = QStringLiteral("not a readable image");
    return image;
}

bool saveImage(const QString& path, const QImage& image)
{
    QSaveFile file(path);
    if (!file.open(QIODevice::WriteOnly))
        return false;
    const bool written = isPcxName(path) ? savePCX(image, &file)
                                         : image.save(&file, QFileInfo(path).suffix().toLatin1().constData());
    if (!written) {
        file.cancelWriting();
        return false;
    }
    return file.commit();
}

QImage loadPNG(const QByteArray& data, QString* fault)
{
    if (fault)
        fault->clear();
    QPngDecoder decoder;
    if (decoder.open(data)) {
        QImage image(decoder.size(), decoder.format());
        if (!image.isNull() && decoder.decode(image.bits(), image.bytesPerLine())) {
            if (image.format() == QImage::Format_Indexed8)
                image.setColorTable(decoder.colorTable());
            return image;
        }
    }
    // Whatever the fast decoder leaves, other depths and damaged files alike,
    // is the general reader's, once it is known to decode without a word:
    // libpng would print its complaints, and allocate what a damaged length
    // claims before finding the file short.
    const QString found = pngFault(data);
    const QImage image = found.isEmpty() ? QImage::fromData(data, "PNG") : QImage();
    if (fault && image.isNull())
        *fault = !found.isEmpty() ? found : QStringLiteral("the picture could not be decoded");
    return image;
}

QByteArray savePNG(const QImage& image)
{
    QByteArray data;
    QBuffer buffer(&data);
    buffer.open(QIODevice::WriteOnly);
    if (!image.save(&buffer, "PNG"))
        return QByteArray();
    return data;
}

QImage loadRAW(unsigned short width, unsigned short height, QImage::Format format, const QByteArray& data)
{
    const int depth = formatToDepth(format);
    if (depth == 0 || width == 0 || height == 0)
        return QImage();
    QImage image(width, height, format);
    if (image.isNull())
        return image;
    image.fill(format == QImage::Format_RGB32 ? qRgb(0, 0, 0) : 0u);
    const int rowBytes = depth * width / 8;
    const auto* source = reinterpret_cast<const uchar*>(data.constData());
    for (int y = 0; y < height; ++y) {
        const qsizetype start = qsizetype(y) * rowBytes;
        if (start >= data.size())
            break;
        const int available = int(qMin<qsizetype>(rowBytes, data.size() - start));
        uchar* line = image.scanLine(y);
        if (format != QImage::Format_RGB32) {
            std::memcpy(line, source + start, size_t(available));
            continue;
        }
        // Rows hold three bytes a pixel, blue, green, red, as the 32-bit pixel's low bytes.
        auto* pixels = reinterpret_cast<QRgb*>(line);
        const uchar* in = source + start;
        for (int x = 0; x < available / 3; ++x, in += 3)
            pixels[x] = qRgb(in[2], in[1], in[0]);
    }
    return image;
}
