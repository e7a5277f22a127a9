#pragma once

#include <QProcess>

#include <csignal>
#include <sys/prctl.h>
#include <unistd.h>

namespace Bench {

/// A process that the system kills when the benchmark ends, however it ends. Its errors appear
/// among those of the benchmark. Start it on the main thread. Linux only.
class ChildProcess : public QProcess {
public:
    ChildProcess()
    {
        setProcessChannelMode(QProcess::ForwardedErrorChannel);
#if QT_VERSION >= QT_VERSION_CHECK(6, 0, 0)
        setChildProcessModifier([this] { endWithParent(); });
#endif
    }

#if QT_VERSION < QT_VERSION_CHECK(6, 0, 0)
protected:
    void setupChildProcess() override
    {
        endWithParent();
    }
#endif

private:
    /// Runs in the child.
    void endWithParent() const
    {
        ::prctl(PR_SET_PDEATHSIG, SIGKILL);
        if (::getppid() != m_parent) // the parent has ended before
            ::_exit(1);
    }

    const pid_t m_parent = ::getpid();
};

} // namespace Bench
