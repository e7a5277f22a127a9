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

// The building blocks of all operations. An operation is one row of a table: it names the command
// and the record, and calls one of these functions.
namespace Tavoro::Control {

class ControlHelper;

namespace Internal {

/// The device of a control object, and the helper that sends its requests.
struct OperationTarget {
    const std::weak_ptr<BizModel::Device> &device;
    ControlHelper &helper;
};

/// Timeout that an operation requests, in milliseconds.
///
/// Kept: it has no effect, since the request path replaces it by the value of the device's timeout
/// table.
struct Timeout {
    int milliseconds = 0;
};

/// An argument byte of the head, at a position from 31 to 34. Only the low byte of the value is
/// sent; -1 becomes 0xFF, which does not filter.
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

/// Makes a request with type, code and argument bytes. The other bytes of the head are 0.
std::shared_ptr<SSProxy::DeviceRequestCommand>
makeRequest(SSProxy::CommandType type, SSProxy::Command command, Filters filters = {});

/// Sends \a body as a write. The status bar shows a success.
bool writeBody(OperationTarget target, SSProxy::Command command, std::string body, QString &error,
               Timeout timeout = {});
/// Sends a record, or a list of records, as a write.
template <class Record>
bool write(OperationTarget target, SSProxy::Command command, const Record &record, QString &error,
           Timeout timeout = {})
{
    std::string body;
    ajson::encodeRecord(record, body);
    return writeBody(target, command, std::move(body), error, timeout);
}

/// Sends a read with \a filters in the head and no body. \a answer gets the body of the answer.
bool read(OperationTarget target, SSProxy::Command command, Filters filters, std::string &answer,
          QString &error, Timeout timeout = {});

/// Reads a record, or a list of records, and decodes the answer into it.
template <class Record>
bool readRecord(OperationTarget target, SSProxy::Command command, Record &record, QString &error,
                Filters filters = {}, Timeout timeout = {})
{
    std::string answer;
    return read(target, command, filters, answer, error, timeout) && decode(answer, record, error);
}

} // namespace Internal

} // namespace Tavoro::Control
