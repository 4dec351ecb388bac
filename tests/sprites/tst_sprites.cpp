#include "tst_sprites.h"

#include "model/qsprites.h"

#include <QtTest>

void TestSprites::initTestCase()
{
    QSprites::init();
}

QTEST_GUILESS_MAIN(TestSprites)
