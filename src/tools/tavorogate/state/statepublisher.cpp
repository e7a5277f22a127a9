#include "statepublisher.h"

#include <tavorobizmodel/device.h>
#include <tavorogate/topics/topics.h>
#include <tavorooperations/jsontext.h>
#include <tavorosession/devicesession.h>

#include <QJsonObject>

namespace Tavoro::Gate {

namespace {

using BizModel::Enum::Device::DataPart;

/// The topics that a change of this part concerns; nothing if no topic shows it.
std::optional<StateKind> kindOf(DataPart part)
{
    switch (part) {
    case DataPart::Detail:
    case DataPart::Subcards:
    case DataPart::Powers:
    case DataPart::GenlockSignal:
    case DataPart::Groups:
    case DataPart::InterfaceRelations:
    case DataPart::ScreenGenlocks:
    case DataPart::Process:
    case DataPart::CutoutRGB:
        return StateKind::Device;
    case DataPart::Interfaces:
        return StateKind::Interfaces;
    case DataPart::Screens:
        return StateKind::Screens;
    case DataPart::Layers:
        return StateKind::Layers;
    case DataPart::Files:
        return StateKind::Files;
    case DataPart::Identity:
    case DataPart::OnlineFlag:
    case DataPart::SyncSuccess:
    case DataPart::ActiveScreens:
        break;
    }
    return {};
}

} // namespace

StatePublisher::StatePublisher(const Surroundings &surroundings, const QString &serial,
                               const QString &markTopic)
    : m_surroundings(surroundings), m_beginning(Topics::state(serial)), m_markTopic(markTopic)
{
    const DeviceSession *session = &surroundings.session;
    connect(session, &DeviceSession::deviceChanged, this, &StatePublisher::followDevice);
    connect(session, &DeviceSession::stateChanged, this, &StatePublisher::followDevice);
    connect(session, &DeviceSession::controlChanged, this, &StatePublisher::updateControl);
    connect(session, &DeviceSession::controlHolderChanged, this, &StatePublisher::updateControl);
    connect(&surroundings.broker, &BrokerConnection::connected, this, &StatePublisher::readBroker);
    connect(&surroundings.broker, &BrokerConnection::disconnected, this,
            [this] { m_isBrokerRead = false; });
    followDevice();
}

StatePublisher::~StatePublisher()
{
    m_surroundings.turns.remove(*this);
}

void StatePublisher::setActive(bool isActive)
{
    if (isActive == m_isActive)
        return;
    m_isActive = isActive;
    m_isBrokerRead = false;
    m_stateSubscription = {};
    m_markSubscription = {};
    if (!isActive)
        return;
    BrokerConnection::SubscribeOptions options;
    m_markSubscription = m_surroundings.broker.subscribe(
        m_markTopic, options, [this](const BrokerMessage &message) { receiveMark(message); });
    options.qos = 0; // As many as there are topics, at once.
    options.receivesOwn = false;
    m_stateSubscription = m_surroundings.broker.subscribe(
        Topics::filterOf(m_beginning), options,
        [this](const BrokerMessage &message) { receiveState(message); });
    readBroker();
}

void StatePublisher::readBroker()
{
    if (!m_isActive || !m_surroundings.broker.isConnected())
        return;
    m_topics.forgetBroker();
    BrokerMessage mark;
    mark.topic = m_markTopic;
    mark.payload = QByteArray::number(++m_mark);
    m_surroundings.broker.publish(mark);
}

void StatePublisher::receiveMark(const BrokerMessage &message)
{
    if (message.payload != QByteArray::number(m_mark))
        return;
    m_isBrokerRead = true;
    requestTurn();
}

void StatePublisher::receiveState(const BrokerMessage &message)
{
    m_topics.setHeld(message.topic.mid(m_beginning.size()), message.payload);
    requestTurn();
}

void StatePublisher::followDevice()
{
    const auto device = m_surroundings.session.device();
    if (!device || !m_surroundings.session.isReady())
        return;
    m_isDeviceRead = true;
    m_deviceContext = std::make_unique<QObject>();
    connect(device.get(), &BizModel::Device::deviceDataChanged, m_deviceContext.get(),
            [this](DataPart part) { followPart(part); });
    for (const StateKind kind : stateKinds)
        follow(kind);
    updateControl();
}

void StatePublisher::followPart(DataPart part)
{
    if (const auto kind = kindOf(part))
        follow(*kind);
}

void StatePublisher::follow(StateKind kind)
{
    const auto device = m_surroundings.session.device();
    if (!device)
        return;
    m_contexts[kind] = std::make_unique<QObject>();
    const auto changed = [this](const QString &name) {
        m_topics.markChanged(name);
        requestTurn();
    };
    m_topics.setTopics(kind, topicsOf(device, kind, m_contexts[kind].get(), changed));
    requestTurn();
}

void StatePublisher::updateControl()
{
    const QJsonObject record{
        {QStringLiteral("isHeldByOthers"), m_surroundings.session.isControlledByOthers()},
        {QStringLiteral("holder"), m_surroundings.session.controlHolder()}};
    m_topics.setTopics(StateKind::Control, {{QStringLiteral("control"), [record] {
                                                 return Operations::jsonText(record).toUtf8();
                                             }}});
    requestTurn();
}

void StatePublisher::requestTurn()
{
    if (m_isActive && m_isBrokerRead && m_isDeviceRead && m_topics.hasChanges())
        m_surroundings.turns.request(*this);
}

bool StatePublisher::publishOne()
{
    if (!m_isActive || !m_isBrokerRead || !m_isDeviceRead)
        return false;
    const auto difference = m_topics.takeDifference();
    if (!difference)
        return false;
    BrokerMessage message;
    message.topic = m_beginning + difference->first;
    message.payload = difference->second;
    message.isRetained = true;
    m_surroundings.broker.publish(message);
    return true;
}

} // namespace Tavoro::Gate
