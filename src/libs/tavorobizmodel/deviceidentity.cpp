#include "deviceidentity_p.h"

#include "deviceprivate_p.h"

#include <algorithm>

namespace Tavoro::BizModel {

namespace {

bool isZero(const QString &digits)
{
    return std::all_of(digits.begin(), digits.end(),
                       [](QChar digit) { return digit == QLatin1Char('0'); });
}

} // namespace

DeviceIdentity DeviceIdentity::of(const Device &device)
{
    return DevicePrivate::get(device).read(
        [](const DeviceState &state) { return of(state.sn, state.mac, state.ip); });
}

DeviceIdentity DeviceIdentity::of(const QString &sn, const QString &mac, const QString &ip)
{
    return {sn, mac, isZero(sn) && isZero(mac) ? ip : QStringLiteral("")};
}

} // namespace Tavoro::BizModel
