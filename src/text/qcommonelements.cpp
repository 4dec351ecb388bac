#include "qcommonelements.h"

#include "namecmmreg.h"
#include "unknowngrpreg.h"

QRecycleAllocator<QNameComment> cmmAlloc;
QRecycleAllocator<QUnknownGroup> ugrpAlloc;
QRecycleAllocator<QSingletonParamGroup> sgrpAlloc;
QRecycleAllocator<QStringParam> strAlloc;
QRecycleAllocator<QValueParam> valAlloc;
QRecycleAllocator<QIntParam> intAlloc;
QRecycleAllocator<QIntNParam> intnAlloc;
QRecycleAllocator<QFloatParam> floatAlloc;
QRecycleAllocator<QFloatNParam> floatnAlloc;
QRecycleAllocator<QCommandParam> cmdPAlloc;
QRecycleAllocator<QVersionParam> verAlloc;
QRecycleAllocator<QFileParam> fpAlloc;

namespace {

template <typename Call> void forEachPool(Call call)
{
    call(cmmAlloc);
    call(ugrpAlloc);
    call(sgrpAlloc);
    call(strAlloc);
    call(valAlloc);
    call(intAlloc);
    call(intnAlloc);
    call(floatAlloc);
    call(floatnAlloc);
    call(cmdPAlloc);
    call(verAlloc);
    call(fpAlloc);
}

} // namespace

void initCommonElements()
{
    QTextElementReg::registerElement(new NameCmmReg);
    QTextElementReg::registerElement(new UnknownGrpReg);
}

void flushCommonElements()
{
    forEachPool([](auto& pool) { pool.flush(); });
}

void releaseCommonElements()
{
    forEachPool([](auto& pool) { pool.release(); });
}
