// The palettes panel, the palette editor and the organizer on the real main
// window, used as an author uses them, each session ending in a save and a
// reload of a copy of the engine's kfm: colour 5 of palette 1,1 changes the
// pixels of that index in the view; ACO and JASC palettes go onto a sprite;
// entries reordered in the palette editor leave every pixel its colour. The
// palette editor also runs alone ("-ape") on an ACT file. PF_SHOT_DIR, when
// set, receives pictures of the panel and the editor.
#include "app/mainwindow.h"
#include "app/qstandalonepaleditor.h"
#include "formats/qpalettefile.h"
#include "formats/qpalettewriter.h"
#include "interface/dialogs/paleditor.h"
#include "interface/editors/qspriteseditor.h"
#include "interface/extras/qcharpalettestrip.h"
#include "interface/extras/qorganizereditor.h"
#include "interface/extras/qpaletteseditor.h"
#include "interface/qinterface.h"
#include "interface/qpanelwidget.h"
#include "model/qpaletteentries.h"
#include "model/qproject.h"
#include "model/qsounds.h"
#include "model/qsprites.h"
#include "filebytes.h"
#include "qrecordingprompt.h"
#include "realdata.h"
#include "render/gui/qanimspriteworkspace.h"
#include "render/qsprrender.h"
#include "screenshots.h"
#include "windowmanagers.h"

#include <QApplication>
#include <QComboBox>
#include <QListView>
#include <QTableView>
#include <QTemporaryDir>
#include <QTimer>
#include <QUndoGroup>
#include <QtTest>

namespace {

/// Every pixel's colour as the sprite shows with its own palette; transparent pixels as 0.
QImage looks(const QSprite* sprite)
{
    QImage image = sprite->image(sipOwn);
    if (image.format() == QImage::Format_Indexed8) {
        QVector<QRgb> table = image.colorTable();
        table[0] = 0;
        image.setColorTable(table);
    }
    return image.convertToFormat(QImage::Format_ARGB32);
}

} // namespace

class TestPaletteEditors : public QObject
{
    Q_OBJECT

private:
    QTemporaryDir m_dir;
    QRecordingPrompt* m_prompt = nullptr;
    MainWindow* m_window = nullptr;

    QString path(const QString& name) const { return m_dir.filePath(name); }
    QPalettesEditor* palettes() const { return static_cast<QPalettesEditor*>(intf->extraEditor(ieePalettes)); }
    QSpritesEditor* spritesEditor() const { return static_cast<QSpritesEditor*>(intf->editor(ieSprites)); }
    QSprites* sprites() const { return intf->currentProject()->sprites(); }

    /// The engine's kfm in a folder of its own, opened in the sprites editor with the palettes panel.
    bool openKfm(const QString& folder)
    {
        const QDir source(realDataDir() + QStringLiteral("/fanyer__mugen/chars/kfm"));
        QDir().mkpath(path(folder));
        for (const QString& name : source.entryList(QDir::Files))
            QFile::copy(source.filePath(name), path(folder + QLatin1Char('/') + name));
        if (!intf->openProject(path(folder + QStringLiteral("/kfm.def"))))
            return false;
        intf->switchEditor(ieSprites);
        intf->switchExtraEditor(ieePalettes);
        return true;
    }

    void reopen(const QString& folder)
    {
        QVERIFY(intf->currentProject()->save());
        m_prompt->script({ QPrompt::No });
        intf->fileCloseAll();
        QVERIFY(intf->openProject(path(folder + QStringLiteral("/kfm.def"))));
        intf->switchEditor(ieSprites);
    }

    /// Makes the sprite at `position` current in the sprites editor.
    void showSprite(int position)
    {
        QTableView* table = spritesEditor()->table();
        table->setCurrentIndex(table->model()->index(position, 0));
        QApplication::processEvents();
    }

    /// The first sprite using palette 1,1 with a pixel of `entry`, and where; -1 when none has one.
    int spriteWithEntry(int entry, QPoint& pixel) const
    {
        for (int i = 0; i < sprites()->count(); ++i) {
            const QSprite* sprite = sprites()->at(i);
            if (!sprite->palette() || sprite->palette()->subItem() != QSubItem(1, 1))
                continue;
            const QImage image = sprite->image();
            for (int y = 0; image.format() == QImage::Format_Indexed8 && y < image.height(); ++y)
                for (int x = 0; x < image.width(); ++x)
                    if (image.pixelIndex(x, y) == entry) {
                        pixel = QPoint(x, y);
                        return i;
                    }
        }
        return -1;
    }

