#include "callanswer.h"

#include <tavorocontrol/controlhelper.h>
#include <tavoroctl/output/statusmeaning.h>
#include <tavorooperations/jsontext.h>

#include <QJsonDocument>
#include <QJsonObject>

#include <algorithm>
#include <iterator>

namespace Tavoro::Gate {

namespace {

struct NameRow {
    Outcome::Kind kind;
    const char *name;
};

// clang-format off
constexpr NameRow names[] = {
    {Outcome::Done,    "done"},
    {Outcome::Refused, "refused"},
    {Outcome::NotSent, "not-sent"},
    {Outcome::Unknown, "unknown"},
};
// clang-format on

// clang-format off
const QString deviceKey    = QStringLiteral("device");
const QString operationKey = QStringLiteral("operation");
const QString outcomeKey   = QStringLiteral("outcome");
const QString statusKey    = QStringLiteral("status");
const QString meaningKey   = QStringLiteral("meaning");
const QString textKey      = QStringLiteral("text");
const QString answerKey    = QStringLiteral("answer");
// clang-format on

constexpr int lastDeviceStatus = 255;

} // namespace

CallAnswer CallAnswer::of(const Answer<std::string> &answer)
{
    return {answer.kind(), answer.status(), answer.text(),
            answer ? answer.record() : std::string()};
}

CallAnswer CallAnswer::notSent(const QString &reason)
{
    return {Outcome::NotSent, 0, reason, {}};
}

CallAnswer CallAnswer::unknown(const QString &reason)
{
    return {Outcome::Unknown, 0, reason, {}};
}

std::optional<CallAnswer> CallAnswer::fromJson(const QByteArray &json, const QString &serial)
{
    const QJsonObject object = QJsonDocument::fromJson(json).object();
    const QString outcome = object.value(outcomeKey).toString();
    const auto *const row =
        std::find_if(std::begin(names), std::end(names),
                     [&](const NameRow &each) { return outcome == QLatin1String(each.name); });
    if (row == std::end(names) || object.value(deviceKey).toString() != serial)
        return {};
    CallAnswer answer{
        row->kind, object.value(statusKey).toInt(), object.value(textKey).toString(), {}};
    if (object.contains(answerKey))
        answer.record = Operations::jsonText(object.value(answerKey)).toStdString();
    return answer;
}

QString CallAnswer::outcomeName() const
{
    for (const NameRow &row : names) {
        if (row.kind == kind)
            return QLatin1String(row.name);
    }
    Q_ASSERT_X(false, "CallAnswer::outcomeName", "a kind without a name");
    return {};
}

QString CallAnswer::meaning() const
{
    if (status == 0)
        return {};
    return status <= lastDeviceStatus
        ? Ctl::meaningOfStatus(status)
        : Control::ControlHelper::errorText(static_cast<quint16>(status));
}

QByteArray CallAnswer::toJson(const QString &serial, const QString &operation) const
{
    QJsonObject object{
        {deviceKey, serial}, {operationKey, operation}, {outcomeKey, outcomeName()},
        {statusKey, status}, {meaningKey, meaning()},   {textKey, text},
    };
    if (!record.empty())
        object.insert(answerKey, Operations::jsonValue(record));
    return QJsonDocument(object).toJson(QJsonDocument::Compact);
}

} // namespace Tavoro::Gate
