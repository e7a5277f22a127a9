#pragma once

#include "publishturns.h"
#include "retainedtopics.h"
#include "statetopics.h"

#include <tavorobizmodel/enums.h>
#include <tavorogate/broker/brokerconnection.h>

#include <QObject>
#include <QString>

#include <map>
#include <memory>

namespace Tavoro {
class DeviceSession;
}

namespace Tavoro::Gate {

/// Keeps the retained topics of a device at the broker equal to the model, while it is active.
///
/// When it becomes active, and on each new connection, it first reads what the broker holds: it
/// subscribes to the topics and then publishes a mark to itself. When the mark arrives, so have the
/// topics. From then on it publishes only what differs, and removes topics of objects that are
/// gone. It stays subscribed, and restores a topic that another client changes.
class StatePublisher : public QObject, private TurnTaker {
    Q_OBJECT

public:
    /// What the publisher needs. All of it outlives the object.
    struct Surroundings {
        BrokerConnection &broker;
        PublishTurns &turns;
        DeviceSession &session;
    };

    /// \a markTopic is for messages of this object to itself.
    StatePublisher(const Surroundings &surroundings, const QString &serial,
                   const QString &markTopic);
    ~StatePublisher() override;

    void setActive(bool isActive);

private:
    bool publishOne() override;

    void readBroker();
    void receiveState(const BrokerMessage &message);
    void receiveMark(const BrokerMessage &message);
    void followDevice();
    void follow(StateKind kind);
    void followPart(BizModel::Enum::Device::DataPart part);
    void updateControl();
    void requestTurn();

    const Surroundings m_surroundings;
    const QString m_beginning; ///< Of the topics of the device's state.
    const QString m_markTopic;
    RetainedTopics m_topics;
    std::map<StateKind, std::unique_ptr<QObject>> m_contexts; ///< Of the connections to objects.
    std::unique_ptr<QObject> m_deviceContext; ///< Of the connection to the device.
    Subscription m_stateSubscription;
    Subscription m_markSubscription;
    int m_mark = 0; ///< Number of the last mark.
    bool m_isActive = false;
    bool m_isBrokerRead = false; ///< The last mark has arrived.
    bool m_isDeviceRead = false; ///< The model holds the device, or did so before.
};

} // namespace Tavoro::Gate
