#include "savepause_p.h"

#include <tavorobizmodel/device.h>
#include <tavorobizmodel/devicelist.h>
#include <tavorobizmodel/savedevicedatathread.h>

namespace Tavoro::Control::Internal {

using BizModel::DeviceList;

SavePause::SavePause(const BizModel::Device &device)
    : m_thread(DeviceList::instance()->saveDeviceDataThread())
{
    if (m_thread) {
        m_thread->setTemporaryStop(true);
        m_thread->waitForSavingDataFinished();
    }
    m_ip = device.IPAddress();
    m_mac = device.MAC();
    m_sn = device.sn();
}

SavePause::~SavePause()
{
    if (!m_thread)
        return;
    m_thread->setTemporaryStop(false);
    m_thread->saveDevicesInfor(DeviceList::instance()->findDevice(m_ip, m_mac, m_sn));
}

} // namespace Tavoro::Control::Internal
