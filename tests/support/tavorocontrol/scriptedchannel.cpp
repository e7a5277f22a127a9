#include "scriptedchannel.h"

using namespace Tavoro;

std::string SentRequest::headBytes(int first, int last) const
{
    const auto *bytes = reinterpret_cast<const char *>(&head);
    return std::string(bytes + first, bytes + last + 1);
}

ScriptedAnswer ScriptedAnswer::packet(const std::string &body, quint32 totalCount,
                                      quint32 sendCount)
{
    ScriptedAnswer answer;
    answer.body = body;
    answer.totalCount = totalCount;
    answer.sendCount = sendCount;
    return answer;
}

ScriptedAnswer ScriptedAnswer::refusal(quint16 status)
{
    ScriptedAnswer answer;
    answer.status = status;
    return answer;
}

ScriptedAnswer ScriptedAnswer::noResponse()
{
    ScriptedAnswer answer;
    answer.null = true;
    return answer;
}

ScriptedChannel::ScriptedChannel()
{
    info.modelId = 0x7701;
    info.sn = {0x01, 0x23, 0x45, 0x67, 0x89, 0xAB, 0xCD, 0xEF};
    info.mac = {0x02, 0x00, 0x5E, 0x10, 0x00, 0x01};
    info.maxPacketSize = 1 << 20;
    info.name = "scripted";
    info.ip = "192.0.2.7";
}

std::shared_ptr<SSProxy::DeviceResponseCommand>
ScriptedChannel::sendSyncRequest(std::shared_ptr<SSProxy::DeviceRequestCommand> request)
{
    ScriptedAnswer answer;
    {
        const std::lock_guard<std::mutex> lock(m_mutex);
        m_sent.push_back({request->head(), request->body(), request->timeout()});
        if (!m_answers.empty()) {
            answer = std::move(m_answers.front());
            m_answers.pop_front();
        }
    }
    if (answer.before)
        answer.before();
    if (answer.null)
        return nullptr;
    auto response = std::make_shared<SSProxy::DeviceResponseCommand>();
    response->head() = request->head();
    if (answer.type != 0)
        response->head().type = answer.type;
    response->head().totalCount = answer.totalCount;
    response->head().sendCount = answer.sendCount;
    response->status = answer.status;
    response->body() = std::move(answer.body);
    if (keepsResponses)
        kept.push_back(response);
    return response;
}

ProtoModel::DeviceBaseInfo ScriptedChannel::deviceBaseInfo() const
{
    return info;
}

bool ScriptedChannel::isHardwareReadFinished()
{
    return ready;
}

bool ScriptedChannel::isMasterControl()
{
    return master;
}

void ScriptedChannel::stopChannel()
{
    const std::lock_guard<std::mutex> lock(m_mutex);
    ++m_stops;
}

void ScriptedChannel::answer(ScriptedAnswer answer)
{
    const std::lock_guard<std::mutex> lock(m_mutex);
    m_answers.push_back(std::move(answer));
}

void ScriptedChannel::answerBody(const std::string &body)
{
    answer(ScriptedAnswer::packet(body));
}

std::vector<SentRequest> ScriptedChannel::sent() const
{
    const std::lock_guard<std::mutex> lock(m_mutex);
    return m_sent;
}

int ScriptedChannel::stops() const
{
    const std::lock_guard<std::mutex> lock(m_mutex);
    return m_stops;
}
