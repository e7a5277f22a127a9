#include "claimrecord.h"

#include <tavorogate/calls/rememberedcalls.h>

#include <QJsonDocument>
#include <QJsonObject>
#include <QStringList>

namespace Tavoro::Gate {

namespace {

// clang-format off
const QString sequenceKey    = QStringLiteral("sequence");
const QString instanceKey    = QStringLiteral("instance");
const QString gatewayKey     = QStringLiteral("gateway");
const QString stateKey       = QStringLiteral("state");
const QString clientKey      = QStringLiteral("client");
const QString connectionKey  = QStringLiteral("connection");
const QString requestKey     = QStringLiteral("request");
const QString claimOperationKey   = QStringLiteral("operation");
const QString userKey        = QStringLiteral("user");
const QString verifiedKey    = QStringLiteral("isUserVerified");
const QString answerTopicKey = QStringLiteral("answerTopic");
const QString correlationKey = QStringLiteral("correlation");
const QString claimOutcomeKey     = QStringLiteral("outcome");
const QString claimStatusKey      = QStringLiteral("status");
const QString claimTextKey        = QStringLiteral("text");
const QString recordKey      = QStringLiteral("answer");
const QString doubtfulKey    = QStringLiteral("isDoubtful");
// clang-format on

/// In the order of ClaimRecord::State.
const QStringList states{QStringLiteral("claimed"), QStringLiteral("ended"),
                         QStringLiteral("asked"), QStringLiteral("waiting"),
                         QStringLiteral("answered")};

void addCall(const CallRequest &call, QJsonObject &object)
{
    object.insert(claimOperationKey, call.operation);
    object.insert(userKey, call.user);
    object.insert(verifiedKey, call.isUserVerified);
    object.insert(answerTopicKey, call.key.answerTopic);
    object.insert(correlationKey, QString::fromLatin1(call.key.correlation.toHex()));
}

CallRequest callOf(const QJsonObject &object)
{
    CallRequest call;
    call.operation = object.value(claimOperationKey).toString();
    call.user = object.value(userKey).toString();
    call.isUserVerified = object.value(verifiedKey).toBool();
    call.key = {call.user, object.value(answerTopicKey).toString(),
                QByteArray::fromHex(object.value(correlationKey).toString().toLatin1())};
    call.arrival = QDateTime::currentDateTimeUtc();
    return call;
}

void addAnswer(const CallAnswer &answer, QJsonObject &object)
{
    object.insert(claimOutcomeKey, static_cast<int>(answer.kind));
    object.insert(claimStatusKey, answer.status);
    object.insert(claimTextKey, answer.text);
    if (answer.record.size() <= RememberedCalls::longestRecord)
        object.insert(recordKey, QString::fromStdString(answer.record));
}

CallAnswer answerOf(const QJsonObject &object)
{
    return {static_cast<Outcome::Kind>(object.value(claimOutcomeKey).toInt(Outcome::Unknown)),
            object.value(claimStatusKey).toInt(), object.value(claimTextKey).toString(),
            object.value(recordKey).toString().toStdString()};
}

SSProxy::RequestIdentity requestOf(const QJsonObject &object)
{
    return {QByteArray::fromHex(object.value(clientKey).toString().toLatin1()).toStdString(),
            static_cast<quint32>(object.value(connectionKey).toDouble()),
            static_cast<quint32>(object.value(requestKey).toDouble())};
}

} // namespace

QByteArray ClaimRecord::toJson() const
{
    QJsonObject object{
        {sequenceKey, static_cast<double>(sequence)},
        {instanceKey, instance},
        {gatewayKey, gateway},
        {stateKey, states.at(state)},
        {clientKey, QString::fromLatin1(QByteArray::fromStdString(request.client).toHex())},
        {connectionKey, static_cast<double>(request.connection)},
        {requestKey, static_cast<double>(request.number)},
    };
    addCall(call, object);
    if (state == Asked)
        object.insert(doubtfulKey, isDoubtful);
    if (hasAnswer())
        addAnswer(answer, object);
    return QJsonDocument(object).toJson(QJsonDocument::Compact);
}

std::optional<ClaimRecord> ClaimRecord::fromJson(const QByteArray &json)
{
    const QJsonObject object = QJsonDocument::fromJson(json).object();
    const auto state = states.indexOf(object.value(stateKey).toString());
    if (state < 0)
        return std::nullopt;
    ClaimRecord record;
    record.sequence = static_cast<quint64>(object.value(sequenceKey).toDouble());
    record.instance = object.value(instanceKey).toString();
    record.gateway = object.value(gatewayKey).toString();
    record.state = static_cast<State>(state);
    record.isDoubtful = object.value(doubtfulKey).toBool();
    record.request = requestOf(object);
    record.call = callOf(object);
    if (record.hasAnswer())
        record.answer = answerOf(object);
    return record;
}

} // namespace Tavoro::Gate
