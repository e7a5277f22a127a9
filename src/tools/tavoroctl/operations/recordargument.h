#pragma once

#include "recordtext.h"

#include <tavorocontrol/proto/codec.h>

#include <QString>

#include <string>
#include <type_traits>
#include <vector>

namespace Tavoro::Ctl {

/// What is wrong with a record that a person typed: a sentence with its place, lines and columns
/// counted from 1. Empty if nothing is.
using Fault = QString;

/// Whether \a text is JSON at all.
Fault faultOfSyntax(const std::string &text);

/// Whether \a text, which is JSON, is a list or an object as is due.
Fault faultOfShape(const std::string &text, bool isListDue);

/// The codec's error text in the form of this tool.
Fault faultOfCodec(const std::string &error);

/// Whether \a sent, which is what the record read from \a text would be sent as, says the same as
/// \a text. The codec is lax: it skips keys that it does not know, cuts numbers to the width of
/// their field and takes words for numbers. What a person types should reach the device, or not be
/// sent.
Fault faultOfMeaning(const std::string &text, const std::string &sent);

template <class Record>
struct IsList : std::false_type { };
template <class Record>
struct IsList<std::vector<Record>> : std::true_type { };

/// Reads \a text, which must be JSON, into \a record.
template <class Record>
Fault readRecord(const std::string &text, Record &record)
{
    Fault fault = faultOfSyntax(text);
    if (fault.isEmpty())
        fault = faultOfShape(text, IsList<Record>::value);
    if (!fault.isEmpty())
        return fault;
    std::string error;
    if (!ajson::decodeRecord(text, record, error))
        return faultOfCodec(error);
    return faultOfMeaning(text, recordText(record));
}

} // namespace Tavoro::Ctl