    /// The colour the view shows at a pixel of the current sprite.
    QRgb viewColour(const QPoint& pixel) const
    {
        QSprRender* renderer = palettes()->view()->renderer();
        const QImage shot = palettes()->view()->view()->grab().toImage();
        const float zoom = renderer->zoom();
        const QRect rect = renderer->spriteRect();
        const QPoint at(rect.x() + int((pixel.x() + 0.5f) * zoom), rect.y() + int((pixel.y() + 0.5f) * zoom));
        return shot.pixel(at * shot.devicePixelRatio()) & 0xFFFFFF;
    }

private slots:
    void initTestCase()
    {
        QVERIFY(QDir().mkpath(path(QStringLiteral("program"))));
        QVERIFY(windowManagers::create(path(QStringLiteral("program"))));
        m_prompt = new QRecordingPrompt;
        m_window = new MainWindow;
        m_window->resize(1280, 800);
        m_window->show();
        QVERIFY(QTest::qWaitForWindowExposed(m_window));
    }

    void cleanupTestCase()
    {
        delete m_window;
        delete m_prompt;
        windowManagers::destroy();
    }

    void colourFiveShowsInTheViewAndStays()
    {
        PF_REQUIRE_REALDATA();
        QVERIFY(openKfm(QStringLiteral("colour")));
        auto* choice = m_window->findChild<QComboBox*>(QStringLiteral("paletteChoice"));
        QVERIFY(choice && choice->isVisible());
        QCOMPARE(choice->count(), sprites()->paletteCount());

        // The palettes have nothing to do beside sounds: the organizer shows there, and
        // the palettes come back with the sprites.
        intf->switchEditor(ieSounds);
        QVERIFY(!choice->isVisible());
        QVERIFY(m_window->findChild<QListView*>(QStringLiteral("organizerList"))->isVisible());
        intf->switchEditor(ieSprites);
        QVERIFY(choice->isVisible());

        // kfm's group-1 sprites use entries 0 and 16 to 31 only: colour 5 changes no
        // pixel in the view, colour 16 changes those of the sprites' darkest shade.
        QPoint pixel;
        QVERIFY(spriteWithEntry(5, pixel) < 0);
        const int position = spriteWithEntry(16, pixel);
        QVERIFY(position >= 0);
        showSprite(position);
        const int paletteOne = sprites()->findPalette(0, 1, 1);
        QCOMPARE(palettes()->currentPalette(), paletteOne); // the panel follows the sprite
        QCOMPARE(palettes()->view()->renderer()->sprite(), sprites()->at(position));
        const QImage unchanged = palettes()->view()->view()->grab().toImage();
        palettes()->setColor(5, QColor(0, 255, 0));
        QCOMPARE(sprites()->paletteAt(paletteOne)->colors()[5].g, quint8(255));
        QApplication::processEvents();
        QCOMPARE(palettes()->view()->view()->grab().toImage(), unchanged);

        const QRgb before = viewColour(pixel);
        const QRGBA old = sprites()->paletteAt(paletteOne)->colors()[16];
        QCOMPARE(before, qRgb(old.r, old.g, old.b) & 0xFFFFFF);

        // Capture picks entry 16 from the view, and the numbers make it magenta.
        palettes()->selectIndex(0);
        emit palettes()->view()->renderer()->colorCaptured(16);
        QCOMPARE(palettes()->selectedIndex(), 16);
        palettes()->setColor(16, QColor(255, 0, 255));
        QApplication::processEvents();
        QCOMPARE(viewColour(pixel), qRgb(255, 0, 255) & 0xFFFFFF);
        intf->undoGroup()->undo();
        QApplication::processEvents();
        QCOMPARE(viewColour(pixel), before);
        intf->undoGroup()->redo();
        QApplication::processEvents();
        QCOMPARE(viewColour(pixel), qRgb(255, 0, 255) & 0xFFFFFF);

        // The character's palettes stand side by side; choosing 1,2 shows the sprite in it.
        QCharPaletteStrip* strip = palettes()->charPalettes();
        QVERIFY(strip->count() >= 2);
        strip->choose(2);
        const QRGBA second = sprites()->paletteAt(sprites()->findPalette(0, 1, 2))->colors()[16];
        QCOMPARE(viewColour(pixel), qRgb(second.r, second.g, second.b) & 0xFFFFFF);
        strip->choose(1);
        QCOMPARE(viewColour(pixel), qRgb(255, 0, 255) & 0xFFFFFF);

        reopen(QStringLiteral("colour"));
        showSprite(position);
        QCOMPARE(sprites()->paletteAt(sprites()->findPalette(0, 1, 1))->colors()[16], QRGBA(255, 0, 255, old.a));
        QCOMPARE(sprites()->paletteAt(sprites()->findPalette(0, 1, 1))->colors()[5].g, quint8(255));
        QCOMPARE(viewColour(pixel), qRgb(255, 0, 255) & 0xFFFFFF);
        m_prompt->script({ QPrompt::No });
        intf->fileCloseAll();
    }

