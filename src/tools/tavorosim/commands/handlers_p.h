#pragma once

#include "request.h"

#include <tavorocontrol/proto/codec.h>
#include <tavorosim/state/ranges.h>

#include <type_traits>

/// Handlers as templates over the members that they copy: each fits one row of the command table.
namespace Tavoro::Sim {

template <class Record>
std::string encoded(const Record &record)
{
    std::string text;
    ajson::encodeRecord(record, text);
    return text;
}

/// False when \a body is not what the command takes.
template <class Record>
bool decoded(const std::string &body, Record &record)
{
    std::string error;
    return ajson::decodeRecord(body, record, error);
}

template <class Pointer>
struct MemberTraits;
template <class Record_, class Body_>
struct MemberTraits<Body_ Record_::*> {
    using Record = Record_;
    using Body = Body_;
};
template <auto Member>
using RecordOf = typename MemberTraits<decltype(Member)>::Record;
template <auto Member>
using BodyOf = typename MemberTraits<decltype(Member)>::Body;
template <auto Member>
using ValidityOf = bool (*)(const BodyOf<Member> &);

/// Records of layers nest their identity, those of screens and interfaces begin with it.
template <class Record>
const auto &identityOf(const Record &record)
{
    if constexpr (std::is_base_of_v<ProtoModel::s_ScreenId,
                                    Record> || std::is_base_of_v<ProtoModel::s_InterfaceID, Record>)
        return record;
    else
        return record.layerIdenti;
}

/// A write of a list: calls \a check for each element and, if all pass, \a apply for each.
template <class Record, class Check, class Apply>
DeviceStatus writeEach(SimState &state, const Request &request, Check check, Apply apply)
{
    std::vector<Record> records;
    if (!decoded(request.body, records))
        return DeviceStatus::MalformedBody;
    const SimState &unchanged = state;
    for (const Record &record : records) {
        const DeviceStatus status = check(unchanged, record);
        if (status != DeviceStatus::Success)
            return status;
    }
    for (const Record &record : records)
        apply(state, record);
    return DeviceStatus::Success;
}

/// The usual check: the named object exists and the value is in its range.
template <auto From, ValidityOf<From> isValid>
DeviceStatus checkMember(const SimState &state, const RecordOf<From> &record)
{
    if (!find(state, identityOf(record)))
        return DeviceStatus::NoSuchObject;
    return isValid(record.*From) ? DeviceStatus::Success : DeviceStatus::ValueOutOfRange;
}

/// Copies member \a From of each record to member \a To of the object that the record names.
template <auto From, auto To, ValidityOf<From> isValid = isAnything<BodyOf<From>>>
DeviceStatus writeMember(SimState &state, const Request &request, Reports & /*reports*/)
{
    return writeEach<RecordOf<From>>(state, request, checkMember<From, isValid>,
                                     [](SimState &now, const RecordOf<From> &record) {
                                         find(now, identityOf(record))->*To = record.*From;
                                     });
}

/// Copies member \a From of one record to member \a To of the device.
template <auto From, auto To, ValidityOf<From> isValid = isAnything<BodyOf<From>>>
DeviceStatus writeDevice(SimState &state, const Request &request, Reports & /*reports*/)
{
    RecordOf<From> record;
    if (!decoded(request.body, record))
        return DeviceStatus::MalformedBody;
    if (!isValid(record.*From))
        return DeviceStatus::ValueOutOfRange;
    state.device.*To = record.*From;
    return DeviceStatus::Success;
}

/// The same for a record that is itself a member of the device.
template <auto To, ValidityOf<To> isValid>
DeviceStatus writeDeviceRecord(SimState &state, const Request &request, Reports & /*reports*/)
{
    BodyOf<To> record;
    if (!decoded(request.body, record))
        return DeviceStatus::MalformedBody;
    if (!isValid(record))
        return DeviceStatus::ValueOutOfRange;
    state.device.*To = record;
    return DeviceStatus::Success;
}

constexpr quint8 noRestriction = 0xFF;

/// True if \a value matches the filter byte of a read.
inline bool matches(qint32 value, quint8 filter)
{
    return filter == noRestriction || value == filter;
}

/// True if \a type matches the filter of a type, for which 0 restricts nothing either.
inline bool matchesType(qint32 type, quint8 filter)
{
    return filter == 0 || matches(type, filter);
}

} // namespace Tavoro::Sim
