#include "image/qcolorquantizer.h"
#include "image/qimageresize.h"
#include "image/qimagerotate.h"

#include <QSet>
#include <QtTest>

#include <cmath>

namespace {

/// A picture of grey levels, from one value per pixel, row by row.
QImage greyImage(int width, int height, const QVector<int>& levels)
{
    QImage image(width, height, QImage::Format_ARGB32);
    for (int y = 0; y < height; ++y)
        for (int x = 0; x < width; ++x) {
            const int v = levels.at(y * width + x);
            image.setPixel(x, y, qRgb(v, v, v));
        }
    return image;
}

/// An indexed picture from one index per pixel, with `palette` as its colour table.
QImage indexedImage(int width, int height, const QVector<int>& indices, const QVector<QRgb>& palette)
{
    QImage image(width, height, QImage::Format_Indexed8);
    image.setColorTable(palette);
    for (int y = 0; y < height; ++y)
        for (int x = 0; x < width; ++x)
            image.setPixel(x, y, uint(indices.at(y * width + x)));
    return image;
}

QVector<int> indicesOf(const QImage& image)
{
    QVector<int> out;
    for (int y = 0; y < image.height(); ++y)
        for (int x = 0; x < image.width(); ++x)
            out << image.pixelIndex(x, y);
    return out;
}

/// The grey levels of the scale-by-scale block that source pixel (bx, by) became.
QVector<int> block(const QImage& image, int bx, int by, int scale)
{
    QVector<int> out;
    for (int y = 0; y < scale; ++y)
        for (int x = 0; x < scale; ++x)
            out << qRed(image.pixel(bx * scale + x, by * scale + y));
    return out;
}

QVector<int> pattern(const QString& name, int size)
{
    QVector<int> levels;
    for (int r = 0; r < size; ++r)
        for (int c = 0; c < size; ++c) {
            bool on = false;
            if (name == QLatin1String("isolated"))
                on = r == size / 2 && c == size / 2;
            else if (name == QLatin1String("faint"))
                on = r == size / 2 && c == size / 2;
            else if (name == QLatin1String("diagonal"))
                on = r == c;
            else
                on = (r + c) % 2 == 1;
            levels << (on ? (name == QLatin1String("faint") ? 60 : 255) : 0);
        }
    return levels;
}

/// Sixteen greys, the rest of the table a colour no blend of greys comes near.
QVector<QRgb> greyPalette()
{
    QVector<QRgb> palette(256, qRgb(255, 0, 255));
    for (int i = 0; i < 16; ++i)
        palette[i] = qRgb(i * 17, i * 17, i * 17);
    return palette;
}

} // namespace

class TestImage : public QObject
{
    Q_OBJECT

private slots:
    void quantizerKeepsFewColoursExactly()
    {
        // Colours in distinct tree cells, repeated, some with alpha that must not count.
        const QVector<QRgb> colours = {qRgb(10, 200, 30), qRgb(250, 250, 250), qRgb(0, 0, 0), qRgb(128, 64, 32),
                                       qRgba(77, 88, 99, 0)};
        QImage image(20, 10, QImage::Format_ARGB32);
        for (int y = 0; y < image.height(); ++y)
            for (int x = 0; x < image.width(); ++x)
                image.setPixel(x, y, colours.at((x + y * 3) % colours.size()));
        QColorQuantizer quantizer(256, 8);
        QVERIFY(quantizer.processImage(image));
        QCOMPARE(quantizer.colorCount(), colours.size());
        QVector<QRgb> table;
        quantizer.getColorTable(table);
        QCOMPARE(table.size(), 256);
        QSet<QRgb> found;
        for (int i = 0; i < colours.size(); ++i) {
            QCOMPARE(qAlpha(table.at(i)), 0); // the caller chooses alpha
            found.insert(table.at(i) | 0xff000000u);
        }
        for (QRgb colour : colours)
            QVERIFY(found.contains(colour | 0xff000000u));
        for (int i = colours.size(); i < 256; ++i)
            QCOMPARE(table.at(i), QRgb(0));

        // 256 distinct colours fit without any folding, in tree order (by red here).
        QImage ramp(256, 1, QImage::Format_RGB32);
        for (int x = 0; x < 256; ++x)
            ramp.setPixel(x, 0, qRgb(255 - x, 7, 9));
        QColorQuantizer full(256, 8);
        full.processImage(ramp);
        full.getColorTable(table);
        for (int i = 0; i < 256; ++i)
            QCOMPARE(table.at(i), qRgba(i, 7, 9, 0));
    }

