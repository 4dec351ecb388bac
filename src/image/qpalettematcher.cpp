#include "qpalettematcher.h"

#include <limits>

QPaletteMatcher::QPaletteMatcher(const QVector<QRgb>& palette)
    : m_palette(palette)
{
}

int QPaletteMatcher::index(QRgb colour)
{
    const auto known = m_known.constFind(colour);
    if (known != m_known.constEnd())
        return *known;
    const int found = search(colour);
    m_known.insert(colour, found);
    return found;
}

int QPaletteMatcher::search(QRgb colour) const
{
    int best = 0;
    int bestDistance = std::numeric_limits<int>::max();
    int bestAlpha = 255;
    for (int i = 0; i < m_palette.size(); ++i) {
        const QRgb entry = m_palette.at(i);
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
