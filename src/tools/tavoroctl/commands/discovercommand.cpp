#include "commandlist.h"

#include <tavorocontrol/proto/deviceidentity.h>
#include <tavorocontrol/proto/hexdigits.h>
#include <tavoroctl/arguments/texts.h>
#include <tavoroctl/output/labels.h>
#include <tavorossproxy/devicediscovery.h>
#include <tavorossproxy/tcpdevicechannel.h>
#include <tavorowire/hostandport.h>

#include <QHostAddress>

#include <string>
#include <vector>

namespace Tavoro::Ctl {

namespace {

constexpr int listeningTime = 1000; ///< Milliseconds.

QString lineOf(const ProtoModel::DeviceBaseInfo &device)
{
    const QString place =
        SSProxy::Wire::hostAndPort(QString::fromStdString(device.ip), device.tcpPort);
    return QStringLiteral("%1  %2  %3")
        .arg(place, -21)
        .arg(QString::fromStdString(ProtoModel::hexDigits(device.sn)), textOf(device.name));
}

/// The identities of the devices, as they sent them.
std::string listOf(const std::vector<ProtoModel::DeviceBaseInfo> &devices)
{
    std::string list;
    for (const ProtoModel::DeviceBaseInfo &device : devices)
        list += (list.empty() ? "" : ",") + ProtoModel::encodeIdentity(device);
    return '[' + list + ']';
}

/// Discovery works in IPv4 networks only, and does not resolve names.
std::optional<Host> parseTarget(const QString &word)
{
    const std::optional<Host> host = parseHost(word, SSProxy::defaultDiscoveryPort);
    const bool isAddress =
        host && QHostAddress(host->name).protocol() == QAbstractSocket::IPv4Protocol;
    return isAddress ? host : std::nullopt;
}

} // namespace

ExitStatus runDiscover(Tool &tool, const Arguments &arguments)
{
    std::vector<SSProxy::DiscoveryTarget> targets;
    for (const QString &word : arguments.words) {
        const std::optional<Host> target = parseTarget(word);
        if (!target)
            return refuse(tool, Texts::tr("\"%1\" is not ADDRESS[:PORT]").arg(word));
        targets.push_back({target->name, target->port});
    }
    QString error;
    const auto devices = SSProxy::findDevices(listeningTime, 0, targets, error);
    if (!error.isEmpty())
        return fail(tool, error, Failed);
    if (tool.console.isJson())
        tool.console.answerJson(listOf(devices));
    else
        for (const ProtoModel::DeviceBaseInfo &device : devices)
            tool.console.answer(lineOf(device));
    return devices.empty() ? fail(tool, Texts::tr("No device answered."), Unreachable) : Done;
}

} // namespace Tavoro::Ctl
