#include "tst_render.h"

#include "model/qsprites.h"

#include <QtTest>

void TestRender::initTestCase()
{
    QSprites::init();
}

QTEST_MAIN(TestRender)
