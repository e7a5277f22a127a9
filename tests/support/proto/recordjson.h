#pragma once

#include <tavorocontrol/proto/codec.h>

#include <string>

template <class Record>
std::string json(const Record &record)
{
    std::string text;
    ajson::encodeRecord(record, text);
    return text;
}
