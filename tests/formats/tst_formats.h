#pragma once

#include <QObject>

/// Palette files, PCX, GIF, PNG, old fonts and inflating; one slot group per source file.
class TestFormats : public QObject
{
    Q_OBJECT

private slots:
    // tst_pcx.cpp
    void depthAndFormat();
    void pcxRealFilesLoad();
    void pcxRoundTrip_data();
    void pcxRoundTrip();
    void pcxRunBoundaries();
    void pcxRefusedHeaders();
    void pcxDamagedData();
    void pcxDefinedBytes();
    void pcxPaletteTrailer();
    void imageFilesBySuffix();
    void rawRows();

    // tst_palettes.cpp
    void actRealFilesRoundTrip();
    void actEdgeCases();
    void riffReads();
    void jascReads();
    void painterReads();
    void acoReads();
    void aseReads();
    void paletteChoiceAndTransparency();
    void paletteFromIndexedImage();
    void tableHelpers();
    void nearestIndex();
    void writersRoundTrip();

    // tst_gif.cpp
    void gifFramesReadBack();
    void gifHeaderBytes();

    // tst_font.cpp
    void fontRealFilesParse();
    void fontParsesText();
    void fontCutsGlyphs();
    void fontRefusesBadInput();
    void fontInfoCommand();

    // tst_cli.cpp: the command-line tool's palette and image commands
    void cliPalette();
    void cliImage();

    // tst_inflate.cpp: the whole-buffer inflater against zlib
    void inflateMatchesZlib_data();
    void inflateMatchesZlib();
    void inflateBlocks_data();
    void inflateBlocks();
    void inflateHeaders_data();
    void inflateHeaders();
    void inflateDamaged_data();
    void inflateDamaged();

    // tst_png.cpp: the PNG decoder gives what the general reader gives
    void pngRealSprites();
    void pngSynthetic_data();
    void pngFaultsNamed();
    void pngSynthetic();
    void pngWrittenByQt_data();
    void pngWrittenByQt();
};
