#pragma once

class QTextElement;

/**
 * What a text element needs to know of the pool it came from: how to give
 * itself back. QRecycleAllocator<T> implements it for its class, so an
 * element returns to the right pool without knowing its concrete type.
 */
class QRecyclePool
{
public:
    virtual void recycle(QTextElement* element) = 0;

protected:
    ~QRecyclePool() = default;
};
