#pragma once

#include <QList>
#include <QSet>

/**
 * A pool of objects that are made often and given back often (cache items,
 * text elements). alloc() hands out the last object given back, or makes a
 * new one; clean() gives an object back without destroying it, so whatever
 * it still holds stays alive until it is reused: callers clear heavy members
 * first. flush() destroys the objects given back; release() destroys every
 * object the pool ever made, handed out or not. Single-threaded by design.
 */
template<typename T>
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
        if (m_free.isEmpty())
            return;
        const QSet<T*> freed(m_free.cbegin(), m_free.cend());
        m_all.removeIf([&freed](T* object) { return freed.contains(object); });
        qDeleteAll(freed);
        m_free.clear();
    }

    void release()
    {
        qDeleteAll(m_all);
        m_all.clear();
        m_free.clear();
    }

    /// Objects made and not destroyed, handed out or free.
    int allocated() const { return int(m_all.size()); }
    /// Objects given back and waiting for reuse.
    int available() const { return int(m_free.size()); }

private:
    QList<T*> m_all;
    QList<T*> m_free;
};
