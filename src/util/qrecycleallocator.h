#pragma once

#include <QList>
#include <QSet>

#include <type_traits>

/**
 * An object's way back to the pool that made it. Objects that give
 * themselves back (text elements, which only know their base class) keep a
 * pointer to this; the pool casts back to its own class.
 */
template<typename Base>
class QRecyclePool
{
public:
    virtual void recycle(Base* object) = 0;

protected:
    ~QRecyclePool() = default;
};

/// The class through which objects of T return to their pool: T::RecycleBase
/// when T names one (and then takes the pool with setPool()), else T itself.
template<typename T, typename = void>
struct QRecycleBaseOf
{
    using type = T;
};
template<typename T>
struct QRecycleBaseOf<T, std::void_t<typename T::RecycleBase>>
{
    using type = typename T::RecycleBase;
};

/**
 * A pool of objects that are made often and given back often (cache items,
 * text elements): they are never deleted singly. alloc() hands out the last
 * object given back, as it was left (the caller sets it up again), or makes
 * a new one; clean() gives an object back without destroying it, so whatever
 * it still holds stays alive until it is reused: callers clear heavy members
 * first. flush() destroys the objects given back; release() destroys every
 * object the pool ever made, handed out or not. Single-threaded by design.
 */
template<typename T>
class QRecycleAllocator : public QRecyclePool<typename QRecycleBaseOf<T>::type>
{
    using Base = typename QRecycleBaseOf<T>::type;

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
        if constexpr (!std::is_same_v<Base, T>)
            object->setPool(this);
        m_all.append(object);
        return object;
    }

    void clean(T* object) { m_free.append(object); }

    void recycle(Base* object) override { clean(static_cast<T*>(object)); }

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
