#include "operation_p.h"

#include "request/translation_p.h"

#include <tavorocontrol/controlhelper.h>

#include <cstddef>

namespace Tavoro::Control::Internal {

namespace {

constexpr char decodeFailed[] =
    QT_TRANSLATE_NOOP("Tavoro::Control::ControlHelper", "Decode json failed: ");
constexpr char deviceIsNull[] =
    QT_TRANSLATE_NOOP("Tavoro::Control::ControlHelper", "Device is null.");

constexpr quint8 lowByte(int value)
{
    return static_cast<quint8>(value & 0xFF);
}

void requestTimeout(SSProxy::DeviceRequestCommand &request, Timeout timeout)
{
    if (timeout.milliseconds > 0)
        request.setTimeout(timeout.milliseconds);
}

} // namespace

QString decodeFailure(const std::string &reason)
{
    return translated(decodeFailed) + QString::fromStdString(reason);
}

QString missingDevice()
{
    return translated(deviceIsNull);
}

std::shared_ptr<SSProxy::DeviceRequestCommand>
makeRequest(SSProxy::CommandType type, SSProxy::Command command, Filters filters)
{
    constexpr int firstPosition = offsetof(SSProxy::PacketHead, arg2);
    auto request = std::make_shared<SSProxy::DeviceRequestCommand>();
    SSProxy::PacketHead &head = request->head();
    head.type = static_cast<quint8>(type);
    head.BC = SSProxy::baseCode(command);
    head.FC = SSProxy::functionCode(command);
    for (const Filter filter : filters)
        head.arg2[filter.position - firstPosition] = lowByte(filter.value);
    return request;
}

bool writeBody(OperationTarget target, SSProxy::Command command, std::string body, QString &error,
               Timeout timeout)
{
    auto request = makeRequest(SSProxy::CommandType::Write, command);
    requestTimeout(*request, timeout);
    request->body() = std::move(body);
    return target.helper.sendSyncRequest(target.device, std::move(request), error, true);
}

bool read(OperationTarget target, SSProxy::Command command, Filters filters, std::string &answer,
          QString &error, Timeout timeout)
{
    auto request = makeRequest(SSProxy::CommandType::Read, command, filters);
    requestTimeout(*request, timeout);
    return target.helper.sendSyncRequest(target.device, std::move(request), answer, error);
}

} // namespace Tavoro::Control::Internal
