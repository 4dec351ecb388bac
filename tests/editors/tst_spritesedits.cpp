// The sprites editor's edits of a selection in the real main window, as an
// author makes them with mouse and keys: cells typed into, pictures replaced
// (and a bad file refused), sprites moved, linked and unlinked, palettes
// chosen, pictures exported, the SFF version chosen in the status bar; and a
// session on kfm that saves in every SFF version through the window and reads
// the same sprites back, then undoes everything to the original bytes.
#include "app/mainwindow.h"
#include "formats/qimagefiles.h"
#include "interface/dialogs/savespr.h"
#include "interface/editors/qspriteseditor.h"
#include "interface/qclickablelabel.h"
#include "interface/qinterface.h"
#include "model/qproject.h"
#include "model/qsprite.h"
#include "model/qsprites.h"
#include "render/gui/qrenderwidget.h"
#include "render/qsprrender.h"
#include "realdata.h"
#include "mainwindowsession.h"

#include <QApplication>
#include <QLineEdit>
#include <QMouseEvent>
#include <QRadioButton>
#include <QSpinBox>
#include <QTableView>
#include <QTemporaryDir>
#include <QUndoStack>
#include <QtTest>

namespace {

/// A paletted picture of `width` x 30 in colours of `shade`, a mark at x = `mark`.
QImage picture(int width, int shade, int mark)
{
    QImage image(width, 30, QImage::Format_Indexed8);
    image.setColorTable({ qRgb(0, 0, 0), qRgb(shade, 90, 255 - shade), qRgb(250, 250, 250) });
    image.fill(1);
    for (int y = 0; y < 30; ++y)
        image.setPixel(mark, y, 2);
    return image;
}

using session::bytes;
using session::drag;

/// Same size, same index at every pixel, same colours of the indices used.
bool samePicture(const QImage& a, const QImage& b)
{
    if (a.size() != b.size() || a.format() != b.format())
        return false;
    for (int y = 0; y < a.height(); ++y)
        for (int x = 0; x < a.width(); ++x)
            if (a.pixelIndex(x, y) != b.pixelIndex(x, y) || a.pixel(x, y) != b.pixel(x, y))
                return false;
    return true;
}

/// Picks `version` in the SaveSpr dialog that opens next, and accepts it.
void answerVersionDialog(quint32 version)
{
    QTimer::singleShot(0, [version] {
        auto* dialog = qobject_cast<SaveSpr*>(QApplication::activeModalWidget());
        QVERIFY(dialog);
        const QList<QRadioButton*> choices = dialog->findChildren<QRadioButton*>();
        const int position = version == QSprites::version101 ? 0 : version == 0x02000000 ? 1 : 2;
        choices.at(position)->click();
        dialog->accept();
    });
}

} // namespace

class TestSpritesEdits : public QObject
{
    Q_OBJECT

private:
    MainWindowSession m_session;
    QTemporaryDir m_work;

    QSpritesEditor* editor() const { return static_cast<QSpritesEditor*>(intf->editor(ieSprites)); }

    /// Types `text` into the cell row, column of the sprites table, as F2 opens it.
    void typeIntoCell(int row, int column, const QString& text)
    {
        QTableView* table = editor()->table();
        table->setFocus();
        table->setCurrentIndex(table->model()->index(row, column));
        QTest::keyClick(table, Qt::Key_F2);
        QWidget* field = QApplication::focusWidget();
        QVERIFY(field && field != table);
        QTest::keyClick(field, Qt::Key_A, Qt::ControlModifier);
        QTest::keyClicks(field, text);
        QTest::keyClick(field, Qt::Key_Return);
        // The view commits and closes the field once the key has been handled.
        QCoreApplication::processEvents();
    }

private slots:
    void initTestCase() { QVERIFY(m_session.open(QSize(1280, 800))); }
    void cleanupTestCase() { m_session.close(); }

