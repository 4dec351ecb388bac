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
};
