#include "tst_sprites.h"

#include "spritestate.h"

#include "model/qsprites.h"

#include <QtTest>

namespace {

struct Expected
{
    QMsgType type;
    int index;
    int kind;
    QString text;
};

QSprite* addSprite(QSprites& sprites, int group, int index, const QImage& image, QSpritePalette* palette)
{
    QSprites::ChangeLock lock(&sprites);
    QSprite* sprite = sprites.add();
    sprite->setItem(group, index);
    sprite->setImage(image);
    sprite->setPalette(palette);
    return sprite;
}

} // namespace

void TestSprites::checkErrorsReportsEachFault()
{
    QSprites sprites(nullptr, ctMemory, true, -1);
    sprites.setVersion(QSprites::version101);
    QRGBA colors[256];
    toneColors(1, colors);
    QSpritePalette* own = sprites.addPalette(colors, spsNew, 1, 1);
    QSpritePalette* empty = sprites.insertPaletteObject(1);
    {
        QSprites::ChangeLock lock(&sprites);
        empty->setSubItem(QSubItem(1, 1));
    }
    QSpritePalette* plain = sprites.addPalette(colors, spsNew, 0, 0);
    const QImage indexed = indexedImage(4, 4, 1);
    addSprite(sprites, 0, 0, indexed, own);
    addSprite(sprites, 5, 0, QImage(), nullptr);
    addSprite(sprites, 5, 1, indexed, nullptr);
    addSprite(sprites, 5, 2, argbImage(4, 4, 1), nullptr);
    addSprite(sprites, 6, 0, indexed, own);
    addSprite(sprites, 6, 0, indexed, own);
    addSprite(sprites, 6, 0, indexed, plain);
    addSprite(sprites, 5000, 0, indexed, plain);

    sprites.checkErrors();
    const QMessages* messages = sprites.messages();
    const QString used = QStringLiteral("The group 6, index 0 is already in use by sprite #%1!");
    const QList<Expected> expected = {
        {mtError, 1, QMsg::SpriteItem, QStringLiteral("Empty sprite!")},
        {mtError, 2, QMsg::SpriteItem, QStringLiteral("Indexed sprite without palette!")},
        {mtError, 3, QMsg::SpriteItem,
         QStringLiteral("Image format not supported for the current version (automatic conversion to 8bit "
                        "will be made on save)!")},
        {mtWarning, 4, QMsg::SpriteItem,
         QStringLiteral("Sprite can't receive the group 1 (character) palette at his position!")},
        {mtWarning, 5, QMsg::SpriteItem, used.arg(5)},
        {mtWarning, 6, QMsg::SpriteItem, used.arg(5)},
        {mtWarning, 6, QMsg::SpriteItem, used.arg(6)},
    };
    QVERIFY(messages->count() >= expected.size());
    for (int i = 0; i < expected.size(); ++i) {
        const QMsg& msg = messages->at(i);
        QCOMPARE(msg.text, expected.at(i).text);
        QCOMPARE(msg.type, expected.at(i).type);
        QCOMPARE(msg.index, expected.at(i).index);
        QCOMPARE(msg.line, expected.at(i).kind);
        QCOMPARE(msg.file, pftSprites);
    }
    // 62 of the 63 required sprites are missing, then the palette faults.
    int row = expected.size();
    for (int i = 0; i < 62; ++i, ++row)
        QVERIFY(messages->at(row).text.startsWith(QStringLiteral("Required sprite 50")));
    QCOMPARE(messages->at(expected.size()).text, QStringLiteral("Required sprite 5000, 10 is missing!"));
    QCOMPARE(messages->at(row).text, QStringLiteral("Empty palette!"));
    QCOMPARE(messages->at(row).line, int(QMsg::PaletteItem));
    QCOMPARE(messages->at(row).index, 1);
    QCOMPARE(messages->at(row + 1).text, QStringLiteral("The group 1, index 1 is already in use by palette #1!"));
    QCOMPARE(messages->at(row + 1).type, mtWarning);
    QCOMPARE(messages->count(), row + 2);
    QCOMPARE(QMessages::format(messages->at(row)), QStringLiteral("SFF(palette 1): Empty palette!"));

    // At version 2.0.1.0 true colour is fine and the palette order does not matter.
    sprites.setVersion(QSprites::defaultVersion);
    sprites.checkErrors();
    for (int i = 0; i < messages->count(); ++i) {
        QVERIFY(!messages->at(i).text.startsWith(QStringLiteral("Image format")));
        QVERIFY(!messages->at(i).text.startsWith(QStringLiteral("Sprite can't")));
    }
    QCOMPARE(messages->count(), row + 2 - 2);
}

