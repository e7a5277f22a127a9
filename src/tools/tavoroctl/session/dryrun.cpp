#include "dryrun.h"

#include "modeldevice.h"

#include <tavorobizmodel/device.h>
#include <tavorossproxy/devicecommand.h>
#include <tavorossproxy/devicemanager.h>

#include <utility>

namespace Tavoro::Ctl {

namespace {

class ShowingChannel : public SSProxy::DeviceChannel {
public:
    explicit ShowingChannel(DryRun::Show show) : m_show(std::move(show)) { }

    std::shared_ptr<SSProxy::DeviceResponseCommand>
    sendSyncRequest(std::shared_ptr<SSProxy::DeviceRequestCommand> request) override
    {
        m_show(*request);
        auto response = std::make_shared<SSProxy::DeviceResponseCommand>();
        response->head() = request->head();
        response->head().totalCount = 1;
        response->head().sendCount = 0;
        return response;
    }
    /// No connected device has this identity.
    ProtoModel::DeviceBaseInfo deviceBaseInfo() const override
    {
        ProtoModel::DeviceBaseInfo info;
        info.ip = "dry run";
        return info;
    }
    bool isHardwareReadFinished() override { return true; }
    bool isMasterControl() override { return true; }
    void stopChannel() override { }

private:
    const DryRun::Show m_show;
};

} // namespace

DryRun::DryRun(Show show)
    : m_channel(std::make_shared<ShowingChannel>(std::move(show))),
      m_device(makeModelDevice(m_channel->deviceBaseInfo()))
{
    SSProxy::DeviceManager::instance()->addDeviceChannel(m_channel);
}

DryRun::~DryRun()
{
    SSProxy::DeviceManager::instance()->removeDeviceChannel(m_channel);
}

} // namespace Tavoro::Ctl
