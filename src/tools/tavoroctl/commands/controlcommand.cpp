// Shows, takes and releases control of a device.

#include "commandlist.h"

#include <tavoroctl/arguments/texts.h>
#include <tavoroctl/session/interruption.h>
#include <tavorossproxy/networkchannel.h>

#include <QEventLoop>
#include <QTimer>

#include <algorithm>
#include <iterator>

namespace Tavoro::Ctl {

namespace {

using SSProxy::ControlAction;
using SSProxy::NetworkChannel;

constexpr int controlCheckInterval = 200; ///< Milliseconds between two checks of the control.

ExitStatus showHolder(Tool &tool, NetworkChannel &channel)
{
    QString holder;
    if (!channel.readControlHolder(holder))
        return fail(tool, Texts::tr("The device does not say which client holds control."),
                    TimedOut);
    if (tool.console.isJson())
        tool.console.answerObject({{QStringLiteral("event"), QStringLiteral("holder")},
                                   {QStringLiteral("holder"), holder}});
    else
        tool.console.answer(holder.isEmpty() ? Texts::tr("nobody") : holder);
    return Done;
}

/// Holds control until Ctrl-C, or until it is lost: it ends with the connection.
ExitStatus hold(Tool &tool, NetworkChannel &channel, ControlAction action)
{
    QString error;
    if (!channel.requestControl(action, error))
        return fail(tool, error, Refused);
    QEventLoop loop;
    const Interruption interruption([&] { loop.exit(Done); });
    tool.console.notice(Texts::tr("This client holds control until Ctrl-C."));
    QTimer timer;
    timer.setInterval(controlCheckInterval);
    QObject::connect(&timer, &QTimer::timeout, &loop, [&] {
        if (!channel.isHardwareReadFinished())
            loop.exit(fail(tool, Texts::tr("Control ended with the connection."), Unreachable));
        else if (!channel.isMasterControl())
            loop.exit(fail(tool, Texts::tr("Another client has taken control."), Refused));
    });
    timer.start();
    const auto status = static_cast<ExitStatus>(loop.exec());
    channel.requestControl(ControlAction::GiveUp, error);
    return status == Done ? finish(tool) : status;
}

ExitStatus take(Tool &tool, NetworkChannel &channel)
{
    return hold(tool, channel, ControlAction::Take);
}

ExitStatus force(Tool &tool, NetworkChannel &channel)
{
    return hold(tool, channel, ControlAction::Force);
}

/// Control belongs to a connection, and this one is new: it takes control from its holder first.
ExitStatus release(Tool &tool, NetworkChannel &channel)
{
    QString error;
    const bool isReleased = channel.requestControl(ControlAction::Force, error)
        && channel.requestControl(ControlAction::GiveUp, error);
    return isReleased ? finish(tool) : fail(tool, error, Refused);
}

struct ActionRow {
    const char *name;
    ExitStatus (*run)(Tool &tool, NetworkChannel &channel);
};
constexpr ActionRow actions[] = {
    {"who", showHolder},
    {"take", take},
    {"release", release},
    {"force", force},
};

} // namespace

ExitStatus runControl(Tool &tool, const Arguments &arguments)
{
    const QString name = arguments.words.at(1);
    const auto *const action =
        std::find_if(std::begin(actions), std::end(actions),
                     [&](const ActionRow &row) { return name == QLatin1String(row.name); });
    if (action == std::end(actions))
        return refuse(tool, Texts::tr("\"%1\" is not who, take, release or force").arg(name));
    ExitStatus status = Done;
    const auto device = openDevice(tool, arguments.words.at(0), status);
    return device ? action->run(tool, *tool.session.channel(*device)) : status;
}

} // namespace Tavoro::Ctl
