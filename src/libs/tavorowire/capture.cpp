#include <tavorowire/capture.h>

#include <tavorocontrol/proto/hexdigits.h>

#include <algorithm>
#include <cmath>
#include <cstdio>
#include <iterator>
#include <map>
#include <sstream>
#include <utility>

namespace Tavoro::SSProxy::Wire {

namespace {

constexpr char heading[] = "# tavoro wire capture 1";
constexpr const char *eventWords[] = {"open", ">", "<", "close", "lost"};

std::string hexOf(std::string_view bytes)
{
    constexpr char digits[] = "0123456789ABCDEF";
    std::string text;
    text.reserve(2 * bytes.size());
    for (const char byte : bytes) {
        text += digits[static_cast<quint8>(byte) >> 4];
        text += digits[static_cast<quint8>(byte) & 0xF];
    }
    return text;
}

std::string onOneLine(std::string_view words)
{
    std::string text(words);
    std::replace(text.begin(), text.end(), '\n', ' ');
    return text;
}

bool readHex(const std::string &text, std::string &bytes)
{
    if (text.size() % 2 != 0)
        return false;
    for (std::size_t i = 0; i < text.size(); i += 2) {
        const int high = ProtoModel::hexValue(text[i]);
        const int low = ProtoModel::hexValue(text[i + 1]);
        if (high < 0 || low < 0)
            return false;
        bytes += static_cast<char>(high << 4 | low);
    }
    return true;
}

bool hasBytes(CaptureEvent event)
{
    return event == CaptureEvent::Sent || event == CaptureEvent::Received;
}

bool readEvent(const std::string &word, CaptureEvent &event)
{
    const auto *const found = std::find(std::begin(eventWords), std::end(eventWords), word);
    event = static_cast<CaptureEvent>(found - std::begin(eventWords));
    return found != std::end(eventWords);
}

bool readLine(const std::string &text, CaptureLine &line)
{
    std::istringstream words(text);
    double seconds = 0;
    std::string event;
    if (!(words >> line.channel >> seconds >> event) || !readEvent(event, line.event))
        return false;
    line.microseconds = std::llround(seconds * 1e6);
    std::string rest;
    std::getline(words >> std::ws, rest);
    rest.erase(rest.find_last_not_of(" \r") + 1);
    if (hasBytes(line.event))
        return readHex(rest, line.bytes);
    line.bytes = rest;
    return true;
}

/// The bytes of one direction of a connection.
struct Direction {
    FrameParser parser;
    CapturedItem begun; ///< The frame that is still incomplete.
};

class Reader {
public:
    explicit Reader(std::vector<CapturedItem> &items) : m_items(items) { }

    void take(const CaptureLine &line);
    /// Adds the incomplete frames at the end of the capture.
    void end();

private:
    using Directions = std::map<CaptureEvent, Direction>;

    void takeBytes(const CaptureLine &line);
    void endConnection(int channel);

    std::vector<CapturedItem> &m_items;
    std::map<int, Directions> m_channels;
};

void Reader::take(const CaptureLine &line)
{
    if (hasBytes(line.event)) {
        takeBytes(line);
        return;
    }
    endConnection(line.channel);
    CapturedItem item;
    item.channel = line.channel;
    item.microseconds = line.microseconds;
    item.kind = line.event == CaptureEvent::Open ? CapturedKind::Opened
        : line.event == CaptureEvent::Close      ? CapturedKind::Closed
                                                 : CapturedKind::Lost;
    item.text = line.bytes;
    m_items.push_back(std::move(item));
}

void Reader::takeBytes(const CaptureLine &line)
{
    std::string_view bytes = line.bytes;
    Direction &direction = m_channels[line.channel][line.event];
    CapturedItem &begun = direction.begun;
    begun.channel = line.channel;
    begun.microseconds = line.microseconds;
    begun.isFromClient = line.event == CaptureEvent::Sent;
    while (!bytes.empty()) {
        const std::string_view before = bytes;
        auto frame = direction.parser.next(bytes);
        begun.bytes.append(before.substr(0, before.size() - bytes.size()));
        if (!frame)
            return;
        begun.kind = CapturedKind::Frame;
        begun.frame = std::move(*frame);
        m_items.push_back(begun);
        begun.bytes.clear();
    }
}

void Reader::endConnection(int channel)
{
    for (auto &[event, direction] : m_channels[channel]) {
        if (!direction.parser.isWithinFrame())
            continue;
        direction.begun.kind = CapturedKind::Incomplete;
        direction.begun.frame = {};
        direction.begun.frame.head = direction.parser.unfinishedHead().value_or(WireHead());
        m_items.push_back(std::move(direction.begun));
    }
    m_channels.erase(channel);
}

void Reader::end()
{
    while (!m_channels.empty())
        endConnection(m_channels.begin()->first);
}

} // namespace

std::string captureHeading()
{
    return std::string(heading) + '\n';
}

std::string encodeCaptureLine(int channel, qint64 microseconds, CaptureEvent event,
                              std::string_view bytes)
{
    char front[64];
    const int length = std::snprintf(front, sizeof front, "%d %lld.%06lld %s", channel,
                                     static_cast<long long>(microseconds / 1000000),
                                     static_cast<long long>(microseconds % 1000000),
                                     eventWords[static_cast<int>(event)]);
    std::string line(front, static_cast<std::size_t>(length));
    if (hasBytes(event))
        line.append(" ").append(hexOf(bytes));
    else if (event != CaptureEvent::Close)
        line.append(" ").append(onOneLine(bytes));
    return line + '\n';
}

bool readCapture(const std::string &text, const std::function<void(const CaptureLine &)> &take,
                 std::string &error)
{
    std::istringstream lines(text);
    std::string written;
    if (!std::getline(lines, written) || written != heading) {
        error = "line 1: not a capture";
        return false;
    }
    for (int number = 2; std::getline(lines, written); ++number) {
        if (written.empty() || written[0] == '#')
            continue;
        CaptureLine line;
        if (!readLine(written, line)) {
            error = "line " + std::to_string(number) + ": not a line of a capture";
            return false;
        }
        take(line);
    }
    return true;
}

bool decodeCapture(const std::string &text, std::vector<CapturedItem> &items, std::string &error)
{
    Reader reader(items);
    if (!readCapture(
            text, [&reader](const CaptureLine &line) { reader.take(line); }, error))
        return false;
    reader.end();
    return true;
}

} // namespace Tavoro::SSProxy::Wire
