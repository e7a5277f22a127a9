#include "ratios.h"

#include <algorithm>
#include <cstdio>

namespace {

/// The least ratio that the codec must reach beside one contender.
struct Goal {
    const char *name;
    const char *peer;
    double ratio;
};

// clang-format off
constexpr Goal goals[] = {
//   case                    contender    goal
    {"screens decode",       "simdjson",   2.6},
    {"files decode",         "simdjson",   2.6},
    {"switchEffects decode", "simdjson",   3.2},
    {"screens encode",       "rapidjson", 11.0},
    {"files encode",         "rapidjson", 11.0},
    {"switchEffects encode", "rapidjson", 14.0},
};
// clang-format on

/// 0 without a goal.
double goalOf(const std::string &name, const std::string &peer)
{
    for (const Goal &goal : goals) {
        if (name == goal.name && peer == goal.peer)
            return goal.ratio;
    }
    return 0;
}

double median(std::vector<double> times)
{
    const auto middle = times.begin() + static_cast<std::ptrdiff_t>(times.size() / 2);
    std::nth_element(times.begin(), middle, times.end());
    return *middle;
}

/// The times of the codec and of another contender in one case, in nanoseconds.
struct Comparison {
    std::string name;
    std::string peer;
    double codecTime;
    double peerTime;

    double ratio() const { return peerTime / codecTime; }
};

void printRow(const Comparison &row)
{
    std::printf("%-21s %-10s %11.1f %8.2f", row.name.c_str(), row.peer.c_str(), row.peerTime,
                row.ratio());
    if (const double goal = goalOf(row.name, row.peer); goal > 0)
        std::printf(" %6.1f %s", goal, row.ratio() >= goal ? "met" : "not met");
    std::printf("\n");
}

void printJsonLine(const Comparison &row)
{
    const double goal = goalOf(row.name, row.peer);
    if (goal > 0) {
        std::printf("{\"benchmark\":\"codec\",\"case\":\"%s\",\"value\":%.1f,\"unit\":\"ns\","
                    "\"peer\":\"%s\",\"peerValue\":%.1f,\"ratio\":%.3f,\"goal\":%.1f,"
                    "\"atLeast\":true}\n",
                    row.name.c_str(), row.codecTime, row.peer.c_str(), row.peerTime, row.ratio(),
                    goal);
    }
}

} // namespace

bool Ratios::ReportContext(const Context &)
{
    return true;
}

void Ratios::ReportRuns(const std::vector<Run> &runs)
{
    for (const Run &run : runs) {
        const std::string &name = run.run_name.function_name;
        const std::size_t slash = name.find('/');
        if (run.run_type == Run::RT_Iteration)
            m_times[name.substr(0, slash)][name.substr(slash + 1)].push_back(
                run.GetAdjustedCPUTime());
    }
}

void Ratios::Finalize()
{
    if (m_format == Format::Table)
        std::printf("%-21s %-10s %11s %8s %6s\n", "case", "contender", "ns", "ratio", "goal");
    for (const auto &[name, contenders] : m_times) {
        const auto codec = contenders.find("codec");
        if (codec == contenders.end())
            continue; // a filter excluded it
        const double codecTime = median(codec->second);
        for (const auto &[peer, times] : contenders) {
            const Comparison row{name, peer, codecTime, median(times)};
            m_format == Format::Table ? printRow(row) : printJsonLine(row);
        }
    }
}
