#include <tavorossproxy/exchangewatch.h>

#include <utility>

namespace Tavoro::SSProxy {

namespace {

thread_local ExchangeWatch *newestWatch = nullptr;

} // namespace

ExchangeWatch::ExchangeWatch() : m_outer(std::exchange(newestWatch, this)) { }

ExchangeWatch::~ExchangeWatch()
{
    newestWatch = m_outer;
}

void ExchangeWatch::report(Exchange exchange)
{
    if (!newestWatch)
        return;
    if (exchange.sent && !newestWatch->m_firstSent)
        newestWatch->m_firstSent = exchange.time;
    newestWatch->m_last = std::move(exchange);
}

} // namespace Tavoro::SSProxy
