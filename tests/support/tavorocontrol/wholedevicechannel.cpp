#include "wholedevicechannel.h"

#include <QByteArray>
#include <QString>

using namespace Tavoro::SSProxy;

namespace {

constexpr int any = -1;
constexpr quint16 fileContent = 0xFA04;

} // namespace

WholeDeviceChannel::WholeDeviceChannel()
{
    // clang-format off
    replyBody(0x1100, R"({"general":{"name":"desk","status":1}})");
    replyBody(0x1200, R"([{"interfaceId":{"slotId":1,"connectorId":2,"splitId":0}}])");
    replyBody(0x1300, R"([{"screenId":1,"screenType":1},{"screenId":3,"screenType":3}])");
    replyBody(0x1400, R"([{"layerIdenti":{"screenId":1,"screenType":1,"layerId":5,"layerType":0,"sceneType":4}}])");
    replyBody(0xFA00, R"([{"fileId":4,"fileType":6},{"fileId":1,"fileType":12}])");
    // clang-format on
    replyContent(6, 4, ScriptedAnswer::packet("a preset"));
    replyContent(12, 1, ScriptedAnswer::packet("a picture"));
}

std::shared_ptr<DeviceResponseCommand>
WholeDeviceChannel::sendSyncRequest(std::shared_ptr<DeviceRequestCommand> request)
{
    const PacketHead &head = request->head();
    const int code = head.BC << 8 | head.FC;
    const bool isContent = code == fileContent;
    const auto reply =
        m_replies.find({code, isContent ? head.arg2[0] : any, isContent ? head.arg2[1] : any});
    if (reply != m_replies.end())
        answer(reply->second);
    return ScriptedChannel::sendSyncRequest(std::move(request));
}

void WholeDeviceChannel::reply(quint16 code, const ScriptedAnswer &answer)
{
    m_replies[{code, any, any}] = answer;
}

void WholeDeviceChannel::replyBody(quint16 code, const std::string &body)
{
    reply(code, ScriptedAnswer::packet(body));
}

void WholeDeviceChannel::replyContent(int fileType, int fileId, const ScriptedAnswer &answer)
{
    m_replies[{fileContent, fileType, fileId}] = answer;
}

QStringList WholeDeviceChannel::asked() const
{
    QStringList requests;
    for (const SentRequest &request : sent()) {
        const auto arguments = QByteArray::fromStdString(request.headBytes(31, 34)).toHex();
        requests << QStringLiteral("%1 %2 %3")
                        .arg(request.head.type)
                        .arg(request.code(), 4, 16, QLatin1Char('0'))
                        .arg(QString::fromLatin1(arguments));
    }
    return requests;
}
