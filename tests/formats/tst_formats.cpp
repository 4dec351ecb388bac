#include "tst_formats.h"

#include <QtTest>

QTEST_GUILESS_MAIN(TestFormats)
