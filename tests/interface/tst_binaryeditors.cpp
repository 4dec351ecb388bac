// The editors of a character's binary files on the real main window, used as
// an author uses them. Sounds: add WAV files to a character that has none,
// move and play one, export a group and import it back, undo, save and
// reload; a broken WAV changes nothing. Palettes: change a colour of the
// engine's kfm, undo it, load and save palette files; a palette file of the
// wrong size changes nothing. PF_SHOT_DIR, when set, receives pictures of
// the editors with kfm loaded (the screenshot check runs this under Xvfb).
#include "app/mainwindow.h"
#include "interface/editors/qsoundseditor.h"
#include "interface/editors/qwaveformview.h"
#include "interface/extras/qpaletteseditor.h"
#include "interface/qinterface.h"
#include "model/gui/qmultimediasoundplayer.h"
#include "model/qproject.h"
#include "model/qsounds.h"
#include "model/qspritepalette.h"
#include "model/qsprites.h"
#include "filebytes.h"
#include "qrecordingprompt.h"
#include "realdata.h"
#include "screenshots.h"
#include "windowmanagers.h"
#include "wavmaker.h"

#include <QAction>
#include <QApplication>
#include <QComboBox>
#include <QTableView>
#include <QTemporaryDir>
#include <QToolBar>
#include <QtTest>

class TestBinaryEditors : public QObject
{
    Q_OBJECT

private:
    QTemporaryDir m_dir;
    QRecordingPrompt* m_prompt = nullptr;
    MainWindow* m_window = nullptr;

    QSoundsEditor* editor() const { return static_cast<QSoundsEditor*>(intf->editor(ieSounds)); }
    QAction* tool(const char* name) const
    {
        return m_window->findChild<QToolBar*>(QStringLiteral("soundsToolBar"))
            ->findChild<QAction*>(QLatin1String(name));
    }
    QString path(const QString& name) const { return m_dir.filePath(name); }

    /// The sample character ember in a folder of its own; it has no SND.
    /// The sample without its SND, so the sessions start from an empty sounds file.
    QString copyOfEmber(const QString& folder)
    {
        QDir().mkpath(path(folder));
        const QDir source(qEnvironmentVariable("PF_SOURCE_DIR") + QStringLiteral("/samples/ember"));
        for (const QString& name : source.entryList(QDir::Files)) {
            if (!name.endsWith(QStringLiteral(".snd")))
                QFile::copy(source.filePath(name), path(folder + QLatin1Char('/') + name));
        }
        return path(folder + QStringLiteral("/ember.def"));
    }

    /// Saves without the dialog that asks where a new SND goes.
    void saveProject(const QString& soundFile)
    {
        QProject* project = intf->currentProject();
        disconnect(project, &QProject::saveFileName, intf, nullptr);
        connect(project, &QProject::saveFileName, this, [soundFile](QProjectFileType type, const QString&) {
            return type == pftSounds ? soundFile : QString();
        });
        QVERIFY(project->save());
    }

private slots:
    void initTestCase()
    {
        QVERIFY(QDir().mkpath(path(QStringLiteral("program"))));
        QVERIFY(windowManagers::create(path(QStringLiteral("program"))));
        m_prompt = new QRecordingPrompt;
        // The real player: without an audio device it must fail quietly.
        QMultimediaSoundPlayer::install();
        m_window = new MainWindow;
        m_window->resize(1200, 760);
        m_window->show();
        QVERIFY(QTest::qWaitForWindowExposed(m_window));
    }

    void cleanupTestCase()
    {
        delete m_window;
        delete m_prompt;
        windowManagers::destroy();
    }

