#pragma once

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
        /// The client has told which connection this is. Where its outcomes are kept.
        std::function<std::shared_ptr<ConnectionOutcomes>(const SimClient &client,
                                                          const ConnectionId &id)>
            introduce;
    };

    /// \a faults outlive the client.
    SimClient(QTcpSocket *socket, const SimOptions &options, FaultRules &faults, Services services,
              QObject *parent);
    ~SimClient() override;

    /// Where the client is.
    const QString &peer() const { return m_peer; }

    /// Sends \a report if the client has introduced itself and keeps up with reading.
    void send(const Report &report);
    /// Tells the client, if it has introduced itself, whether others hold control now, and who.
    void sendControl(bool isHeldByOthers, const QString &holder);
    /// True when \a id is of the same client.
    bool isSameClient(const ConnectionId &id) const;
    /// Ends the connection at once; what has come and is not read is not carried out.
    void abandon();
    /// Ends the connection behind the answers that are under way.
    void close();
    /// Ends the pause of a client that was not read from.
    void readOn();

Q_SIGNALS:
    void disconnected();
    /// A fault wants \a count reports to be sent to this client.
    void reportsDue(quint32 count);
    /// A fault wants the device to restart.
    void restartDue();

private:
    void readFrames();
    bool receive();
    void take(SSProxy::Wire::FrameEvent event);
    void answerRequest(SSProxy::Wire::FrameEvent event);
    PacketAssembler::Packet makeAnswer(SSProxy::Wire::FrameEvent event);
    void answerIdentity(const std::string &connection);
    void carryOut(const Delivery &delivery);
    void endLater(int delay);
    void stopReading(int milliseconds);
    void sendLater(const QByteArray &frame, int delay);
    /// Into the outcomes and the log.
    void note(const SSProxy::Wire::WireHead &request, const std::string &body,
              const PacketAssembler::Packet &answer);
    bool hasRoomForReport();

    /// A client that leaves more than this unread gets no further reports, and no answers until it
    /// reads on.
    static constexpr qint64 mostUnread = 16 << 20;
    static constexpr qint64 readSize = 64 << 10; ///< Bytes that are taken from the socket at once.

    QTcpSocket *const m_socket;
    const QString m_peer;
    const int m_latency;
    const Services m_services;
    std::shared_ptr<ConnectionOutcomes> m_outcomes; ///< Null when the client has not told its id.
    std::vector<char> m_received; ///< What was read last.
    std::string_view m_rest; ///< What of that has not been looked at.
    QByteArray m_frame; ///< What was sent last; kept, as m_received is, for its storage.
    SSProxy::Wire::FrameParser m_parser;
    PacketAssembler m_assembler;
    FaultyAnswers m_faults;
    QTimer m_pause; ///< Runs while nothing is read for a time.
    bool m_isReading = true;
    bool m_isEnding = false; ///< What still comes is not looked at.
    bool m_isIntroduced = false; ///< The identity has been asked for.
    bool m_dropsReports = false; ///< The log says so, and the client has not caught up since.
};

} // namespace Tavoro::Sim
