#pragma once

#include <QHash>
#include <QImage>
#include <QRgb>
#include <QVector>

/**
 * The one search for the palette entry nearest to a colour: the smallest sum
 * of squared red, green and blue differences; on a tie, the entry whose alpha
 * lies least above the wanted one (differences kept modulo 256, starting at
 * 255). Answers are remembered, since pictures repeat a few colours many
 * times.
 *
 * For sprite palettes, whose entry 0 is the transparent colour, start the
 * search at entry 1: an opaque pixel must never land on the transparent
 * entry because its red, green and blue happen to match.
 */
class QPaletteMatcher
{
public:
    /// Searches the entries from `first` on.
    explicit QPaletteMatcher(const QVector<QRgb>& palette, int first = 0);

    int index(QRgb colour);

    /// The nearest of `count` entries from `first`, by the rule above; `first` when there are none.
    static int nearest(const QRgb* palette, int count, QRgb colour, int first = 0);

    /**
     * Renumbers the pixels of an indexed image to the entries of `palette`
     * with the same red, green and blue: pixel 0 stays 0, any other pixel
     * keeps its number when its entry has its colour and otherwise takes the
     * first entry from 1 that has it. False, with the image
     * untouched, when a colour the image uses is not in the palette.
     */
    static bool remapExactly(QImage& image, const QVector<QRgb>& palette);

private:
    QVector<QRgb> m_palette;
    int m_first;
    QHash<QRgb, int> m_known;
};
