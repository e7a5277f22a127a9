#include "connection.h"

#include "runtime.h"

#include <tavorooperations/jsontext.h>

#include <QHash>
#include <QJsonObject>
#include <QTimer>

#include <utility>

namespace Tavoro::Python {

namespace {

/// How many connections use each session. Belongs to the runtime's thread.
QHash<DeviceSession *, int> &users()
{
    static QHash<DeviceSession *, int> counts;
    return counts;
}

const char *nameOf(DeviceState::Kind kind)
{
    switch (kind) {
    case DeviceState::Disconnected:
        return "disconnected";
    case DeviceState::Connecting:
        return "connecting";
    case DeviceState::Reading:
        return "reading";
    case DeviceState::Ready:
        return "ready";
    case DeviceState::Lost:
        return "lost";
    }
    return "";
}

std::string stateOf(const DeviceSession &session)
{
    const QJsonObject state{
        {QStringLiteral("state"), QLatin1String(nameOf(session.state().kind))},
        {QStringLiteral("text"), session.stateText()},
        {QStringLiteral("name"), session.name()},
        {QStringLiteral("address"), session.address()},
        {QStringLiteral("controlledByOthers"), session.isControlledByOthers()},
        {QStringLiteral("controlHolder"), session.controlHolder()},
    };
    return Operations::jsonText(state).toStdString();
}

Result notReady(const DeviceSession &session)
{
    return notSent(session.state().reason.toStdString(), session.stateText().toStdString());
}

/// The state of a session that is still connecting or reading does not say what is wrong.
Result notInTime(const DeviceSession &session, int milliseconds)
{
    const DeviceState::Kind kind = session.state().kind;
    if (kind != DeviceState::Connecting && kind != DeviceState::Reading)
        return notReady(session);
    const QString text = QStringLiteral("%1 was not ready within %2 s: %3")
                             .arg(session.address())
                             .arg(milliseconds / 1000.0)
                             .arg(session.stateText());
    return notSent("the device was not ready in time", text.toStdString());
}

} // namespace

Connection::Connection(std::shared_ptr<ModelState> state)
    : m_state(std::move(state)), m_signals([this] { m_state->noteChange(); })
{ }

Connection::~Connection()
{
    close();
}

void Connection::open(const QString &host, quint16 port, const SessionOptions &options)
{
    m_session = Runtime::instance().session().open(host, port, options);
    ++users()[m_session];
    m_context = std::make_unique<QObject>();
    const auto publishNow = [this] {
        publish();
    };
    const auto stateChanged = [this] {
        publish();
        endWaiting();
    };
    DeviceSession *const session = m_session;
    QObject *const context = m_context.get();
    QObject::connect(session, &DeviceSession::stateChanged, context, stateChanged);
    QObject::connect(session, &DeviceSession::stateDetailsChanged, context, publishNow);
    QObject::connect(session, &DeviceSession::controlChanged, context, publishNow);
    QObject::connect(session, &DeviceSession::controlHolderChanged, context, publishNow);
    QObject::connect(session, &DeviceSession::deviceChanged, context, [this] {
        m_signals.follow(m_session->device());
        publish();
    });
    m_signals.follow(session->device());
    publish();
}

void Connection::close()
{
    m_context.reset();
    m_signals.follow(nullptr);
    if (!m_session)
        return;
    for (const std::weak_ptr<Pending> &weak : std::exchange(m_waiting, {})) {
        if (const auto pending = weak.lock())
            pending->finish(notReady(*m_session));
    }
    DeviceSession *const session = m_session;
    m_session = nullptr;
    if (--users()[session] > 0)
        return;
    users().remove(session);
    delete session;
}

void Connection::whenReady(const std::shared_ptr<Pending> &pending, int milliseconds)
{
    const DeviceSession *const session = sessionFor(*pending);
    if (!session)
        return;
    m_waiting.push_back(pending);
    endWaiting();
    QTimer::singleShot(milliseconds, m_context.get(), [this, pending, milliseconds] {
        pending->finish(notInTime(*m_session, milliseconds));
    });
}

DeviceSession *Connection::sessionFor(Pending &pending) const
{
    if (!m_session)
        pending.finish(
            notSent("the device is closed", "The request was not sent: the device is closed."));
    return m_session;
}

void Connection::publish()
{
    m_state->set(m_session->device(), stateOf(*m_session));
}

/// Ends what waits for the reading, if it has ended.
void Connection::endWaiting()
{
    const DeviceState::Kind kind = m_session->state().kind;
    if (kind != DeviceState::Ready && kind != DeviceState::Disconnected)
        return;
    const Result result = kind == DeviceState::Ready ? success() : notReady(*m_session);
    for (const std::weak_ptr<Pending> &weak : std::exchange(m_waiting, {})) {
        if (const auto pending = weak.lock())
            pending->finish(result);
    }
}

} // namespace Tavoro::Python
