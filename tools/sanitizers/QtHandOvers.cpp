// SPDX-License-Identifier: GPL-3.0-or-later
//
// Tells ThreadSanitizer what comes before what where Qt hands our closures from thread to thread: to a pool,
// from it to an event loop, and over a semaphore. It cannot see that by itself, since the locks are taken
// inside a Qt that was built without it. The linker leads our calls here (--wrap, see
// cmake/Sanitizers.cmake); each does what Qt does, and says no more than what Qt promises.
#include <QObject>
#include <QRunnable>
#include <QSemaphore>
#include <QThreadPool>

#include <sanitizer/tsan_interface.h>

#include <cstdarg>
#include <functional>
#include <utility>

namespace {

/// Work for a pool. What was done before it was handed over is seen by the work, and the work by whoever
/// waits for the pool.
class PoolWork : public QRunnable
{
public:
    PoolWork(QThreadPool *pool, QRunnable *work)
        : m_pool(pool)
        , m_work(work)
    {
        __tsan_release(this);
    }
    ~PoolWork() override { discard(); }
    Q_DISABLE_COPY_MOVE(PoolWork)

    void run() override
    {
        __tsan_acquire(this);
        m_work->run();
        discard(); // with what it holds, while that can still be told of
        __tsan_release(m_pool);
    }

private:
    void discard()
    {
        if (m_work && m_work->autoDelete())
            delete m_work;
        m_work = nullptr;
    }

    QThreadPool *m_pool;
    QRunnable *m_work;
};

/// A call that may wait in the queue of another thread.
class PostedCall : public QtPrivate::QSlotObjectBase
{
public:
    explicit PostedCall(QSlotObjectBase *call)
        : QSlotObjectBase(&PostedCall::carryOut)
        , m_call(call)
    {
        __tsan_release(this);
    }

private:
    // Whichever thread lets go of the call last destroys it.
    static void carryOut(int operation, QSlotObjectBase *self, QObject *receiver, void **arguments, bool *)
    {
        __tsan_acquire(self);
        auto *posted = static_cast<PostedCall *>(self);
        if (operation == Call) {
            posted->m_call->call(receiver, arguments);
            __tsan_release(self);
        } else if (operation == Destroy) {
            posted->m_call->destroyIfLastRef();
            delete posted;
        }
    }

    QSlotObjectBase *m_call;
};

} // namespace

// Qt's own, by the linker's names for them.
void startInQt(QThreadPool *, QRunnable *, int) __asm__("__real__ZN11QThreadPool5startEP9QRunnablei");
bool waitForDoneInQt(QThreadPool *, int) __asm__("__real__ZN11QThreadPool11waitForDoneEi");
void destroyInQt(QThreadPool *) __asm__("__real__ZN11QThreadPoolD1Ev");
void acquireInQt(QSemaphore *, int) __asm__("__real__ZN10QSemaphore7acquireEi");
void releaseInQt(QSemaphore *, int) __asm__("__real__ZN10QSemaphore7releaseEi");
bool invokeInQt(QObject *, QtPrivate::QSlotObjectBase *, Qt::ConnectionType, void *) __asm__(
    "__real__ZN11QMetaObject16invokeMethodImplEP7QObjectPN9QtPrivate15QSlotObjectBaseEN2Qt14Connecti"
    "onTypeEPv");

// What our calls come to instead.
void startWork(QThreadPool *, QRunnable *, int) __asm__("__wrap__ZN11QThreadPool5startEP9QRunnablei");
void startFunction(QThreadPool *, std::function<void()>,
                   int) __asm__("__wrap__ZN11QThreadPool5startESt8functionIFvvEEi");
bool waitForDone(QThreadPool *, int) __asm__("__wrap__ZN11QThreadPool11waitForDoneEi");
void destroy(QThreadPool *) __asm__("__wrap__ZN11QThreadPoolD1Ev");
void acquire(QSemaphore *, int) __asm__("__wrap__ZN10QSemaphore7acquireEi");
void release(QSemaphore *, int) __asm__("__wrap__ZN10QSemaphore7releaseEi");
bool invoke(QObject *, QtPrivate::QSlotObjectBase *, Qt::ConnectionType, void *) __asm__(
    "__wrap__ZN11QMetaObject16invokeMethodImplEP7QObjectPN9QtPrivate15QSlotObjectBaseEN2Qt14Connecti"
    "onTypeEPv");

void startWork(QThreadPool *pool, QRunnable *work, int priority)
{
    startInQt(pool, new PoolWork(pool, work), priority);
}

void startFunction(QThreadPool *pool, std::function<void()> function, int priority)
{
    startWork(pool, QRunnable::create(std::move(function)), priority);
}

bool waitForDone(QThreadPool *pool, int milliseconds)
{
    const bool isDone = waitForDoneInQt(pool, milliseconds);
    __tsan_acquire(pool);
    return isDone;
}

void destroy(QThreadPool *pool)
{
    destroyInQt(pool);
    __tsan_acquire(pool); // it has waited for its work
}

void acquire(QSemaphore *semaphore, int count)
{
    acquireInQt(semaphore, count);
    __tsan_acquire(semaphore);
}

void release(QSemaphore *semaphore, int count)
{
    __tsan_release(semaphore);
    releaseInQt(semaphore, count);
}

bool invoke(QObject *receiver, QtPrivate::QSlotObjectBase *call, Qt::ConnectionType type, void *result)
{
    return invokeInQt(receiver, new PostedCall(call), type, result);
}

// The libraries come from the system, without the sanitizer in them.
extern "C" const char *__tsan_default_options()
{
    return "ignore_noninstrumented_modules=1:second_deadlock_stack=1";
}

// QProcess makes its children with this. ThreadSanitizer's own takes the memory that the child shares with
// its parent for a copy, notes in it that there are no other threads any more, and is blind from then on.
extern "C" int __clone(int (*)(void *), void *, int, void *, ...);
extern "C" int clone(int (*function)(void *), void *stack, int flags, void *argument, ...)
{
    va_list more;
    va_start(more, argument);
    void *parentId = va_arg(more, void *);
    void *threadArea = va_arg(more, void *);
    void *childId = va_arg(more, void *);
    va_end(more);
    return __clone(function, stack, flags, argument, parentId, threadArea, childId);
}
