#pragma once

#include <QObject>

/// Palette files, PCX, GIF and old fonts; one slot group per source file.
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

    // tst_gif.cpp
    void gifFramesReadBack();
    void gifHeaderBytes();

    // tst_font.cpp
    void fontRealFilesParse();
    void fontParsesText();
    void fontCutsGlyphs();
    void fontRefusesBadInput();

    // tst_cli.cpp: the command-line tool's palette and image commands
    void cliPalette();
    void cliImage();
};
