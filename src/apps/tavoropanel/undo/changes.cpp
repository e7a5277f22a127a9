#include "changes.h"

#include <QUndoStack>

namespace Tavoro::Panel {

Changes::Changes(Messages &messages, QObject *parent)
    : QObject(parent), m_messages(messages), m_steps(new QUndoStack(this))
{ }

Changes::~Changes() = default;

void Changes::finish(const QString &key)
{
    Q_UNUSED(key);
}

PendingCall<Outcome> Changes::reported(PendingCall<Outcome> call)
{
    call.then(this, [this](const Outcome &outcome) { m_messages.report(outcome); });
    return call;
}

} // namespace Tavoro::Panel
