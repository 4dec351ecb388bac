#include "tst_sprites.h"

#include "qrecordingprompt.h"
#include "spritestate.h"

#include "model/qspriteimagedata.h"
#include "model/qspritepalettedata.h"
#include "model/qsprites.h"
#include "model/qspriteundocommand.h"

#include <QRandomGenerator>
#include <QtTest>

void TestSprites::firstRedoDoesNothingAndLockMakesNoCommands()
{
    QSprites sprites(nullptr, ctMemory, true, -1);
    QSprite* sprite = sprites.add();
    sprite->setOffset(QPoint(3, 4));
    // The push ran redo() once; had it replayed the change, the swap would
    // have put the old axis back.
    QCOMPARE(sprite->offset(), QPoint(3, 4));
    QCOMPARE(sprites.undoStack()->count(), 2);
    sprites.undo();
    QCOMPARE(sprite->offset(), QPoint(0, 0));
    sprites.redo();
    QCOMPARE(sprite->offset(), QPoint(3, 4));

    {
        QSprites::ChangeLock lock(&sprites);
        sprite->setItem(7, 7);
        sprite->setImage(indexedImage(4, 4, 1));
        sprites.add();
        sprites.addPalette(QVector<QRgb>(256, 0xff102030), spsNew, 1, 1);
    }
    QCOMPARE(sprites.undoStack()->count(), 2);
    // Loaders set no palette from the picture: that is the file's business.
    QVERIFY(!sprite->palette());
    QCOMPARE(sprites.count(), 2);
}

void TestSprites::removePaletteUndoRestoresLinks()
{
    QSprites sprites(nullptr, ctHardDisk, true, -1);
    QRGBA tone1[256], tone2[256];
    toneColors(1, tone1);
    toneColors(2, tone2);
    QSpritePalette* keep = sprites.addPalette(tone1, spsNew, 1, 1);
    QSpritePalette* gone = sprites.addPalette(tone2, spsNew, 1, 2);
    QSpritePalette* twin = sprites.addPalette(tone2, spsNew, 1, 3);
    QCOMPARE(twin->data(), gone->data());
    for (int i = 0; i < 5; ++i) {
        QSprite* sprite = sprites.add();
        sprite->setItem(0, i);
        sprite->setImage(indexedImage(4, 4, i));
        sprite->setPalette(i % 2 ? gone : keep);
    }
    const ModelState before = ModelState::of(sprites);
    const int palettes = sprites.paletteCount();
    sprites.removePalette(1);
    QCOMPARE(sprites.paletteCount(), palettes - 1);
    for (int i = 1; i < 5; i += 2)
        QVERIFY(!sprites.at(i)->palette());
    QCOMPARE(sprites.at(0)->palette(), keep);
    QCOMPARE(twin->data()->references, 1);

    sprites.undo();
    QCOMPARE(ModelState::of(sprites), before);
    QSpritePalette* restored = sprites.paletteAt(1);
    QCOMPARE(restored->subItem(), QSubItem(1, 2));
    QCOMPARE(restored->data(), twin->data());
    for (int i = 1; i < 5; i += 2)
        QCOMPARE(sprites.at(i)->palette(), restored);

    sprites.redo();
    QCOMPARE(sprites.paletteCount(), palettes - 1);
    QVERIFY(!sprites.at(3)->palette());
    sprites.undo();
    QCOMPARE(ModelState::of(sprites), before);
}

void TestSprites::undoRestoresSharingOfAskedChange()
{
    QSprites sprites(nullptr, ctMemory, true, -1);
    for (int i = 0; i < 3; ++i)
        sprites.add()->setImage(indexedImage(6, 6, 1));
    const ModelState before = ModelState::of(sprites);
    connect(&sprites, &QSprites::dataSharing, this, [](QList<uint>& positions) { positions = {1}; });
    sprites.at(0)->setImage(indexedImage(6, 6, 2), ssmAsk);
    const ModelState after = ModelState::of(sprites);
    QCOMPARE(after.sprites.at(1).sharesWith, 0);
    QCOMPARE(after.sprites.at(2).sharesWith, 2);
    sprites.undo();
    QVERIFY2(ModelState::of(sprites) == before, qPrintable(ModelState::of(sprites).difference(before)));
    sprites.redo();
    QVERIFY2(ModelState::of(sprites) == after, qPrintable(ModelState::of(sprites).difference(after)));
}

