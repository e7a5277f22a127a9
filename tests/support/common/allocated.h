#pragma once

#include <QString>
#include <QtGlobal>

/// What the process has allocated and not freed, counted at each call of malloc() and free(). Other
/// than the figures of the heap itself, this leaves out what threads keep for their next
/// allocation, and so is exact: what leaves nothing behind changes neither number. Not for programs
/// with a sanitizer, which has an allocator of its own.
struct Allocated {
    static Allocated now();

    bool operator==(const Allocated &other) const
    {
        return blocks == other.blocks && bytes == other.bytes;
    }
    /// As many blocks, and about as many bytes: a text may have become longer by a digit.
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
