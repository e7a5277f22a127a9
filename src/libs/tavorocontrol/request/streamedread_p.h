#pragma once

#include "packet_p.h"

#include <QString>

#include <atomic>
#include <functional>
#include <memory>
#include <string>

namespace Tavoro::BizModel {
class Device;
}

namespace Tavoro::Control::Internal {

class ExchangeReporter;

/// A read that hands each packet to a callback and holds no more than that packet.
///
/// Lives on the stack of one call, on the caller's thread. Only the cancelled flag is shared with
/// other threads. It is looked at, and so is the control of the device, before each packet is asked
/// for and again before its answer is judged.
class StreamedRead {
public:
    using Callback =
        std::function<void(bool ok, double progress, const std::string &data, QString &error)>;

    StreamedRead(const std::atomic<bool> &cancelled, Callback callback);

    bool run(const std::weak_ptr<BizModel::Device> &device,
             const std::shared_ptr<SSProxy::DeviceRequestCommand> &request);

private:
    bool readPackets(SSProxy::DeviceChannel &channel,
                     const std::shared_ptr<SSProxy::DeviceRequestCommand> &request);
    /// \a request by value: the head is taken once, behind the first call of the callback, which
    /// may hold the request and change it later.
    bool readFurtherPackets(SSProxy::DeviceChannel &channel, SSProxy::PacketHead request,
                            const SSProxy::PacketHead &answer, std::string data);

    bool mayContinue(SSProxy::DeviceChannel &channel);
    bool isStillMaster(SSProxy::DeviceChannel &channel);
    bool isNotCancelled();

    void handOver(double progress, const std::string &data);
    bool fail(const Reply &reply, PacketCount count = {});
    bool callWithFailure();

    const std::atomic<bool> &m_cancelled;
    const Callback m_callback;
    const ExchangeReporter *m_reporter = nullptr;
    const BizModel::Device *m_device = nullptr;
    QString m_error; ///< Given to the callback, which may write to it.
    double m_progress = 0.0;
};

} // namespace Tavoro::Control::Internal
