// Shows ThreadSanitizer how Qt 5 synchronises threads.
//
// Debian's Qt is not instrumented: without this file, data that a QMutex guards looks unguarded,
// and the sanitizer reports races in correct programs. The members below replace those of Qt, call
// the originals, and announce their synchronisation to the sanitizer. Only programs built with
// ThreadSanitizer contain them.

#include <QDeadlineTimer>
#include <QMutex>
#include <QObject>
#include <QRunnable>
#include <QThread>
#include <QThreadPool>
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

/// Stands for the connections of all objects.
char connections;

/// Runs another runnable, and announces that everything before its start precedes its run.
class AnnouncedRunnable final : public QRunnable {
public:
    explicit AnnouncedRunnable(QRunnable *runnable) : m_runnable(runnable) { }

    __attribute__((no_sanitize("thread"))) void run() override
    {
        __tsan_acquire(m_runnable);
        m_runnable->run();
        if (m_runnable->autoDelete())
            delete m_runnable;
    }

private:
    QRunnable *const m_runnable;
};

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

QMetaObject::Connection QObject::connectImpl(const QObject *sender, void **signal,
                                             const QObject *receiver, void **slotPtr,
                                             QtPrivate::QSlotObjectBase *slot,
                                             Qt::ConnectionType type, const int *types,
                                             const QMetaObject *senderMetaObject)
{
    static auto *const real =
        original<decltype(connectImpl)>("_ZN7QObject11connectImplEPKS_PPvS1_S3_"
                                        "PN9QtPrivate15QSlotObjectBaseEN2Qt14ConnectionTypeEPKi"
                                        "PK11QMetaObject");
    __tsan_release(&connections);
    return real(sender, signal, receiver, slotPtr, slot, type, types, senderMetaObject);
}

void QMetaObject::activate(QObject *sender, const QMetaObject *object, int localSignal, void **args)
{
    static auto *const real = original<void(QObject *, const QMetaObject *, int, void **)>(
        "_ZN11QMetaObject8activateEP7QObjectPKS_iPPv");
    __tsan_acquire(&connections);
    real(sender, object, localSignal, args);
}

void QThreadPool::start(QRunnable *runnable, int priority)
{
    static auto *const real =
        original<void(QThreadPool *, QRunnable *, int)>("_ZN11QThreadPool5startEP9QRunnablei");
    auto *const announced = new AnnouncedRunnable(runnable);
    __tsan_release(runnable);
    real(this, announced, priority);
}
