#pragma once

#include "devicereader_p.h"
#include "shared_p.h"

#include <tavorosession/sessionoptions.h>

#include <QString>
#include <QTimer>

#include <chrono>
#include <memory>

namespace Tavoro::SessionInternal {

/// Reads a device into the model: waits for its turn, reads, applies what was read, and repeats a
/// reading that failed. On the session's thread.
class DeviceReading {
public:
    /// What the owner learns of a reading.
    class Events {
    public:
        /// The device is read, or waits for its turn.
        virtual void readingStarted() = 0;
        /// \a share of the reading is done, from 0 to 1.
        virtual void readingProgressed(double share) = 0;
        /// Reports have changed these kinds since they were read. They must be read again.
        virtual void readingOutdated(const std::vector<Operations::Scope> &scopes) = 0;
        /// The device cannot be read for \a reason, and is read again after \a pause.
        virtual void readingFailed(const QString &reason, std::chrono::milliseconds pause) = 0;
        /// The model holds the device, except for what \a failures names, if it is not empty.
        virtual void readingEnded(const QString &failures) = 0;

    protected:
        ~Events() = default;
    };

    /// Reads in \a lane.
    DeviceReading(const Shared &shared, std::shared_ptr<Lane> lane, const SessionOptions &options,
                  Events &events);
    ~DeviceReading();

    /// Reads the device over \a target. If it is being read, reads it once more afterwards.
    void request(std::shared_ptr<const CallTarget> target);
    /// Ends a reading, and forgets the target. The read under way ends when its connection does,
    /// and changes nothing any more.
    void stop();

private:
    using ReaderPtr = std::shared_ptr<DeviceReader>;

    void start();
    void ended(const ReaderPtr &reader);
    void apply(DeviceReadResult &result, const std::shared_ptr<BizModel::Device> &device) const;
    void leaveOutdated(DeviceReadResult &result) const;
    void retry(const QString &reason);
    void endTurn();

    const Shared m_shared;
    const SessionOptions m_options;
    Events &m_events;
    const std::shared_ptr<Lane> m_lane;
    std::shared_ptr<const CallTarget> m_target;
    ReaderPtr m_reader; ///< Null unless the device is being read.
    bool m_hasTurn = false; ///< Waits for a turn in the queue, or has it.
    bool m_isRepeated = false; ///< The device is read once more after the present reading.
    QTimer m_retry; ///< Runs while a failed reading waits to be repeated.
    std::chrono::milliseconds m_pause; ///< Before the next repetition.
    std::shared_ptr<DeviceReading *> m_self; ///< For posts that may arrive too late.
};

} // namespace Tavoro::SessionInternal
