#include "bench.h"

#include <tavorossproxy/devicemanager.h>

#include <cstdio>
#include <cstdlib>

namespace Bench {

using namespace Tavoro;

void fail(const QString &why)
{
    std::fprintf(stderr, "%s\n", qUtf8Printable(why));
    std::exit(1);
}

void require(bool ok, const QString &why)
{
    if (!ok)
        fail(why);
}

Connection::Connection(const Sim::SimOptions &options)
    : m_simulator(options), m_model(std::make_shared<BizModel::Device>(1, nullptr))
{
    QString error;
    require(m_simulator.start(error), error);
    m_channel = SSProxy::openTcpDeviceChannel(QStringLiteral("127.0.0.1"), m_simulator.port());
    require(m_channel->waitUntilReady(patience, error), error);
    SSProxy::DeviceManager::instance()->addDeviceChannel(m_channel);
    const ProtoModel::DeviceBaseInfo info = m_channel->deviceBaseInfo();
    m_model->updateDeviceBaseInfo(info);
    m_model->setIPAddress(QString::fromStdString(info.ip));
}

Connection::~Connection()
{
    m_channel->stopChannel();
    SSProxy::DeviceManager::instance()->removeDeviceChannel(m_channel);
}

} // namespace Bench
