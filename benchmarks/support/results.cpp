#include "results.h"

#include <QJsonDocument>
#include <QJsonObject>

#include <cstdio>

namespace Bench {

namespace {

QByteArray jsonOf(const QString &benchmark, const Result &result, double ratio)
{
    QJsonObject object{
        {QStringLiteral("benchmark"), benchmark}, {QStringLiteral("case"), result.name},
        {QStringLiteral("value"), result.value},  {QStringLiteral("unit"), result.unit},
        {QStringLiteral("peer"), result.peer},    {QStringLiteral("peerValue"), result.peerValue},
        {QStringLiteral("ratio"), ratio}};
    if (result.goal.ratio > 0) {
        object.insert(QStringLiteral("goal"), result.goal.ratio);
        object.insert(QStringLiteral("atLeast"), result.goal.isAtLeast);
    }
    return QJsonDocument(object).toJson(QJsonDocument::Compact);
}

QString textOf(const Result &result, double ratio)
{
    const QString line = QStringLiteral("%1 %2 %3   %4 %5   ratio %6")
                             .arg(result.name, -28)
                             .arg(result.value, 9, 'f', 1)
                             .arg(result.unit, -5)
                             .arg(result.peer, -20)
                             .arg(result.peerValue, 9, 'f', 1)
                             .arg(ratio, 5, 'f', 2);
    if (result.goal.ratio <= 0)
        return line;
    const QString bound =
        result.goal.isAtLeast ? QStringLiteral("at least") : QStringLiteral("at most");
    const bool isMet =
        result.goal.isAtLeast ? ratio >= result.goal.ratio : ratio <= result.goal.ratio;
    return QStringLiteral("%1   %2 %3: %4")
        .arg(line, bound)
        .arg(result.goal.ratio)
        .arg(isMet ? QStringLiteral("met") : QStringLiteral("not met"));
}

} // namespace

void ResultPrinter::print(const Result &result) const
{
    const double ratio = result.value / result.peerValue;
    const QByteArray line =
        m_asJson ? jsonOf(m_benchmark, result, ratio) : textOf(result, ratio).toUtf8();
    std::printf("%s\n", line.constData());
    std::fflush(stdout);
}

} // namespace Bench
