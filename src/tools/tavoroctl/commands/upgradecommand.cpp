// Starts a firmware upgrade and follows it to its end.

#include "commandlist.h"

#include <tavorocontrol/auxiliary.h>
#include <tavoroctl/output/labels.h>
#include <tavoroctl/session/interruption.h>

#include <QElapsedTimer>
#include <QEventLoop>
#include <QTimer>

#include <optional>

namespace Tavoro::Ctl {

using namespace ProtoModel::Auxiliary;

namespace {

constexpr int lookInterval = 200; ///< Milliseconds between two looks at the progress.
constexpr int whole = 100; ///< The rate of what is done.

QString unitName(const s_UpgradePartPercent &part)
{
    return QStringLiteral("slot %1, type %2").arg(part.slotId).arg(part.type);
}

/// Looks at the progress again and again, and tells each unit as it comes to its end.
class Follower {
public:
    Follower(Tool &tool, const std::shared_ptr<BizModel::Device> &device, bool mayBeAway)
        : m_tool(tool), m_device(device), m_mayBeAway(mayBeAway)
    { }

    /// Nothing while the upgrade goes on.
    std::optional<ExitStatus> look()
    {
        s_UpgradePercent progress;
        QString error;
        if (!m_device.readUpgradeProgress(progress, error))
            return judgeSilence(error);
        m_away.invalidate();
        m_tool.console.progress(progress.rate, QStringLiteral("upgrade"));
        tellUnits(progress);
        if (progress.result != 0)
            return fail(m_tool, QStringLiteral("The upgrade failed at %1 %.").arg(progress.rate));
        if (progress.rate < whole)
            return std::nullopt;
        m_tool.console.answer(QStringLiteral("The upgrade is done."));
        return Done;
    }

private:
    /// A device that restarts does not answer for a while.
    std::optional<ExitStatus> judgeSilence(const QString &error)
    {
        if (!m_away.isValid())
            m_away.start();
        if (m_mayBeAway && !m_away.hasExpired(m_tool.timeout))
            return std::nullopt;
        return fail(m_tool, error);
    }

    void tellUnits(const s_UpgradePercent &progress)
    {
        for (; m_told < progress.parts.size(); ++m_told) {
            const s_UpgradePartPercent &part = progress.parts.at(m_told);
            if (part.result == 0 && part.rate < whole)
                return;
            const QString outcome = part.result == 0
                ? QStringLiteral("written")
                : QStringLiteral("failed with result %1").arg(part.result);
            m_tool.console.answer(QStringLiteral("%1: %2").arg(unitName(part), outcome));
        }
    }

    Tool &m_tool;
    Control::Auxiliary m_device;
    const bool m_mayBeAway;
    QElapsedTimer m_away; ///< Since the device stopped answering.
    std::size_t m_told = 0; ///< Units that have come to their end, in their order.
};

ExitStatus follow(Tool &tool, Follower &follower)
{
    QEventLoop loop;
    const Interruption interruption([&] {
        loop.exit(fail(tool, QStringLiteral("Interrupted. The device goes on with the upgrade.")));
    });
    QTimer timer;
    timer.setInterval(lookInterval);
    QObject::connect(&timer, &QTimer::timeout, &loop, [&] {
        if (const auto outcome = follower.look())
            loop.exit(*outcome);
    });
    timer.start();
    return static_cast<ExitStatus>(loop.exec());
}

} // namespace

ExitStatus runUpgrade(Tool &tool, const Arguments &arguments)
{
    const bool reboot = arguments.options.contains(QStringLiteral("reboot"));
    const QString package = arguments.words.at(1);
    if (package.isEmpty())
        return refuseEmpty(tool, QStringLiteral("PACKAGE"));
    ExitStatus status = Done;
    const auto device = openDevice(tool, arguments.words.at(0), status);
    if (!device)
        return status;
    // Each failed look at a device that restarts would be told otherwise.
    tool.console.showStatusBar(StatusBar::Nothing);
    s_UpgradeDetail upgrade;
    upgrade.filePath = package.toStdString();
    upgrade.reboot = reboot ? 1 : 0;
    QString error;
    if (!Control::Auxiliary(device).setUgradeConfig(upgrade, error))
        return fail(tool, error);
    Follower follower(tool, device, reboot);
    return follow(tool, follower);
}

} // namespace Tavoro::Ctl
