#include "inputlines.h"

#include <cerrno>
#include <unistd.h>

namespace Tavoro::Sim {

InputLines::InputLines(Serve serve)
    : m_serve(std::move(serve)), m_notifier(STDIN_FILENO, QSocketNotifier::Read)
{
    QObject::connect(&m_notifier, &QSocketNotifier::activated, &m_notifier, [this] { read(); });
}

/// Called when bytes are available, so that it never blocks. The input stays in blocking mode,
/// which a terminal shares with the shell.
void InputLines::read()
{
    char bytes[4096];
    const ssize_t count = ::read(STDIN_FILENO, bytes, sizeof bytes);
    if (count < 0 && (errno == EINTR || errno == EAGAIN))
        return;
    if (count > 0) {
        m_rest.append(bytes, static_cast<int>(count));
    } else {
        m_notifier.setEnabled(false);
        if (!m_rest.isEmpty())
            m_rest.append('\n');
    }
    serveLines();
}

void InputLines::serveLines()
{
    for (auto end = m_rest.indexOf('\n'); end >= 0; end = m_rest.indexOf('\n')) {
        const QString line = QString::fromUtf8(m_rest.left(end));
        m_rest.remove(0, end + 1);
        if (!m_serve(line))
            return m_notifier.setEnabled(false);
    }
}

} // namespace Tavoro::Sim
