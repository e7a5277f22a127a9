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

/// Two connected sockets over loopback, each on a thread of its own, without any library code: the
/// minimum cost of moving these bytes. Each request waits for the answer to the previous one.
///
/// The bytes after each head are taken from \a source in a cycle. Each side discards what it
/// receives, or keeps it without the heads: the requesting side in \a sink, the answering side in
/// \a store.
void runBarePair(const std::vector<BareExchange> &exchanges, std::string_view source,
                 std::string *sink = nullptr, std::string *store = nullptr);

/// The exchanges that move \a length bytes in packets of \a packetSize.
std::vector<BareExchange> bareReads(qint64 length, int packetSize);
std::vector<BareExchange> bareWrites(qint64 length, int packetSize);

} // namespace Bench
