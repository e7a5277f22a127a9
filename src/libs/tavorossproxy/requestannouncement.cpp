#include <tavorossproxy/requestannouncement.h>

#include <utility>

namespace Tavoro::SSProxy {

namespace {

thread_local RequestAnnouncement *newestAnnouncement = nullptr;

} // namespace

RequestAnnouncement::RequestAnnouncement(Handler handler)
    : m_outer(std::exchange(newestAnnouncement, this)), m_handler(std::move(handler))
{ }

RequestAnnouncement::~RequestAnnouncement()
{
    newestAnnouncement = m_outer;
}

bool RequestAnnouncement::isWanted()
{
    return newestAnnouncement != nullptr;
}

bool RequestAnnouncement::announce(const RequestIdentity &id, std::chrono::milliseconds time)
{
    return !newestAnnouncement || newestAnnouncement->m_handler(id, time);
}

} // namespace Tavoro::SSProxy
