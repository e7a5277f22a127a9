#include "namedcall_p.h"
#include "texts_p.h"

#include <utility>

namespace Tavoro::SessionInternal {

namespace {

Operations::PreparedCall prepared(const std::optional<Operations::Operation> &operation,
                                  const QString &name, const QStringList &arguments,
                                  Operations::MissingKeys missing)
{
    if (operation)
        return operation->prepare(arguments, missing);
    Operations::PreparedCall unknown;
    unknown.fault = OutcomeTexts::tr("unknown operation \"%1\"").arg(name);
    return unknown;
}

} // namespace

NamedCall::NamedCall(const QString &name, const QStringList &arguments,
                     Operations::MissingKeys missing)
    : m_operation(Operations::find(name)), m_call(prepared(m_operation, name, arguments, missing))
{
    m_promise.reportStarted();
}

bool NamedCall::run(const std::weak_ptr<BizModel::Device> &device, QString &error)
{
    if (!m_call.run) {
        error = m_call.fault;
        return false;
    }
    Operations::CallResult result = m_call.run(device);
    m_answer = std::move(result.answer);
    error = result.error;
    return result.ok;
}

void NamedCall::finish(const Outcome &outcome, bool mayRun)
{
    m_promise.reportResult(Result(outcome, mayRun ? std::string() : std::move(m_answer)));
    m_promise.reportFinished();
}

} // namespace Tavoro::SessionInternal