    void acoAndJascOntoASprite()
    {
        PF_REQUIRE_REALDATA();
        QVERIFY(openKfm(QStringLiteral("files")));
        QPoint pixel;
        const int position = spriteWithEntry(16, pixel);
        showSprite(position);
        // The sprite gets a palette of its own, a copy of 1,1, so the files land on it alone.
        const int paletteOne = sprites()->findPalette(0, 1, 1);
        QRGBA copy[256];
        std::copy(sprites()->paletteAt(paletteOne)->colors(), sprites()->paletteAt(paletteOne)->colors() + 256, copy);
        copy[255] = QRGBA(1, 2, 3); // colours of its own: equal tables would be one shared table
        QSpritePalette* own = sprites()->addPalette(copy, spsNew, 9, -1);
        palettes()->setCurrentPalette(sprites()->indexOfPalette(own));
        // The whole group takes it in one undo step, which undo takes back; then the sprite alone.
        int inGroup = 0;
        for (int i = 0; i < sprites()->count(); ++i)
            inGroup += sprites()->at(i)->itemGroup() == sprites()->at(position)->itemGroup() ? 1 : 0;
        const int before = sprites()->undoStack()->count();
        QCOMPARE(palettes()->applyTo(QPalettesEditor::Group), inGroup);
        QCOMPARE(sprites()->undoStack()->count(), before + 1);
        intf->undoGroup()->undo();
        QCOMPARE(sprites()->at(position)->palette(), sprites()->paletteAt(paletteOne));
        QCOMPARE(palettes()->currentPalette(), paletteOne); // the panel follows the sprite back
        palettes()->setCurrentPalette(sprites()->indexOfPalette(own));
        QCOMPARE(palettes()->applyTo(QPalettesEditor::CurrentSprite), 1);
        QCOMPARE(sprites()->at(position)->palette(), own);
        QVERIFY(sprites()->at(position + 1)->palette() != own);

        QRGBA swatches[256];
        for (int i = 0; i < 256; ++i)
            swatches[i] = QRGBA(uchar(i / 2), 20, uchar(127 - i / 2));
        QVERIFY(QPaletteWriter::save(path(QStringLiteral("swatches.aco")), pffACO, swatches));
        QVERIFY(palettes()->loadPalette(path(QStringLiteral("swatches.aco"))));
        QCOMPARE(own->colors()[16], QRGBA(8, 20, 119));
        QCOMPARE(viewColour(pixel), qRgb(8, 20, 119) & 0xFFFFFF);

        QByteArray jasc("JASC-PAL\r\n0100\r\n256\r\n");
        for (int i = 0; i < 256; ++i)
            jasc += QByteArray::number(i) + " 10 20\r\n";
        QVERIFY(writeAll(path(QStringLiteral("ramp.pal")), jasc));
        QVERIFY(palettes()->loadPalette(path(QStringLiteral("ramp.pal"))));
        QCOMPARE(own->colors()[16], QRGBA(16, 10, 20));
        QCOMPARE(viewColour(pixel), qRgb(16, 10, 20) & 0xFFFFFF);
        QVERIFY(sprites()->paletteAt(paletteOne)->colors()[16] != own->colors()[16]);

        // Wrong files are refused in one line naming them, and nothing changes.
        m_prompt->clear();
        const int steps = sprites()->undoStack()->count();
        QVERIFY(writeAll(path(QStringLiteral("short.act")), QByteArray(700, 'x')));
        QVERIFY(writeAll(path(QStringLiteral("cut.pal")), QByteArray("JASC-PAL\r\n0101\r\n")));
        QVERIFY(!palettes()->loadPalette(path(QStringLiteral("short.act"))));
        QVERIFY(!palettes()->loadPalette(path(QStringLiteral("cut.pal"))));
        QCOMPARE(m_prompt->count(QStringLiteral("warning")), 2);
        QVERIFY(m_prompt->entries().at(0).text.contains(QStringLiteral("short.act")));
        QVERIFY(m_prompt->entries().at(1).text.contains(QStringLiteral("cut.pal")));
        for (const QRecordingPrompt::Entry& entry : m_prompt->entries())
            QVERIFY2(!entry.text.contains(QLatin1Char('\n')), qPrintable(entry.text));
        QCOMPARE(sprites()->undoStack()->count(), steps);
        QCOMPARE(own->colors()[16], QRGBA(16, 10, 20));

        // Saved in every format and read back, the palette is the same.
        for (int format = 0; format < pffCount; ++format) {
            const auto kind = QPaletteFileFormat(format);
            const QString file = path(QStringLiteral("back%1.%2").arg(format).arg(QPaletteWriter::suffix(kind)));
            QVERIFY(palettes()->savePalette(file, kind));
            QRGBA read[256];
            QString fault;
            QVERIFY2(readPaletteFile(file, read, fault), qPrintable(fault));
            QCOMPARE(read[16], QRGBA(16, 10, 20));
        }

        reopen(QStringLiteral("files"));
        const QSprite* again = sprites()->at(position);
        QVERIFY(again->palette());
        QCOMPARE(again->palette()->colors()[16], QRGBA(16, 10, 20));
        QCOMPARE(again->palette()->colors()[200], QRGBA(200, 10, 20));
        m_prompt->script({ QPrompt::No });
        intf->fileCloseAll();
    }

