#pragma once

#include "contentsource.h"
#include "progresspace.h"

#include <tavorocontrol/controlhelper.h>
#include <tavorocontrol/proto/file.h>
#include <tavorossproxy/exchangewatch.h>

#include <atomic>
#include <optional>

namespace Tavoro::SSProxy {
class NetworkChannel;
}

namespace Tavoro::Ctl {

class Console;

/// Sends one file: its announcement, then its content in packets of the device's size.
///
/// run() blocks and runs on a thread of its own; cancel() may be called from any thread.
class Upload {
public:
    /// What an upload works with.
    struct Target {
        std::shared_ptr<BizModel::Device> device;
        std::shared_ptr<SSProxy::NetworkChannel> channel; ///< The channel of the device.
        int timeout = 0; ///< Milliseconds that the device may be away before its last answer.
    };

    Upload(Console &console, const Target &target, const ProtoModel::File::s_FileInfo &info);

    /// Sends \a content. False with the reason in error().
    bool run(ContentSource &content);
    /// Ends run() before the next packet.
    void cancel() { m_isCancelled = true; }

    QString error() const { return m_error; }
    /// The last exchange of run(), with what the device said about it afterwards.
    std::optional<SSProxy::Exchange> lastExchange() const { return m_lastExchange; }
    /// Whether cancel() ended run().
    bool isCancelled() const { return m_isCancelled; }

private:
    /// Sends all packets. \a lastTag becomes the tag of the last one when that was sent.
    bool send(ContentSource &content, quint8 &lastTag);
    using Request = std::shared_ptr<SSProxy::DeviceRequestCommand>;

    Request packet(quint32 count, quint32 index) const;
    /// Asks what became of the last packet, whose answer is missing. True if the device has the
    /// file.
    bool confirmLastPacket(quint8 tag);
    void showProgress(quint32 count, quint32 index);

    Console &m_console;
    const Target m_target;
    Control::ControlHelper m_helper;
    const ProtoModel::File::s_FileInfo m_info;
    quint32 m_packetSize = 0; ///< Bytes of content in one packet.
    ProgressPace m_pace;
    std::atomic<bool> m_isCancelled = false;
    std::optional<SSProxy::Exchange> m_lastExchange;
    QString m_error;
};

} // namespace Tavoro::Ctl
