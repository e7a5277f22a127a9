#include "bench.h"

#include <tavorossproxy/devicemanager.h>

#include <QCommandLineParser>

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

int numberOf(const QCommandLineParser &parser, const char *option, int least, int most)
{
    const int number = parser.value(QLatin1String(option)).toInt();
    require(number >= least && number <= most,
            QStringLiteral("--%1 is between %2 and %3")
                .arg(QLatin1String(option))
                .arg(least)
                .arg(most));
    return number;
}

Route::Route(quint16 port)
    : m_channel(SSProxy::openTcpDeviceChannel(QStringLiteral("127.0.0.1"), port)),
      m_model(std::make_shared<BizModel::Device>(static_cast<unsigned short>(1), nullptr))
{
    QString error;
    require(m_channel->waitUntilReady(patience, error), error);
    SSProxy::DeviceManager::instance()->addDeviceChannel(m_channel);
    const ProtoModel::DeviceBaseInfo info = m_channel->deviceBaseInfo();
    m_model->updateDeviceBaseInfo(info);
    m_model->setIPAddress(QString::fromStdString(info.ip));
}

Route::~Route()
{
    m_channel->stopChannel();
    SSProxy::DeviceManager::instance()->removeDeviceChannel(m_channel);
}

LocalDevice::LocalDevice(const Sim::SimOptions &options) : m_simulator(options)
{
    QString error;
    require(m_simulator.start(error), error);
}

} // namespace Bench
