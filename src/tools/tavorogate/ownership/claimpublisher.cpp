#include "claimpublisher.h"

#include <tavorogate/topics/topics.h>

#include <QUuid>

#include <utility>

namespace Tavoro::Gate {

ClaimPublisher::ClaimPublisher(BrokerConnection &broker, const QString &serial,
                               const QString &gateway)
    : m_broker(broker),
      m_topic(Topics::claim(serial)),
      m_gateway(gateway),
      m_instance(QUuid::createUuid().toString(QUuid::WithoutBraces))
{ }

ClaimRecord ClaimPublisher::next(const std::optional<ClaimRecord> &last) const
{
    ClaimRecord record;
    record.sequence = last ? last->sequence + 1 : 1;
    record.instance = m_instance;
    record.gateway = m_gateway;
    return record;
}

void ClaimPublisher::publish(const ClaimRecord &record, BrokerConnection::Delivered delivered)
{
    BrokerMessage message;
    message.topic = m_topic;
    message.payload = record.toJson();
    message.isRetained = record.isRetained();
    m_broker.publish(message, std::move(delivered));
}

void ClaimPublisher::ask(const CallRequest &call, bool isDoubtful)
{
    ClaimRecord question = note(ClaimRecord::Asked, call);
    question.isDoubtful = isDoubtful;
    publish(question);
}

void ClaimPublisher::replyWaiting(const CallRequest &call)
{
    publish(note(ClaimRecord::Waiting, call));
}

void ClaimPublisher::replyAnswered(const CallRequest &call, const CallAnswer &answer)
{
    ClaimRecord reply = note(ClaimRecord::Answered, call);
    reply.answer = answer;
    publish(reply);
}

ClaimRecord ClaimPublisher::note(ClaimRecord::State state, const CallRequest &call) const
{
    ClaimRecord record;
    record.instance = m_instance;
    record.gateway = m_gateway;
    record.state = state;
    record.call = call;
    return record;
}

QByteArray ClaimPublisher::publishBarrier()
{
    BrokerMessage message;
    message.topic = m_topic;
    message.payload = QStringLiteral("barrier %1 %2").arg(m_instance).arg(++m_barriers).toUtf8();
    m_broker.publish(message);
    return message.payload;
}

} // namespace Tavoro::Gate
