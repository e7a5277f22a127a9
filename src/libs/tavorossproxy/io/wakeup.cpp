#include "wakeup_p.h"

#include <sys/eventfd.h>
#include <unistd.h>

namespace Tavoro::SSProxy::Internal {

WakeUp &WakeUp::ofThisThread()
{
    thread_local WakeUp own;
    return own;
}

WakeUp::WakeUp() : m_descriptor(::eventfd(0, EFD_CLOEXEC | EFD_NONBLOCK)) { }

WakeUp::~WakeUp()
{
    if (isValid())
        ::close(m_descriptor);
}

void WakeUp::wake() const
{
    ::eventfd_write(m_descriptor, 1);
}

void WakeUp::reset() const
{
    eventfd_t count = 0;
    ::eventfd_read(m_descriptor, &count);
}

} // namespace Tavoro::SSProxy::Internal
