#include "recordingchannel.h"

#include <QElapsedTimer>

using namespace Tavoro::SSProxy;

RecordingChannel::RecordingChannel(std::shared_ptr<DeviceChannel> channel)
    : m_channel(std::move(channel))
{ }

std::shared_ptr<DeviceResponseCommand>
RecordingChannel::sendSyncRequest(std::shared_ptr<DeviceRequestCommand> request)
{
    QElapsedTimer timer;
    timer.start();
    auto response = m_channel->sendSyncRequest(request);
    m_seconds += static_cast<double>(timer.nsecsElapsed()) / 1e9;
    if (response) {
        const PacketHead &head = request->head();
        m_exchanges.push_back({static_cast<int>(sizeof head + request->body().size()),
                               static_cast<int>(sizeof head + response->body().size())});
        if (head.type == static_cast<quint8>(CommandType::Read))
            m_answers[static_cast<quint16>(head.BC << 8 | head.FC)] += response->body();
    }
    return response;
}

Tavoro::ProtoModel::DeviceBaseInfo RecordingChannel::deviceBaseInfo() const
{
    return m_channel->deviceBaseInfo();
}

bool RecordingChannel::isHardwareReadFinished()
{
    return m_channel->isHardwareReadFinished();
}

bool RecordingChannel::isMasterControl()
{
    return m_channel->isMasterControl();
}

void RecordingChannel::stopChannel()
{
    m_channel->stopChannel();
}

void RecordingChannel::clear()
{
    m_seconds = 0;
    m_exchanges.clear();
    m_answers.clear();
}
