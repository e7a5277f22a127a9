#include "result.h"

#include <QString>

#include <utility>

namespace Tavoro::Python {

Result resultOf(const Outcome &outcome, std::string answer)
{
    Result result;
    result.kind = outcome.kind();
    result.status = outcome.status();
    result.meaning = outcome.reason().toStdString();
    result.text = outcome.text().toStdString();
    result.operation = outcome.operation().toStdString();
    result.isCanceled = outcome.isCanceled();
    result.answer = std::move(answer);
    return result;
}

Result success(std::string answer)
{
    Result result;
    result.kind = Outcome::Done;
    result.answer = std::move(answer);
    return result;
}

Result notSent(const std::string &meaning, const std::string &text)
{
    Result result;
    result.meaning = meaning;
    result.text = text;
    return result;
}

} // namespace Tavoro::Python
