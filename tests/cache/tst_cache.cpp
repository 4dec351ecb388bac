#include "tst_cache.h"

#include "model/qstreamcache.h"
#include "model/qstreamcachefilters.h"

#include <QtTest>

void TestCache::initTestCase()
{
    QStreamCache::registerFilter(cfPCX, new QPCXCacheFilter);
    QStreamCache::registerFilter(cfRLE8, new QRLE8CacheFilter);
    QStreamCache::registerFilter(cfRLE5, new QRLE5CacheFilter);
    QStreamCache::registerFilter(cfLZ5, new QLZ5CacheFilter);
    QStreamCache::registerFilter(cfPNG, new QPNGCacheFilter);
}

void TestCache::cleanupTestCase()
{
    QStreamCache::release();
}

QTEST_GUILESS_MAIN(TestCache)