    void addMovePlayExportImportSaveReload()
    {
        QVERIFY(intf->openProject(copyOfEmber(QStringLiteral("ember"))));
        intf->switchEditor(ieSounds);
        QSounds* sounds = intf->currentProject()->sounds();
        QCOMPARE(sounds->count(), 0);
        auto* table = m_window->findChild<QTableView*>(QStringLiteral("soundsTable"));
        QVERIFY(table && table->isVisible());
        QVERIFY(!tool("sound_play")->isEnabled()); // nothing to play yet
        for (const QAction* each : m_window->findChild<QToolBar*>(QStringLiteral("soundsToolBar"))->actions())
            QVERIFY2(each->isSeparator() || !each->icon().isNull(), qPrintable(each->objectName()));

        const QByteArray hit = wav::make(1, 22050, 16, 2205);
        const QByteArray voice = wav::make(2, 11025, 8, 5512, true);
        QVERIFY(writeAll(path(QStringLiteral("hit.wav")), hit));
        QVERIFY(writeAll(path(QStringLiteral("voice.wav")), voice));
        QVERIFY(editor()->addFiles({ path(QStringLiteral("hit.wav")) }));
        QVERIFY(editor()->addFiles({ path(QStringLiteral("voice.wav")) }));
        QCOMPARE(sounds->count(), 2);
        QCOMPARE(table->model()->rowCount(), 2);
        QCOMPARE(sounds->info(1), QSoundInfo(0, 1)); // the next free number of the group
        QCOMPARE(table->model()->index(1, 2).data().toInt(), 2); // channels
        QCOMPARE(table->model()->index(1, 3).data().toString(), QStringLiteral("11025 Hz"));
        QCOMPARE(table->model()->index(1, 5).data().toString(), QStringLiteral("0.500 s"));
        // The waveform is drawn from the stereo 8-bit samples of the current sound.
        auto* waveform = m_window->findChild<QWaveformView*>(QStringLiteral("soundsWaveform"));
        QVERIFY(!waveform->peaks().isEmpty());

        // Group and number are typed into the table: the voice becomes 5,3.
        QVERIFY(table->model()->setData(table->model()->index(1, 0), 5));
        QVERIFY(table->model()->setData(table->model()->index(1, 1), 3));
        QCOMPARE(sounds->info(1), QSoundInfo(5, 3));

        // The author moves it to the top with the tool bar, then plays it.
        editor()->setCurrentPosition(1);
        tool("sound_up")->trigger();
        QCOMPARE(sounds->info(0), QSoundInfo(5, 3));
        QCOMPARE(editor()->currentPosition(), 0);
        QSignalSpy stopped(sounds, &QSounds::stopped);
        tool("sound_play")->trigger();
        QVERIFY(stopped.wait(3000)); // heard or not, the play ends and the window goes on
        tool("sound_loop")->trigger();
        tool("sound_stop")->trigger();
        QVERIFY(!sounds->isPlaying());
        QVERIFY(table->isEnabled());

        // Undo takes back the move, redo makes it again.
        sounds->undoStack()->undo();
        QCOMPARE(sounds->info(1), QSoundInfo(5, 3));
        sounds->undoStack()->redo();
        QCOMPARE(sounds->info(0), QSoundInfo(5, 3));

        // Export group 5 in this program's format and as the sound compiler's script.
        editor()->setCurrentPosition(0);
        QDir().mkpath(path(QStringLiteral("out")));
        QVERIFY(editor()->exportCurrentGroup(path(QStringLiteral("out/voices.txt"))));
        QVERIFY(editor()->exportCurrentGroup(path(QStringLiteral("out/voices.def"))));
        QCOMPARE(readAll(path(QStringLiteral("out/5-3.wav"))), voice);
        QCOMPARE(readAll(path(QStringLiteral("out/voices.def"))), QByteArray("voices.snd\n5-3.wav\n5\n3\n"));

        // Save, reload: the SND holds both sounds as they were.
        saveProject(path(QStringLiteral("ember/ember.snd")));
        QSounds reloaded(nullptr, ctMemory, false, -1);
        QVERIFY(reloaded.fromFile(path(QStringLiteral("ember/ember.snd"))));
        QCOMPARE(reloaded.count(), 2);
        QCOMPARE(reloaded.info(0), QSoundInfo(5, 3));
        QCOMPARE(reloaded.sampleData(0), voice);
        QCOMPARE(reloaded.sampleData(1), hit);

        // Into an empty SND of a second project, the export comes back byte for byte.
        QVERIFY(intf->openProject(copyOfEmber(QStringLiteral("second"))));
        intf->switchEditor(ieSounds);
        QSounds* empty = intf->currentProject()->sounds();
        QCOMPARE(empty->count(), 0);
        QVERIFY(editor()->importExport(path(QStringLiteral("out/voices.txt"))));
        QCOMPARE(empty->count(), 1);
        QCOMPARE(empty->info(0), QSoundInfo(5, 3));
        QCOMPARE(empty->sampleData(0), voice);
        saveProject(path(QStringLiteral("second/second.snd")));
        QSounds second(nullptr, ctMemory, false, -1);
        QVERIFY(second.fromFile(path(QStringLiteral("second/second.snd"))));
        QCOMPARE(second.sampleData(0), voice);
        QCOMPARE(m_prompt->count(QStringLiteral("warning")), 0);
    }

