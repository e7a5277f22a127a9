#include "terminal.h"

#include <QByteArray>

#include <sys/ioctl.h>
#include <unistd.h>

namespace Tavoro::Ctl {

bool isTerminal()
{
    return ::isatty(STDERR_FILENO) != 0;
}

bool mayUseColours()
{
    return isTerminal() && qEnvironmentVariableIsEmpty("NO_COLOR") && qgetenv("TERM") != "dumb";
}

int terminalWidth()
{
    constexpr int usual = 80;
    winsize size{};
    if (::ioctl(STDERR_FILENO, TIOCGWINSZ, &size) != 0 || size.ws_col == 0)
        return usual;
    return size.ws_col;
}

} // namespace Tavoro::Ctl
