#pragma once

#include <QObject>

/// The AIR model: reading and writing lines, following the text, model
/// edits, real files, the project's AIR and the command-line view.
class TestAnimations : public QObject
{
    Q_OBJECT

private slots:
    void initTestCase();

    // tst_animations.cpp: reading and writing lines
    void frameFieldsRead_data();
    void frameFieldsRead();
    void frameLinesWritten_data();
    void frameLinesWritten();
    void boxesAndDeclarations();
    void linesBelongToTheRightFrame();
    void frameDeletionHandsOnItsBoxes();

    // tst_animedits.cpp: model edits
    void actionsEditedThroughTheText();
    void framesEditedThroughTheText();
    void boxesEditedThroughTheText();
    void dragIsOneUndoStep();
    void listModelFollowsTheText();
    void oneFrameEditTouchesOneLine();
    void fileRulesAndQuestions();

    // tst_animreal.cpp: real files, random edits, project and tool
    void realFilesLoadAndSaveUnchanged();
    void randomEditsMatchFreshModel_data();
    void randomEditsMatchFreshModel();
    void badInputLoadsWhatItCan();
    void projectOpensAndSavesItsAir();
    void cliPrintsActions();
};