    void quantizerFoldsOneBranchFor257Colours()
    {
        // Reds 0..255 make 128 deepest branches of two leaves each; the 257th
        // colour joins the first branch, so the newest branch (reds 254 and
        // 255) is the one folded, and nothing else changes.
        QImage image(257, 1, QImage::Format_RGB32);
        for (int x = 0; x < 256; ++x)
            image.setPixel(x, 0, qRgb(x, 0, 0));
        image.setPixel(256, 0, qRgb(0, 1, 0));
        QColorQuantizer quantizer(256, 8);
        quantizer.processImage(image);
        QCOMPARE(quantizer.colorCount(), 256);
        QVector<QRgb> table;
        quantizer.getColorTable(table);

        QVector<QRgb> expected = {qRgba(0, 0, 0, 0), qRgba(0, 1, 0, 0)};
        for (int red = 1; red <= 253; ++red)
            expected << qRgba(red, 0, 0, 0);
        expected << qRgba((254 + 255) / 2, 0, 0, 0);
        QCOMPARE(table, expected);
    }

    void sameSizeScalingIsIdentity_data()
    {
        QTest::addColumn<int>("format");
        QTest::addColumn<QSize>("size");
        QTest::addColumn<int>("filter");
        const QList<QSize> sizes = {{1, 1}, {7, 5}, {640, 3}, {3, 480}};
        for (QImage::Format format : {QImage::Format_Indexed8, QImage::Format_RGB32, QImage::Format_ARGB32})
            for (const QSize& size : sizes)
                for (int filter : {int(irfNearest), int(irfBilinear)})
                    QTest::addRow("format %d, %dx%d, filter %d", int(format), size.width(), size.height(), filter)
                        << int(format) << size << filter;
    }

    void sameSizeScalingIsIdentity()
    {
        QFETCH(int, format);
        QFETCH(QSize, size);
        QFETCH(int, filter);
        const QVector<QRgb> palette = greyPalette();
        QImage image(size, QImage::Format(format));
        if (format == QImage::Format_Indexed8)
            image.setColorTable(palette);
        for (int y = 0; y < size.height(); ++y)
            for (int x = 0; x < size.width(); ++x) {
                const int i = (x * 7 + y * 3) % 16;
                if (format == QImage::Format_Indexed8)
                    image.setPixel(x, y, uint(i));
                else
                    image.setPixel(x, y, qRgba(i * 16, 255 - i * 9, x % 256, format == QImage::Format_RGB32 ? 255 : 40 + i));
            }
        QCOMPARE(resizeImage(image, size, palette, QImageResizeFilter(filter)), image);
    }

    void nearestDoublingRepeatsEveryPixel()
    {
        const QVector<QRgb> palette = greyPalette();
        const QImage image = indexedImage(3, 2, {1, 2, 3, 4, 5, 6}, palette);
        const QImage doubled = resizeImageNearest(image, QSize(6, 4));
        QCOMPARE(indicesOf(doubled),
                 QVector<int>({1, 1, 2, 2, 3, 3, 1, 1, 2, 2, 3, 3, 4, 4, 5, 5, 6, 6, 4, 4, 5, 5, 6, 6}));
    }

    void bilinearBlendsPaletteColours()
    {
        const QVector<QRgb> palette = greyPalette();
        // Grey 0 and grey 204 (entry 12): the half-way point is grey 102, entry 6.
        const QImage image = indexedImage(2, 1, {0, 12}, palette);
        const QImage wide = resizeImageBilinear(image, QSize(4, 1), palette);
        QCOMPARE(wide.format(), QImage::Format_Indexed8);
        QCOMPARE(indicesOf(wide), QVector<int>({0, 6, 12, 12}));

        const QImage colours = greyImage(2, 1, {0, 200});
        const QImage blended = resizeImageBilinear(colours, QSize(4, 1), palette);
        QCOMPARE(qRed(blended.pixel(1, 0)), 100);
        QCOMPARE(qRed(blended.pixel(3, 0)), 200);
    }