    void brokenWAVChangesNothing()
    {
        QVERIFY(intf->openProject(copyOfEmber(QStringLiteral("broken"))));
        intf->switchEditor(ieSounds);
        QSounds* sounds = intf->currentProject()->sounds();
        const QByteArray whole = wav::make(1, 22050, 16, 2205);
        QVERIFY(writeAll(path(QStringLiteral("hit.wav")), whole));
        QVERIFY(writeAll(path(QStringLiteral("voice.wav")), wav::make(2, 11025, 8, 5512, true)));
        QVERIFY(editor()->addFiles({ path(QStringLiteral("hit.wav")) }));
        const int undoSteps = sounds->undoStack()->count();
        QVERIFY(writeAll(path(QStringLiteral("cut.wav")), whole.left(whole.size() - 1000)));
        QVERIFY(writeAll(path(QStringLiteral("text.wav")), QByteArray("not a sound at all")));

        m_prompt->clear();
        // A batch with one bad file adds none of them.
        QVERIFY(
            !editor()->addBatch({ path(QStringLiteral("hit.wav")), path(QStringLiteral("cut.wav")) }, 7, 0));
        QVERIFY(!editor()->replaceCurrent(path(QStringLiteral("text.wav"))));
        QVERIFY(!editor()->addFiles({ path(QStringLiteral("missing.wav")) }));
        QCOMPARE(m_prompt->count(QStringLiteral("warning")), 3);
        const QList<QRecordingPrompt::Entry> entries = m_prompt->entries();
        QVERIFY(entries.at(0).text.contains(QStringLiteral("cut.wav")));
        QVERIFY(entries.at(0).text.contains(QStringLiteral("truncated")));
        QVERIFY(entries.at(1).text.contains(QStringLiteral("text.wav")));
        QVERIFY(entries.at(2).text.contains(QStringLiteral("missing.wav")));
        for (const QRecordingPrompt::Entry& entry : entries)
            QVERIFY2(!entry.text.contains(QLatin1Char('\n')), qPrintable(entry.text));
        QCOMPARE(sounds->count(), 1);
        QCOMPARE(sounds->sampleData(0), whole);
        QCOMPARE(sounds->undoStack()->count(), undoSteps);

        // A good batch is numbered in the order given and goes as one undo step.
        QVERIFY(editor()->addBatch(
            { path(QStringLiteral("hit.wav")), path(QStringLiteral("voice.wav")) }, 7, 10));
        QCOMPARE(sounds->info(2), QSoundInfo(7, 11));
        sounds->undoStack()->undo();
        QCOMPARE(sounds->count(), 1);
        m_prompt->script({ QPrompt::Yes });
        intf->fileCloseAll();
    }

