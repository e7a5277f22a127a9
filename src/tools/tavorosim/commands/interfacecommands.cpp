#include "interfacecommands.h"

#include "handlers_p.h"

namespace Tavoro::Sim {

using namespace ProtoModel;
using namespace ProtoModel::Interface;

namespace {

constexpr qint32 automatic = 255; ///< Preset of a value that the signal determines.

void setPreset(qint32 &preset, qint32 &actual, qint32 wanted)
{
    preset = wanted;
    if (wanted != automatic)
        actual = wanted;
}

// How an interface takes each kind of body: it stores the preset only, and the signal follows.
// clang-format off
void applyPreset(s_ColorDepthBody &now, const s_ColorDepthBody &wanted) { setPreset(now.presetColorDepth, now.actualColorDepth, wanted.presetColorDepth); }
void applyPreset(s_ColorSpaceBody &now, const s_ColorSpaceBody &wanted) { setPreset(now.presetColorSpace, now.actualColorSpace, wanted.presetColorSpace); }
void applyPreset(s_ColorRangeBody &now, const s_ColorRangeBody &wanted) { setPreset(now.presetColorRange, now.actualColorRange, wanted.presetColorRange); }
void applyPreset(s_ColorGamutBody &now, const s_ColorGamutBody &wanted) { setPreset(now.presetColorGamut, now.actualColorGamut, wanted.presetColorGamut); }
// clang-format on

void applyPreset(s_HDRBody &now, const s_HDRBody &wanted)
{
    applyPreset(now.colorGamut, wanted.colorGamut);
    now.dynamicRange.presetDynamicRange = wanted.dynamicRange.presetDynamicRange;
    if (wanted.dynamicRange.presetDynamicRange.type != automatic)
        now.dynamicRange.actualDynamicRange = wanted.dynamicRange.presetDynamicRange;
}

void applyPreset(s_InterfaceGeneralBody &now, const s_InterfaceGeneralBody &wanted)
{
    now.name = wanted.name;
    now.nameGB2312 = wanted.nameGB2312;
}

bool isPreset(const s_ColorDepthBody &body)
{
    return isUInt16(body.presetColorDepth);
}
bool isPreset(const s_ColorSpaceBody &body)
{
    return isUInt16(body.presetColorSpace);
}
bool isPreset(const s_ColorRangeBody &body)
{
    return isUInt16(body.presetColorRange);
}
bool isPreset(const s_InterfaceGeneralBody & /*body*/)
{
    return true;
}
bool isPreset(const s_HDRBody &body)
{
    return isUInt16(body.colorGamut.presetColorGamut)
        && isUInt16(body.dynamicRange.presetDynamicRange.type);
}

/// The record that reports member \a To of \a interface as member \a From.
template <auto From, auto To>
RecordOf<From> recordOf(const s_InterfaceDetail &interface)
{
    RecordOf<From> record;
    static_cast<s_InterfaceID &>(record) = interface.interfaceId;
    record.*From = interface.*To;
    return record;
}

template <auto From, auto To>
DeviceStatus writePreset(SimState &state, const Request &request, Reports &reports)
{
    using Record = RecordOf<From>;
    std::vector<Record> changed;
    const DeviceStatus status = writeEach<Record>(
        state, request, checkMember<From, isPreset>, [&](SimState &now, const Record &record) {
            s_InterfaceDetail &interface = *find(now, identityOf(record));
            applyPreset(interface.*To, record.*From);
            changed.push_back(recordOf<From, To>(interface));
        });
    if (!changed.empty())
        reports.push_back({request.command, encoded(changed)});
    return status;
}

} // namespace

std::string readInterfaces(const SimState &state, const Request &request)
{
    std::vector<s_InterfaceDetail> list;
    for (const auto &[key, interface] : state.interfaces) {
        if (matchesType(interface.general.type, request.arg2[2])
            && matches(interface.interfaceId.slotId, request.arg2[1]))
            list.push_back(interface);
    }
    return encoded(list);
}

using Detail = s_InterfaceDetail;

// clang-format off
DeviceStatus writeInterfaceGeneral(SimState &s, const Request &r, Reports &o) { return writePreset<&s_General::general,        &Detail::general>    (s, r, o); }
DeviceStatus writeColorDepth      (SimState &s, const Request &r, Reports &o) { return writePreset<&s_ColorDepth::colorDepths, &Detail::colorDepths>(s, r, o); }
DeviceStatus writeColorSpace      (SimState &s, const Request &r, Reports &o) { return writePreset<&s_ColorSpace::colorSpaces, &Detail::colorSpaces>(s, r, o); }
DeviceStatus writeColorRange      (SimState &s, const Request &r, Reports &o) { return writePreset<&s_ColorRange::colorRanges, &Detail::colorRanges>(s, r, o); }
DeviceStatus writeInterfaceHDR    (SimState &s, const Request &r, Reports &o) { return writePreset<&s_DHR::HDR,                &Detail::HDR>        (s, r, o); }
// clang-format on

DeviceStatus writePresetTiming(SimState &state, const Request &request, Reports &reports)
{
    // An output sends its preset timing; an input keeps the timing of its source.
    const auto apply = [&](SimState &now, const s_PresetTimingDetail &record) {
        s_InterfaceDetail &interface = *find(now, identityOf(record));
        interface.presetTiming = record.presetTiming;
        if (interface.general.type != OutputInterface)
            return;
        interface.actualTiming = record.presetTiming;
        reports.push_back(reportTiming(interface));
    };
    return writeEach<s_PresetTimingDetail>(
        state, request, checkMember<&s_PresetTimingDetail::presetTiming, isTiming>, apply);
}

DeviceStatus writeHDCP(SimState &state, const Request &request, Reports & /*reports*/)
{
    return writeEach<s_HDCP>(state, request, checkMember<&s_HDCP::hdcp, isHDCP>,
                             [](SimState &now, const s_HDCP &record) {
                                 s_HDCPBody &hdcp = find(now, identityOf(record))->HDCP;
                                 hdcp = record.hdcp;
                                 hdcp.actualType = hdcp.presetType;
                             });
}

Report reportTiming(const s_InterfaceDetail &interface)
{
    const std::vector<s_ActualTimingDetail> list{
        recordOf<&s_ActualTimingDetail::actualTiming, &s_InterfaceDetail::actualTiming>(interface)};
    return {Command::InterfaceActualTiming, encoded(list)};
}

Report reportColorDepth(const s_InterfaceDetail &interface)
{
    const std::vector<s_ColorDepth> list{
        recordOf<&s_ColorDepth::colorDepths, &s_InterfaceDetail::colorDepths>(interface)};
    return {Command::InterfaceColorDepth, encoded(list)};
}

} // namespace Tavoro::Sim