    void epxFollowsTheScale2xRules()
    {
        // Indices 0 (background) and 1 (ink), worked on as bytes.
        const QVector<QRgb> palette = greyPalette();
        const QImage diagonal = indexedImage(3, 3, {1, 0, 0, 0, 1, 0, 0, 0, 1}, palette);
        QCOMPARE(indicesOf(resizeImage(diagonal, QSize(6, 6), palette, irfEpxNearest)),
                 QVector<int>({1, 1, 0, 0, 0, 0,
                               1, 0, 1, 0, 0, 0,
                               0, 1, 1, 1, 0, 0,
                               0, 0, 1, 1, 1, 0,
                               0, 0, 0, 1, 0, 1,
                               0, 0, 0, 0, 1, 1}));

        const QImage isolated = indexedImage(3, 3, {0, 0, 0, 0, 1, 0, 0, 0, 0}, palette);
        QCOMPARE(indicesOf(resizeImage(isolated, QSize(6, 6), palette, irfEpxNearest)),
                 indicesOf(resizeImageNearest(isolated, QSize(6, 6))));

        // A checkerboard is left as it is, but for the corners where the
        // repeated border makes two equal neighbours.
        QVector<int> checker;
        for (int i = 0; i < 16; ++i)
            checker << (i / 4 + i % 4) % 2;
        const QImage board = indexedImage(4, 4, checker, palette);
        QVector<int> expected = indicesOf(resizeImageNearest(board, QSize(8, 8)));
        expected[1 * 8 + 1] = 1;
        expected[1 * 8 + 6] = 0;
        expected[6 * 8 + 1] = 0;
        expected[6 * 8 + 6] = 1;
        QCOMPARE(indicesOf(resizeImage(board, QSize(8, 8), palette, irfEpxNearest)), expected);

        // The same rules on 32-bit colours.
        const QImage colourBoard = board.convertToFormat(QImage::Format_ARGB32);
        QCOMPARE(resizeImage(colourBoard, QSize(8, 8), palette, irfEpxNearest),
                 resizeImage(board, QSize(8, 8), palette, irfEpxNearest).convertToFormat(QImage::Format_ARGB32));
    }

    void epxByThreeFollowsTheScale3xRules()
    {
        const QVector<QRgb> palette = greyPalette();
        const QImage diagonal = indexedImage(3, 3, {1, 0, 0, 0, 1, 0, 0, 0, 1}, palette);
        const QImage big = resizeImage(diagonal, QSize(9, 9), palette, irfEpxNearest);
        QCOMPARE(big.size(), QSize(9, 9));
        auto cell = [&](int bx, int by) {
            QVector<int> out;
            for (int y = 0; y < 3; ++y)
                for (int x = 0; x < 3; ++x)
                    out << big.pixelIndex(bx * 3 + x, by * 3 + y);
            return out;
        };
        QCOMPARE(cell(1, 1), QVector<int>(9, 1));
        QCOMPARE(cell(1, 0), QVector<int>({0, 0, 0, 1, 0, 0, 1, 0, 0}));
        QCOMPARE(cell(0, 1), QVector<int>({0, 1, 1, 0, 0, 0, 0, 0, 0}));

        const QImage isolated = indexedImage(3, 3, {0, 0, 0, 0, 1, 0, 0, 0, 0}, palette);
        QCOMPARE(resizeImage(isolated, QSize(9, 9), palette, irfEpxNearest), resizeImageNearest(isolated, QSize(9, 9)));
    }

