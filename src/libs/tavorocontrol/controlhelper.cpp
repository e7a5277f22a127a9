#include <tavorocontrol/controlhelper.h>

#include "request/commandlabels_p.h"
#include "request/errortexts_p.h"
#include "request/exchangereporter_p.h"
#include "request/sendread_p.h"
#include "request/sendwrite_p.h"
#include "request/streamedread_p.h"

namespace Tavoro::Control {

using RequestPtr = std::shared_ptr<SSProxy::DeviceRequestCommand>;

ControlHelper::ControlHelper() = default;

ControlHelper::~ControlHelper() = default;

bool ControlHelper::sendSyncRequest(std::weak_ptr<BizModel::Device> device, RequestPtr request,
                                    std::string &result, QString &error)
{
    return request ? Internal::sendRead(device, request, result, error)
                   : Internal::refuseMissingRequest(error);
}

bool ControlHelper::sendSyncRequest(std::weak_ptr<BizModel::Device> device, RequestPtr request,
                                    QString &error, bool showSuccess)
{
    return request ? Internal::sendWrite(device, request, request->body(), error, showSuccess)
                   : Internal::refuseMissingRequest(error);
}

bool ControlHelper::sendSyncRequest(
    std::weak_ptr<BizModel::Device> device, RequestPtr request,
    std::function<void(bool, double, const std::string &, QString &)> callback)
{
    return Internal::StreamedRead(m_cancelled, std::move(callback)).run(device, request);
}

void ControlHelper::setCancelledState(bool cancelled)
{
    m_cancelled = cancelled;
}

QString ControlHelper::commandLabel(quint8 BC, quint8 FC)
{
    return Internal::commandLabel(BC, FC);
}

QString ControlHelper::errorText(quint16 status)
{
    return Internal::errorText(status);
}

} // namespace Tavoro::Control
