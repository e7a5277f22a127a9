#pragma once

#include <tavorocontrol/proto/codec.h>

#include <QByteArray>
#include <QString>

#include <string>
#include <type_traits>
#include <vector>

/// Records as they are kept in the database: JSON of the wire's codec, in which each byte of a text
/// is a character of its own. The codec by itself changes characters above U+FFFF and text that is
/// not valid UTF-8.
namespace Tavoro::Sim {

/// One character for each byte, and back.
void bytesToCharacters(std::string &text);
void charactersToBytes(std::string &text);

template <class Change>
void transformTexts(std::string &text, const Change &change)
{
    change(text);
}
template <class Number, class Change>
std::enable_if_t<std::is_integral_v<Number>> transformTexts(Number & /*number*/,
                                                            const Change & /*change*/)
{ }
template <class Record, class Change>
std::enable_if_t<!std::is_integral_v<Record>> transformTexts(Record &record, const Change &change);
template <class Element, class Change>
void transformTexts(std::vector<Element> &list, const Change &change)
{
    for (Element &element : list)
        transformTexts(element, change);
}
/// Calls \a change for each text of a record.
template <class Record, class Change>
std::enable_if_t<!std::is_integral_v<Record>> transformTexts(Record &record, const Change &change)
{
    record.visitFields([&change](auto &...fields) { (..., transformTexts(fields, change)); });
}

template <class Record>
QByteArray encodeStored(Record record)
{
    transformTexts(record, bytesToCharacters);
    std::string text;
    ajson::encodeRecord(record, text);
    return QByteArray::fromStdString(text);
}

/// On failure \a error holds the reason.
template <class Record>
bool decodeStored(const QByteArray &stored, Record &record, QString &error)
{
    std::string reason;
    if (!ajson::decodeRecord(stored.toStdString(), record, reason)) {
        error = QString::fromStdString(reason);
        return false;
    }
    transformTexts(record, charactersToBytes);
    return true;
}

} // namespace Tavoro::Sim
