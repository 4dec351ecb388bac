#include "tst_formats.h"

#include "clirunner.h"
#include "formats/qfntheader.h"
#include "formats/qoldfont.h"
#include "formats/qpcx.h"
#include "realdata.h"

#include <QBuffer>
#include <QFile>
#include <QJsonArray>
#include <QJsonObject>
#include <QLocale>
#include <QTemporaryDir>
#include <QtTest>

namespace {

QByteArray pcxOf(const QImage& image)
{
    QByteArray bytes;
    QBuffer buffer(&bytes);
    buffer.open(QIODevice::WriteOnly);
    savePCX(image, &buffer);
    return bytes;
}

QByteArray fontFile(const QByteArray& text, const QByteArray& pcx)
{
    QFNTHeader header;
    std::memcpy(header.signature, "ElecbyteFnt", 12);
    header.version = 0x100;
    header.pcxOffset = QFNTHeader::size;
    header.pcxSize = quint32(pcx.size());
    header.textOffset = quint32(QFNTHeader::size + pcx.size());
    header.textSize = quint32(text.size());
    QByteArray bytes;
    QDataStream stream(&bytes, QIODevice::WriteOnly);
    stream.setByteOrder(QDataStream::LittleEndian);
    stream << header;
    return bytes + pcx + text;
}

/// A strip whose pixel at x, y is (x + y) % 256, with a colour table of i, 0, 255 - i.
QImage strip(int width, int height)
{
    QImage image(width, height, QImage::Format_Indexed8);
    for (int y = 0; y < height; ++y)
        for (int x = 0; x < width; ++x)
            image.scanLine(y)[x] = uchar((x + y) % 256);
    QVector<QRgb> table;
    for (int i = 0; i < 256; ++i)
        table.append(qRgb(i, 0, 255 - i));
    image.setColorTable(table);
    return image;
}

} // namespace

void TestFormats::fontRealFilesParse()
{
    PF_REQUIRE_REALDATA();
    struct Expected
    {
        const char* file;
        bool fixed;
        int colors;
        QSize size;
        QPoint spacing;
        QPoint offset;
        int characters;
        char probe;
        QPoint place;
    };
    const QList<Expected> fonts {
        { "f-4x6.fnt", false, 1, QSize(3, 6), QPoint(1, 0), QPoint(0, -1), 94, ';', QPoint(244, 3) },
        { "f-6x8f.fnt", true, 1, QSize(6, 8), QPoint(0, 0), QPoint(0, 0), 94, '|', QPoint(558, 6) },
        { "f-6x9.fnt", false, 1, QSize(5, 8), QPoint(1, 1), QPoint(0, 0), 94, '*', QPoint(490, 5) },
        { "f-6x9f.fnt", false, 1, QSize(5, 8), QPoint(1, 1), QPoint(0, 0), 94, '~', QPoint(496, 5) },
        { "jg.fnt", true, 16, QSize(8, 8), QPoint(0, 1), QPoint(0, 0), 93, ']', QPoint(480, 8) },
        { "name1.fnt", false, 1, QSize(4, 6), QPoint(0, 0), QPoint(0, 0), 94, '[', QPoint(216, 4) },
        { "num1.fnt", false, 16, QSize(9, 13), QPoint(1, 1), QPoint(0, 0), 11, 'o', QPoint(100, 14) },
    };
    const QStringList files = realDataFiles({ QStringLiteral("fnt") });
    QCOMPARE(files.size(), fonts.size());
    for (const Expected& want : fonts) {
        const QString name = QLatin1String(want.file);
        QString path;
        for (const QString& candidate : files)
            if (candidate.endsWith(QLatin1Char('/') + name))
                path = candidate;
        QVERIFY2(!path.isEmpty(), want.file);
        QFile file(path);
        QVERIFY(file.open(QIODevice::ReadOnly));
        QOldFont font;
        QVERIFY2(font.read(file.readAll()), want.file);
        QCOMPARE(font.isFixed(), want.fixed);
        QCOMPARE(font.colors(), want.colors);
        QCOMPARE(font.size(), want.size);
        QCOMPARE(font.spacing(), want.spacing);
        QCOMPARE(font.offset(), want.offset);
        QCOMPARE(font.map().size(), want.characters);
        QCOMPARE(font.map().value(want.probe), want.place);
        QCOMPARE(font.image().format(), QImage::Format_Indexed8);
        QCOMPARE(font.image().colorCount(), 256);

        // Every glyph is its part of the strip, moved into the bank's colours.
        const uchar shift = uchar(font.colors() == 256 ? 0 : font.colors());
        for (auto it = font.map().cbegin(); it != font.map().cend(); ++it) {
            const QImage glyph = font.glyph(it.key());
            QVERIFY2(!glyph.isNull(), want.file);
            QCOMPARE(glyph.width(), want.fixed ? want.size.width() : it->y());
            QCOMPARE(glyph.height(), qMin(want.size.height(), font.image().height()));
            for (int y = 0; y < glyph.height(); ++y)
                for (int x = 0; x < glyph.width(); ++x) {
                    const int sx = it->x() + x;
                    const uchar source
                        = sx < font.image().width() ? uchar(font.image().pixelIndex(sx, y) + shift) : 0;
                    QCOMPARE(glyph.pixelIndex(x, y), int(source));
                }
        }
        QRGBA bank[256];
        font.bankPalette(0, bank);
        QCOMPARE(bank[0].a, uchar(0));
        QCOMPARE(bank[0].toRGB(), QRGBA::fromQRgb(font.image().color(256 - font.colors())).toRGB());
        if (font.colors() > 1)
            QCOMPARE(bank[1], QRGBA::fromQRgb(font.image().color(257 - font.colors())));
        QCOMPARE(bank[font.colors() % 256], font.colors() == 256 ? bank[0] : QRGBA(0, 0, 0, 0));
    }
}

