#include "counters.h"

#include <tavorogate/calls/callanswer.h>

namespace Tavoro::Gate {

namespace {

struct MetricRow {
    const char *name;
    const char *type;
    const char *help;
    quint64 Counters::*value;
};

// clang-format off
constexpr MetricRow metricRows[] = {
    {"tavorogate_broker_connected",         "gauge",   "1 while the gateway is connected to its broker.",                 &Counters::isBrokerConnected},
    {"tavorogate_broker_connections_total", "counter", "Connections to the broker that were made.",                       &Counters::brokerConnections},
    {"tavorogate_devices",                  "gauge",   "Devices that the gateway knows.",                                 &Counters::devices},
    {"tavorogate_devices_ready",            "gauge",   "Devices that are connected and have been read.",                  &Counters::readyDevices},
    {"tavorogate_devices_active",           "gauge",   "Devices that this gateway publishes and operates.",               &Counters::activeDevices},
    {"tavorogate_messages_sent_total",      "counter", "Messages published.",                                             &Counters::sentMessages},
    {"tavorogate_messages_received_total",  "counter", "Messages received.",                                              &Counters::receivedMessages},
    {"tavorogate_outbox_messages",          "gauge",   "Answers and audit records that the broker has not acknowledged.", &Counters::unansweredMessages},
    {"tavorogate_calls_repeated_total",     "counter", "Calls that were delivered again, and not carried out again.",     &Counters::repeatedCalls},
};
// clang-format on

constexpr Outcome::Kind kinds[] = {Outcome::Done, Outcome::Refused, Outcome::NotSent,
                                   Outcome::Unknown};

QByteArray heading(const char *name, const char *type, const char *help)
{
    return QByteArray("# HELP ") + name + ' ' + help + "\n# TYPE " + name + ' ' + type + '\n';
}

} // namespace

QByteArray Counters::text() const
{
    QByteArray text;
    for (const MetricRow &row : metricRows)
        text += heading(row.name, row.type, row.help) + row.name + ' '
            + QByteArray::number(this->*row.value) + '\n';
    const char *const callsName = "tavorogate_calls_total";
    text += heading(callsName, "counter", "Calls that have ended, by outcome.");
    for (const Outcome::Kind kind : kinds) {
        CallAnswer answer;
        answer.kind = kind;
        text += QByteArray(callsName) + "{outcome=\"" + answer.outcomeName().toLatin1() + "\"} "
            + QByteArray::number(calls[kind]) + '\n';
    }
    return text;
}

} // namespace Tavoro::Gate
