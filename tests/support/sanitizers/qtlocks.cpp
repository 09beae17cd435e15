// Part of every test program under ThreadSanitizer, which cannot see the locks of a Qt that is not
// instrumented itself: tells it what they order. Defined here, these functions are the ones that
// the whole program finds; each does what Qt's own one does.

#include <QtCore/QDeadlineTimer>
#include <QtCore/QMutex>
#include <QtCore/QRunnable>
#include <QtCore/QThreadPool>
#include <QtCore/QWaitCondition>

#include <dlfcn.h>
#include <sanitizer/tsan_interface.h>
#include <utility>

namespace {

template <typename Function>
Function *qtFunction(const char *name)
{
    return reinterpret_cast<Function *>(dlsym(RTLD_NEXT, name));
}

// What was done before start() is there for the thread that runs it.
class Ordered : public QRunnable
{
public:
    explicit Ordered(QRunnable *runnable) : m_runnable(runnable) { __tsan_release(this); }
    ~Ordered() override
    {
        if (m_runnable && m_runnable->autoDelete()) // by a pool that was cleared
            delete m_runnable;
    }

    void run() override
    {
        __tsan_acquire(this);
        QRunnable *runnable = std::exchange(m_runnable, nullptr);
        const bool isOwner = runnable->autoDelete();
        runnable->run();
        if (isOwner)
            delete runnable;
    }

private:
    QRunnable *m_runnable;
};

} // namespace

void QMutex::lock() QT_MUTEX_LOCK_NOEXCEPT
{
    static const auto lock = qtFunction<void(QMutex *)>("_ZN6QMutex4lockEv");
    lock(this);
    __tsan_acquire(this);
}

bool QMutex::tryLock(int timeout) QT_MUTEX_LOCK_NOEXCEPT
{
    static const auto tryLock = qtFunction<bool(QMutex *, int)>("_ZN6QMutex7tryLockEi");
    const bool isLocked = tryLock(this, timeout);
    if (isLocked)
        __tsan_acquire(this);
    return isLocked;
}

void QMutex::unlock() noexcept
{
    static const auto unlock = qtFunction<void(QMutex *)>("_ZN6QMutex6unlockEv");
    __tsan_release(this);
    unlock(this);
}

// The lock is open while this waits.
bool QWaitCondition::wait(QMutex *mutex, QDeadlineTimer deadline)
{
    static const auto wait = qtFunction<bool(QWaitCondition *, QMutex *, QDeadlineTimer)>(
        "_ZN14QWaitCondition4waitEP6QMutex14QDeadlineTimer");
    __tsan_release(mutex);
    const bool isWoken = wait(this, mutex, deadline);
    __tsan_acquire(mutex);
    return isWoken;
}

bool QWaitCondition::wait(QMutex *mutex, unsigned long time)
{
    static const auto wait = qtFunction<bool(QWaitCondition *, QMutex *, unsigned long)>(
        "_ZN14QWaitCondition4waitEP6QMutexm");
    __tsan_release(mutex);
    const bool isWoken = wait(this, mutex, time);
    __tsan_acquire(mutex);
    return isWoken;
}

void QThreadPool::start(QRunnable *runnable, int priority)
{
    static const auto start = qtFunction<void(QThreadPool *, QRunnable *, int)>(
        "_ZN11QThreadPool5startEP9QRunnablei");
    start(this, runnable ? new Ordered(runnable) : nullptr, priority);
}
