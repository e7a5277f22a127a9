#pragma once

#include "processusage.h"

#include <support/childprocess.h>

#include <QTemporaryDir>

#include <memory>
#include <vector>

namespace Bench {

/// A mosquitto in a process of its own, on a free port of this machine.
class Broker {
public:
    Broker();
    ~Broker();
    Broker(const Broker &) = delete;
    Broker &operator=(const Broker &) = delete;

    quint16 port() const { return m_port; }
    ProcessUsage usage() const { return ProcessUsage::of(m_process.processId()); }

private:
    const quint16 m_port;
    const QTemporaryDir m_folder;
    ChildProcess m_process;
};

/// Gateways that divide devices among them, each in a process of its own.
class Gateways {
public:
    Gateways(int count, quint16 brokerPort, const std::vector<quint16> &devicePorts);
    ~Gateways();
    Gateways(const Gateways &) = delete;
    Gateways &operator=(const Gateways &) = delete;

    /// Of all gateways together.
    ProcessUsage usage() const;

private:
    const QTemporaryDir m_folder;
    std::vector<std::unique_ptr<ChildProcess>> m_processes;
};

} // namespace Bench
