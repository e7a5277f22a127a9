#pragma once

#include <tavoromodels/edithandler.h>

namespace Tavoro::Panel {

class Changes;
class Selection;

/// Carries out the edits of item models as changes of the selected device, so that they can be
/// undone and their failures are in the messages.
class ChangeEdits final : public Models::EditHandler {
public:
    /// Both must exist as long as this object.
    ChangeEdits(const Selection &selection, Changes &changes);

    bool canEdit(Models::ObjectKind kind, const QString &key) const override;
    void edit(const Models::Edit &edit, Done done) override;

private:
    const Selection &m_selection;
    Changes &m_changes;
};

} // namespace Tavoro::Panel
