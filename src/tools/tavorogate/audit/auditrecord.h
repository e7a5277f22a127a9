#pragma once

#include <tavorogate/broker/brokermessage.h>
#include <tavorogate/calls/callanswer.h>
#include <tavorogate/calls/callrequest.h>

#include <QString>

namespace Tavoro::Gate {

/// The message that records a call that has ended: who called what on which device, when, and with
/// which outcome. Arguments longer than 4096 bytes are left out.
BrokerMessage auditRecord(const QString &serial, const QString &gateway, const CallRequest &call,
                          const CallAnswer &answer);

} // namespace Tavoro::Gate
