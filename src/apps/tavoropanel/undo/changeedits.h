#pragma once

#include <tavoromodels/edithandler.h>

#include <QPointer>

namespace Tavoro {
class DeviceSession;
}

namespace Tavoro::Panel {

class Changes;

/// Carries out the edits of item models as changes of a device, so that they can be undone and
/// their failures are in the messages.
class ChangeEdits final : public Models::EditHandler {
public:
    /// \a changes must exist as long as this object.
    explicit ChangeEdits(Changes &changes);
    ~ChangeEdits() override;

    /// Sets the device whose objects the models show.
    void setDevice(DeviceSession *device);

    bool canEdit(Models::ObjectKind kind, const QString &key) const override;
    void edit(const Models::Edit &edit, Done done) override;

private:
    Changes &m_changes;
    QPointer<DeviceSession> m_device;
};

} // namespace Tavoro::Panel