    void palEditorReorderKeepsEveryPixel()
    {
        PF_REQUIRE_REALDATA();
        QVERIFY(openKfm(QStringLiteral("reorder")));
        QPoint pixel;
        const int position = spriteWithEntry(16, pixel);
        showSprite(position);
        const int paletteOne = sprites()->findPalette(0, 1, 1);
        const QRGBA oldSixteen = sprites()->paletteAt(paletteOne)->colors()[16];
        const QRGBA oldFive = sprites()->paletteAt(paletteOne)->colors()[5];
        // Every sprite that shows palette 1,1's colours, as it looks now.
        QList<int> followers;
        QList<QImage> before;
        for (int i = 0; i < sprites()->count(); ++i) {
            const QSprite* sprite = sprites()->at(i);
            if (sprite->palette() && sprite->palette()->data() == sprites()->paletteAt(paletteOne)->data()) {
                followers.append(i);
                before.append(looks(sprite));
            }
        }
        QVERIFY(followers.size() > 10);

        PalEditor editor(sprites(), paletteOne, position, m_window);
        editor.show();
        QVERIFY(QTest::qWaitForWindowExposed(&editor));
        const QImage shownBefore = editor.preview().convertToFormat(QImage::Format_ARGB32);
        editor.swapEntries(16, 5);
        editor.moveEntry(40, 30);
        QCOMPARE(editor.colors()[5], oldSixteen);
        QCOMPARE(editor.colors()[16], oldFive);
        // The live preview already shows the new order: the same picture.
        QCOMPARE(editor.preview().convertToFormat(QImage::Format_ARGB32), shownBefore);
        QVERIFY(screenshots::save(editor.grab(), QStringLiteral("palette-editor.png")));
        const int steps = sprites()->undoStack()->count();
        QVERIFY(editor.apply());
        QCOMPARE(sprites()->undoStack()->count(), steps + 1); // one undo step
        QCOMPARE(sprites()->paletteAt(paletteOne)->colors()[5], oldSixteen);
        QCOMPARE(sprites()->at(position)->image().pixelIndex(pixel.x(), pixel.y()), 5);
        for (int i = 0; i < followers.size(); ++i)
            QVERIFY2(looks(sprites()->at(followers.at(i))) == before.at(i), qPrintable(QString::number(followers.at(i))));
        QCOMPARE(viewColour(pixel), qRgb(oldSixteen.r, oldSixteen.g, oldSixteen.b) & 0xFFFFFF);

        // Undo takes the whole reorder back.
        intf->undoGroup()->undo();
        QCOMPARE(sprites()->paletteAt(paletteOne)->colors()[16], oldSixteen);
        QCOMPARE(sprites()->at(position)->image().pixelIndex(pixel.x(), pixel.y()), 16);
        intf->undoGroup()->redo();

        // With the pixels staying, a swap changes the look; grey and optimise act on the copy only.
        editor.setPixelsFollow(false);
        editor.swapEntries(5, 20);
        QVERIFY(editor.preview().convertToFormat(QImage::Format_ARGB32) != shownBefore);
        editor.setPixelsFollow(true);
        editor.swapEntries(5, 20);
        editor.greyScale();
        const QRGBA grey = editor.colors()[5];
        QVERIFY(grey.r == grey.g && grey.g == grey.b);
        editor.optimise();
        QCOMPARE(editor.colors()[0], sprites()->paletteAt(paletteOne)->colors()[0]);
        editor.close();

        reopen(QStringLiteral("reorder"));
        const int again = sprites()->findPalette(0, 1, 1);
        QCOMPARE(sprites()->paletteAt(again)->colors()[5], oldSixteen);
        for (int i = 0; i < followers.size(); ++i)
            QVERIFY2(looks(sprites()->at(followers.at(i))) == before.at(i), qPrintable(QString::number(followers.at(i))));
        m_prompt->script({ QPrompt::No });
        intf->fileCloseAll();
    }

