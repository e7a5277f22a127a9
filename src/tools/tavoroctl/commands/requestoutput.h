#pragma once

#include <tavoroctl/output/console.h>
#include <tavorossproxy/devicecommand.h>

#include <QString>

namespace Tavoro::Ctl {

/// Which call makes a request.
struct RequestOrigin {
    QString host;
    QString operation;
    int line = 0; ///< Of the batch; 0 outside of a batch.
};

/// Prints a request: the fields of its head and its body.
void showRequest(Console &console, const RequestOrigin &origin,
                 const SSProxy::DeviceRequestCommand &request);

} // namespace Tavoro::Ctl
