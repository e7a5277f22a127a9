#include "auditrecord.h"

#include <tavorogate/topics/topics.h>

#include <QJsonDocument>
#include <QJsonObject>

namespace Tavoro::Gate {

namespace {

constexpr int longestArguments = 4096;

} // namespace

BrokerMessage auditRecord(const QString &serial, const QString &gateway, const CallRequest &call,
                          const CallAnswer &answer)
{
    QJsonObject record{
        {QStringLiteral("time"), call.arrival.toString(Qt::ISODateWithMs)},
        {QStringLiteral("device"), serial},
        {QStringLiteral("gateway"), gateway},
        {QStringLiteral("user"), call.user},
        {QStringLiteral("isUserVerified"), call.isUserVerified},
        {QStringLiteral("operation"), call.operation},
        {QStringLiteral("correlation"), QString::fromLatin1(call.key.correlation.toHex())},
        {QStringLiteral("outcome"), answer.outcomeName()},
        {QStringLiteral("status"), answer.status},
        {QStringLiteral("text"), answer.text},
    };
    if (call.body.size() <= longestArguments)
        record.insert(QStringLiteral("arguments"), QJsonDocument::fromJson(call.body).object());
    BrokerMessage message;
    message.topic = Topics::audit(serial);
    message.payload = QJsonDocument(record).toJson(QJsonDocument::Compact);
    return message;
}

} // namespace Tavoro::Gate
