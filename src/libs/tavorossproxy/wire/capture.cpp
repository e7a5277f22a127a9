#include <tavorossproxy/wire/capture.h>

#include <tavorocontrol/proto/hexdigits.h>

#include <cmath>
#include <cstdio>
#include <iterator>
#include <map>
#include <sstream>

namespace Tavoro::SSProxy::Wire {

namespace {

constexpr char heading[] = "# tavoro wire capture 1";
constexpr const char *eventWords[] = {"open", ">", "<", "close"};

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

/// Both directions of one channel.
struct Parsers {
    FrameParser sent;
    FrameParser received;
};

struct Line {
    int channel = 0;
    double seconds = 0;
    CaptureEvent event = CaptureEvent::Open;
    std::string rest;
};

bool readLine(const std::string &text, Line &line)
{
    std::istringstream words(text);
    std::string event;
    if (!(words >> line.channel >> line.seconds >> event))
        return false;
    words >> line.rest;
    for (std::size_t i = 0; i < std::size(eventWords); ++i) {
        if (event == eventWords[i]) {
            line.event = static_cast<CaptureEvent>(i);
            return true;
        }
    }
    return false;
}

bool takeLine(const Line &line, Parsers &parsers, std::vector<CapturedFrame> &frames)
{
    if (line.event == CaptureEvent::Open || line.event == CaptureEvent::Close) {
        parsers = Parsers();
        return true;
    }
    std::string bytes;
    if (!readHex(line.rest, bytes))
        return false;
    const bool isFromClient = line.event == CaptureEvent::Sent;
    FrameParser &parser = isFromClient ? parsers.sent : parsers.received;
    std::string_view rest(bytes);
    const auto microseconds = qint64{std::llround(line.seconds * 1e6)};
    while (auto frame = parser.next(rest))
        frames.push_back({line.channel, microseconds, isFromClient, std::move(*frame)});
    return true;
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
    if (event == CaptureEvent::Open)
        line.append(" ").append(bytes);
    else if (event != CaptureEvent::Close)
        line.append(" ").append(hexOf(bytes));
    return line + '\n';
}

bool decodeCapture(const std::string &text, std::vector<CapturedFrame> &frames, std::string &error)
{
    std::istringstream lines(text);
    std::string written;
    if (!std::getline(lines, written) || written != heading) {
        error = "line 1: this is no capture";
        return false;
    }
    std::map<int, Parsers> channels;
    for (int number = 2; std::getline(lines, written); ++number) {
        if (written.empty() || written[0] == '#')
            continue;
        Line line;
        if (!readLine(written, line) || !takeLine(line, channels[line.channel], frames)) {
            error = "line " + std::to_string(number) + ": this is no line of a capture";
            return false;
        }
    }
    return true;
}

} // namespace Tavoro::SSProxy::Wire
