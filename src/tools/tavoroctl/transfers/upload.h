#pragma once

#include "contentsource.h"

#include <tavorocontrol/file.h>

#include <atomic>

namespace Tavoro::Ctl {

class Console;

/// Sends one file: its announcement, then its content in packets of the device's size.
///
/// run() blocks and runs on a thread of its own; cancel() may be called from any thread.
class Upload {
public:
    Upload(Console &console, const std::shared_ptr<BizModel::Device> &device,
           const ProtoModel::File::s_FileInfo &info);

    /// Sends \a content. False with the reason in error().
    bool run(ContentSource &content);
    /// Ends run() before the next packet.
    void cancel() { m_isCancelled = true; }

    QString error() const { return m_error; }

private:
    bool sendPacket(const std::string &piece, quint32 count, quint32 index);
    void showProgress(quint32 count, quint32 index);

    Console &m_console;
    Control::File m_target;
    const ProtoModel::File::s_FileInfo m_info;
    quint32 m_packetSize = 0; ///< Bytes of content in one packet.
    int m_percent = -1;
    std::atomic<bool> m_isCancelled = false;
    QString m_error;
};

} // namespace Tavoro::Ctl
