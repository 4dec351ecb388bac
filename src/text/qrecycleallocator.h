#pragma once

#include "qrecyclepool.h"
#include "qtextelement.h"

#include <QList>
#include <QSet>

#include <type_traits>

/**
 * A pool of text elements of one class. Elements come and go with every
 * edit, so they are never deleted singly: alloc() hands out the last free
 * object as it was left (the caller sets it up again) or makes a new one,
 * clean() puts one back, flush() deletes the free ones and release() deletes
 * all of them. An element remembers its pool, so QTextElement::clean() finds
 * the way back on its own.
 */
template <class T> class QRecycleAllocator : public QRecyclePool
{
    static_assert(std::is_base_of_v<QTextElement, T>, "pools hold text elements");

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
        object->setPool(this);
        m_all.append(object);
        return object;
    }

    void clean(T* object) { m_free.append(object); }

    void flush()
    {
        const QSet<T*> free(m_free.cbegin(), m_free.cend());
        m_all.removeIf([&free](T* object) { return free.contains(object); });
        qDeleteAll(m_free);
        m_free.clear();
    }

    void release()
    {
        qDeleteAll(m_all);
        m_all.clear();
        m_free.clear();
    }

    /// Objects made and not deleted, in use or free.
    int size() const { return int(m_all.size()); }
    int freeCount() const { return int(m_free.size()); }

    void recycle(QTextElement* element) override { clean(static_cast<T*>(element)); }

private:
    QList<T*> m_all;
    QList<T*> m_free;
};
