#pragma once

#include "calljob_p.h"

#include <tavorobizmodel/deviceupdate.h>

#include <QString>
#include <QStringList>

#include <atomic>
#include <functional>
#include <map>
#include <memory>
#include <vector>

namespace Tavoro::SessionInternal {

/// What a DeviceReader has read.
struct DeviceReadResult {
    /// Holds no record that could not be read.
    BizModel::s_DeviceReading reading;
    /// The details and the interfaces were read, and the device is ready. Otherwise nothing else
    /// was read, and the reading is repeated later.
    bool hasEssentials = false;
    /// The reading was cancelled or its connection was lost: the rest means nothing.
    bool isAborted = false;
    /// One sentence for each read that failed, in their order.
    QStringList failures;
    /// What the device has reported since it was read: the model may have newer values.
    std::vector<Operations::ScopeKind> outdatedKinds(const ReportCounts &reports) const;
    /// The reports before the read of each kind.
    std::map<Operations::ScopeKind, quint64> reportsBefore;
};

/// Reads a whole device: sets its clock, and reads its details, interfaces, screens, layers, files
/// and the contents of files, in this order. Without details or interfaces it reads nothing else;
/// without screens it reads no layers; any other failure does not stop the next read.
///
/// | member           | thread                |
/// |------------------|-----------------------|
/// | run              | that of the lane      |
/// | cancel           | any                   |
/// | the handlers     | that of the courier   |
class DeviceReader : public LaneJob, public std::enable_shared_from_this<DeviceReader> {
public:
    /// What is read besides the records.
    struct Options {
        bool setsClock = true;
        bool readsFileContents = true;
    };
    using ReaderPtr = std::shared_ptr<DeviceReader>;
    using ProgressHandler = std::function<void(const ReaderPtr &reader, double share)>;
    using Handler = std::function<void(const ReaderPtr &reader)>;

    DeviceReader(std::shared_ptr<const CallTarget> target, std::shared_ptr<Courier> courier,
                 Options options, ProgressHandler progress, Handler finished);

    void run() override;
    void deliver() override;
    /// Ends the reading before the next read. The read under way ends when its connection does.
    void cancel() { m_isCanceled = true; }

    const CallTarget &target() const { return *m_target; }
    /// What was read. After the handler was called.
    DeviceReadResult &result() { return m_result; }

private:
    /// Notes that a kind is read now.
    void begin(Operations::ScopeKind kind);
    template <class Read>
    bool read(const char *what, Read operation);
    bool mayContinue() const;
    void readAll();
    bool readEssentials();
    void readScreensAndLayers();
    void readFiles();
    void readContents();
    void showProgress(double share);

    const std::shared_ptr<const CallTarget> m_target;
    const std::shared_ptr<Courier> m_courier;
    const Options m_options;
    const ProgressHandler m_progress;
    const Handler m_finished;
    std::atomic<bool> m_isCanceled{false};
    DeviceReadResult m_result;
};

} // namespace Tavoro::SessionInternal
