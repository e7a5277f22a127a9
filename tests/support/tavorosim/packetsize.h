#pragma once

#include <tavorosim/server/simoptions.h>

/// The options of a device whose packets hold up to \a bytes.
inline Tavoro::Sim::SimOptions packetsOf(quint32 bytes)
{
    Tavoro::Sim::SimOptions options;
    options.packetSize = bytes;
    return options;
}
