#include "callrequest.h"

#include <tavorogate/topics/topics.h>
#include <tavorooperations/jsontext.h>
#include <tavorooperations/operation.h>

#include <QCoreApplication>
#include <QJsonDocument>
#include <QJsonObject>

#include <vector>

namespace Tavoro::Gate {

namespace {

QString faultText(const char *text)
{
    return QCoreApplication::translate("Tavoro::Gate::CallRequest", text);
}

/// Reads the levels of the topic that follow its beginning: OPERATION, or USER/OPERATION.
QString readTopic(const QString &rest, const BrokerMessage &message, CallRequest &request)
{
    const QStringList levels = rest.split(QLatin1Char('/'));
    if (levels.size() > 2)
        return faultText("the topic must end with OPERATION or USER/OPERATION");
    request.operation = levels.last();
    request.isUserVerified = levels.size() == 2;
    request.user =
        request.isUserVerified ? levels.first() : message.userProperty(QStringLiteral("user"));
    return {};
}

/// Reads where the answer goes. Callers must not make the gateway publish anywhere else than they
/// could publish themselves.
QString readKey(const BrokerMessage &message, CallRequest &request)
{
    const QString &topic = message.responseTopic;
    const QString beginning =
        request.isUserVerified ? Topics::answersTo(request.user) : Topics::answers();
    const bool isAllowed = topic.startsWith(beginning) && !topic.contains(QLatin1Char('+'))
        && !topic.contains(QLatin1Char('#'));
    if (!topic.isEmpty() && !isAllowed)
        return faultText("the response topic must begin with %1").arg(beginning);
    request.key = {request.user, topic, message.correlation};
    if (message.correlation.isEmpty() && message.qos > 0)
        return faultText("the message has no correlation data, so that a second delivery of it "
                         "could not be recognised");
    return {};
}

/// Reads the arguments: an object with one member for each of them, by name.
QString readArguments(const Operations::Operation &operation, CallRequest &request)
{
    const QByteArray text = request.body.isEmpty() ? QByteArray("{}") : request.body;
    QJsonParseError error{};
    const QJsonDocument document = QJsonDocument::fromJson(text, &error);
    if (error.error != QJsonParseError::NoError)
        return faultText("the message is not valid JSON: %1 (at byte %2)")
            .arg(error.errorString())
            .arg(error.offset);
    if (!document.isObject())
        return faultText("the message must be a JSON object with the arguments by name");
    QJsonObject members = document.object();
    const std::vector<Operations::Argument> arguments = operation.arguments();
    for (const Operations::Argument &argument : arguments) {
        if (!members.contains(argument.name))
            return faultText("the argument \"%1\" is missing").arg(argument.name);
        request.arguments += Operations::jsonText(members.take(argument.name));
    }
    if (!members.isEmpty())
        return faultText("%1 has no argument \"%2\"")
            .arg(operation.name(), members.constBegin().key());
    return {};
}

QString readAll(const QString &rest, const BrokerMessage &message, const CallRules &rules,
                CallRequest &request)
{
    QString topicFault = readTopic(rest, message, request);
    QString keyFault = readKey(message, request);
    if (!topicFault.isEmpty())
        return topicFault;
    if (!keyFault.isEmpty())
        return keyFault;
    if (rules.requiresUser && !request.isUserVerified)
        return faultText("the topic must end with USER/OPERATION");
    const auto operation = Operations::find(request.operation);
    if (!operation)
        return faultText("unknown operation \"%1\"").arg(request.operation);
    return readArguments(*operation, request);
}

} // namespace

CallRequest readCall(const QString &beginning, const BrokerMessage &message, const CallRules &rules)
{
    CallRequest request;
    request.arrival = QDateTime::currentDateTimeUtc();
    request.body = message.payload;
    if (message.expirySeconds)
        request.deadline = QDeadlineTimer(qint64(*message.expirySeconds) * 1000);
    request.fault = readAll(message.topic.mid(beginning.size()), message, rules, request);
    return request;
}

} // namespace Tavoro::Gate
