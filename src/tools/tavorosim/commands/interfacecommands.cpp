#include "interfacecommands.h"

#include "handlers_p.h"

namespace Tavoro::Sim {

using namespace ProtoModel;
using namespace ProtoModel::Interface;

namespace {

constexpr qint32 asItComes = 255; ///< Preset of a value that the signal determines.

void ask(qint32 &preset, qint32 &actual, qint32 asked)
{
    preset = asked;
    if (asked != asItComes)
        actual = asked;
}

// How an interface takes each kind of body: it stores the preset only, and the signal follows.
// clang-format off
void follow(s_ColorDepthBody &now, const s_ColorDepthBody &asked) { ask(now.presetColorDepth, now.actualColorDepth, asked.presetColorDepth); }
void follow(s_ColorSpaceBody &now, const s_ColorSpaceBody &asked) { ask(now.presetColorSpace, now.actualColorSpace, asked.presetColorSpace); }
void follow(s_ColorRangeBody &now, const s_ColorRangeBody &asked) { ask(now.presetColorRange, now.actualColorRange, asked.presetColorRange); }
void follow(s_ColorGamutBody &now, const s_ColorGamutBody &asked) { ask(now.presetColorGamut, now.actualColorGamut, asked.presetColorGamut); }
// clang-format on

void follow(s_HDRBody &now, const s_HDRBody &asked)
{
    follow(now.colorGamut, asked.colorGamut);
    now.dynamicRange.presetDynamicRange = asked.dynamicRange.presetDynamicRange;
    if (asked.dynamicRange.presetDynamicRange.type != asItComes)
        now.dynamicRange.actualDynamicRange = asked.dynamicRange.presetDynamicRange;
}

void follow(s_InterfaceGeneralBody &now, const s_InterfaceGeneralBody &asked)
{
    now.name = asked.name;
    now.nameGB2312 = asked.nameGB2312;
}

bool isPreset(const s_ColorDepthBody &body)
{
    return isCode(body.presetColorDepth);
}
bool isPreset(const s_ColorSpaceBody &body)
{
    return isCode(body.presetColorSpace);
}
bool isPreset(const s_ColorRangeBody &body)
{
    return isCode(body.presetColorRange);
}
bool isPreset(const s_InterfaceGeneralBody & /*body*/)
{
    return true;
}
bool isPreset(const s_HDRBody &body)
{
    return isCode(body.colorGamut.presetColorGamut)
        && isCode(body.dynamicRange.presetDynamicRange.type);
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
            follow(interface.*To, record.*From);
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
        if (passesType(interface.general.type, request.arg2[2])
            && passes(interface.interfaceId.slotId, request.arg2[1]))
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
