#pragma once

#include <QByteArray>

/**
 * `length` bytes of `whole` from `offset`, sharing its memory rather than
 * copying it: a file read into memory once gives every payload in it without
 * an allocation and a copy each. The slice keeps the whole buffer alive for
 * as long as it lives, and its first change copies it out, as with any shared
 * QByteArray. The range must lie inside `whole`.
 */
inline QByteArray sharedSlice(const QByteArray& whole, qsizetype offset, qsizetype length)
{
    Q_ASSERT(offset >= 0 && length >= 0 && offset + length <= whole.size());
    if (length == 0)
        return QByteArray();
    QByteArray shared = whole;
    QByteArray::DataPointer part = shared.data_ptr();
    part.ptr += offset;
    part.size = length;
    return QByteArray(std::move(part));
}
