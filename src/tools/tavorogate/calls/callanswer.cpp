#include "callanswer.h"

#include <tavorocontrol/controlhelper.h>
#include <tavoroctl/output/statusmeaning.h>
#include <tavorooperations/jsontext.h>

#include <QJsonDocument>
#include <QJsonObject>

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
        {QStringLiteral("device"), serial},         {QStringLiteral("operation"), operation},
        {QStringLiteral("outcome"), outcomeName()}, {QStringLiteral("status"), status},
        {QStringLiteral("meaning"), meaning()},     {QStringLiteral("text"), text},
    };
    if (!record.empty())
        object.insert(QStringLiteral("answer"), Operations::jsonValue(record));
    return QJsonDocument(object).toJson(QJsonDocument::Compact);
}

} // namespace Tavoro::Gate