    void organizerMovesAndSorts()
    {
        PF_REQUIRE_REALDATA();
        QVERIFY(openKfm(QStringLiteral("organize")));
        intf->switchEditor(ieSounds);
        auto* organizer = static_cast<QOrganizerEditor*>(intf->extraEditor(ieeOrganizer));
        QSounds* sounds = intf->currentProject()->sounds();
        QCOMPARE(organizer->items(), static_cast<QOrganizableObject*>(sounds));
        QCOMPARE(organizer->view()->model()->rowCount(), sounds->count());
        const QString first = organizer->view()->model()->index(0, 0).data().toString();
        organizer->moveItem(0, 2);
        QCOMPARE(organizer->view()->model()->index(2, 0).data().toString(), first);
        intf->undoGroup()->undo();
        QCOMPARE(organizer->view()->model()->index(0, 0).data().toString(), first);
        organizer->moveItem(0, sounds->count() - 1);
        organizer->autoOrganize();
        QCOMPARE(organizer->view()->model()->index(0, 0).data().toString(), first);

        // Beside the sprites the organizer lists the sprites.
        intf->switchExtraEditor(ieeOrganizer);
        intf->switchEditor(ieSprites);
        QCOMPARE(organizer->items(), static_cast<QOrganizableObject*>(sprites()));
        m_prompt->script({ QPrompt::No });
        intf->fileCloseAll();
    }

    void standaloneEditorSavesAnAct()
    {
        // "-ape": the editor alone, driven as an author would: open an ACT, change a colour, save.
        QRGBA ramp[256];
        for (int i = 0; i < 256; ++i)
            ramp[i] = QRGBA(uchar(i), uchar(255 - i), 7);
        QVERIFY(QPaletteWriter::save(path(QStringLiteral("alone.act")), pffACT, ramp));
        bool driven = false;
        QTimer::singleShot(0, this, [this, &driven]() {
            PalEditor* editor = nullptr;
            for (QWidget* each : QApplication::topLevelWidgets())
                if (auto* found = qobject_cast<PalEditor*>(each); found && found->isVisible())
                    editor = found;
            QVERIFY(editor); // without it the editor would never close: the test then hangs and times out
            driven = editor->loadFile(path(QStringLiteral("alone.act")));
            editor->selectIndex(9);
            editor->setColor(9, QRGBA(1, 2, 3));
            driven = driven && editor->saveFile(path(QStringLiteral("edited.act")), pffACT);
            screenshots::save(editor->grab(), QStringLiteral("palette-editor-alone.png"));
            editor->reject();
        });
        runStandalonePalEditor();
        QVERIFY(driven);
        const QByteArray bytes = readAll(path(QStringLiteral("edited.act")));
        QCOMPARE(bytes.size(), 768);
        // Entry 9 is the tenth triple from the end of an ACT file.
        QCOMPARE(bytes.mid(768 - 10 * 3, 3), QByteArray("\x01\x02\x03", 3));
        QCOMPARE(bytes.mid(768 - 11 * 3, 3), QByteArray("\x0a\xf5\x07", 3));
    }

    void picturesOfThePanel()
    {
        if (screenshots::folder().isEmpty())
            QSKIP("PF_SHOT_DIR is not set: no picture wanted");
        PF_REQUIRE_REALDATA();
        QVERIFY(openKfm(QStringLiteral("pictures")));
        showSprite(sprites()->find(0, 0, 0));
        palettes()->selectIndex(20);
        QTest::qWait(200);
        QVERIFY(screenshots::save(m_window->grab(), QStringLiteral("palettes-panel-kfm.png")));
        m_prompt->script({ QPrompt::No });
        intf->fileCloseAll();
    }
};

QTEST_MAIN(TestPaletteEditors)
#include "tst_paletteeditors.moc"
