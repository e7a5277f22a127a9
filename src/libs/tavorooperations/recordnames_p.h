#pragma once

// The name of each record in schemas and descriptions: its C++ name without the namespace that all
// share.

#include <tavorocontrol/proto/auxiliary.h>
#include <tavorocontrol/proto/device.h>
#include <tavorocontrol/proto/deviceidentity.h>
#include <tavorocontrol/proto/file.h>
#include <tavorocontrol/proto/geometry.h>
#include <tavorocontrol/proto/identities.h>
#include <tavorocontrol/proto/interface.h>
#include <tavorocontrol/proto/layer.h>
#include <tavorocontrol/proto/preset.h>
#include <tavorocontrol/proto/rgb.h>
#include <tavorocontrol/proto/screen.h>
#include <tavorocontrol/proto/signalbodies.h>

#include <string>
#include <string_view>

namespace Tavoro::Operations::Internal {

template <class Record>
constexpr std::string_view fullName;

#define TAVORO_RECORD(Record) \
    template <>               \
    inline constexpr std::string_view fullName<Record> = #Record;
#include "records.inc" // one line per record that has a codec, made by CMake
#undef TAVORO_RECORD

template <class Record>
std::string nameOf()
{
    constexpr std::string_view shared = "Tavoro::ProtoModel::";
    static_assert(fullName<Record>.substr(0, shared.size()) == shared);
    return std::string(fullName<Record>.substr(shared.size()));
}

} // namespace Tavoro::Operations::Internal
