#pragma once

#include "calljob_p.h"
#include "linkrequest_p.h"

#include <QFuture>
#include <QString>

#include <memory>

namespace Tavoro::SessionInternal {

/// Asks the device which client holds control, on its way through the command lane.
class HolderJob : public CallJob {
public:
    HolderJob();

    QFuture<Answer<QString>> future() const;
    QString label() const override;

protected:
    CallResult attempt() override;

private:
    explicit HolderJob(std::shared_ptr<LinkRequest<QString>> request);

    const std::shared_ptr<LinkRequest<QString>> m_request;
};

} // namespace Tavoro::SessionInternal