    void editsOfTheSelection()
    {
        intf->newProject(false);
        QSprites* sprites = intf->currentProject()->sprites();
        intf->switchEditor(ieSprites);
        QSpritesEditor* editor = this->editor();
        QStringList files;
        for (int i = 0; i < 4; ++i) {
            files.append(m_work.filePath(QStringLiteral("pose%1.png").arg(i)));
            QVERIFY(picture(16 + i, 60 * i, i).save(files.last()));
        }
        QCOMPARE(editor->addFiles(files, 10, 0, 1), 4);
        QUndoStack* undo = sprites->undoStack();
        const int start = undo->count();

        // Cells: group, index, axis and palette typed in; nonsense is refused.
        typeIntoCell(0, 0, QStringLiteral("11"));
        typeIntoCell(0, 1, QStringLiteral("5"));
        QCOMPARE(sprites->at(0)->subItem(), QSubItem(11, 5));
        typeIntoCell(0, 3, QStringLiteral("3, -4"));
        QCOMPARE(sprites->at(0)->offset(), QPoint(3, -4));
        QAbstractItemModel* model = editor->table()->model();
        QVERIFY(!model->setData(model->index(0, 3), QStringLiteral("left")));
        const QSpritePalette* second = sprites->at(1)->palette();
        QVERIFY(second && second != sprites->at(0)->palette());
        QVERIFY(!model->setData(model->index(0, 4), QStringLiteral("77,77")));
        typeIntoCell(0, 4, model->index(1, 4).data().toString());
        QCOMPARE(sprites->at(0)->palette(), second);
        // Steps on one sprite may merge; each kind of edit leaves at least one.
        int steps = undo->count();
        QVERIFY(steps >= start + 3);

        // Replace: a broken file is named in one line and changes nothing; a good one is one step.
        QFile broken(m_work.filePath(QStringLiteral("broken.pcx")));
        QVERIFY(broken.open(QIODevice::WriteOnly) && broken.write("\x0a\x05\x01garbage") > 0);
        broken.close();
        editor->table()->setCurrentIndex(model->index(2, 0));
        m_session.prompt()->clear();
        QVERIFY(!editor->replaceImage(broken.fileName()));
        QCOMPARE(m_session.prompt()->count(QStringLiteral("warning")), 1);
        QVERIFY(m_session.prompt()->entries().first().text.startsWith(
            QDir::toNativeSeparators(broken.fileName())));
        QVERIFY(!m_session.prompt()->entries().first().text.contains(QLatin1Char('\n')));
        QCOMPARE(undo->count(), steps);
        QVERIFY(picture(40, 10, 30).save(m_work.filePath(QStringLiteral("wide.png"))));
        QVERIFY(editor->replaceImage(m_work.filePath(QStringLiteral("wide.png"))));
        QCOMPARE(sprites->at(2)->imageInfo().width, 40);
        QCOMPARE(model->index(2, 2).data().toString(), QStringLiteral("40 x 30"));
        QCOMPARE(undo->count(), ++steps);

        // Move: Alt+Down takes the selection one place down, together.
        const QSprite* first = sprites->at(1);
        const QSprite* then = sprites->at(2);
        editor->table()->setCurrentIndex(model->index(1, 0));
        editor->table()->selectionModel()->select(QItemSelection(model->index(1, 0), model->index(2, 0)),
            QItemSelectionModel::ClearAndSelect | QItemSelectionModel::Rows);
        QTest::keyClick(editor->table(), Qt::Key_Down, Qt::AltModifier);
        QCOMPARE(sprites->at(2), first);
        QCOMPARE(sprites->at(3), then);
        QCOMPARE(editor->selectedRows(), QList<int>({ 2, 3 }));
        QCOMPARE(undo->count(), ++steps);
        editor->moveSelection(1); // the last one can go no further down
        QCOMPARE(undo->count(), steps);

        // Link the selection to 11,5, and unlink it with Ctrl+Shift+L.
        QVERIFY(!editor->linkSelection(QStringLiteral("99,99")));
        QVERIFY(editor->linkSelection(QStringLiteral("11,5")));
        for (int row : { 2, 3 }) {
            QCOMPARE(sprites->at(row)->imageData(), sprites->at(0)->imageData());
            QCOMPARE(sprites->at(row)->palette(), sprites->at(0)->palette());
        }
        QVERIFY(sprites->at(0)->imageIsShared());
        QCOMPARE(undo->count(), ++steps);
        QTest::keyClick(editor->table(), Qt::Key_L, Qt::ControlModifier | Qt::ShiftModifier);
        QVERIFY(sprites->at(2)->imageData() != sprites->at(0)->imageData());
        QVERIFY(!sprites->at(0)->imageIsShared());
        QVERIFY(samePicture(sprites->at(3)->image(sipOwn), sprites->at(0)->image(sipOwn)));

        // Palette of the whole selection.
        QCOMPARE(editor->setSelectionPalette(sprites->indexOfPalette(sprites->at(1)->palette())), 2);
        QCOMPARE(sprites->at(3)->palette(), sprites->at(1)->palette());

        // Export: several as name-group-index, one as the name given; PNG and PCX read back alike.
        QCOMPARE(editor->exportSelection(m_work.filePath(QStringLiteral("out.png"))), 2);
        const QImage exported = loadImage(m_work.filePath(QStringLiteral("out-%1-%2.png")
                                                              .arg(sprites->at(2)->itemGroup())
                                                              .arg(sprites->at(2)->itemIndex())));
        QCOMPARE(exported.size(), sprites->at(2)->image().size());
        QCOMPARE(exported.pixelIndex(0, 0), sprites->at(2)->image().pixelIndex(0, 0));
        editor->table()->setCurrentIndex(model->index(0, 0));
        QCOMPARE(editor->exportSelection(m_work.filePath(QStringLiteral("one.pcx"))), 1);
        const QImage pcx = loadImage(m_work.filePath(QStringLiteral("one.pcx")));
        QCOMPARE(pcx.format(), QImage::Format_Indexed8);
        QCOMPARE(pcx.pixelIndex(0, 5), 2);
        QCOMPARE(pcx.colorTable().value(1), sprites->at(0)->image(sipOwn).colorTable().value(1));
        QVERIFY(!QFile::exists(m_work.filePath(QStringLiteral("out.png"))));

        // The version item of the status bar: a click asks, the choice is one undo step.
        QClickableLabel* version = editor->versionLabel();
        QVERIFY(version->isVisible());
        QCOMPARE(version->text(), QStringLiteral("SFF 2.0.1.0"));
        answerVersionDialog(QSprites::version101);
        QTest::mouseClick(version, Qt::LeftButton);
        QCOMPARE(sprites->getVersion(), QSprites::version101);
        QCOMPARE(version->text(), QStringLiteral("SFF 1.0.1.0"));
        undo->undo();
        QCOMPARE(version->text(), QStringLiteral("SFF 2.0.1.0"));
        intf->switchEditor(ieAnimations);
        QVERIFY(!version->isVisible());
        intf->switchEditor(ieSprites);
        QVERIFY(version->isVisible());

        // Every step undone: the four sprites as they were added.
        while (undo->count() > start && undo->canUndo() && undo->index() > start)
            undo->undo();
        QCOMPARE(sprites->at(0)->subItem(), QSubItem(10, 0));
        QCOMPARE(sprites->at(2)->imageInfo().width, 18);
        QCOMPARE(sprites->at(0)->offset(), QPoint(0, 0));
        QVERIFY(!sprites->at(3)->imageIsShared());
    }

