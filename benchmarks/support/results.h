#pragma once

#include <QString>

namespace Bench {

/// What a result must reach.
struct Goal {
    double bound = 0; ///< Of value / peer value, or of the value without a peer; 0: no goal.
    bool isAtLeast = false; ///< The bound is the least; otherwise it is the most.
};

/// One measured number, beside that of the peer in the same run.
struct Result {
    QString name; ///< Workload and statistic, for example "alone p99".
    double value = 0;
    QString unit;
    QString peer; ///< Empty if the number is compared with nothing.
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
