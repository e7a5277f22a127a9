#pragma once

#include <tavorocontrol/proto/codec.h>
#include <tavorossproxy/commandcodes.h>
#include <tavorossproxy/devicecommand.h>

#include <QString>

#include <initializer_list>
#include <memory>
#include <string>

namespace Tavoro::BizModel {
class Device;
}

// What all operations of the control classes are made of: a row of a table names the code and the
// record, these do the rest.
namespace Tavoro::Control {

class ControlHelper;

namespace Internal {

/// The two members that a control object lends to its operations.
struct Link {
    const std::weak_ptr<BizModel::Device> &device;
    ControlHelper &helper;
};

/// Timeout that an operation asks for, in milliseconds.
///
/// Kept: the request path replaces it by the value of the device's timeout table.
struct Timeout {
    int milliseconds = 0;
};

/// An argument byte of the head, at position 31 to 34. Only the low byte of the value travels, so
/// that -1 is 0xFF and restricts nothing.
struct Filter {
    int position;
    int value;
};
using Filters = std::initializer_list<Filter>;

/// Text for an answer or a report that the codec could not decode, for the given reason.
QString decodeFailure(const std::string &reason);
/// Text for a report on a device that is no longer in the model.
QString missingDevice();

/// Decodes a body. On failure \a error holds decodeFailure().
template <class Record>
bool decode(const std::string &body, Record &record, QString &error)
{
    std::string reason;
    if (ajson::decodeRecord(body, record, reason))
        return true;
    error = decodeFailure(reason);
    return false;
}

/// A request with its type, code and argument bytes; the other bytes of the head stay as
/// constructed.
std::shared_ptr<SSProxy::DeviceRequestCommand>
makeRequest(SSProxy::CommandType type, SSProxy::Command command, Filters filters = {});

/// Sends \a body as a write and shows success on the status bar.
bool writeBody(Link link, SSProxy::Command command, std::string body, QString &error,
               Timeout timeout = {});
/// Sends a record, or a list of records, as a write.
template <class Record>
bool write(Link link, SSProxy::Command command, const Record &record, QString &error,
           Timeout timeout = {})
{
    std::string body;
    ajson::encodeRecord(record, body);
    return writeBody(link, command, std::move(body), error, timeout);
}

/// Asks for \a answer, with \a filters in the head and no body.
bool read(Link link, SSProxy::Command command, Filters filters, std::string &answer, QString &error,
          Timeout timeout = {});

/// Asks for a record, or a list of records, and reads the answer into it.
template <class Record>
bool readRecord(Link link, SSProxy::Command command, Record &record, QString &error,
                Filters filters = {}, Timeout timeout = {})
{
    std::string answer;
    return read(link, command, filters, answer, error, timeout) && decode(answer, record, error);
}

} // namespace Internal

} // namespace Tavoro::Control
