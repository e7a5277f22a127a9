#include "outcomejob_p.h"

#include <tavorocontrol/controlhelper.h>
#include <tavorooperations/operation.h>
#include <tavorossproxy/channelstatus.h>
#include <tavorossproxy/commandcodes.h>

#include <utility>

namespace Tavoro::SessionInternal {

OutcomeJob::OutcomeJob(const SSProxy::RequestIdentity &request, const QString &name)
    : OutcomeJob(request, name, std::make_shared<LinkRequest<>>())
{ }

OutcomeJob::OutcomeJob(const SSProxy::RequestIdentity &request, const QString &name,
                       std::shared_ptr<LinkRequest<>> question)
    : CallJob(question), m_operation(name), m_question(std::move(question))
{
    result = unknownAfter(SSProxy::Disconnected);
    result.unresolved = std::make_shared<SSProxy::RequestIdentity>(request);
}

QFuture<Outcome> OutcomeJob::future() const
{
    return m_question->future();
}

QString OutcomeJob::label() const
{
    const auto entry = Operations::find(m_operation);
    if (!entry)
        return {};
    const auto code = static_cast<quint16>(entry->command());
    return Control::ControlHelper::commandLabel(SSProxy::baseCode(entry->command()),
                                                static_cast<quint8>(code & 0xFF));
}

} // namespace Tavoro::SessionInternal
