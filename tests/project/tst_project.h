#pragma once

#include <QObject>

/// Text files, the DEF, the project and the commands that show them.
class TestProject : public QObject
{
    Q_OBJECT

private slots:
    void initTestCase();

    // tst_textfiles.cpp
    void detectLanguage_data();
    void detectLanguage();
    void encodingsSurviveASave_data();
    void encodingsSurviveASave();
    void realTextFilesComeBackWithCrlf();
    void failedSaveKeepsPreviousFile();
    void failedLoadKeepsDocument();
    void keepNameLeavesDocumentAlone();
    void unencodableTextSavesAsUtf8();
    void checkErrorsTakesCheckerFindings();
    void outlineAnswersSectionsAndValues();

    // tst_definitions.cpp
    void filesByKind_data();
    void filesByKind();
    void infoFollowsTyping();
    void typeFollowsOutline();
    void versionReachesStatesAfterDelay();
    void realDefinitions_data();
    void realDefinitions();
    void everyRealDefGetsItsKind();

    // tst_projectmodel.cpp
    void resolvesWindowsNames();
    void openLoadsStatesInDefOrder();
    void unreadableDefLeavesProjectUntouched();
    void openWithBackupCopiesWhatItReads();
    void statesAddRemoveMove();
    void canDiscardAsksEveryStateFile();
    void saveWritesModifiedFilesAndAsksForNew();

    // tst_projectsprites.cpp
    void openJoinsRealSprites();
    void defPalettesComeBeforeSprites();
    void characterPaletteComesFromTheDef();
    void cancelledOpenReturnsFalse_data();
    void cancelledOpenReturnsFalse();
    void saveWritesChangedSprites();
    void newCharacterAsksForSpriteFile();

    // tst_projectwhole.cpp
    void everyRealCharacterOpensWholeAndSaves();
    void cancelledOpenLeavesNothingHalfDone();
    void failedSaveKeepsEveryFile();
    void saveToRunAndBackupWriteCopies();
    void infoCommandListsEveryFile();
    void saveWritesSoundsAndCommands();

    // tst_projectcli.cpp
    void infoCommandDescribesProject();
    void checkCommandChecksProjectAndNames();
};