    void hqFiltersGiveThePublishedBlends_data()
    {
        QTest::addColumn<QString>("name");
        QTest::addColumn<int>("scale");
        QTest::addColumn<QVector<int>>("centre"); // the block of the middle pixel
        QTest::addColumn<QVector<int>>("right");  // the block of the pixel to its right
        // White on black, 5 by 5: isolated pixel, main diagonal, checkerboard.
        QTest::newRow("hq2x isolated") << "isolated" << 2 << QVector<int>{223, 223, 223, 223} << QVector<int>(4, 0);
        // Grey 60 lies within Y 48 of black ((60 * 3) >> 2 is 45), so it is no
        // edge: plain 2:1:1 blends of the centre and its side neighbours.
        QTest::newRow("hq2x faint") << "faint" << 2 << QVector<int>(4, 30) << QVector<int>{15, 0, 15, 0};
        QTest::newRow("hq3x isolated") << "isolated" << 3
                                       << QVector<int>{127, 255, 127, 255, 255, 255, 127, 255, 127} << QVector<int>(9, 0);
        QTest::newRow("hq4x isolated") << "isolated" << 4
                                       << QVector<int>{127, 255, 255, 127, 255, 255, 255, 255,
                                                       255, 255, 255, 255, 127, 255, 255, 127}
                                       << QVector<int>(16, 0);
        QTest::newRow("hq2x diagonal") << "diagonal" << 2 << QVector<int>{255, 127, 127, 255}
                                       << QVector<int>{0, 0, 127, 0};
        QTest::newRow("hq3x diagonal") << "diagonal" << 3 << QVector<int>{255, 223, 31, 223, 255, 223, 31, 223, 255}
                                       << QVector<int>{0, 0, 0, 31, 0, 0, 223, 31, 0};
        QTest::newRow("hq4x diagonal") << "diagonal" << 4
                                       << QVector<int>{255, 255, 127, 0, 255, 255, 255, 127,
                                                       127, 255, 255, 255, 0, 127, 255, 255}
                                       << QVector<int>{0, 0, 0, 0, 0, 0, 0, 0, 127, 0, 0, 0, 255, 127, 0, 0};
        QTest::newRow("hq2x checker") << "checker" << 2 << QVector<int>(4, 63) << QVector<int>(4, 191);
        QTest::newRow("hq3x checker") << "checker" << 3 << QVector<int>{127, 0, 127, 0, 0, 0, 127, 0, 127}
                                      << QVector<int>{127, 255, 127, 255, 255, 255, 127, 255, 127};
        QTest::newRow("hq4x checker") << "checker" << 4
                                      << QVector<int>{127, 63, 63, 127, 63, 0, 0, 63, 63, 0, 0, 63, 127, 63, 63, 127}
                                      << QVector<int>{127, 191, 191, 127, 191, 255, 255, 191,
                                                      191, 255, 255, 191, 127, 191, 191, 127};
    }

    void hqFiltersGiveThePublishedBlends()
    {
        QFETCH(QString, name);
        QFETCH(int, scale);
        QFETCH(QVector<int>, centre);
        QFETCH(QVector<int>, right);
        const QImage image = greyImage(5, 5, pattern(name, 5));
        const QImage big = resizeImage(image, QSize(5 * scale, 5 * scale), greyPalette(), irfHqNearest);
        QCOMPARE(big.size(), QSize(5 * scale, 5 * scale));
        QCOMPARE(block(big, 2, 2, scale), centre);
        QCOMPARE(block(big, 3, 2, scale), right);
        // The filters are symmetric: the diagonal's block below-left mirrors the one to the right.
        if (name == QLatin1String("diagonal")) {
            QVector<int> mirrored(scale * scale);
            for (int y = 0; y < scale; ++y)
                for (int x = 0; x < scale; ++x)
                    mirrored[x * scale + y] = right[y * scale + x];
            QCOMPARE(block(big, 2, 3, scale), mirrored);
        }
    }

    void indexedImagesStayIndexed_data()
    {
        QTest::addColumn<int>("filter");
        QTest::addColumn<QSize>("size");
        for (int filter = irfNearest; filter <= irfHqBilinear; ++filter)
            for (const QSize& size : {QSize(16, 12), QSize(28, 21), QSize(4, 3), QSize(11, 5)})
                QTest::addRow("filter %d to %dx%d", filter, size.width(), size.height()) << filter << size;
    }

    void indexedImagesStayIndexed()
    {
        QFETCH(int, filter);
        QFETCH(QSize, size);
        const QVector<QRgb> palette = greyPalette();
        // Two flat areas in entries 3 and 9 with a stripe of 15 between them.
        QVector<int> indices;
        for (int y = 0; y < 6; ++y)
            for (int x = 0; x < 8; ++x)
                indices << (x == 4 ? 15 : x < 4 ? 3 : 9);
        const QImage image = indexedImage(8, 6, indices, palette);
        const QImage scaled = resizeImage(image, size, palette, QImageResizeFilter(filter));
        QCOMPARE(scaled.format(), QImage::Format_Indexed8);
        QCOMPARE(scaled.size(), size);
        QCOMPARE(scaled.colorTable(), palette);
        const QVector<int> pixels = indicesOf(scaled);
        const QSet<int> used(pixels.cbegin(), pixels.cend());
        for (int index : used)
            QVERIFY2(index < 16, qPrintable(QStringLiteral("index %1 is not one of the greys").arg(index)));
        // Flat areas come back as their own entries.
        QCOMPARE(scaled.pixelIndex(0, 0), 3);
        QCOMPARE(scaled.pixelIndex(size.width() - 1, size.height() - 1), 9);
        if (filter == irfNearest || filter == irfEpxNearest)
            QVERIFY(used.size() <= 3);
    }

