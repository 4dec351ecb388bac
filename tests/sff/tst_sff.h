#pragma once

#include <QObject>

class TestSff : public QObject
{
    Q_OBJECT
private slots:
    void initTestCase();

    // Real engine files
    void loadsRealFiles_data();
    void loadsRealFiles();
    void roundTrips_data();
    void roundTrips();
    void kfmOfBothEnginesAgree();
    void kfmReencodedWithLZ5IsNoLarger();
    void exportImport_data();
    void exportImport();
    void compilerScriptNamesEachFileOnce();
    void truncatedFilesLeaveAnEmptyModel();

    // Files built by hand
    void rejectsWhatIsNoSff();
    void version1Links();
    void version2Links();
    void paletteAlphaByVersion();
    void rawSpriteRows();
    void shortPaletteWritesLZ5();
    void sharedImageUnderTwoPalettes();
    void trueColourByVersion();
    void canSaveChecks();
    void portraitPaletteKeepsTheStandColours();
    void opaqueColourOfTheTransparentRgbStaysOpaque();
    void pngPayloadFaultsNameTheSprite();

    // Old fonts and the command-line tool
    void oldFontBecomesSprites_data();
    void oldFontBecomesSprites();
    void commandLine();

    // Saving never destroys
    void cancelledSaveKeepsOldFile();
    void failedWriteKeepsOldFile();
};
