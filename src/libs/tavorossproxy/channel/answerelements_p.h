#pragma once

#include <tavorossproxy/devicecommand.h>
#include <tavorowire/jsonelements.h>
#include <tavorowire/wirehead.h>

#include <mutex>
#include <vector>

namespace Tavoro::SSProxy::Internal {

/// Counts the elements of JSON answers, over the packets of a split answer.
///
/// Any thread may call it. The packets of one answer are counted one after the other. Counting
/// blocks no other caller.
class AnswerElements {
public:
    /// Counts \a packet, which answers \a request. Returns the elements of its answer so far; 0 if
    /// the answer is not JSON.
    quint64 add(const Wire::WireHead &request, const DeviceResponseCommand &packet);

private:
    struct Unfinished {
        quint16 stream;
        Wire::JsonElements elements; ///< Of the packets so far.
    };

    Wire::JsonElements take(quint16 stream);
    void keep(quint16 stream, const Wire::JsonElements &elements);

    std::mutex m_mutex;
    std::vector<Unfinished> m_unfinished; ///< Guarded by m_mutex. The last one was counted last.
};

} // namespace Tavoro::SSProxy::Internal
