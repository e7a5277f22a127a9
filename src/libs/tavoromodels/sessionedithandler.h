#pragma once

#include <tavoromodels/edithandler.h>
#include <tavoromodels/export.h>

#include <memory>

namespace Tavoro {
class Session;
}

namespace Tavoro::Models {

class SessionEditHandlerPrivate;

/// Carries out the edits of item models through a Session.
///
/// \code
/// Session session;
/// SessionEditHandler editor(session);
/// ScreensModel screens;
/// screens.setEditHandler(&editor);
/// \endcode
///
/// A key can be edited if the table of operations has a write for it, see Operations::findWrite().
/// The edits of a device are carried out in their order. An edit that has not been sent is replaced
/// by a newer edit of the same key of the same object, and then ends without an error. An edit
/// fails with Outcome::text(), and also if no DeviceSession of the session has the device.
///
/// Belongs to the thread of the session, which must exist as long as the handler.
class TAVOROMODELS_EXPORT SessionEditHandler final : public EditHandler {
public:
    /// Carries out edits of the devices of \a session.
    explicit SessionEditHandler(Session &session);
    /// Edits that have not ended are still carried out; the models show the values of the device
    /// again. A failure of such an edit is not reported.
    ~SessionEditHandler() override;

    bool canEdit(ObjectKind kind, const QString &key) const override;
    void edit(const Edit &edit, Done done) override;

private:
    const std::unique_ptr<SessionEditHandlerPrivate> d;
};

} // namespace Tavoro::Models