    void twoStageFiltersFitTheTargetAndRejectUnknownValues()
    {
        const QVector<QRgb> palette = greyPalette();
        const QImage image = greyImage(5, 5, pattern(QStringLiteral("diagonal"), 5));
        for (int filter : {int(irfEpxNearest), int(irfEpxBilinear), int(irfHqNearest), int(irfHqBilinear)}) {
            QCOMPARE(resizeImage(image, QSize(17, 18), palette, QImageResizeFilter(filter)).size(), QSize(17, 18));
            QCOMPARE(resizeImage(image, QSize(2, 3), palette, QImageResizeFilter(filter)).size(), QSize(2, 3));
        }
        // Above three times: hq4x (or EPX twice), then nearest neighbour down
        // to size; below one: hq2x (or EPX once), then down.
        for (int filter : {int(irfEpxNearest), int(irfHqNearest)}) {
            const auto scale = [&](const QImage& from, int side) {
                return resizeImage(from, QSize(side, side), palette, QImageResizeFilter(filter));
            };
            QCOMPARE(scale(image, 17), resizeImageNearest(scale(image, 20), QSize(17, 17)));
            QCOMPARE(scale(image, 3), resizeImageNearest(scale(image, 10), QSize(3, 3)));
            QCOMPARE(scale(image, 14), resizeImageNearest(scale(image, 15), QSize(14, 14)));
        }
        QVERIFY(resizeImage(image, QSize(10, 10), palette, QImageResizeFilter(6)).isNull());
        QVERIFY(resizeImage(image, QSize(10, 10), palette, QImageResizeFilter(-1)).isNull());
    }

    void rightAngleRotationsAreExact_data()
    {
        QTest::addColumn<int>("degrees");
        QTest::addColumn<bool>("indexed");
        for (int degrees : {90, 180, 270, -90})
            for (bool indexed : {false, true})
                QTest::addRow("%d degrees, %s", degrees, indexed ? "indexed" : "colour") << degrees << indexed;
    }

    void rightAngleRotationsAreExact()
    {
        QFETCH(int, degrees);
        QFETCH(bool, indexed);
        const int width = 5;
        const int height = 3;
        QVector<int> values;
        for (int i = 0; i < width * height; ++i)
            values << i * 17;
        QImage image = greyImage(width, height, values);
        if (indexed) {
            QVector<int> indices;
            for (int i = 0; i < width * height; ++i)
                indices << i;
            image = indexedImage(width, height, indices, greyPalette());
        }
        const QImage turned = rotateImage(image, float(degrees * M_PI / 180.0), 0);
        const int quarter = ((degrees / 90) % 4 + 4) % 4;
        QCOMPARE(turned.size(), quarter % 2 ? QSize(height, width) : QSize(width, height));
        QCOMPARE(turned.format(), image.format());
        for (int ty = 0; ty < turned.height(); ++ty)
            for (int tx = 0; tx < turned.width(); ++tx) {
                // The clockwise turn on screen (y grows downwards) that maps (x, y) to (-y, x).
                int sx = tx, sy = ty;
                if (quarter == 1) {
                    sx = ty;
                    sy = height - 1 - tx;
                } else if (quarter == 2) {
                    sx = width - 1 - tx;
                    sy = height - 1 - ty;
                } else if (quarter == 3) {
                    sx = width - 1 - ty;
                    sy = tx;
                }
                QCOMPARE(turned.pixel(tx, ty), image.pixel(sx, sy));
            }
    }

    void freeRotationFillsWhatTheSourceDoesNotReach()
    {
        const QImage image = greyImage(10, 10, QVector<int>(100, 255));
        const QImage turned = rotateImage(image, float(M_PI / 4), qRgb(1, 2, 3));
        QCOMPARE(turned.size(), QSize(14, 14));
        QCOMPARE(turned.pixel(0, 0), qRgb(1, 2, 3));
        QCOMPARE(turned.pixel(7, 7), qRgb(255, 255, 255));
    }
};

QTEST_GUILESS_MAIN(TestImage)
#include "tst_image.moc"
