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

struct Line {
    int channel = 0;
    qint64 microseconds = 0;
    CaptureEvent event = CaptureEvent::Open;
    std::string rest;
};

bool readLine(const std::string &text, Line &line)
{
    std::istringstream words(text);
    double seconds = 0;
    std::string event;
    if (!(words >> line.channel >> seconds >> event))
        return false;
    line.microseconds = std::llround(seconds * 1e6);
    std::getline(words >> std::ws, line.rest);
    line.rest.erase(line.rest.find_last_not_of(" \r") + 1);
    for (std::size_t i = 0; i < std::size(eventWords); ++i) {
        if (event == eventWords[i]) {
            line.event = static_cast<CaptureEvent>(i);
            return true;
        }
    }
    return false;
}

/// The bytes of one direction of a connection.
struct Direction {
    FrameParser parser;
    CapturedItem begun; ///< The frame that is still incomplete.
};

class Reader {
public:
    explicit Reader(std::vector<CapturedItem> &items) : m_items(items) { }

    /// Returns false if the line is not a line of a capture.
    bool take(const Line &line);
    /// Adds the incomplete frames at the end of the capture.
    void end();

private:
    using Directions = std::map<CaptureEvent, Direction>;

    void takeBytes(const Line &line, std::string_view bytes);
    void endConnection(int channel);

    std::vector<CapturedItem> &m_items;
    std::map<int, Directions> m_channels;
};

bool Reader::take(const Line &line)
{
    if (line.event == CaptureEvent::Sent || line.event == CaptureEvent::Received) {
        std::string bytes;
        const bool isHex = readHex(line.rest, bytes);
        if (isHex)
            takeBytes(line, bytes);
        return isHex;
    }
    endConnection(line.channel);
    CapturedItem item;
    item.channel = line.channel;
    item.microseconds = line.microseconds;
    item.kind = line.event == CaptureEvent::Open ? CapturedKind::Opened
        : line.event == CaptureEvent::Close      ? CapturedKind::Closed
                                                 : CapturedKind::Lost;
    item.text = line.rest;
    m_items.push_back(std::move(item));
    return true;
}

void Reader::takeBytes(const Line &line, std::string_view bytes)
{
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
    if (event == CaptureEvent::Sent || event == CaptureEvent::Received)
        line.append(" ").append(hexOf(bytes));
    else if (event != CaptureEvent::Close)
        line.append(" ").append(onOneLine(bytes));
    return line + '\n';
}

bool decodeCapture(const std::string &text, std::vector<CapturedItem> &items, std::string &error)
{
    std::istringstream lines(text);
    std::string written;
    if (!std::getline(lines, written) || written != heading) {
        error = "line 1: not a capture";
        return false;
    }
    Reader reader(items);
    for (int number = 2; std::getline(lines, written); ++number) {
        if (written.empty() || written[0] == '#')
            continue;
        Line line;
        if (!readLine(written, line) || !reader.take(line)) {
            error = "line " + std::to_string(number) + ": not a line of a capture";
            return false;
        }
    }
    reader.end();
    return true;
}

} // namespace Tavoro::SSProxy::Wire
