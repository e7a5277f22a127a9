#pragma once

#include <QtGlobal>

#include <cstddef>
#include <deque>
#include <memory>
#include <mutex>
#include <utility>

QT_BEGIN_NAMESPACE
class QThreadPool;
QT_END_NAMESPACE

namespace Tavoro::SessionInternal {

class Courier;

/// One piece of work of a lane. It may own what belongs to the session's thread, such as a
/// QIODevice of the application: a lane never destroys it on a thread of the pool.
class LaneJob {
public:
    virtual ~LaneJob() = default;
    /// Does the work; may block. On a thread of the pool.
    virtual void run() = 0;
    /// Passes the result on. On the courier's thread, after run().
    virtual void deliver() = 0;
};

/// Runs jobs one after the other, in their order. It occupies a thread of the pool only while it
/// has work, so the number of threads is that of the busy lanes.
///
/// | member                        | thread                    |
/// |-------------------------------|---------------------------|
/// | append, remove, removeAll     | any                       |
/// | m_waiting, m_isRunning        | any, guarded by m_mutex   |
class Lane : public std::enable_shared_from_this<Lane> {
public:
    using JobPtr = std::shared_ptr<LaneJob>;

    /// The pool must have a thread for each lane, and must outlive the work of the lane. \a courier
    /// must not be closed before that work has ended.
    Lane(QThreadPool &pool, std::shared_ptr<Courier> courier)
        : m_pool(pool), m_courier(std::move(courier))
    { }

    void append(JobPtr job);
    /// Removes a job that waits. Returns false if it does not wait any more.
    bool remove(const JobPtr &job);
    /// Removes and returns the jobs that wait.
    std::deque<JobPtr> removeAll();
    /// Number of jobs that wait.
    std::size_t waiting() const;

private:
    void work();
    JobPtr takeNext();

    QThreadPool &m_pool;
    const std::shared_ptr<Courier> m_courier;
    mutable std::mutex m_mutex;
    std::deque<JobPtr> m_waiting;
    bool m_isRunning = false;
};

} // namespace Tavoro::SessionInternal
