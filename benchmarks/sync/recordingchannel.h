#pragma once

#include <support/barepair.h>

#include <tavorossproxy/devicechannel.h>
#include <tavorossproxy/devicecommand.h>

#include <map>
#include <memory>
#include <string>
#include <vector>

/// Passes everything on to another channel and keeps account of it. One thread at a time.
class RecordingChannel final : public Tavoro::SSProxy::DeviceChannel {
public:
    explicit RecordingChannel(std::shared_ptr<Tavoro::SSProxy::DeviceChannel> channel);

    std::shared_ptr<Tavoro::SSProxy::DeviceResponseCommand>
    sendSyncRequest(std::shared_ptr<Tavoro::SSProxy::DeviceRequestCommand> request) override;
    Tavoro::ProtoModel::DeviceBaseInfo deviceBaseInfo() const override;
    bool isHardwareReadFinished() override;
    bool isMasterControl() override;
    void stopChannel() override;

    /// Forgets what was recorded.
    void clear();
    /// Seconds in which a request was under way.
    double seconds() const { return m_seconds; }
    /// The sizes of what travelled.
    const std::vector<Bench::BareExchange> &exchanges() const { return m_exchanges; }
    /// The whole JSON answers by their code.
    const std::map<quint16, std::string> &answers() const { return m_answers; }

private:
    const std::shared_ptr<Tavoro::SSProxy::DeviceChannel> m_channel;
    double m_seconds = 0;
    std::vector<Bench::BareExchange> m_exchanges;
    std::map<quint16, std::string> m_answers;
};
