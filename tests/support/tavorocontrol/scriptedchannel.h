#pragma once

#include <tavorocontrol/proto/devicebaseinfo.h>
#include <tavorossproxy/devicechannel.h>
#include <tavorossproxy/devicecommand.h>

#include <deque>
#include <functional>
#include <memory>
#include <mutex>
#include <string>
#include <vector>

/// What a scripted channel sent, copied at the moment of sending.
struct SentRequest {
    Tavoro::SSProxy::PacketHead head;
    std::string body;
    int timeout;

    quint16 code() const { return static_cast<quint16>(head.BC << 8 | head.FC); }
    /// Bytes \a first to \a last of the head, both included.
    std::string headBytes(int first, int last) const;
};

/// One scripted answer; a default one is an empty success.
struct ScriptedAnswer {
    quint16 status = 0;
    std::string body;
    quint32 totalCount = 1;
    quint32 sendCount = 0;
    quint8 type = 0; ///< 0: the type of the request.
    bool null = false; ///< Answer with no response object at all.
    std::function<void()> before; ///< Runs while the request is "in flight".

    static ScriptedAnswer packet(const std::string &body, quint32 totalCount = 1,
                                 quint32 sendCount = 0);
    static ScriptedAnswer refusal(quint16 status);
    static ScriptedAnswer noResponse();
};

/// A channel without a network: records what it sends, byte for byte, and answers from a queue. An
/// empty queue gives default answers.
class ScriptedChannel : public Tavoro::SSProxy::DeviceChannel {
public:
    ScriptedChannel();

    std::shared_ptr<Tavoro::SSProxy::DeviceResponseCommand>
    sendSyncRequest(std::shared_ptr<Tavoro::SSProxy::DeviceRequestCommand> request) override;
    Tavoro::ProtoModel::DeviceBaseInfo deviceBaseInfo() const override;
    bool isHardwareReadFinished() override;
    bool isMasterControl() override;
    void stopChannel() override;

    void answer(ScriptedAnswer answer);
    void answerBody(const std::string &body);
    std::vector<SentRequest> sent() const;
    int stops() const;

    /// Set before the channel is used, or from ScriptedAnswer::before.
    Tavoro::ProtoModel::DeviceBaseInfo info;
    bool ready = true;
    bool master = true;
    /// Whether it keeps the responses that it returns.
    bool keepsResponses = false;
    std::vector<std::shared_ptr<Tavoro::SSProxy::DeviceResponseCommand>> kept;

private:
    mutable std::mutex m_mutex;
    std::deque<ScriptedAnswer> m_answers; // guarded by m_mutex
    std::vector<SentRequest> m_sent; // guarded by m_mutex
    int m_stops = 0; // guarded by m_mutex
};
