#include "standardstreams.h"

#include <cerrno>
#include <csignal>

#include <fcntl.h>

namespace Tavoro::Ctl {

void protectStandardStreams()
{
    std::signal(SIGPIPE, SIG_IGN);
    // open() takes the lowest free number. The wrong direction makes each use fail.
    constexpr int wrongDirections[] = {O_WRONLY, O_RDONLY, O_RDONLY};
    for (int stream = 0; stream < 3; ++stream) {
        if (::fcntl(stream, F_GETFD) < 0)
            ::open("/dev/null", wrongDirections[stream]);
    }
}

bool writeBytes(FILE *stream, const char *bytes, std::size_t length, QString &error)
{
    if (std::fwrite(bytes, 1, length, stream) == length && std::fflush(stream) == 0)
        return true;
    error = qt_error_string(errno);
    return false;
}

} // namespace Tavoro::Ctl
