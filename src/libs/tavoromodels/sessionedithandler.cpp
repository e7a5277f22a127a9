#include <tavoromodels/sessionedithandler.h>

#include <tavorooperations/jsontext.h>
#include <tavorooperations/keywrite.h>
#include <tavorosession/session.h>

#include <QCoreApplication>
#include <QJsonObject>
#include <QObject>
#include <QPointer>

#include <map>
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

    /// Keeps \a done until the edit has ended. Returns the number of the edit.
    quint64 begin(EditHandler::Done done)
    {
        pending.emplace(++lastEdit, std::move(done));
        return lastEdit;
    }
    void end(quint64 number, const QString &error)
    {
        const auto edit = pending.extract(number);
        if (edit)
            edit.mapped()(error);
    }

    Session &session;
    std::map<quint64, EditHandler::Done> pending; ///< By the number of the edit.
    quint64 lastEdit = 0;
    QObject context; ///< Ends the callbacks with the handler.
};

SessionEditHandler::SessionEditHandler(Session &session)
    : d(std::make_unique<SessionEditHandlerPrivate>(session))
{ }

SessionEditHandler::~SessionEditHandler()
{
    for (const auto &[number, done] : std::exchange(d->pending, {}))
        done({}); // the views show the values of the device again
}

bool SessionEditHandler::canEdit(ObjectKind kind, const QString &key) const
{
    return Operations::findWrite(scopeOf(kind), key).has_value();
}

void SessionEditHandler::edit(const Edit &edit, Done done)
{
    const std::optional<KeyWrite> write = Operations::findWrite(scopeOf(edit.kind), edit.key);
    if (!write)
        return done(QCoreApplication::translate("Tavoro::Models::SessionEditHandler",
                                                "There is no command that writes this value."));
    DeviceSession *const device = d->session.find(edit.device.lock());
    if (!device)
        return done(QCoreApplication::translate("Tavoro::Models::SessionEditHandler",
                                                "The device is not open."));
    const quint64 number = d->begin(std::move(done));
    // The model is read after the call has ended: only then does it have the new value.
    const auto followed = [this, number](bool isComplete) {
        d->end(number,
               isComplete ? QString()
                          : QCoreApplication::translate(
                              "Tavoro::Models::SessionEditHandler",
                              "The value was written, but could not be read again."));
    };
    device
        ->callLatestByName(valueKey(edit, *write), write->operation().name(),
                           {write->argument(edit.record)})
        .then(&d->context,
              [this, device = QPointer<DeviceSession>(device), number,
               followed](const Outcome &outcome) {
                  if (outcome && device)
                      device->modelUpdate().then(&d->context, followed);
                  else
                      d->end(number, outcome || outcome.isReplaced() ? QString() : outcome.text());
              });
}

} // namespace Tavoro::Models