    void paletteColourEditLoadAndSave()
    {
        PF_REQUIRE_REALDATA();
        QVERIFY(intf->openProject(realDataDir() + QStringLiteral("/fanyer__mugen/chars/kfm/kfm.def")));
        intf->switchEditor(ieSprites);
        intf->switchExtraEditor(ieePalettes);
        auto* palettes = static_cast<QPalettesEditor*>(intf->extraEditor(ieePalettes));
        auto* choice = m_window->findChild<QComboBox*>(QStringLiteral("paletteChoice"));
        QVERIFY(choice && choice->isVisible());
        QSprites* sprites = intf->currentProject()->sprites();
        QVERIFY(sprites->paletteCount() > 0);
        QCOMPARE(choice->count(), sprites->paletteCount());
        palettes->setCurrentPalette(0);
        QSpritePalette* palette = sprites->paletteAt(0);
        const QRGBA before = palette->colors()[5];

        // Colour 5 becomes pure red through the numbers, and undo brings it back.
        palettes->selectIndex(5);
        palettes->setColor(5, QColor(255, 0, 0));
        QCOMPARE(palette->colors()[5], QRGBA(255, 0, 0, before.a));
        sprites->undoStack()->undo();
        QCOMPARE(palette->colors()[5], before);
        sprites->undoStack()->redo();
        QCOMPARE(palette->colors()[5].r, quint8(255));

        // Saved as ACT and loaded back after another change: the same colours.
        const QString act = path(QStringLiteral("red.act"));
        QVERIFY(palettes->savePalette(act));
        QCOMPARE(QFileInfo(act).size(), 768);
        palettes->setColor(5, QColor(0, 0, 255));
        QVERIFY(palettes->loadPalette(act));
        QCOMPARE(palette->colors()[5].r, quint8(255));
        QCOMPARE(palette->colors()[5].b, quint8(0));

        // A JASC palette is read as well.
        QByteArray jasc("JASC-PAL\r\n0100\r\n256\r\n");
        for (int i = 0; i < 256; ++i)
            jasc += QByteArray::number(i) + " 10 20\r\n";
        QVERIFY(writeAll(path(QStringLiteral("ramp.pal")), jasc));
        QVERIFY(palettes->loadPalette(path(QStringLiteral("ramp.pal"))));
        QCOMPARE(palette->colors()[200], QRGBA(200, 10, 20, 255));

        // An ACT of the wrong size is refused in one line, and nothing changes.
        m_prompt->clear();
        const int steps = sprites->undoStack()->count();
        QVERIFY(writeAll(path(QStringLiteral("short.act")), QByteArray(700, 'x')));
        QVERIFY(!palettes->loadPalette(path(QStringLiteral("short.act"))));
        QCOMPARE(m_prompt->count(QStringLiteral("warning")), 1);
        QVERIFY(m_prompt->entries().first().text.contains(QStringLiteral("short.act")));
        QVERIFY(!m_prompt->entries().first().text.contains(QLatin1Char('\n')));
        QCOMPARE(sprites->undoStack()->count(), steps);
        QCOMPARE(palette->colors()[200], QRGBA(200, 10, 20, 255));
        m_prompt->script({ QPrompt::Yes });
        intf->fileCloseAll();
    }

    void picturesOfKfm()
    {
        if (screenshots::folder().isEmpty())
            QSKIP("PF_SHOT_DIR is not set: no picture wanted");
        PF_REQUIRE_REALDATA();
        QVERIFY(intf->openProject(realDataDir() + QStringLiteral("/fanyer__mugen/chars/kfm/kfm.def")));
        intf->switchEditor(ieSounds);
        QVERIFY(intf->currentProject()->sounds()->count() > 10);
        editor()->setCurrentPosition(3);
        QTest::qWait(200);
        QVERIFY(screenshots::save(m_window->grab(), QStringLiteral("sounds-editor.png")));
        intf->switchEditor(ieSprites);
        intf->switchExtraEditor(ieePalettes);
        static_cast<QPalettesEditor*>(intf->extraEditor(ieePalettes))->selectIndex(37);
        QTest::qWait(200);
        QVERIFY(screenshots::save(m_window->grab(), QStringLiteral("palettes-panel.png")));
    }
};

QTEST_MAIN(TestBinaryEditors)
#include "tst_binaryeditors.moc"
