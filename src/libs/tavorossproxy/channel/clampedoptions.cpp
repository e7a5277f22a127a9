#include "clampedoptions_p.h"

#include <tavorossproxy/io/clock_p.h>

#include <algorithm>

namespace Tavoro::SSProxy::Internal {

namespace {

/// Number of tags that a request can have.
constexpr int tagCount = 255;

/// Longest body of a frame: a QByteArray of Qt 5 cannot hold a frame of 2 GiB.
constexpr quint32 maxBodySize = 1u << 30;

} // namespace

ChannelOptions clampedOptions(ChannelOptions options)
{
    using Milliseconds = ChannelOptions::Milliseconds;
    for (Milliseconds ChannelOptions::*time :
         {&ChannelOptions::connectTimeout, &ChannelOptions::identityTimeout,
          &ChannelOptions::firstReconnectPause, &ChannelOptions::longestReconnectPause,
          &ChannelOptions::keepAliveInterval, &ChannelOptions::keepAliveTimeout,
          &ChannelOptions::stalledAnswerTimeout})
        options.*time = std::clamp(options.*time, Milliseconds(1), Milliseconds(maxDuration));
    // Ensures that at least one ping is sent before the connection is closed.
    options.keepAliveTimeout = std::max(options.keepAliveTimeout, 2 * options.keepAliveInterval);
    options.maxRequestTime = std::max(options.maxRequestTime, Milliseconds(1));
    options.maxBodySize = std::min(options.maxBodySize, maxBodySize);
    options.maxPacketCount = std::max(options.maxPacketCount, 1u);
    options.maxElements = std::max(options.maxElements, 1u);
    options.maxUnsentBytes = std::max(options.maxUnsentBytes, 1u);
    options.minTransferRate = std::max(options.minTransferRate, 1u);
    options.maxTimedOutRequests = std::clamp(options.maxTimedOutRequests, 1, tagCount);
    return options;
}

} // namespace Tavoro::SSProxy::Internal
