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

/// A read that passes each packet to a callback and holds at most one packet.
///
/// Lives on the stack of one call, on the caller's thread; only the cancelled flag is shared with
/// other threads. The read checks that flag, and whether another client controls the device, before
/// it requests a packet and again before it examines the response.
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
    bool readFurtherPackets(SSProxy::DeviceChannel &channel, SSProxy::PacketHead head,
                            const SSProxy::PacketHead &answer, Reply reply);

    bool mayContinue(SSProxy::DeviceChannel &channel);
    bool isStillMaster(SSProxy::DeviceChannel &channel);
    bool isNotCancelled();

    void deliverPacket(double progress, const std::string &data);
    bool fail(const Reply &reply, PacketCount count = {});
    bool deliverFailure();

    const std::atomic<bool> &m_cancelled;
    const Callback m_callback;
    const ExchangeReporter *m_reporter = nullptr;
    const BizModel::Device *m_device = nullptr;
    QString m_error; ///< Passed to the callback, which may write to it.
    double m_progress = 0.0;
};

} // namespace Tavoro::Control::Internal
