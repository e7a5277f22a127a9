#include "changeedits.h"

#include "changes.h"

#include <tavorooperations/keywrite.h>

#include <QCoreApplication>

#include <optional>
#include <utility>

namespace Tavoro::Panel {

using Operations::ScopeKind;

namespace {

class EditTexts {
    Q_DECLARE_TR_FUNCTIONS(ChangeEdits)
};

ScopeKind scopeOf(Models::ObjectKind kind)
{
    switch (kind) {
    case Models::ObjectKind::Device:
        break;
    case Models::ObjectKind::Interface:
        return ScopeKind::Interfaces;
    case Models::ObjectKind::Screen:
        return ScopeKind::Screens;
    case Models::ObjectKind::Layer:
        return ScopeKind::Layers;
    case Models::ObjectKind::File:
        return ScopeKind::Files;
    }
    return ScopeKind::Device;
}

/// The one value of a device that is written as a number and not as a record.
bool isPresetTarget(Models::ObjectKind kind, const QString &key)
{
    return kind == Models::ObjectKind::Device && key == QLatin1String("presetApplyType");
}

std::optional<Write> writeOf(const Models::Edit &edit)
{
    if (isPresetTarget(edit.kind, edit.key))
        return Write{QStringLiteral("Device.writeLoadToPGM"), edit.record.value(edit.key)};
    const auto write = Operations::findWrite(scopeOf(edit.kind), edit.key);
    if (!write)
        return std::nullopt;
    const std::string argument = write->argument(edit.record).toStdString();
    return Write{write->operation().name(), Operations::jsonValue(argument)};
}

/// Identifies the value that an edit changes: a newer edit replaces one that still waits.
QString valueKey(const Models::Edit &edit, const QString &operation)
{
    QJsonObject identity = edit.record;
    identity.remove(edit.key);
    return QStringLiteral("edit ") + operation + Operations::jsonText(identity);
}

} // namespace

ChangeEdits::ChangeEdits(Changes &changes) : m_changes(changes) { }

ChangeEdits::~ChangeEdits() = default;

void ChangeEdits::setDevice(DeviceSession *device)
{
    m_device = device;
}

bool ChangeEdits::canEdit(Models::ObjectKind kind, const QString &key) const
{
    return isPresetTarget(kind, key) || Operations::findWrite(scopeOf(kind), key);
}

void ChangeEdits::edit(const Models::Edit &edit, Done done)
{
    const std::optional<Write> write = writeOf(edit);
    const QPointer<DeviceSession> device = m_device;
    if (!write || !device || device->device() != edit.device.lock())
        return done(EditTexts::tr("This property cannot be changed now."));
    m_changes.callLatestByName(valueKey(edit, write->operation), *device, *write)
        .then(&m_changes, [this, device, done = std::move(done)](const Outcome &outcome) {
            if (!outcome && !outcome.isReplaced())
                done(outcome.reason());
            else if (!outcome || !device)
                done({});
            else
                device->modelUpdate().then(&m_changes, [done](bool) { done({}); });
        });
}

} // namespace Tavoro::Panel
