#pragma once

#include "recordnames_p.h"

#include <tavorooperations/operation.h>

#include <tavorocontrol/proto/codec.h>

#include <QLatin1Char>
#include <QString>

#include <string>
#include <type_traits>
#include <vector>

namespace Tavoro::Operations::Internal {

/// The fault of a record in JSON, as a text with its line and column, both counted
/// from 1. Empty if the record is valid.
using Fault = QString;

/// Checks that \a text is JSON.
Fault faultOfSyntax(const std::string &text);

/// Checks that \a text, which is JSON, is a list or an object as \a expectsList says.
Fault faultOfShape(const std::string &text, bool expectsList);

/// Converts the codec's error text to the form that callers get.
Fault faultOfCodec(const std::string &error);

/// Replaces the sign of the negative number that \a error refuses with a blank. Returns false if
/// the codec refused \a text for another reason.
bool removeNegativeSign(std::string &text, const std::string &error);

/// The fault of the first negative number in \a text whose field is unsigned, with its range.
/// \a decoded is the record of the text without these signs, and \a type its name.
Fault faultOfSign(const std::string &text, const std::string &decoded, const QString &type);

/// Compares \a text with \a sent, the record that was decoded from it and would be sent.
///
/// The codec is lenient: it skips unknown keys, truncates numbers to the width of their field,
/// reads words as numbers and leaves missing keys at their defaults. A record is sent only if it is
/// exactly what the caller wrote. \a type names the record, see Argument::type: a fault of a
/// number names the range. \a lacksKeys becomes true if the fault is that keys are missing.
Fault faultOfMeaning(const std::string &text, const std::string &sent, const QString &type,
                     MissingKeys missing, bool &lacksKeys);

template <class Record>
struct IsList : std::false_type { };
template <class Record>
struct IsList<std::vector<Record>> : std::true_type { };

/// The name of a record or of a list of records, see Argument::type.
template <class Record>
struct TypeName {
    static QString text() { return QString::fromStdString(nameOf<Record>()); }
};
template <class Record>
struct TypeName<std::vector<Record>> {
    static QString text() { return QLatin1Char('[') + TypeName<Record>::text() + QLatin1Char(']'); }
};

/// The fault of a text that the codec refuses with \a error.
template <class Record>
Fault faultOfRefused(const std::string &text, const std::string &error)
{
    std::string decodable = text;
    std::string next = error;
    while (removeNegativeSign(decodable, next)) {
        Record record{};
        if (!ajson::decodeRecord(decodable, record, next))
            continue;
        std::string decoded;
        ajson::encodeRecord(record, decoded);
        const Fault fault = faultOfSign(text, decoded, TypeName<Record>::text());
        return fault.isEmpty() ? faultOfCodec(error) : fault;
    }
    return faultOfCodec(error);
}

/// Decodes \a text into \a record.
template <class Record>
Fault readRecord(const std::string &text, Record &record, MissingKeys missing, bool &lacksKeys)
{
    Fault fault = faultOfSyntax(text);
    if (fault.isEmpty())
        fault = faultOfShape(text, IsList<Record>::value);
    if (!fault.isEmpty())
        return fault;
    std::string error;
    if (!ajson::decodeRecord(text, record, error))
        return faultOfRefused<Record>(text, error);
    std::string sent;
    ajson::encodeRecord(record, sent);
    return faultOfMeaning(text, sent, TypeName<Record>::text(), missing, lacksKeys);
}

} // namespace Tavoro::Operations::Internal
