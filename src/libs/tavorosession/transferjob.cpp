#include "transferjob_p.h"

#include <tavorocontrol/controlhelper.h>

namespace Tavoro::SessionInternal {

QString TransferJob::label() const
{
    return Control::ControlHelper::commandLabel(SSProxy::baseCode(m_command),
                                                SSProxy::functionCode(m_command));
}

} // namespace Tavoro::SessionInternal