void TestSprites::undoImagesLiveInTheDiskCache()
{
    QStreamCache& undoCache = SpriteUndoCommand::undoCache();
    QCOMPARE(undoCache.type(), ctHardDisk);
    const int held = undoCache.items().size();
    {
        QSprites sprites(nullptr, ctMemory, true, -1);
        QSprite* sprite = sprites.add();
        sprite->setImage(indexedImage(30, 30, 1));
        sprite->setImage(indexedImage(30, 30, 2));
        sprites.remove(0);
        // The second picture's command holds the first, the removal the second.
        QCOMPARE(undoCache.items().size(), held + 2);
        QVERIFY(undoCache.diskSize() > 0);
        sprites.undo();
        QCOMPARE(bytesOf(sprites.at(0)->image()), bytesOf(indexedImage(30, 30, 2)));
        sprites.undo();
        QCOMPARE(bytesOf(sprites.at(0)->image()), bytesOf(indexedImage(30, 30, 1)));
    }
    // The commands die with their file and free what they held.
    QCOMPARE(undoCache.items().size(), held);
}

namespace {

/// Random edits of every kind on a small pool of pictures and colours, so
/// that sharing, splitting and rejoining happen often.
class RandomEditor
{
public:
    RandomEditor(QSprites& sprites, quint32 seed) : m_sprites(sprites), m_random(seed) {}

    int pick(int bound) { return bound > 0 ? int(m_random.bounded(bound)) : 0; }

    QList<uint> chooseFollowers(const QList<uint>& positions)
    {
        QList<uint> kept;
        for (uint position : positions)
            if (pick(2))
                kept.append(position);
        return kept;
    }

    void edit()
    {
        QSprites& s = m_sprites;
        QSprite* sprite = s.at(pick(s.count()));
        QSpritePalette* palette = s.paletteAt(pick(s.paletteCount()));
        const QSpriteShareMode shareModes[] = {ssmShared, ssmPrivate, ssmAsk, ssmReplace};
        switch (pick(24)) {
        case 0:
        case 1:
            s.insert(pick(s.count() + 1))->setItem(pick(4), pick(4));
            break;
        case 2:
            s.remove(unsigned(pick(s.count())));
            break;
        case 3:
            s.move(unsigned(pick(s.count())), unsigned(pick(s.count())));
            break;
        case 4:
        case 5:
        case 6:
            if (sprite) {
                const QImage picture = pick(4) ? indexedImage(5 + pick(2), 4, pick(4), pick(3))
                                               : argbImage(4, 4, pick(3), pick(2));
                sprite->setImage(picture, shareModes[pick(4)], pick(5) == 0, QSpritePaletteMode(pick(4)),
                                 QSubItem(pick(2), pick(3)));
            }
            break;
        case 7:
            if (sprite)
                sprite->setImage(QImage(), shareModes[pick(4)]);
            break;
        case 8:
            if (sprite)
                sprite->setItem(pick(5), pick(5));
            break;
        case 9:
            if (sprite) {
                sprite->setOffset(QPoint(pick(20) - 10, pick(20) - 10));
                sprite->setFlag(sfDecompressOnLoad, pick(2));
            }
            break;
        case 10:
            if (sprite)
                sprite->setPalette(pick(4) ? palette : nullptr);
            break;
        case 11: {
            QRGBA colors[256];
            toneColors(pick(4), colors);
            s.addPalette(colors, QSpritePaletteShareMode(pick(3)), pick(2), pick(3) - 1);
            break;
        }
        case 12:
            s.removePalette(pick(s.paletteCount()));
            break;
        case 13:
            if (palette) {
                QRGBA colors[256];
                toneColors(pick(4), colors);
                m_prompt.script({pick(2) ? QPrompt::Yes : QPrompt::No});
                palette->setColors(colors, shareModes[pick(3)]);
            }
            break;
        case 14:
            if (palette) {
                palette->setSubItem(QSubItem(pick(3), pick(3)));
                palette->setColorCount(quint16(pick(300)));
            }
            break;
        case 15:
            s.movePalette(pick(s.paletteCount()), pick(s.paletteCount()));
            break;
        case 16:
            s.removeDuplicatePalettes();
            break;
        case 17:
            s.clearUnusedPalettes();
            break;
        case 18:
            if (pick(2))
                s.autoOrganize();
            else
                s.paletteModel()->autoOrganize();
            break;
        case 19:
            if (sprite)
                sprite->duplicate();
            break;
        case 20:
            if (sprite && !sprite->crop())
                s.crop(pick(3));
            break;
        case 21:
            if (sprite)
                sprite->splitRGB();
            break;
        case 22: {
            std::unique_ptr<QMimeData> data(s.copy({pick(s.count()), pick(s.count())}));
            s.paste(data.get(), pick(s.count() + 1));
            break;
        }
        case 23:
            switch (pick(3)) {
            case 0:
                s.fullAxis(pick(5), pick(5), pick(2), pick(2) ? -1 : pick(4));
                break;
            case 1:
                s.renameGroup(pick(4), pick(4), pick(2), pick(3), pick(3) + 2);
                break;
            default:
                s.removeGroup(pick(4), false, pick(3), pick(3));
            }
            break;
        }
    }

private:
    QSprites& m_sprites;
    QRandomGenerator m_random;
    QRecordingPrompt m_prompt;
};

} // namespace