    void trueColourIntoAnEightBitFile()
    {
        intf->newProject(false);
        QSprites* sprites = intf->currentProject()->sprites();
        intf->switchEditor(ieSprites);
        editor()->setSaveVersion(QSprites::version101);
        QImage photo(32, 24, QImage::Format_RGB32);
        for (int y = 0; y < photo.height(); ++y)
            for (int x = 0; x < photo.width(); ++x)
                photo.setPixel(x, y, qRgb(x * 8, y * 10, 128));
        const QString file = m_work.filePath(QStringLiteral("photo.png"));
        QVERIFY(photo.save(file));

        // Declined: nothing added, nothing to undo.
        const int steps = sprites->undoStack()->count();
        m_session.prompt()->clear();
        m_session.prompt()->script({ QPrompt::No });
        QCOMPARE(editor()->addFiles({ file }, 3, 0, 1), 0);
        QCOMPARE(m_session.prompt()->count(QStringLiteral("question")), 1);
        QCOMPARE(sprites->count(), 0);
        QCOMPARE(sprites->undoStack()->count(), steps);

        // Accepted: kept in true colour until saved; saved as 1.0.1.0 it is 256 colours.
        m_session.prompt()->script({ QPrompt::Yes });
        QCOMPARE(editor()->addFiles({ file }, 3, 0, 1), 1);
        QCOMPARE(sprites->at(0)->imageInfo().format, QImage::Format_RGB32);
        const QString saved = m_work.filePath(QStringLiteral("photo.sff"));
        QVERIFY(sprites->toFile(saved, 0, true));
        QCOMPARE(sprites->at(0)->image().format(), QImage::Format_Indexed8);
        QProject readBack;
        QVERIFY(readBack.sprites()->fromFile(saved));
        const QImage back = readBack.sprites()->at(0)->image(sipOwn);
        QCOMPARE(back.format(), QImage::Format_Indexed8);
        QCOMPARE(back.size(), photo.size());
        // The quantised picture stays near the photo.
        const QRgb corner = back.pixel(31, 23);
        QVERIFY(qAbs(qRed(corner) - 248) < 24 && qAbs(qGreen(corner) - 230) < 24);
    }

