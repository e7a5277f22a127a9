#pragma once

#include <support/barepair.h>

#include <tavorossproxy/devicechannel.h>
#include <tavorossproxy/devicecommand.h>

#include <map>
#include <memory>
#include <string>
#include <vector>

/// Forwards everything to another channel and records it. For one thread at a time.
class RecordingChannel final : public Tavoro::SSProxy::DeviceChannel {
public:
    explicit RecordingChannel(std::shared_ptr<Tavoro::SSProxy::DeviceChannel> channel);

    std::shared_ptr<Tavoro::SSProxy::DeviceResponseCommand>
    sendSyncRequest(std::shared_ptr<Tavoro::SSProxy::DeviceRequestCommand> request) override;
    Tavoro::ProtoModel::DeviceBaseInfo deviceBaseInfo() const override;
    bool isHardwareReadFinished() override;
    bool isMasterControl() override;
    void stopChannel() override;

    /// Discards the records.
    void clear();
    /// Seconds between requests and their answers.
    double seconds() const { return m_seconds; }
    /// The sizes of requests and answers.
    const std::vector<Bench::BareExchange> &exchanges() const { return m_exchanges; }
    /// The complete JSON answers by code.
    const std::map<quint16, std::string> &answers() const { return m_answers; }

private:
    const std::shared_ptr<Tavoro::SSProxy::DeviceChannel> m_channel;
    double m_seconds = 0;
    std::vector<Bench::BareExchange> m_exchanges;
    std::map<quint16, std::string> m_answers;
};
