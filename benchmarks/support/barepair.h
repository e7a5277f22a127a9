#pragma once

#include <QtGlobal>

#include <string>
#include <string_view>
#include <vector>

namespace Bench {

/// Bytes of one request and of its answer, heads included.
struct BareExchange {
    int request = 0;
    int answer = 0;
};

/// Two connected sockets over loopback, each on a thread of its own and nothing but sockets: the
/// least that moving these bytes costs. Each request waits for the answer to the one before.
///
/// What is longer than a head is cut from \a source, round and round, behind the head. Either side
/// throws away what it gets, or gathers it without the heads: the asking one in \a sink, the
/// answering one in \a store.
void runBarePair(const std::vector<BareExchange> &exchanges, std::string_view source,
                 std::string *sink = nullptr, std::string *store = nullptr);

/// The exchanges that move \a length bytes in packets of \a packetSize.
std::vector<BareExchange> bareReads(qint64 length, int packetSize);
std::vector<BareExchange> bareWrites(qint64 length, int packetSize);

} // namespace Bench