    void sessionSavedInEveryVersion()
    {
        PF_REQUIRE_REALDATA();
        const QString kfm = session::copyOfKfm(m_work.filePath(QStringLiteral("kfm")));
        if (kfm.isEmpty())
            QSKIP("the engine's kfm is not in the real data");
        QVERIFY(intf->openProject(kfm));
        QSprites* sprites = intf->currentProject()->sprites();
        const QString sff = sprites->fileName();
        const QString base = m_work.filePath(QStringLiteral("kfm-base.sff"));
        QVERIFY(sprites->toFile(base, 0, true));
        const int count = sprites->count();

        // Three pictures as a batch from 7100,0; each axis dragged in the view.
        intf->switchEditor(ieSprites);
        QSpritesEditor* editor = this->editor();
        QStringList files;
        for (int i = 0; i < 3; ++i) {
            files.append(m_work.filePath(QStringLiteral("kick%1.png").arg(i)));
            QVERIFY(picture(24, 70 * i, 2 + i).save(files.last()));
        }
        QCOMPARE(editor->addFiles(files, 7100, 0, 1), 3);
        auto* view = m_session.window()->findChild<QRenderWidget*>();
        QSprRender* renderer = static_cast<QSprRender*>(view->renderer());
        renderer->zoomActual();
        for (int i = 0; i < 3; ++i) {
            QVERIFY(editor->goTo(QStringLiteral("7100,%1").arg(i)));
            QCOMPARE(renderer->sprite(), sprites->at(count + i));
            const QPoint grip = renderer->spriteRect().center();
            drag(view, grip, grip - QPoint(2 * i + 1, i + 2));
            QCOMPARE(sprites->at(count + i)->offset(), QPoint(2 * i + 1, i + 2));
        }

        // Saved through the window in each version, chosen in the status bar; read back alike.
        for (quint32 version : { QSprites::version101, quint32(0x02000000), QSprites::defaultVersion }) {
            answerVersionDialog(version);
            QTest::mouseClick(editor->versionLabel(), Qt::LeftButton);
            QCOMPARE(sprites->getVersion(), version);
            intf->fileSave();
            QVERIFY(!sprites->isModified());
            QProject readBack;
            QVERIFY(readBack.sprites()->fromFile(sff));
            QCOMPARE(readBack.sprites()->getVersion(), version);
            QCOMPARE(readBack.sprites()->count(), count + 3);
            for (int i = 0; i < 3; ++i) {
                const QSprite* back = readBack.sprites()->at(readBack.sprites()->find(0, 7100, i));
                QVERIFY(back);
                QCOMPARE(back->offset(), QPoint(2 * i + 1, i + 2));
                QVERIFY(samePicture(back->image(sipOwn), sprites->at(count + i)->image(sipOwn)));
            }
        }

        // All undone, the sprites write the bytes they were read as.
        while (sprites->undoStack()->canUndo())
            sprites->undoStack()->undo();
        const QString undone = m_work.filePath(QStringLiteral("kfm-undone.sff"));
        QVERIFY(sprites->toFile(undone, 0, true));
        QCOMPARE(bytes(undone), bytes(base));
    }
};

QTEST_MAIN(TestSpritesEdits)
#include "tst_spritesedits.moc"
