#pragma once

#include "paramregbase.h"
#include "util/qrecycleallocator.h"

/**
 * The registry entry of parameter class T: recognises its lines and makes
 * its objects from the pool of T. T names its own sub-type (T::paramSubType).
 */
template <class T> class ParamReg : public ParamRegBase
{
public:
    ParamReg(const QString& key, QGroupParamID id, QRecycleAllocator<T>* pool)
        : ParamRegBase(key, id, T::paramSubType)
        , m_pool(pool)
    {
    }

    QGroupParam* create() override
    {
        T* param = m_pool->alloc();
        setup(param);
        return param;
    }

private:
    QRecycleAllocator<T>* m_pool;
};
