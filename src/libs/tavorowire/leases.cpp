#include <tavorowire/leases.h>

#include <tavorowire/littleendian.h>

#include <QString>

#include <algorithm>

namespace Tavoro::SSProxy::Wire {

namespace {

constexpr std::size_t secondsSize = sizeof(quint16);
constexpr std::size_t leaseHeadSize = 1 + sizeof(quint32);

bool isControlCharacter(char byte)
{
    const auto code = static_cast<unsigned char>(byte);
    return code < 0x20 || code == 0x7F;
}

bool isHolderName(const std::string &name)
{
    return !name.empty() && name.size() <= longestHolderName
        && std::none_of(name.begin(), name.end(), isControlCharacter)
        && QString::fromStdString(name).toStdString() == name; // UTF-8
}

bool isLeaseState(const std::string &body)
{
    return static_cast<quint8>(body.front()) <= static_cast<quint8>(LeaseState::Others);
}

bool isValid(const Lease &lease)
{
    return lease.state == LeaseState::Free ? lease.holder.empty() && lease.milliseconds == 0
                                           : isHolderName(lease.holder);
}

} // namespace

std::string encodeLeaseRequest(const LeaseRequest &request)
{
    return bytesOf(request.seconds) + request.holder;
}

std::optional<LeaseRequest> decodeLeaseRequest(const std::string &body)
{
    if (body.size() <= secondsSize || !isHolderName(body.substr(secondsSize)))
        return std::nullopt;
    return LeaseRequest{numberAt<quint16>(body, 0), body.substr(secondsSize)};
}

std::string encodeLease(const Lease &lease)
{
    return static_cast<char>(lease.state) + bytesOf(lease.milliseconds) + lease.holder;
}

std::optional<Lease> decodeLease(const std::string &body)
{
    if (body.size() < leaseHeadSize || !isLeaseState(body))
        return std::nullopt;
    Lease lease{static_cast<LeaseState>(body.front()), numberAt<quint32>(body, 1),
                body.substr(leaseHeadSize)};
    if (!isValid(lease))
        return std::nullopt;
    return lease;
}

} // namespace Tavoro::SSProxy::Wire
