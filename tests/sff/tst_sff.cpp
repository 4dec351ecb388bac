#include "tst_sff.h"

#include "model/qsprites.h"

#include <QtTest>

void TestSff::initTestCase()
{
    QSprites::init();
}

QTEST_GUILESS_MAIN(TestSff)
