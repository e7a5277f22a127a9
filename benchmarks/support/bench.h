#pragma once

#include <tavorobizmodel/device.h>
#include <tavorosim/server/simoptions.h>
#include <tavorosim/simulateddevice.h>
#include <tavorossproxy/tcpdevicechannel.h>

#include <QString>

#include <memory>

QT_BEGIN_NAMESPACE
class QCommandLineParser;
QT_END_NAMESPACE

namespace Bench {

constexpr int patience = 30000; ///< Milliseconds.

/// Prints a sentence and ends the program.
[[noreturn]] void fail(const QString &why);
void require(bool ok, const QString &why);

/// The value of an option; ends the program if it is out of range.
int numberOf(const QCommandLineParser &parser, const char *option, int least, int most);

/// A channel over loopback in the manager, and the device of the model that it reaches.
class Route {
public:
    explicit Route(quint16 port);
    ~Route();
    Route(const Route &) = delete;
    Route &operator=(const Route &) = delete;

    std::weak_ptr<Tavoro::BizModel::Device> model() const { return m_model; }
    std::shared_ptr<Tavoro::SSProxy::NetworkChannel> channel() const { return m_channel; }

private:
    const std::shared_ptr<Tavoro::SSProxy::NetworkChannel> m_channel;
    const std::shared_ptr<Tavoro::BizModel::Device> m_model;
};

/// A simulated device on a thread of its own.
class LocalDevice {
public:
    explicit LocalDevice(const Tavoro::Sim::SimOptions &options);

    quint16 port() const { return m_simulator.port(); }

private:
    Tavoro::Sim::SimulatedDevice m_simulator;
};

} // namespace Bench
