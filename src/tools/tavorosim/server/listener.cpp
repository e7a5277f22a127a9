#include "listener.h"

#include <tavorosim/state/simlog.h>
#include <tavorosim/state/texts.h>
#include <tavorowire/hostandport.h>

#include <QTcpSocket>

#include <cerrno>
#include <fcntl.h>
#include <sys/socket.h>

namespace Tavoro::Sim {

namespace {

constexpr int retryInterval = 1000; ///< Milliseconds.

bool isShortage(int reason)
{
    return reason == EMFILE || reason == ENFILE || reason == ENOBUFS || reason == ENOMEM;
}

} // namespace

Listener::Listener(QObject *parent) : QObject(parent), m_server(this), m_retry(this)
{
    m_retry.setSingleShot(true);
    m_retry.setInterval(retryInterval);
    connect(&m_retry, &QTimer::timeout, this, &Listener::resume);
}

bool Listener::open(const QHostAddress &address, quint16 port, QString &error)
{
    if (!m_server.listen(address, port)) {
        error =
            Texts::tr("cannot listen on %1: %2")
                .arg(SSProxy::Wire::hostAndPort(address.toString(), port), m_server.errorString());
        return false;
    }
    m_server.pauseAccepting(); // accept() below does it
    m_notifier =
        std::make_unique<QSocketNotifier>(m_server.socketDescriptor(), QSocketNotifier::Read);
    connect(m_notifier.get(), &QSocketNotifier::activated, this, &Listener::accept);
    return true;
}

void Listener::close()
{
    m_retry.stop();
    m_notifier.reset();
    m_server.close();
}

void Listener::accept()
{
    const int descriptor =
        ::accept(static_cast<int>(m_server.socketDescriptor()), nullptr, nullptr);
    if (descriptor < 0) {
        const int reason = errno;
        if (isShortage(reason))
            pause(reason);
        return; // anything else concerns a client that is gone again
    }
    ::fcntl(descriptor, F_SETFD, FD_CLOEXEC);
    if (std::exchange(m_isPaused, false))
        qCWarning(simLog, "accepting connections again");
    auto *const socket = new QTcpSocket;
    socket->setSocketDescriptor(descriptor);
    Q_EMIT connected(socket);
}

void Listener::pause(int reason)
{
    m_notifier->setEnabled(false);
    m_retry.start();
    if (!std::exchange(m_isPaused, true))
        qCWarning(simLog, "cannot accept connections: %s; trying again every second",
                  qUtf8Printable(qt_error_string(reason)));
}

void Listener::resume()
{
    m_notifier->setEnabled(true);
}

} // namespace Tavoro::Sim
