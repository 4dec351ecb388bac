#include "qabstractpalette.h"

#include "qacopalette.h"
#include "qactpalette.h"
#include "qasepalette.h"
#include "qjascpalette.h"
#include "qpainterpalette.h"
#include "qriffpalette.h"

std::unique_ptr<QAbstractPalette> QAbstractPalette::forFile(const QString& suffix, const QByteArray& head)
{
    if (suffix.compare(QLatin1String("aco"), Qt::CaseInsensitive) == 0)
        return std::make_unique<QACOPalette>();
    const QByteArray magic = head.left(4);
    if (magic == "RIFF")
        return std::make_unique<QRIFFPalette>();
    if (magic == "JASC")
        return std::make_unique<QJascPalette>();
    if (magic == "ASEF")
        return std::make_unique<QASEPalette>();
    if (magic == "ROWS")
        return std::make_unique<QPainterPalette>();
    return std::make_unique<QACTPalette>();
}
