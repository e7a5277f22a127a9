// The parser finds the same frames, however the network cuts the stream into pieces.
//
// Input: the size of the pieces, whether the first head gets a valid checksum, then the stream.

#include "demand.h"
#include "input.h"

#include <tavorowire/frame.h>
#include <tavorowire/frameparser.h>

#include <cstring>
#include <string>
#include <vector>

using namespace Tavoro::SSProxy::Wire;

namespace {

constexpr std::uint32_t maxBodySize = 4096;

struct Seen {
    std::uint16_t status;
    bool fatal;
    WireHead head;
    std::string body;
};

bool isSame(const WireHead &one, const WireHead &other)
{
    return std::memcmp(&one, &other, sizeof one) == 0; // packed: there are no padding bytes
}

/// How much of the head a fatal event holds depends on the pieces.
bool operator==(const Seen &one, const Seen &other)
{
    return one.status == other.status && one.fatal == other.fatal && one.body == other.body
        && (one.fatal || isSame(one.head, other.head));
}

std::vector<Seen> parsed(std::string_view stream, std::size_t pieceSize)
{
    FrameParser parser(maxBodySize);
    std::vector<Seen> seen;
    while (!stream.empty()) {
        std::string_view piece = stream.substr(0, pieceSize);
        stream.remove_prefix(piece.size());
        while (auto event = parser.next(piece)) {
            demand(event->body.size() <= maxBodySize, "no body is longer than the limit");
            demand(event->status == 0 || event->body.empty(), "an invalid frame has no body");
            seen.push_back({event->status, event->fatal, event->head, std::move(event->body)});
        }
        demand(piece.empty(), "without an event, all bytes are consumed");
    }
    return seen;
}

/// Returns the stream with a valid checksum in the first head, so that the bytes after it are
/// parsed.
std::string withValidHead(std::string_view stream)
{
    std::string repaired(stream);
    WireHead head;
    if (repaired.size() < sizeof head)
        return repaired;
    std::memcpy(&head, repaired.data(), sizeof head);
    head.flag = frameFlag;
    head.version = frameVersion;
    head.headChecksum = headChecksum(head);
    std::memcpy(repaired.data(), &head, sizeof head);
    return repaired;
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t *data, std::size_t size)
{
    Input input(data, size);
    const std::size_t pieceSize = input.byte() + std::size_t(1);
    const bool isRepaired = input.flag();
    const std::string stream = isRepaired ? withValidHead(input.rest()) : std::string(input.rest());
    demand(parsed(stream, stream.size()) == parsed(stream, pieceSize), "the pieces do not matter");
    return 0;
}
