// Records that the application declares itself, for commands that it sends through ControlHelper:
// a write of one flag, and a read of which it wants two keys.

#include "connection.h"
#include "steps.h"

#include <tavorobizmodel/device.h>
#include <tavorocontrol/controlhelper.h>
#include <tavorocontrol/proto/recordcodec.h>
#include <tavorossproxy/commandcodes.h>
#include <tavorossproxy/devicecommand.h>

#include <QtGlobal>

#include <string>
#include <vector>

namespace Application {

struct FeatureSwitch {
    quint8 zeLKEnable = 0;
    TAVORO_FIELDS(zeLKEnable)
};

struct Name {
    std::string name;
    TAVORO_FIELDS(name)
};

/// Derived on purpose: a record may list the members of its base.
struct Summary : FeatureSwitch {
    Name general;
    TAVORO_FIELDS(general, zeLKEnable)
};

} // namespace Application

TAVORO_CODEC(Application::FeatureSwitch)
TAVORO_CODEC(Application::Summary)

using namespace Tavoro;

namespace {

std::shared_ptr<SSProxy::DeviceRequestCommand> makeRequest(SSProxy::CommandType type,
                                                           SSProxy::Command command)
{
    auto request = std::make_shared<SSProxy::DeviceRequestCommand>();
    request->head().type = static_cast<quint8>(type);
    request->head().BC = SSProxy::baseCode(command);
    request->head().FC = SSProxy::functionCode(command);
    return request;
}

bool writeFeature(Connection &connection, Application::FeatureSwitch feature)
{
    const auto request = makeRequest(SSProxy::CommandType::Write, SSProxy::Command::DeviceZelk);
    ajson::encodeRecord(feature, request->body());
    QString error;
    return Control::ControlHelper().sendSyncRequest(connection.device(), request, error, false);
}

bool readSummary(Connection &connection, Application::Summary &summary)
{
    const auto request = makeRequest(SSProxy::CommandType::Read, SSProxy::Command::DeviceDetail);
    std::string body;
    std::string reason;
    QString error;
    return Control::ControlHelper().sendSyncRequest(connection.device(), request, body, error)
        && ajson::decodeRecord(body, summary, reason);
}

} // namespace

bool sendsRecordsOfItsOwn(Connection &connection)
{
    for (const quint8 state : {quint8{1}, quint8{0}}) {
        Application::Summary summary;
        if (!writeFeature(connection, {state}) || !readSummary(connection, summary)
            || summary.zeLKEnable != state
            || summary.general.name != connection.device()->name().toStdString())
            return false;
    }
    std::string text;
    ajson::encodeRecord(std::vector<Application::FeatureSwitch>{{1}}, text);
    return text == R"([{"zeLKEnable":1}])";
}
