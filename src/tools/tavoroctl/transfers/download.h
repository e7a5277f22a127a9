#pragma once

#include "contenttarget.h"
#include "progresspace.h"

#include <tavorocontrol/file.h>
#include <tavoroctl/arguments/fileplace.h>
#include <tavorossproxy/exchangewatch.h>

#include <optional>

namespace Tavoro::Ctl {

class Console;

/// Fetches the content of one file, packet by packet.
///
/// run() blocks and runs on a thread of its own; cancel() may be called from any thread; the rest
/// belongs to the main thread.
class Download {
public:
    /// \a size is what the device's record says of the file.
    Download(Console &console, const std::shared_ptr<BizModel::Device> &device,
             ContentTarget &target, const ProtoModel::File::s_FileSize &size);

    void run(const FilePlace &place);
    /// Ends run() at the next packet.
    void cancel() { m_source.setCancelledState(true); }

    /// Why run() ended early, or what is wrong with the content that was received. Empty if all of
    /// it was received and written. A length and a checksum of 0 are not compared.
    QString error() const;
    /// The last exchange of run().
    std::optional<SSProxy::Exchange> lastExchange() const { return m_lastExchange; }

private:
    /// Stops the download when more arrives than the device announced. The channel itself accepts
    /// any number of packets, see Session::acceptAnyPacketCount().
    void write(double share, const std::string &data);
    /// Keeps the first reason: later ones follow from it.
    void stop(const QString &reason);

    Console &m_console;
    Control::File m_source;
    ContentTarget &m_target;
    const ProtoModel::File::s_FileSize m_size;
    qint64 m_length = 0;
    quint32 m_packets = 0;
    quint32 m_checksum = 0;
    ProgressPace m_pace;
    std::optional<SSProxy::Exchange> m_lastExchange;
    QString m_error;
};

} // namespace Tavoro::Ctl
