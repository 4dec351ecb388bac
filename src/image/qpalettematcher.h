#pragma once

#include <QHash>
#include <QRgb>
#include <QVector>

/**
 * Finds the palette entry nearest to a colour: the smallest sum of squared
 * red, green and blue differences; on a tie, the entry whose alpha lies
 * least above the wanted one (differences kept modulo 256, starting at 255).
 * Answers are remembered, since scaled pictures repeat a few blends many times.
 */
class QPaletteMatcher
{
public:
    explicit QPaletteMatcher(const QVector<QRgb>& palette);

    int index(QRgb colour);

private:
    int search(QRgb colour) const;

    QVector<QRgb> m_palette;
    QHash<QRgb, int> m_known;
};
