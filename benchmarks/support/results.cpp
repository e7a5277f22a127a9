#include "results.h"

#include <QJsonDocument>
#include <QJsonObject>

#include <cstdio>

namespace Bench {

namespace {

QByteArray jsonOf(const QString &benchmark, const Result &result)
{
    QJsonObject object{{QStringLiteral("benchmark"), benchmark},
                       {QStringLiteral("case"), result.name},
                       {QStringLiteral("value"), result.value},
                       {QStringLiteral("unit"), result.unit}};
    if (!result.peer.isEmpty()) {
        object.insert(QStringLiteral("peer"), result.peer);
        object.insert(QStringLiteral("peerValue"), result.peerValue);
        object.insert(QStringLiteral("ratio"), result.value / result.peerValue);
    }
    if (result.goal.bound > 0) {
        object.insert(QStringLiteral("goal"), result.goal.bound);
        object.insert(QStringLiteral("atLeast"), result.goal.isAtLeast);
    }
    return QJsonDocument(object).toJson(QJsonDocument::Compact);
}

QString peerText(const Result &result)
{
    if (result.peer.isEmpty())
        return {};
    return QStringLiteral("   %1 %2   ratio %3")
        .arg(result.peer, -20)
        .arg(result.peerValue, 9, 'f', 1)
        .arg(result.value / result.peerValue, 5, 'f', 2);
}

QString goalText(const Result &result)
{
    const Goal &goal = result.goal;
    if (goal.bound <= 0)
        return {};
    const double compared = result.peer.isEmpty() ? result.value : result.value / result.peerValue;
    const bool isMet = goal.isAtLeast ? compared >= goal.bound : compared <= goal.bound;
    return QStringLiteral("   %1 %2: %3")
        .arg(goal.isAtLeast ? QStringLiteral("at least") : QStringLiteral("at most"))
        .arg(goal.bound)
        .arg(isMet ? QStringLiteral("met") : QStringLiteral("not met"));
}

QString textOf(const Result &result)
{
    const QString value = QStringLiteral("%1 %2 %3")
                              .arg(result.name, -28)
                              .arg(result.value, 9, 'f', 1)
                              .arg(result.unit, -5);
    return value + peerText(result) + goalText(result);
}

} // namespace

void ResultPrinter::print(const Result &result) const
{
    const QByteArray line = m_asJson ? jsonOf(m_benchmark, result) : textOf(result).toUtf8();
    std::printf("%s\n", line.constData());
    std::fflush(stdout);
}

} // namespace Bench
