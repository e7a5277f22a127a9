#pragma once

#include <tavorocontrol/proto/codec.h>

#include <string>

namespace Tavoro::Ctl {

/// A record or a list of records as JSON.
template <class Record>
std::string recordText(const Record &record)
{
    std::string text;
    ajson::encodeRecord(record, text);
    return text;
}

} // namespace Tavoro::Ctl
