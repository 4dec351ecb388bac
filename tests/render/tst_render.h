#pragma once

#include <QObject>

/// The sprite view: drawing, the engine's transparency, zoom and the mouse.
class TestRender : public QObject
{
    Q_OBJECT

private slots:
    void initTestCase();

    // tst_realsprites.cpp
    void realSpritesAtZoomOneAreTheDecodedSprites_data();
    void realSpritesAtZoomOneAreTheDecodedSprites();
    void cliRendersSpritesAndActions();

    // tst_blend.cpp
    void blendPassesFollowTheEngineArithmetic_data();
    void blendPassesFollowTheEngineArithmetic();
    void transparentColourShowsOnRequest();
    void flipsScaleAndAngleOfAFrame();
    void onionSkinEffects();

    // tst_view.cpp
    void zoomLimitsAndSmallSprites();
    void zoomOnCentreKeepsTheCentre();
    void draggingTheSpriteAxisIsOneUndoStep();
    void panGuidesAndExtraCross();
    void hitTestsAndRulerBands();
    void colourCapture();
    void rulersMarkTheAxis();

    // tst_clsn.cpp
    void boxesAreEditedWithTheMouse();
    void overlappingBoxesCycleAndDefaultsEdit();

    // tst_golden.cpp
    void goldenFramesOfKfm_data();
    void goldenFramesOfKfm();

    // tst_playback.cpp
    void playbackFollowsTheTimingRules();
    void playbackOfKfmFollowsTheTimingRules();
    void playbackInterpolatesTheWorkingCopy();
    void playbackPacesSixtyTicksASecond();
};
