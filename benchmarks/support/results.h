#pragma once

#include <QString>

namespace Bench {

/// What a result must reach in comparison with its peer.
struct Goal {
    double ratio = 0; ///< Bound of value / peer value; 0: there is no goal.
    bool isAtLeast = false; ///< The ratio must not be smaller; otherwise it must not be larger.
};

/// One measured number, beside that of the peer in the same run.
struct Result {
    QString name; ///< Workload and statistic, for example "alone p99".
    double value = 0;
    QString unit;
    QString peer;
    double peerValue = 0;
    Goal goal;
};

/// Prints results on standard output, as text or as one JSON object per line.
class ResultPrinter {
public:
    ResultPrinter(const QString &benchmark, bool asJson) : m_benchmark(benchmark), m_asJson(asJson)
    { }

    void print(const Result &result) const;

private:
    const QString m_benchmark;
    const bool m_asJson;
};

} // namespace Bench
