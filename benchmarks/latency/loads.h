#pragma once

#include <tavorobizmodel/device.h>
#include <tavorossproxy/networkchannel.h>

#include <QProcess>

#include <atomic>
#include <memory>
#include <string>
#include <thread>
#include <vector>

/// What happens beside the measured writes. Each load begins with its constructor and ends with its
/// destructor.
namespace Latency {

class Load {
public:
    virtual ~Load() = default;
};

/// Processes that compute without a pause, one for each processor core.
class BusyCores final : public Load {
public:
    BusyCores();
    ~BusyCores() override;

private:
    std::vector<std::unique_ptr<QProcess>> m_processes;
};

/// Computes until the parent process ends or kills this one.
int computeForever();

/// Channels to the device at \a port that are connected and have nothing to do.
class IdleChannels final : public Load {
public:
    IdleChannels(quint16 port, int count);
    ~IdleChannels() override;

private:
    std::vector<std::shared_ptr<Tavoro::SSProxy::NetworkChannel>> m_channels;
};

/// A file of the device that is written in pieces or read as a stream, again and again, by a thread
/// of its own. Neither side keeps its content in memory.
class Transfer final : public Load {
public:
    enum class Direction {
        ToDevice,
        FromDevice
    };
    Transfer(const std::weak_ptr<Tavoro::BizModel::Device> &model, Direction direction,
             int mebibytes);
    ~Transfer() override;

private:
    std::atomic<bool> m_isEnding{false};
    std::thread m_thread;
};

/// Lets the device report the state of its power supplies \a perSecond times a second. The commands
/// reach it through the control port of its console.
class ReportStorm final : public Load {
public:
    ReportStorm(quint16 controlPort, int perSecond);
    ~ReportStorm() override;

private:
    void run(quint16 controlPort, int perSecond) const;

    std::atomic<bool> m_isEnding{false};
    std::thread m_thread;
};

} // namespace Latency
