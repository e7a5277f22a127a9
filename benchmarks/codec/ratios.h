#pragma once

#include <benchmark/benchmark.h>

#include <map>
#include <string>
#include <vector>

/// Collects the times of all contenders in each case, and prints the medians with their ratios.
///
/// The benchmarks are named "case/contender"; "codec" is the contender to which the others are
/// compared. A ratio is the time of another contender divided by that of the codec.
class Ratios : public benchmark::BenchmarkReporter {
public:
    enum class Format {
        Table, ///< Every contender.
        JsonLines ///< One object per line, for each ratio that has a goal.
    };
    explicit Ratios(Format format) : m_format(format) { }

    bool ReportContext(const Context &context) override;
    void ReportRuns(const std::vector<Run> &runs) override;
    void Finalize() override;

private:
    using Times = std::map<std::string, std::vector<double>>; ///< Nanoseconds by contender.

    const Format m_format;
    std::map<std::string, Times> m_times; ///< By case.
};
