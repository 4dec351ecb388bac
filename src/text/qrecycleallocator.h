#pragma once

#include <QList>

/**
 * A pool of objects of one class that are never deleted singly: text
 * elements come and go with every edit, so they are taken from the free list
 * and given back to it instead of being allocated each time. alloc() hands
 * out a free object as it was left (the user sets it up again); clean() puts
 * it back; flush() deletes the free ones; release() deletes all of them.
 */
template<class T>
class QRecycleAllocator
{
public:
    QRecycleAllocator() = default;
    QRecycleAllocator(const QRecycleAllocator&) = delete;
    QRecycleAllocator& operator=(const QRecycleAllocator&) = delete;
    ~QRecycleAllocator() { release(); }

    T* alloc()
    {
        if (!m_free.isEmpty())
            return m_free.takeLast();
        T* object = new T;
        m_all.append(object);
        return object;
    }

    void clean(T* object) { m_free.append(object); }

    void flush()
    {
        for (T* object : std::as_const(m_free))
            m_all.removeOne(object);
        qDeleteAll(m_free);
        m_free.clear();
    }

    void release()
    {
        qDeleteAll(m_all);
        m_all.clear();
        m_free.clear();
    }

    int size() const { return int(m_all.size()); }
    int freeCount() const { return int(m_free.size()); }

private:
    QList<T*> m_all;
    QList<T*> m_free;
};
