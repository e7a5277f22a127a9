#include "faultyvfs.h"

#include <sqlite3.h>

#include <atomic>
#include <csignal>
#include <cstdint>
#include <cstdlib>
#include <cstring>
#include <mutex>
#include <utility>

namespace FaultyVfs {

namespace {

std::atomic<Fault> armed = Fault::None;
std::atomic<int> countdown = 0;
std::atomic<int> count = 0;

std::mutex waitMutex;
std::function<void()> onWait; // guarded by waitMutex

sqlite3_vfs *disk = nullptr;

/// A file on the disk. SQLite requires the base class at the start.
struct File {
    sqlite3_file head;
    sqlite3_file *real; // stored after this structure
};

sqlite3_file *realOf(sqlite3_file *file)
{
    return reinterpret_cast<File *>(file)->real;
}

void die()
{
    raise(SIGKILL);
}

/// The fault of the operation that begins now. Only a write can be half done.
Fault faultNow(bool isWrite = false)
{
    ++count;
    const int left = --countdown;
    if (left > 0 || (left < 0 && armed != Fault::DiskFull))
        return Fault::None;
    const Fault fault = armed;
    if (fault == Fault::Kill || (fault == Fault::KillHalfway && !isWrite))
        die();
    return fault;
}

int write(sqlite3_file *file, const void *data, int size, sqlite3_int64 offset)
{
    auto *const real = realOf(file);
    const Fault fault = faultNow(true);
    if (fault == Fault::DiskFull)
        return SQLITE_FULL;
    if (fault == Fault::KillHalfway) {
        real->pMethods->xWrite(real, data, size / 2, offset);
        die();
    }
    return real->pMethods->xWrite(real, data, size, offset);
}

int truncate(sqlite3_file *file, sqlite3_int64 size)
{
    faultNow();
    return realOf(file)->pMethods->xTruncate(realOf(file), size);
}

int sync(sqlite3_file *file, int flags)
{
    return faultNow() == Fault::DiskFull ? SQLITE_IOERR_FSYNC
                                         : realOf(file)->pMethods->xSync(realOf(file), flags);
}

int lock(sqlite3_file *file, int level)
{
    const int result = realOf(file)->pMethods->xLock(realOf(file), level);
    std::function<void()> whenBusy;
    if (result == SQLITE_BUSY) {
        const std::lock_guard<std::mutex> guard(waitMutex);
        std::swap(whenBusy, onWait);
    }
    if (whenBusy)
        whenBusy();
    return result;
}

int remove(sqlite3_vfs *, const char *name, int syncDir)
{
    faultNow();
    return disk->xDelete(disk, name, syncDir);
}

// clang-format off
int close(sqlite3_file *f)                                         { return realOf(f)->pMethods->xClose(realOf(f)); }
int read(sqlite3_file *f, void *data, int size, sqlite3_int64 at)  { return realOf(f)->pMethods->xRead(realOf(f), data, size, at); }
int fileSize(sqlite3_file *f, sqlite3_int64 *size)                 { return realOf(f)->pMethods->xFileSize(realOf(f), size); }
int unlock(sqlite3_file *f, int level)                             { return realOf(f)->pMethods->xUnlock(realOf(f), level); }
int checkReservedLock(sqlite3_file *f, int *result)                { return realOf(f)->pMethods->xCheckReservedLock(realOf(f), result); }
int fileControl(sqlite3_file *f, int operation, void *argument)    { return realOf(f)->pMethods->xFileControl(realOf(f), operation, argument); }
int sectorSize(sqlite3_file *f)                                    { return realOf(f)->pMethods->xSectorSize(realOf(f)); }
int deviceCharacteristics(sqlite3_file *f)                         { return realOf(f)->pMethods->xDeviceCharacteristics(realOf(f)); }
// clang-format on

/// Version 1 of the interface has neither shared memory nor mapped pages, so every change of a file
/// passes through this layer.
sqlite3_io_methods methods()
{
    sqlite3_io_methods table{};
    table.iVersion = 1;
    table.xClose = close;
    table.xRead = read;
    table.xWrite = write;
    table.xTruncate = truncate;
    table.xSync = sync;
    table.xFileSize = fileSize;
    table.xLock = lock;
    table.xUnlock = unlock;
    table.xCheckReservedLock = checkReservedLock;
    table.xFileControl = fileControl;
    table.xSectorSize = sectorSize;
    table.xDeviceCharacteristics = deviceCharacteristics;
    return table;
}

int open(sqlite3_vfs *, const char *name, sqlite3_file *file, int flags, int *outFlags)
{
    static const sqlite3_io_methods table = methods();
    auto *const own = reinterpret_cast<File *>(file);
    own->real = reinterpret_cast<sqlite3_file *>(own + 1);
    constexpr int toWrite = SQLITE_OPEN_READWRITE | SQLITE_OPEN_CREATE;
    if (armed == Fault::ReadOnly)
        flags = (flags & ~toWrite) | SQLITE_OPEN_READONLY;
    const int result = disk->xOpen(disk, name, own->real, flags, outFlags);
    own->head.pMethods = own->real->pMethods ? &table : nullptr;
    return result;
}

} // namespace

void install()
{
    disk = sqlite3_vfs_find(nullptr);
    static sqlite3_vfs faulty = *disk; // all other functions are those of the disk
    faulty.szOsFile = int(sizeof(File)) + disk->szOsFile;
    faulty.zName = "faulty";
    faulty.xOpen = open;
    faulty.xDelete = remove;
    sqlite3_vfs_register(&faulty, 1);
}

void arm(Fault fault, int number)
{
    armed = fault;
    countdown = number;
    count = 0;
}

void catchWait(const std::function<void()> &whenBusy)
{
    const std::lock_guard<std::mutex> guard(waitMutex);
    onWait = whenBusy;
}

int operations()
{
    return count;
}

} // namespace FaultyVfs
