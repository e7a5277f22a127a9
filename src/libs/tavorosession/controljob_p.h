#pragma once

#include "calljob_p.h"
#include "linkrequest_p.h"

#include <tavorossproxy/controlaction.h>

#include <QFuture>

#include <memory>

namespace Tavoro::SessionInternal {

/// A request for control of the device, on its way through the command lane.
class ControlJob : public CallJob {
public:
    explicit ControlJob(SSProxy::ControlAction action);

    QFuture<Outcome> future() const;
    QString label() const override;
    ControlUse controlUse() const override;

protected:
    CallResult attempt() override;

private:
    ControlJob(SSProxy::ControlAction action, std::shared_ptr<LinkRequest<>> request);

    const SSProxy::ControlAction m_action;
    const std::shared_ptr<LinkRequest<>> m_request;
};

} // namespace Tavoro::SessionInternal
