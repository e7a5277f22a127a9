#pragma once

#include <tavorossproxy/devicechannel.h>
#include <tavorossproxy/devicecommand.h>
#include <tavorowire/frame.h>
#include <tavorowire/frameparser.h>

#include <QByteArray>
#include <QTcpServer>

#include <chrono>
#include <future>
#include <memory>
#include <string>

/// A device on a loopback socket, on the thread that created it. Answers each request with its own
/// body, and does not answer a request without one.
class EchoDevice {
public:
    EchoDevice();

    quint16 port() const { return m_server.serverPort(); }
    int connections() const;
    /// Bytes that the network has not taken yet.
    qint64 unsentBytes() const;
    void send(Tavoro::SSProxy::Wire::FrameKind kind, const QByteArray &body = {});
    void dropConnections();
    void endConnections();

    int silentRequests = 0; ///< Received requests without a body.
    bool reportsBeforeAnswers = false; ///< Sends a report together with each answer, before it.
    bool dropsNextRequest = false; ///< Ends the connection at its first bytes.

private:
    void takeConnection();
    QByteArray report() const;
    QByteArray answerTo(const Tavoro::SSProxy::Wire::FrameEvent &frame);

    QTcpServer m_server;
};

/// A write with the body \a body.
std::shared_ptr<Tavoro::SSProxy::DeviceRequestCommand> request(const std::string &body);

using Answer = std::shared_ptr<Tavoro::SSProxy::DeviceResponseCommand>;

std::future<Answer> sendFromAThread(const std::shared_ptr<Tavoro::SSProxy::DeviceChannel> &channel,
                                    const std::string &body);

template <class Future>
bool isDone(const Future &future)
{
    return future.wait_for(std::chrono::seconds(0)) == std::future_status::ready;
}
