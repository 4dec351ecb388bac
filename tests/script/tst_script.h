#pragma once

#include "model/qproject.h"

#include <QObject>
#include <QTemporaryDir>

#include <memory>

class QScript;

class TestScript : public QObject
{
    Q_OBJECT

private slots:
    void initTestCase();
    void cleanup();

    // The API on kfm, one group per model (tst_scriptapi.cpp).
    void projectApi();
    void definitionsApi();
    void spritesApi();
    void palettesApi();
    void animationsApi();
    void commandsApi();
    void statesApi();
    void soundsApi();
    void signalsReachLua();

    // The shipped scripts (tst_scriptfiles.cpp).
    void managerFindsScripts();
    void characterTemplateLoadsAndChecksClean();
    void everyTemplateFillsItsProjectType();
    void makeThrowIsTheEngineThrowPattern();
    void snippetsReturnText();
    void toolRenameGroup();
    void toolAlignAxes();
    void toolDefaultClsn2();
    void toolExportMovelist();
    void toolUnusedSpritesAndSounds();

private:
    /// A copy of kfm opened as a project, current for the scripts; null (and the test skipped) without it.
    QProject* openKfm();
    /// Runs `code` in `script`; fails the test with the Lua message when it raises.
    void run(QScript& script, const QString& code);
    /// The value of a global of the state as a number.
    static double number(QScript& script, const char* name);
    static QString string(QScript& script, const char* name);

    std::unique_ptr<QTemporaryDir> m_dir;
    std::unique_ptr<QProject> m_project;
};
