#include "site.h"

#include <support/bench.h>

#include <QFile>
#include <QHostAddress>
#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>
#include <QProcessEnvironment>
#include <QTcpServer>

namespace Bench {

namespace {

quint16 freePort()
{
    QTcpServer server;
    server.listen(QHostAddress::LocalHost, 0);
    return server.serverPort();
}

void writeFile(const QString &name, const QByteArray &content)
{
    QFile file(name);
    require(file.open(QIODevice::WriteOnly) && file.write(content) == content.size(),
            QStringLiteral("cannot write %1").arg(name));
}

QByteArray configOf(const QString &name, quint16 brokerPort, const std::vector<quint16> &devices)
{
    QJsonArray addresses;
    for (const quint16 port : devices)
        addresses.append(QStringLiteral("127.0.0.1:%1").arg(port));
    const QJsonObject broker{{QStringLiteral("host"), QStringLiteral("127.0.0.1")},
                             {QStringLiteral("port"), int(brokerPort)}};
    return QJsonDocument(QJsonObject{{QStringLiteral("name"), name},
                                     {QStringLiteral("broker"), broker},
                                     {QStringLiteral("devices"), addresses}})
        .toJson();
}

void end(ChildProcess &process)
{
    process.terminate();
    if (!process.waitForFinished(5000)) {
        process.kill();
        process.waitForFinished();
    }
}

} // namespace

Broker::Broker() : m_port(freePort())
{
    const QString config = m_folder.filePath(QStringLiteral("mosquitto.conf"));
    // Without the line "user" a broker that is started by root changes to another user. Without
    // "set_tcp_nodelay" each call waits 40 ms for a delayed acknowledgement of TCP.
    writeFile(config,
              "user root\nlog_type error\nlog_dest stderr\nallow_anonymous true\n"
              "max_queued_messages 0\nset_tcp_nodelay true\nsys_interval 1\nlistener "
                  + QByteArray::number(m_port) + " 127.0.0.1\n");
    m_process.start(QStringLiteral("mosquitto"), {QStringLiteral("-c"), config});
    require(m_process.waitForStarted(), QStringLiteral("mosquitto does not start"));
}

Broker::~Broker()
{
    end(m_process);
}

Gateways::Gateways(int count, quint16 brokerPort, const std::vector<quint16> &devicePorts)
{
    auto environment = QProcessEnvironment::systemEnvironment();
    environment.insert(QStringLiteral("QT_LOGGING_RULES"), QStringLiteral("tavoro.*=false"));
    const auto divisions = static_cast<std::size_t>(count);
    for (std::size_t number = 0; number < divisions; ++number) {
        const auto limit = [&](std::size_t division) {
            return devicePorts.begin()
                + static_cast<std::ptrdiff_t>(devicePorts.size() * division / divisions);
        };
        const QString name = QStringLiteral("gateway%1").arg(number + 1);
        const QString config = m_folder.filePath(name);
        writeFile(config, configOf(name, brokerPort, {limit(number), limit(number + 1)}));
        m_processes.push_back(std::make_unique<ChildProcess>());
        ChildProcess &process = *m_processes.back();
        process.setProcessEnvironment(environment);
        process.start(QStringLiteral(TAVOROGATE), {QStringLiteral("--config"), config});
        require(process.waitForStarted(), QStringLiteral("tavorogate does not start"));
    }
}

Gateways::~Gateways()
{
    for (const auto &process : m_processes)
        end(*process);
}

ProcessUsage Gateways::usage() const
{
    ProcessUsage sum;
    for (const auto &process : m_processes)
        sum = sum + ProcessUsage::of(process->processId());
    return sum;
}

} // namespace Bench
