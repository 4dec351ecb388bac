#include "qpalettefile.h"

#include "qrgbpalette.h"

#include <QCoreApplication>
#include <QDir>
#include <QFileInfo>

#include <cstring>

namespace {

/// An ACT file is 768 bytes of triples, sometimes followed by a count and a transparent index.
constexpr qint64 actSize = 768;
constexpr qint64 actSizeWithCount = 772;

} // namespace

bool readPaletteFile(const QString& path, QRGBA (&colors)[256], QString& fault)
{
    const QFileInfo file(path);
    const QString name = QDir::toNativeSeparators(path);
    fault.clear();
    if (!file.isFile()) {
        fault = QCoreApplication::translate("QPaletteFile", "%1: the file can't be opened.").arg(name);
        return false;
    }
    if (file.suffix().compare(QLatin1String("act"), Qt::CaseInsensitive) == 0 && file.size() != actSize
        && file.size() != actSizeWithCount) {
        fault = QCoreApplication::translate("QPaletteFile",
                                            "%1: an ACT palette has %2 or %3 bytes, this file has %4.")
                    .arg(name)
                    .arg(actSize)
                    .arg(actSizeWithCount)
                    .arg(file.size());
        return false;
    }
    QRGBA read[256];
    std::memcpy(static_cast<void*>(read), colors, sizeof read);
    QRGBPalette reader;
    reader.setPalette(&read);
    if (!reader.fromFile(path)) {
        fault = QCoreApplication::translate("QPaletteFile",
                                            "%1: no palette could be read (an image must have indexed colours).")
                    .arg(name);
        return false;
    }
    if (!reader.fault().isEmpty()) {
        fault = QCoreApplication::translate("QPaletteFile", "%1: %2.").arg(name, reader.fault());
        return false;
    }
    std::memcpy(static_cast<void*>(colors), read, sizeof read);
    return true;
}
