#include "qpalettematcher.h"

#include <limits>

QPaletteMatcher::QPaletteMatcher(const QVector<QRgb>& palette, int first)
    : m_palette(palette)
    , m_first(first)
{
}

int QPaletteMatcher::index(QRgb colour)
{
    const auto known = m_known.constFind(colour);
    if (known != m_known.constEnd())
        return *known;
    const int found = nearest(m_palette.constData(), int(m_palette.size()), colour, m_first);
    m_known.insert(colour, found);
    return found;
}

int QPaletteMatcher::nearest(const QRgb* palette, int count, QRgb colour, int first)
{
    int best = first;
    int bestDistance = std::numeric_limits<int>::max();
    int bestAlpha = 255;
    for (int i = first; i < count; ++i) {
        const QRgb entry = palette[i];
        const int dr = qRed(entry) - qRed(colour);
        const int dg = qGreen(entry) - qGreen(colour);
        const int db = qBlue(entry) - qBlue(colour);
        const int distance = dr * dr + dg * dg + db * db;
        const int alpha = qAlpha(entry) - qAlpha(colour);
        if (distance < bestDistance || (distance == bestDistance && alpha < bestAlpha)) {
            best = i;
            bestDistance = distance;
            bestAlpha = alpha & 0xff;
        }
    }
    return best;
}

bool QPaletteMatcher::remapExactly(QImage& image, const QVector<QRgb>& palette)
{
    if (image.format() != QImage::Format_Indexed8)
        return false;
    const QVector<QRgb> own = image.colorTable();
    bool used[256] = {};
    for (int y = 0; y < image.height(); ++y) {
        const uchar* line = image.constScanLine(y);
        for (int x = 0; x < image.width(); ++x)
            used[line[x]] = true;
    }
    uchar renumber[256] = {};
    bool identity = true;
    for (int p = 1; p < 256; ++p) {
        if (!used[p])
            continue;
        const QRgb colour = (p < own.size() ? own.at(p) : 0u) & 0xFFFFFFu;
        // A pixel whose own entry already has its colour keeps its number.
        int found = p < palette.size() && (palette.at(p) & 0xFFFFFFu) == colour ? p : -1;
        for (int i = 1; i < palette.size() && found < 0; ++i)
            if ((palette.at(i) & 0xFFFFFFu) == colour)
                found = i;
        if (found < 0)
            return false;
        renumber[p] = uchar(found);
        identity = identity && found == p;
    }
    if (!identity) {
        for (int y = 0; y < image.height(); ++y) {
            uchar* line = image.scanLine(y);
            for (int x = 0; x < image.width(); ++x)
                line[x] = renumber[line[x]];
        }
    }
    image.setColorTable(palette);
    return true;
}