void TestSprites::checkErrorsOnEmptyFile()
{
    QSprites sprites(nullptr, ctMemory, true, -1);
    sprites.insertPaletteObject(0);
    sprites.checkErrors();
    QCOMPARE(sprites.messages()->count(), 0);
    sprites.add();
    sprites.checkErrors();
    QVERIFY(sprites.messages()->count() > 0);
    sprites.remove(0);
    sprites.checkErrors();
    QCOMPARE(sprites.messages()->count(), 0);
}

void TestSprites::autoOrganizeByVersion()
{
    QSprites sprites(nullptr, ctMemory, true, -1);
    QRGBA tone[256];
    toneColors(1, tone);
    QSpritePalette* character = sprites.addPalette(tone, spsNew, 1, 1);
    toneColors(2, tone);
    QSpritePalette* a = sprites.addPalette(tone, spsNew, 0, 0);
    toneColors(3, tone);
    QSpritePalette* b = sprites.addPalette(tone, spsNew, 0, 1);
    const struct
    {
        int group, index;
        QSpritePalette* palette;
    } layout[] = {{3, 0, a}, {1, 0, nullptr}, {2, 0, b}, {9000, 1, nullptr}, {5, 0, character},
                  {4, 0, a}, {0, 0, character}, {2, 1, b}, {3, 0, a}};
    for (const auto& item : layout) {
        QSprite* sprite = sprites.add();
        sprite->setItem(item.group, item.index);
        sprite->setPalette(item.palette);
    }
    const ModelState before = ModelState::of(sprites);

    sprites.autoOrganize();
    QStringList order;
    for (int i = 0; i < sprites.count(); ++i)
        order << QStringLiteral("%1,%2").arg(sprites.at(i)->itemGroup()).arg(sprites.at(i)->itemIndex());
    QCOMPARE(order.join(QLatin1Char(' ')), QStringLiteral("0,0 1,0 2,0 2,1 3,0 3,0 4,0 5,0 9000,1"));
    sprites.undo();
    QCOMPARE(ModelState::of(sprites), before);

    sprites.setVersion(QSprites::version101);
    sprites.autoOrganize();
    QCOMPARE(sprites.at(0)->subItem(), QSubItem(9000, 1));
    QCOMPARE(sprites.at(1)->subItem(), QSubItem(0, 0));
    QCOMPARE(sprites.at(2)->subItem(), QSubItem(5, 0));
    QCOMPARE(sprites.at(8)->subItem(), QSubItem(1, 0));
    // The sprites of each other palette stand together, by group and index.
    QList<QSubItem> ofA, ofB;
    QList<QSpritePalette*> runs;
    for (int i = 3; i < 8; ++i) {
        QSpritePalette* palette = sprites.at(i)->palette();
        if (runs.isEmpty() || runs.last() != palette)
            runs.append(palette);
        (palette == a ? ofA : ofB).append(sprites.at(i)->subItem());
    }
    QCOMPARE(runs.size(), 2);
    QCOMPARE(ofA, (QList<QSubItem>{{3, 0}, {3, 0}, {4, 0}}));
    QCOMPARE(ofB, (QList<QSubItem>{{2, 0}, {2, 1}}));
    sprites.undo();
    QCOMPARE(ModelState::of(sprites), before);
}

