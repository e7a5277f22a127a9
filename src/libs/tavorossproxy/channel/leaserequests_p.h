#pragma once

#include <tavorossproxy/io/clock_p.h>

#include <tavorossproxy/devicelease.h>

#include <QString>

#include <chrono>

namespace Tavoro::SSProxy {
class DeviceChannel;
}

namespace Tavoro::SSProxy::Internal {

/// The requests of NetworkChannel::readLease(), takeLease() and releaseLease(). Each blocks until
/// the device of \a channel answers, at most 10 s.
DeviceLease readLease(DeviceChannel &channel, const Clock &clock);
DeviceLease takeLease(DeviceChannel &channel, const Clock &clock, const QString &holder,
                      std::chrono::seconds time);
DeviceLease releaseLease(DeviceChannel &channel, const Clock &clock);

} // namespace Tavoro::SSProxy::Internal