void TestSprites::randomEditsUndoAndRedoExactly_data()
{
    QTest::addColumn<quint32>("seed");
    QTest::addColumn<int>("cacheType");
    for (quint32 seed : {1u, 2u, 3u, 4u, 5u, 6u})
        QTest::addRow("seed %u", seed) << seed << int(seed % 2 ? ctMemory : ctHardDisk);
}

void TestSprites::randomEditsUndoAndRedoExactly()
{
    QFETCH(quint32, seed);
    QFETCH(int, cacheType);
    QSprites sprites(nullptr, QStreamCacheType(cacheType), true, -1);
    sprites.undoStack()->setUndoLimit(0);
    RandomEditor editor(sprites, seed);
    connect(&sprites, &QSprites::dataSharing, this,
            [&editor](QList<uint>& positions) { positions = editor.chooseFollowers(positions); });

    // states[i] is the model at undo index i.
    QList<ModelState> states{ModelState::of(sprites)};
    // The difference from the state recorded for the present undo index, or nothing.
    auto difference = [&](const char* when, int step) {
        const ModelState now = ModelState::of(sprites);
        const ModelState& expected = states.at(sprites.undoStack()->index());
        if (now == expected)
            return QString();
        return QStringLiteral("seed %1, %2 at step %3, index %4: %5")
            .arg(seed)
            .arg(QLatin1String(when))
            .arg(step)
            .arg(sprites.undoStack()->index())
            .arg(now.difference(expected));
    };
#define CHECK_STATE(when, step)                                                                    \
    do {                                                                                           \
        const QString fault = difference(when, step);                                              \
        QVERIFY2(fault.isEmpty(), qPrintable(fault));                                              \
    } while (false)

    const int steps = 400;
    for (int step = 0; step < steps; ++step) {
        const int before = sprites.undoStack()->index();
        // One batch per edit, as the editors make them.
        sprites.beginChange();
        editor.edit();
        sprites.endChange();
        QCOMPARE(sprites.undoStack()->index(), before + 1);
        states.resize(before + 1);
        states.append(ModelState::of(sprites));
        // Now and then, go back some steps and forward again, or stay back.
        if (editor.pick(8) == 0) {
            const int back = 1 + editor.pick(6);
            for (int i = 0; i < back && sprites.undoStack()->canUndo(); ++i) {
                sprites.undo();
                CHECK_STATE("undo", step);
            }
            if (editor.pick(3)) {
                while (sprites.undoStack()->canRedo()) {
                    sprites.redo();
                    CHECK_STATE("redo", step);
                }
            }
        }
    }
    while (sprites.undoStack()->canUndo()) {
        sprites.undo();
        CHECK_STATE("final undo", steps);
    }
    QCOMPARE(sprites.count(), 0);
    QCOMPARE(sprites.cache()->items().size(), 0);
    while (sprites.undoStack()->canRedo()) {
        sprites.redo();
        CHECK_STATE("final redo", steps);
    }
}
