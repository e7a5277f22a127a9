#pragma once

#include <tavorobizmodel/device.h>
#include <tavorosim/simoptions.h>
#include <tavorosim/simulateddevice.h>
#include <tavorossproxy/tcpdevicechannel.h>

#include <QString>

#include <memory>

namespace Bench {

constexpr int patience = 30000; ///< Milliseconds.

/// Ends the program with a sentence.
[[noreturn]] void fail(const QString &why);
void require(bool ok, const QString &why);

/// A simulated device on its own thread, a channel to it over loopback that the manager knows, and
/// a device of the model that is reached through it.
class Connection {
public:
    explicit Connection(const Tavoro::Sim::SimOptions &options);
    ~Connection();
    Connection(const Connection &) = delete;
    Connection &operator=(const Connection &) = delete;

    std::weak_ptr<Tavoro::BizModel::Device> model() const { return m_model; }
    std::shared_ptr<Tavoro::SSProxy::NetworkChannel> channel() const { return m_channel; }

private:
    Tavoro::Sim::SimulatedDevice m_simulator;
    std::shared_ptr<Tavoro::SSProxy::NetworkChannel> m_channel;
    std::shared_ptr<Tavoro::BizModel::Device> m_model;
};

} // namespace Bench