void TestFormats::fontParsesText()
{
    QOldFont font;
    font.parseText(QStringLiteral("; comment\r\n[MAP]\r\n0 4 2\r\nA, 10, 3 ; comment\r\n0x3B 20 4\r\n"
                                  "0x5b\r\n  \r\n0xZZ 1 1\r\nab 1 1\r\n; 1 2 3\r\n"
                                  "[Other]\r\nB 1 1\r\n[def]\r\nSIZE = 7 , 9\r\nspacing=2,3\r\n"
                                  "Offset = -1, 4\r\ncolors = 300\r\ntype = Variable\r\n"));
    QVERIFY(!font.isFixed());
    QCOMPARE(font.size(), QSize(7, 9));
    QCOMPARE(font.spacing(), QPoint(2, 3));
    QCOMPARE(font.offset(), QPoint(-1, 4));
    QCOMPARE(font.colors(), 256);
    QCOMPARE(font.map().size(), 4);
    QCOMPARE(font.map().value('0'), QPoint(4, 2));
    QCOMPARE(font.map().value('A'), QPoint(10, 3));
    QCOMPARE(font.map().value(';'), QPoint(20, 4));
    // A character without numbers starts at 0 with the font's width.
    QCOMPARE(font.map().value('['), QPoint(0, 7));
    QVERIFY(!font.map().contains('B'));

    // Fixed: by line order, whatever the lines say; the type may come last.
    font.parseText(QStringLiteral("[Map]\nx 100 1\ny\nx\nz\n[Def]\nsize = 5,5\ncolors = 16\ntype = fixed\n"));
    QVERIFY(font.isFixed());
    QCOMPARE(font.colors(), 16);
    QCOMPARE(font.map().value('x'), QPoint(10, 5));
    QCOMPARE(font.map().value('y'), QPoint(5, 5));
    QCOMPARE(font.map().value('z'), QPoint(15, 5));

    QCOMPARE(font.definitionText(QStringLiteral("jg")),
        QStringLiteral("[FNT v2]\nfntversion = 2,00\nname = \"jg\"\n\n[Def]\ntype = Bitmap\nsize = 5,5\n"
                       "spacing = 0,0\noffset = 0,0\nfile = jg.sff\n"));
}

void TestFormats::fontCutsGlyphs()
{
    QOldFont font;
    font.parseText(QStringLiteral("[Def]\nsize = 4,3\ncolors = 16\n[Map]\na 2 3\nb 18 5\nc -2 4\n"));
    font.setImage(strip(20, 2));
    QImage a = font.glyph('a');
    QCOMPARE(a.size(), QSize(3, 2));
    QCOMPARE(a.pixelIndex(0, 0), 2 + 16);
    QCOMPARE(a.pixelIndex(2, 1), 5 + 16);
    // Partly past the right edge and the left edge: only what lies in the row.
    const QImage b = font.glyph('b');
    QCOMPARE(b.size(), QSize(5, 2));
    QCOMPARE(b.pixelIndex(1, 0), 19 + 16);
    QCOMPARE(b.pixelIndex(2, 0), 0);
    const QImage c = font.glyph('c');
    QCOMPARE(c.pixelIndex(1, 1), 0);
    QCOMPARE(c.pixelIndex(2, 1), 1 + 16);
    QVERIFY(font.glyph('d').isNull());

    // Colours of the strip at the end of the range wrap to the bank's first entries.
    QImage high = strip(20, 2);
    high.scanLine(0)[2] = 240;
    font.setImage(high);
    QCOMPARE(font.glyph('a').pixelIndex(0, 0), 0);

    QCOMPARE(font.banks(), 16);
    QRGBA bank[256];
    font.bankPalette(0, bank);
    QCOMPARE(bank[0], QRGBA(240, 0, 15, 0));
    QCOMPARE(bank[15], QRGBA(255, 0, 0, 255));
    QCOMPARE(bank[16], QRGBA(0, 0, 0, 0));
    font.bankPalette(15, bank);
    QCOMPARE(bank[1], QRGBA(1, 0, 254, 255));
    font.bankPalette(16, bank);
    QCOMPARE(bank[1], QRGBA(0, 0, 0, 0));

    // 256 colours: rows are copied as they are.
    font.parseText(QStringLiteral("[Def]\nsize = 2,8\ntype = fixed\n[Map]\np\nq\n"));
    font.setImage(strip(20, 2));
    const QImage q = font.glyph('q');
    QCOMPARE(q.size(), QSize(2, 2));
    QCOMPARE(q.pixelIndex(1, 1), 4);
}

