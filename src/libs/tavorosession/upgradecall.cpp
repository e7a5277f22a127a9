#include "texts_p.h"
#include "upgradecall_p.h"

#include <tavorocontrol/auxiliary.h>
#include <tavorocontrol/controlhelper.h>
#include <tavorossproxy/commandcodes.h>

#include <utility>

namespace Tavoro::SessionInternal {

using ProtoModel::Auxiliary::s_UpgradeDetail;
using ProtoModel::Auxiliary::s_UpgradePercent;

namespace {

constexpr std::chrono::milliseconds readInterval(200);
constexpr int whole = 100; ///< The rate of a finished upgrade.

// clang-format off
constexpr char failed[]      = QT_TRANSLATE_NOOP("Tavoro::DeviceSession", "it failed at %1 percent");
constexpr char notReported[] = QT_TRANSLATE_NOOP("Tavoro::DeviceSession", "the device does not report its progress any more");
constexpr char notFollowed[] = QT_TRANSLATE_NOOP("Tavoro::DeviceSession", "the device continues, but is not followed any more");
// clang-format on

/// One read of the progress, in the lane of transfers: a take does not wait for it.
class ProgressRead final : public PendingOperation {
public:
    using Handler = std::function<void(const Outcome &outcome, const s_UpgradePercent &progress)>;

    /// Sets \a isSent, which any thread may read, when it does not wait any more.
    ProgressRead(std::shared_ptr<std::atomic<bool>> isSent, Handler handler)
        : m_isSent(std::move(isSent)), m_handler(std::move(handler))
    { }

    bool run(const std::weak_ptr<BizModel::Device> &device, QString &error) override
    {
        *m_isSent = true;
        return Control::Auxiliary(device).readUpgradeProgress(m_progress, error);
    }
    void finish(const Outcome &outcome, bool mayRun) override
    {
        m_handler(outcome, mayRun ? s_UpgradePercent() : m_progress);
    }
    bool isCanceled() const override { return false; }
    bool isTransfer() const override { return true; }
    std::optional<Operations::Operation> operation() const override { return std::nullopt; }
    std::vector<Operations::Scope> changes() const override { return {}; }

private:
    const std::shared_ptr<std::atomic<bool>> m_isSent;
    const Handler m_handler;
    s_UpgradePercent m_progress; ///< Belongs to the lane's thread until run() has ended.
};

} // namespace

UpgradeCall::UpgradeCall(Session session, std::chrono::milliseconds patience)
    : m_session(std::move(session)), m_patience(patience)
{
    m_promise.reportStarted();
}

void UpgradeCall::start(const s_UpgradeDetail &upgrade)
{
    const auto call = makeCall(&Control::Auxiliary::setUgradeConfig, upgrade);
    const auto job = std::make_shared<CallJob>(call);
    job->observer = [self = shared_from_this()](const Outcome &outcome, const CallResult &result) {
        self->started(outcome, result);
    };
    m_tracker->setCancelHandler([weak = weak_from_this(), future = call->future(),
                                 waiting = std::weak_ptr<CallJob>(job)]() mutable {
        future.cancel(); // has an effect unless the call was sent
        if (const auto self = weak.lock())
            self->cancel(waiting.lock());
    });
    m_session.start(job, true);
}

void UpgradeCall::started(const Outcome &outcome, const CallResult &result)
{
    if (!outcome)
        return finish(result);
    m_lastAnswer = m_lastLook = Clock::now();
    m_tracker->setDone(0, whole);
    m_timer = std::make_unique<QTimer>();
    m_timer->setInterval(readInterval);
    QObject::connect(m_timer.get(), &QTimer::timeout, m_timer.get(), [this] { read(); });
    m_timer->start();
    if (m_tracker->isCanceled())
        cancel({});
}

void UpgradeCall::read()
{
    const auto self = shared_from_this();
    const auto now = Clock::now();
    const auto sinceLastLook = now - std::exchange(m_lastLook, now);
    if (m_isRead && !*m_isSent)
        m_lastAnswer += sinceLastLook; // the read waits for a transfer, and not for the device
    if (now - m_lastAnswer > m_patience)
        return finish(unknown(SessionTexts::tr(notReported)));
    if (m_isRead || !m_session.isConnected())
        return;
    m_isRead = true;
    m_isSent = std::make_shared<std::atomic<bool>>(false);
    const auto handler = [self](const Outcome &outcome, const s_UpgradePercent &progress) {
        self->m_isRead = false;
        if (outcome && !self->hasEnded())
            self->judge(progress);
    };
    m_session.start(std::make_shared<CallJob>(std::make_shared<ProgressRead>(m_isSent, handler)),
                    true);
}

void UpgradeCall::judge(const s_UpgradePercent &progress)
{
    if (progress.rate == 0 && progress.parts.empty())
        return; // a device that was restarted may know no upgrade
    m_lastAnswer = Clock::now();
    m_progress = progress;
    m_tracker->setDone(progress.rate, whole);
    CallResult result;
    if (progress.result != 0) {
        result.kind = Outcome::Refused;
        result.reason = SessionTexts::tr(failed).arg(progress.rate);
        finish(result);
    } else if (progress.rate >= whole) {
        result.kind = Outcome::Done;
        finish(result);
    }
}

/// A device that was asked cannot be stopped: only the reads of its progress end.
void UpgradeCall::cancel(const std::shared_ptr<CallJob> &job)
{
    if (!m_timer) {
        if (job)
            m_session.cancel(job);
        return;
    }
    CallResult result = unknown(SessionTexts::tr(notFollowed));
    result.isCanceled = true;
    finish(result);
}

void UpgradeCall::end(const QString &reason)
{
    if (m_timer)
        finish(unknown(reason));
}

CallResult UpgradeCall::unknown(const QString &reason) const
{
    CallResult result;
    result.kind = Outcome::Unknown;
    result.reason = reason;
    return result;
}

void UpgradeCall::finish(CallResult result)
{
    if (std::exchange(m_hasEnded, true)) // first: a slot may run an event loop
        return;
    if (m_timer) {
        m_timer->stop();
        m_timer.release()->deleteLater(); // it may be the sender
    }
    constexpr auto command = SSProxy::Command::AuxiliaryUpgradeDetail;
    const Outcome outcome =
        m_session.report(result,
                         Control::ControlHelper::commandLabel(SSProxy::baseCode(command),
                                                              SSProxy::functionCode(command)));
    m_tracker->finish();
    m_promise.reportResult(Result(outcome, m_progress));
    m_promise.reportFinished();
}

} // namespace Tavoro::SessionInternal
