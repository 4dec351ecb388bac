#pragma once

#include <QObject>

/// The sprite model: sharing of pixels and colours, undo, rules and edits.
class TestSprites : public QObject
{
    Q_OBJECT

private slots:
    void initTestCase();

    // tst_sharing.cpp
    void equalImagesShareThenSplit();
    void imageShareModes();
    void equalBytesOfAnotherShapeAreNotShared();
    void sharedPaletteEditedWithEachShareMode();
    void addPaletteCountsAndReuse();
    void imageColourTables();
    void setImagePaletteModes();
    void trueColourWarningBeforeVersion2();
    void paletteMapSubstitutions();

    // tst_undo.cpp
    void firstRedoDoesNothingAndLockMakesNoCommands();
    void removePaletteUndoRestoresLinks();
    void undoRestoresSharingOfAskedChange();
    void undoImagesLiveInTheDiskCache();
    void randomEditsUndoAndRedoExactly_data();
    void randomEditsUndoAndRedoExactly();

    // tst_rules.cpp
    void checkErrorsReportsEachFault();
    void checkErrorsOnEmptyFile();
    void autoOrganizeByVersion();
    void paletteAutoOrganize();
    void groupSteps();
    void duplicateAndUnusedPalettes();

    // tst_edits.cpp
    void cropKeepsPictureInPlace();
    void duplicateSharesPixels();
    void splitRgbGivesThreeChannels();
    void copyPasteCarriesProperties();
    void saveAlignedWritesFrame();
    void fullAxisAndGroups();
};