void TestFormats::fontRefusesBadInput()
{
    const QByteArray pcx = pcxOf(strip(8, 4));
    const QByteArray text = "[Def]\nsize = 4,4\n[Map]\na 0 4\n";
    QOldFont font;
    QVERIFY(font.read(fontFile(text, pcx)));
    QCOMPARE(font.map().size(), 1);
    QVERIFY(font.fault().isEmpty());

    // Each refusal says what is wrong and where, and leaves no picture behind.
    const auto faultOf = [](const QByteArray& file) {
        QOldFont font;
        return font.read(file) ? QStringLiteral("read") : font.image().isNull() ? font.fault() : QStringLiteral("picture kept");
    };
    const QString noSignature = QStringLiteral("not an old font file: no \"ElecbyteFnt\" signature at its start");
    QByteArray badSignature = fontFile(text, pcx);
    badSignature[11] = 'x';
    QCOMPARE(faultOf(badSignature), noSignature);
    QCOMPARE(faultOf(fontFile(text, pcx).left(63)), noSignature);
    QCOMPARE(faultOf(QByteArray()), noSignature);
    QCOMPARE(faultOf(fontFile(text, QByteArray(200, '\x0A'))),
             QStringLiteral("the glyph picture at byte 64 is not a readable PCX picture"));
    QImage colour(8, 4, QImage::Format_RGB32);
    colour.fill(Qt::red);
    QCOMPARE(faultOf(fontFile(text, pcxOf(colour))), QStringLiteral("the glyph picture is not one of 256 colours"));
    QCOMPARE(faultOf(fontFile("[Def]\nsize = 4,4\n", pcx)),
             QStringLiteral("the definition text maps no character: it has no [Map] lines"));

    // Offsets past the end: neither the text nor the picture is read.
    const QByteArray whole = fontFile(text, pcx);
    QByteArray pastEnd = whole;
    pastEnd[16] = char(0xFF);
    pastEnd[19] = char(0x7F);
    QCOMPARE(faultOf(pastEnd), QStringLiteral("the glyph picture of %1 bytes at byte 2,130,706,687 runs past the end of "
                                              "the file at byte %2")
                                   .arg(QLocale(QLocale::English).toString(pcx.size()))
                                   .arg(QLocale(QLocale::English).toString(whole.size())));
    QCOMPARE(faultOf(whole.chopped(1)), QStringLiteral("the definition text of %1 bytes at byte %2 runs past the end of "
                                                       "the file at byte %3")
                                            .arg(text.size())
                                            .arg(QLocale(QLocale::English).toString(64 + pcx.size()))
                                            .arg(QLocale(QLocale::English).toString(whole.size() - 1)));
}

void TestFormats::fontInfoCommand()
{
    QTemporaryDir dir;
    const QString path = dir.filePath(QStringLiteral("small.FNT"));
    QFile file(path);
    QVERIFY(file.open(QIODevice::WriteOnly));
    file.write(fontFile("[Def]\ntype = fixed\nsize = 4,4\nspacing = 1,2\ncolors = 16\n[Map]\na\nb\nc\n", pcxOf(strip(12, 4))));
    file.close();
    const CliResult json = runCli({ QStringLiteral("--json"), QStringLiteral("info"), path });
    QCOMPARE(json.exitCode, 0);
    QCOMPARE(json.json().value(QStringLiteral("type")).toString(), QStringLiteral("font"));
    QCOMPARE(json.json().value(QStringLiteral("kind")).toString(), QStringLiteral("fixed"));
    QCOMPARE(json.json().value(QStringLiteral("characterCount")).toInt(), 3);
    QCOMPARE(json.json().value(QStringLiteral("banks")).toInt(), 16);
    QCOMPARE(json.json().value(QStringLiteral("spacing")).toArray(), (QJsonArray{ 1, 2 }));
    const CliResult text = runCli({ QStringLiteral("info"), path });
    QCOMPARE(text.exitCode, 0);
    QVERIFY2(text.out.startsWith("type: Font (old font file, version 1)\nkind: fixed\nsize: 4x4\n"), text.out.constData());

    // A font whose picture runs past the end is one line saying so.
    QVERIFY(file.open(QIODevice::ReadWrite));
    file.resize(100);
    file.close();
    const CliResult cut = runCli({ QStringLiteral("info"), path });
    QCOMPARE(cut.exitCode, 1);
    QCOMPARE(cut.err.count('\n'), 1);
    QVERIFY2(cut.err.contains("the glyph picture of "), cut.err.constData());
    QVERIFY(cut.err.contains("runs past the end of the file at byte 100"));
}
