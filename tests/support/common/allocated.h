#pragma once

#include <QString>
#include <QtGlobal>

/// The blocks and bytes that the process has allocated and not freed, counted at each call of
/// malloc() and free(). Unlike the statistics of the heap, the counts are exact: they leave out the
/// freed memory that threads keep for their next allocation, so code that frees everything changes
/// neither of them. Not available in programs with a sanitizer, which has its own allocator.
struct Allocated {
    static Allocated now();

    bool operator==(const Allocated &other) const
    {
        return blocks == other.blocks && bytes == other.bytes;
    }
    /// The same number of blocks and nearly the same number of bytes: a number in a text may have
    /// become longer by a digit.
    bool isAsIn(const Allocated &other) const
    {
        constexpr qint64 digits = 64;
        return blocks == other.blocks && qAbs(bytes - other.bytes) <= digits;
    }

    QString moreThan(const Allocated &other) const
    {
        return QStringLiteral("%1 bytes in %2 blocks")
            .arg(bytes - other.bytes)
            .arg(blocks - other.blocks);
    }

    qint64 blocks;
    qint64 bytes;
};
