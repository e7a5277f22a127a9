// Shows ThreadSanitizer how Qt 5 synchronises threads.
//
// Debian's Qt is not instrumented: without this file, data that a QMutex guards looks unguarded,
// and the sanitizer reports races in correct programs. The members below replace those of Qt, call
// the originals, and announce their synchronisation to the sanitizer. Only programs built with
// ThreadSanitizer contain them.

#include <QDeadlineTimer>
#include <QMutex>
#include <QThread>
#include <QWaitCondition>

#include <dlfcn.h>

extern "C" {
void __tsan_acquire(void *address);
void __tsan_release(void *address);
}

namespace {

/// The library's own function; a member takes its object as the first argument.
template <class Function>
Function *original(const char *symbol)
{
    return reinterpret_cast<Function *>(dlsym(RTLD_NEXT, symbol));
}

} // namespace

void QMutex::lock() noexcept
{
    static auto *const real = original<void(QMutex *)>("_ZN6QMutex4lockEv");
    real(this);
    __tsan_acquire(this);
}

void QMutex::unlock() noexcept
{
    static auto *const real = original<void(QMutex *)>("_ZN6QMutex6unlockEv");
    __tsan_release(this);
    real(this);
}

bool QMutex::tryLock(int timeout) noexcept
{
    static auto *const real = original<bool(QMutex *, int)>("_ZN6QMutex7tryLockEi");
    const bool locked = real(this, timeout);
    if (locked)
        __tsan_acquire(this);
    return locked;
}

bool QWaitCondition::wait(QMutex *mutex, unsigned long time)
{
    static auto *const real = original<bool(QWaitCondition *, QMutex *, unsigned long)>(
        "_ZN14QWaitCondition4waitEP6QMutexm");
    __tsan_release(mutex);
    const bool woken = real(this, mutex, time);
    __tsan_acquire(mutex);
    return woken;
}

bool QWaitCondition::wait(QMutex *mutex, QDeadlineTimer deadline)
{
    static auto *const real = original<bool(QWaitCondition *, QMutex *, QDeadlineTimer)>(
        "_ZN14QWaitCondition4waitEP6QMutex14QDeadlineTimer");
    __tsan_release(mutex);
    const bool woken = real(this, mutex, deadline);
    __tsan_acquire(mutex);
    return woken;
}

void QThread::start(Priority priority)
{
    static auto *const real =
        original<void(QThread *, Priority)>("_ZN7QThread5startENS_8PriorityE");
    // Runs on the thread itself, after run() and before waiting threads are woken.
    connect(
        this, &QThread::finished, this, [this] { __tsan_release(this); }, Qt::DirectConnection);
    real(this, priority);
}

bool QThread::wait(QDeadlineTimer deadline)
{
    static auto *const real =
        original<bool(QThread *, QDeadlineTimer)>("_ZN7QThread4waitE14QDeadlineTimer");
    const bool ended = real(this, deadline);
    if (ended)
        __tsan_acquire(this);
    return ended;
}

bool QThread::isRunning() const
{
    static auto *const real = original<bool(const QThread *)>("_ZNK7QThread9isRunningEv");
    const bool running = real(this);
    if (!running)
        __tsan_acquire(const_cast<QThread *>(this));
    return running;
}