void TestSprites::paletteAutoOrganize()
{
    QSprites sprites(nullptr, ctMemory, true, -1);
    QRGBA tone[256];
    for (const QSubItem& item : {QSubItem(2, 0), QSubItem(1, 1), QSubItem(1, 0)}) {
        toneColors(item.group * 3 + item.index, tone);
        sprites.addPalette(tone, spsNew, item.group, item.index);
    }
    QSprite* sprite = sprites.add();
    sprite->setPalette(sprites.paletteAt(0));
    sprites.paletteModel()->autoOrganize();
    QCOMPARE(sprites.paletteAt(0)->subItem(), QSubItem(1, 0));
    QCOMPARE(sprites.paletteAt(1)->subItem(), QSubItem(1, 1));
    QCOMPARE(sprites.paletteAt(2)->subItem(), QSubItem(2, 0));
    QCOMPARE(sprite->palette(), sprites.paletteAt(2));
    QCOMPARE(sprites.paletteModel()->rowCount(), 3);
    QCOMPARE(sprites.paletteModel()->data(sprites.paletteModel()->index(1)).toString(), QStringLiteral("1, 1"));
    sprites.undo();
    QCOMPARE(sprites.paletteAt(0)->subItem(), QSubItem(2, 0));
    QCOMPARE(sprite->properties().palette, 0);
}

void TestSprites::groupSteps()
{
    QSprites sprites(nullptr, ctMemory, true, -1);
    for (int group : {0, 0, 1, 1, 1, 2, 0}) {
        sprites.add()->setItemGroup(group);
        QRGBA tone[256];
        toneColors(sprites.paletteCount(), tone);
        sprites.addPalette(tone, spsNew, group, -1);
    }
    const int next[] = {2, 2, 5, 5, 5, 6, 0};
    const int previous[] = {0, 0, 0, 0, 0, 2, 5};
    for (int i = 0; i < sprites.count(); ++i) {
        QCOMPARE(sprites.at(i)->nextGroup(), next[i]);
        QCOMPARE(sprites.at(i)->previousGroup(), previous[i]);
        QCOMPARE(sprites.paletteAt(i)->nextGroup(), next[i]);
        QCOMPARE(sprites.paletteAt(i)->previousGroup(), previous[i]);
    }
    QCOMPARE(sprites.groupCount(), 3);
    QCOMPARE(sprites.paletteAt(6)->itemIndex(), 2);
}

void TestSprites::duplicateAndUnusedPalettes()
{
    QSprites sprites(nullptr, ctMemory, true, -1);
    QRGBA tone1[256], tone2[256], tone3[256];
    toneColors(1, tone1);
    toneColors(2, tone2);
    toneColors(3, tone3);
    QSpritePalette* a = sprites.addPalette(tone1, spsNew, 1, 1);
    QSpritePalette* b = sprites.addPalette(tone1, spsNew, 0, 0);
    QSpritePalette* c = sprites.addPalette(tone2, spsNew, 0, 1);
    QSpritePalette* d = sprites.addPalette(tone3, spsNew, 0, 2);
    d->setColors(tone2, ssmPrivate);
    QVERIFY(d->data() != c->data());
    sprites.add()->setPalette(b);
    sprites.add()->setPalette(d);
    sprites.add()->setPalette(c);
    const ModelState before = ModelState::of(sprites);

    sprites.removeDuplicatePalettes();
    QCOMPARE(sprites.paletteCount(), 2);
    QCOMPARE(sprites.paletteAt(0), a);
    QCOMPARE(sprites.paletteAt(1), c);
    QCOMPARE(sprites.at(0)->palette(), a);
    QCOMPARE(sprites.at(1)->palette(), c);
    sprites.undo();
    QCOMPARE(ModelState::of(sprites), before);

    sprites.redo();
    // Nothing left to remove: no further command.
    const int index = sprites.undoStack()->index();
    sprites.removeDuplicatePalettes();
    QCOMPARE(sprites.undoStack()->index(), index);
    sprites.undo();
    QCOMPARE(ModelState::of(sprites), before);

    for (int i = 0; i < 3; ++i)
        sprites.at(i)->setPalette(nullptr);
    sprites.at(0)->setPalette(sprites.paletteAt(3));
    sprites.clearUnusedPalettes();
    QCOMPARE(sprites.paletteCount(), 2);
    QCOMPARE(sprites.paletteAt(0)->subItem(), QSubItem(1, 1));
    QCOMPARE(sprites.paletteAt(1)->subItem(), QSubItem(0, 2));
}
