#pragma once

#include "calljob_p.h"
#include "linkrequest_p.h"

#include <tavorossproxy/devicelease.h>

#include <QFuture>
#include <QString>

#include <chrono>
#include <memory>

namespace Tavoro::SessionInternal {

/// A request about the lease of a device. Its outcome is Done if the device has given the lease to
/// this session, or has ended it.
class LeaseJob final : public CallJob {
public:
    using Request = LinkRequest<SSProxy::DeviceLease>;

    /// Takes or renews the lease for \a time.
    LeaseJob(const QString &holder, std::chrono::seconds time);
    /// Releases the lease.
    LeaseJob();

    QFuture<Answer<SSProxy::DeviceLease>> future() const { return m_request->future(); }
    /// What the device has answered. After the job has run.
    const SSProxy::DeviceLease &lease() const { return m_request->record; }
    QString label() const override;
    ControlUse controlUse() const override { return ControlUse::None; }
    CallLane lane() const override { return CallLane::Lease; }

protected:
    CallResult attempt() override;

private:
    LeaseJob(const QString &holder, std::chrono::seconds time, std::shared_ptr<Request> request);
    bool isRelease() const { return m_holder.isNull(); }

    const QString m_holder; ///< Null to release the lease.
    const std::chrono::seconds m_time;
    const std::shared_ptr<Request> m_request;
};

} // namespace Tavoro::SessionInternal
