#include "commandnames.h"

#include <tavorosim/state/numbers.h>
#include <tavorossproxy/commandcodes.h>

#include <QMetaEnum>

#include <limits>

namespace Tavoro::Sim {

namespace {

const QString identityName = QStringLiteral("identity");

QMetaEnum commands()
{
    return QMetaEnum::fromType<SSProxy::Command>();
}

} // namespace

std::optional<quint16> findCode(const QString &text)
{
    if (text == identityName)
        return identityCode;
    bool isName = false;
    const int named = commands().keyToValue(text.toUtf8().constData(), &isName);
    if (isName && !text.contains(QLatin1Char(':')))
        return static_cast<quint16>(named);
    const std::optional<qint64> code = toNumber(text);
    if (!code || *code <= identityCode || *code > std::numeric_limits<quint16>::max())
        return std::nullopt;
    return static_cast<quint16>(*code);
}

QString nameOfCode(quint16 code)
{
    if (code == identityCode)
        return identityName;
    const char *const name = commands().valueToKey(code);
    return name ? QString::fromLatin1(name)
                : QStringLiteral("0x%1").arg(code, 4, 16, QLatin1Char('0'));
}

} // namespace Tavoro::Sim
