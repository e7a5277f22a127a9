#include "counters.h"

#include <tavorogate/calls/callanswer.h>

namespace Tavoro::Gate {

namespace {

struct MetricRow {
    const char *name;
    const char *type;
    const char *help;
    quint64 (*value)(const Counters &counters);
};

// clang-format off
constexpr MetricRow rows[] = {
    {"tavorogate_broker_connected",         "gauge",   "1 while the gateway is connected to its broker.",                   [](const Counters &c) { return quint64(c.isBrokerConnected); }},
    {"tavorogate_broker_connections_total", "counter", "Connections to the broker that were made.",                         [](const Counters &c) { return c.brokerConnections; }},
    {"tavorogate_devices",                  "gauge",   "Devices that the gateway knows.",                                   [](const Counters &c) { return quint64(c.devices); }},
    {"tavorogate_devices_ready",            "gauge",   "Devices that are connected and have been read.",                    [](const Counters &c) { return quint64(c.readyDevices); }},
    {"tavorogate_devices_active",           "gauge",   "Devices that this gateway publishes and operates.",                 [](const Counters &c) { return quint64(c.activeDevices); }},
    {"tavorogate_messages_sent_total",      "counter", "Messages published.",                                               [](const Counters &c) { return c.sentMessages; }},
    {"tavorogate_messages_received_total",  "counter", "Messages received.",                                                [](const Counters &c) { return c.receivedMessages; }},
    {"tavorogate_outbox_messages",          "gauge",   "Answers and audit records that the broker has not acknowledged.",   [](const Counters &c) { return quint64(c.unansweredMessages); }},
    {"tavorogate_calls_repeated_total",     "counter", "Calls that were delivered again, and not carried out again.",       [](const Counters &c) { return c.repeatedCalls; }},
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
    for (const MetricRow &row : rows)
        text += heading(row.name, row.type, row.help) + row.name + ' '
            + QByteArray::number(row.value(*this)) + '\n';
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
