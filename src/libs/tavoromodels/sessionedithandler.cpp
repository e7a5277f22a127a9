#include <tavoromodels/sessionedithandler.h>

#include <tavorooperations/jsontext.h>
#include <tavorooperations/keywrite.h>
#include <tavorosession/session.h>

#include <QCoreApplication>
#include <QJsonObject>
#include <QObject>
#include <QPointer>

#include <optional>
#include <utility>

namespace Tavoro::Models {

using Operations::KeyWrite;
using Operations::ScopeKind;

namespace {

ScopeKind scopeOf(ObjectKind kind)
{
    switch (kind) {
    case ObjectKind::Device:
        return ScopeKind::Device;
    case ObjectKind::Interface:
        return ScopeKind::Interfaces;
    case ObjectKind::Screen:
        return ScopeKind::Screens;
    case ObjectKind::Layer:
        return ScopeKind::Layers;
    case ObjectKind::File:
        return ScopeKind::Files;
    }
    return ScopeKind::Device;
}

QString translated(const char *text)
{
    return QCoreApplication::translate("Tavoro::Models::SessionEditHandler", text);
}

/// Identifies the value that an edit changes: the operation, and the identity of the object.
QString valueKey(const Edit &edit, const KeyWrite &write)
{
    QJsonObject identity = edit.record;
    identity.remove(edit.key);
    return QStringLiteral("edit ") + write.operation().name() + Operations::jsonText(identity);
}

} // namespace

class SessionEditHandlerPrivate {
public:
    explicit SessionEditHandlerPrivate(Session &wanted) : session(wanted) { }

    Session &session;
    QObject context; ///< Ends the callbacks with the handler.
};

SessionEditHandler::SessionEditHandler(Session &session)
    : d(std::make_unique<SessionEditHandlerPrivate>(session))
{ }

SessionEditHandler::~SessionEditHandler() = default;

bool SessionEditHandler::canEdit(ObjectKind kind, const QString &key) const
{
    return Operations::findWrite(scopeOf(kind), key).has_value();
}

void SessionEditHandler::edit(const Edit &edit, Done done)
{
    const std::optional<KeyWrite> write = Operations::findWrite(scopeOf(edit.kind), edit.key);
    if (!write)
        return done(translated("There is no command that writes this value."));
    DeviceSession *const device = d->session.find(edit.device.lock());
    if (!device)
        return done(translated("The device is not open."));
    // The model is read after the call has ended: only then does it have the new value.
    const auto followed = [done](bool isComplete) {
        done(isComplete ? QString()
                        : translated("The value was written, but could not be read again."));
    };
    device
        ->callLatestByName(valueKey(edit, *write), write->operation().name(),
                           {write->argument(edit.record)})
        .then(&d->context,
              [this, device = QPointer<DeviceSession>(device), done = std::move(done),
               followed](const Outcome &outcome) {
                  if (outcome && device)
                      device->modelUpdate().then(&d->context, followed);
                  else
                      done(outcome || outcome.isReplaced() ? QString() : outcome.text());
              });
}

} // namespace Tavoro::Models
