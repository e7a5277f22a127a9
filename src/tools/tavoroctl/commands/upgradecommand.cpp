// Starts a firmware upgrade and follows it to its end.

#include "commandlist.h"

#include <tavorocontrol/auxiliary.h>
#include <tavoroctl/arguments/texts.h>
#include <tavoroctl/output/labels.h>
#include <tavoroctl/session/interruption.h>
#include <tavorossproxy/networkchannel.h>

#include <QElapsedTimer>
#include <QEventLoop>
#include <QTimer>

#include <optional>

namespace Tavoro::Ctl {

using namespace ProtoModel::Auxiliary;

namespace {

constexpr int progressReadInterval = 200; ///< Milliseconds between two reads of the progress.
constexpr int whole = 100; ///< The rate of a finished upgrade.

QString continues()
{
    return Texts::tr("The device continues with the upgrade.");
}

QString unitName(const s_UpgradePartPercent &part)
{
    return Texts::tr("slot %1, type %2").arg(part.slotId).arg(part.type);
}

/// Reads the progress again and again, and shows each unit when it is finished.
class Follower {
public:
    Follower(Tool &tool, const std::shared_ptr<BizModel::Device> &device)
        : m_tool(tool), m_device(device)
    { }

    /// The exit status, or nothing while the upgrade continues.
    std::optional<ExitStatus> look()
    {
        QElapsedTimer asked;
        asked.start();
        s_UpgradePercent progress;
        QString error;
        if (!m_device.readUpgradeProgress(progress, error))
            return judgeFailure(asked, error);
        m_unknownSince.invalidate();
        m_tool.console.progress({progress.rate, Texts::tr("upgrade")});
        showFinishedUnits(progress);
        if (progress.result != 0)
            return fail(m_tool, Texts::tr("The upgrade failed at %1 %.").arg(progress.rate),
                        Failed);
        if (progress.rate < whole)
            return std::nullopt;
        if (!m_tool.console.isJson())
            m_tool.console.answer(Texts::tr("The upgrade is done."));
        return finish(m_tool);
    }

private:
    /// A device does not answer while it restarts, and a connection may be lost: neither ends the
    /// upgrade. Gives up when the progress has been unknown for the time of --timeout.
    std::optional<ExitStatus> judgeFailure(const QElapsedTimer &asked, const QString &error)
    {
        if (!m_unknownSince.isValid())
            m_unknownSince = asked;
        if (!m_unknownSince.hasExpired(m_tool.timeout))
            return std::nullopt;
        m_tool.console.notice(error);
        return fail(m_tool, continues());
    }

    void showFinishedUnits(const s_UpgradePercent &progress)
    {
        for (; m_shown < progress.parts.size(); ++m_shown) {
            const s_UpgradePartPercent &part = progress.parts.at(m_shown);
            if (part.result == 0 && part.rate < whole)
                return;
            showUnit(part);
        }
    }

    void showUnit(const s_UpgradePartPercent &part)
    {
        if (m_tool.console.isJson())
            return m_tool.console.answerObject({{QStringLiteral("event"), QStringLiteral("unit")},
                                                {QStringLiteral("slotId"), part.slotId},
                                                {QStringLiteral("type"), part.type},
                                                {QStringLiteral("result"), part.result}});
        const QString outcome = part.result == 0
            ? Texts::tr("written")
            : Texts::tr("failed with result %1").arg(part.result);
        m_tool.console.answer(QStringLiteral("%1: %2").arg(unitName(part), outcome));
    }

    Tool &m_tool;
    Control::Auxiliary m_device;
    QElapsedTimer m_unknownSince; ///< Invalid while the progress can be read.
    std::size_t m_shown = 0; ///< Units that have been shown, in their order.
};

ExitStatus follow(Tool &tool, const std::shared_ptr<BizModel::Device> &device)
{
    Follower follower(tool, device);
    QEventLoop loop;
    const Interruption interruption([&] {
        loop.exit(
            fail(tool, Texts::tr("Interrupted.") + QLatin1Char(' ') + continues(), Interrupted));
    });
    QTimer timer;
    timer.setInterval(progressReadInterval);
    QObject::connect(&timer, &QTimer::timeout, &loop, [&] {
        if (const auto outcome = follower.look())
            loop.exit(*outcome);
    });
    timer.start();
    return static_cast<ExitStatus>(loop.exec());
}

bool isUpgrading(const std::shared_ptr<BizModel::Device> &device)
{
    s_UpgradePercent progress;
    QString error;
    return Control::Auxiliary(device).readUpgradeProgress(progress, error)
        && !progress.parts.empty() && progress.result == 0 && progress.rate < whole;
}

/// Starts the upgrade unless one is running: a device that takes a second start might begin again.
/// Ends with another status than Done if none is running afterwards.
ExitStatus start(Tool &tool, const std::shared_ptr<BizModel::Device> &device,
                 const s_UpgradeDetail &upgrade)
{
    if (!isUpgrading(device)) {
        const SSProxy::ExchangeWatch watch;
        QString error;
        if (Control::Auxiliary(device).setUgradeConfig(upgrade, error))
            return Done;
        // The next exchanges replace the last one.
        // NOLINTNEXTLINE(performance-unnecessary-copy-initialization)
        const std::optional<SSProxy::Exchange> written = watch.last();
        // The answer may be lost, or another client may have been faster.
        QString ignored;
        if (!tool.session.channel(*device)->waitUntilReady(tool.timeout, ignored)
            || !isUpgrading(device))
            return fail(tool, error, written);
    }
    const QString text = Texts::tr("Following the upgrade that is running on the device.");
    if (tool.console.isJson())
        tool.console.notice(text);
    else
        tool.console.answer(text);
    return Done;
}

} // namespace

ExitStatus runUpgrade(Tool &tool, const Arguments &arguments)
{
    const QString package = arguments.words.at(1);
    if (package.isEmpty())
        return refuseEmpty(tool, QStringLiteral("PACKAGE"));
    ExitStatus status = Done;
    const auto device = openDevice(tool, arguments.words.at(0), status);
    if (!device)
        return status;
    // The status bar would show each read of the progress that fails.
    tool.console.showStatusBar(StatusBar::Nothing);
    tool.console.streamProgress();
    s_UpgradeDetail upgrade;
    upgrade.filePath = package.toStdString();
    upgrade.reboot = arguments.options.contains(QStringLiteral("reboot")) ? 1 : 0;
    status = start(tool, device, upgrade);
    return status == Done ? follow(tool, device) : status;
}

} // namespace Tavoro::Ctl
