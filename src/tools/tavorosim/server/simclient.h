#pragma once

#include "framesender.h"
#include "outcomelog.h"

#include <tavorosim/commands/packetassembler.h>
#include <tavorosim/faults/faultyanswers.h>
#include <tavorowire/frameparser.h>

#include <QByteArray>
#include <QObject>
#include <QString>
#include <QTimer>

#include <functional>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

QT_BEGIN_NAMESPACE
class QTcpSocket;
QT_END_NAMESPACE

namespace Tavoro::Sim {

struct SimOptions;

/// One connected client of the simulated device. Lives on the device's thread.
class SimClient : public QObject {
    Q_OBJECT

public:
    using ConnectionId = SSProxy::Wire::ConnectionId;

    /// What the device does for its clients.
    struct Services {
        /// Carries out a whole request.
        std::function<Answer(const SimClient &client, const Request &request)> carryOut;
        /// The body of the identity answer.
        std::function<std::string(const SimClient &client)> identity;
        /// The client has named its connection. Returns where its outcomes are kept.
        std::function<std::shared_ptr<ConnectionOutcomes>(const SimClient &client,
                                                          const ConnectionId &id)>
            introduce;
    };

    /// \a faults outlive the client.
    SimClient(QTcpSocket *socket, const SimOptions &options, FaultRules &faults, Services services,
              QObject *parent);
    ~SimClient() override;

    /// Address and port of the client.
    const QString &peer() const { return m_peer; }

    /// Sends \a report if the client has asked for the identity and keeps up with reading.
    void send(const Report &report);
    /// Reports to the client, if it has asked for the identity, whether another client holds
    /// control now, and which. A client that does not keep up gets the last state later.
    void sendControl(bool isHeldByOthers, const QString &holder);
    /// The bytes that identify the client, the same for all of its connections; empty if it has not
    /// introduced itself.
    std::string clientId() const;
    /// Ends the connection at once; requests that were received and not read are not carried out.
    void abandon();
    /// Ends the connection after the answers that are being sent.
    void close();
    /// Ends the pause of a client whose frames are not read.
    void resumeReading();
    /// Sends the answers that a fault holds back.
    void sendHeldAnswers();

Q_SIGNALS:
    void disconnected();
    /// A fault requires \a count reports to this client.
    void reportsRequested(quint32 count);
    /// A fault requires a restart of the device.
    void restartRequested();

private:
    void readFrames();
    bool mayRead() const;
    bool receive();
    void take(SSProxy::Wire::FrameEvent event);
    void answerRequest(SSProxy::Wire::FrameEvent event);
    PacketAssembler::Packet makeAnswer(SSProxy::Wire::FrameEvent event);
    /// Writes the frame of the answer to m_frame.
    void encode(PacketAssembler::Packet answer);
    void answerIdentity(const std::string &connection);
    void carryOut(const Delivery &delivery);
    void endLater(int delay);
    void stopReading(int milliseconds);
    /// Adds the answer to the outcomes and to the log.
    void note(const SSProxy::Wire::WireHead &request, const std::string &body,
              const PacketAssembler::Packet &answer);
    bool hasRoomForReport();

    static constexpr qint64 maxReceivedBytes = 256 << 10; ///< Bytes that the socket holds.
    static constexpr qint64 readSize = 64 << 10; ///< Bytes that are taken from the socket at once.

    QTcpSocket *const m_socket;
    const QString m_peer;
    const int m_latency;
    const Services m_services;
    FrameSender m_sender;
    std::shared_ptr<ConnectionOutcomes> m_outcomes; ///< Null without a connection ID.
    std::vector<char> m_received; ///< The bytes that were read last.
    std::string_view m_rest; ///< The part of them that has not been parsed.
    QByteArray m_frame; ///< The frame that was sent last; kept, as m_received is, for its storage.
    SSProxy::Wire::FrameParser m_parser;
    PacketAssembler m_assembler;
    FaultyAnswers m_faults;
    QTimer m_pause; ///< Runs during a limited pause in reading.
    bool m_isReading = true;
    bool m_isEnding = false; ///< Further bytes are ignored.
    bool m_isIntroduced = false; ///< The client has asked for the identity.
    bool m_dropsReports = false; ///< Logged, and the client has not caught up since.
};

} // namespace Tavoro::Sim
