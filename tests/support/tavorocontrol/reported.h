#pragma once

#include "scripteddevice.h"
#include <support/proto/recordjson.h>
#include <support/tavorobizmodel/journal.h>

#include <tavorobizmodel/device.h>
#include <tavorobizmodel/devicelist.h>
#include <tavorobizmodel/file.h>
#include <tavorobizmodel/interface.h>
#include <tavorobizmodel/screen.h>
#include <tavorossproxy/devicecommand.h>
#include <tavorossproxy/devicemanager.h>

#include <QDebug>

#include <memory>
#include <string>

/// An unsolicited report of a device.
inline std::shared_ptr<Tavoro::SSProxy::IDeviceCommand> reportOf(quint16 code,
                                                                 const std::string &body)
{
    auto command = std::make_shared<Tavoro::SSProxy::DeviceResponseCommand>();
    command->head().BC = static_cast<quint8>(code >> 8);
    command->head().FC = static_cast<quint8>(code & 0xFF);
    command->body() = body;
    return command;
}

/// Emits a report as the channels' side does, on this thread.
inline void announce(const std::weak_ptr<Tavoro::SSProxy::DeviceChannel> &channel,
                     const std::shared_ptr<Tavoro::SSProxy::IDeviceCommand> &command)
{
    auto *manager = Tavoro::SSProxy::DeviceManager::instance();
    Q_EMIT manager->parseDeviceAutoReportFinished(channel, command);
}

/// A text as a log line quotes it.
inline QString inQuotes(const std::string &text)
{
    QString quoted;
    QDebug(&quoted).nospace() << QString::fromStdString(text);
    return quoted;
}

/// A device in the model's list, with one interface, one screen and one file.
class Reported {
public:
    Reported()
    {
        using namespace Tavoro::ProtoModel;
        QString ignored;
        std::vector<Interface::s_InterfaceDetail> interfaces(1);
        interfaces[0].interfaceId = interfaceId;
        device.model->initModelData(interfaces, ignored);
        std::vector<Screen::s_ScreenFullDetail> screens(1);
        screens[0].screenId = 1;
        screens[0].screenType = 2;
        device.model->initModelData(screens, ignored);
        std::vector<File::s_FileDetail> files(1);
        files[0].fileId = 4;
        files[0].fileType = 6;
        device.model->initModelData(files, ignored);
        Tavoro::BizModel::DeviceList::instance()->append(device.model);
    }

    ~Reported() { Tavoro::BizModel::DeviceList::instance()->remove(device.model); }

    void report(quint16 code, const std::string &body)
    {
        announce(device.channel, reportOf(code, body));
    }

    Tavoro::ProtoModel::Interface::s_InterfaceDetail interface() const
    {
        return device.model->findInterface(interfaceId).lock()->detail();
    }
    Tavoro::ProtoModel::Screen::s_ScreenFullDetail screen() const
    {
        return device.model->findScreen(2, 1).lock()->detail();
    }
    std::shared_ptr<Tavoro::BizModel::File> file() const
    {
        return device.model->findFile(Tavoro::BizModel::Enum::File::FileType(6), 4).lock();
    }

    static constexpr Tavoro::ProtoModel::s_InterfaceID interfaceId{1, 2, 3};
    ScriptedDevice device;
    Journal journal;
};

// A report on the power supplies, for tests that need any report.
inline constexpr quint16 powerCode = 0x1103;
inline constexpr char powerBody[] = R"({"powers":[{"powerId":1,"iSignal":2,"status":3}]})";
inline constexpr char powersThen[] = R"([{"powerId":1,"iSignal":2,"status":3}])";

inline std::string powersOf(const Tavoro::BizModel::Device &device)
{
    return json(device.deviceDetail().powers);
}

inline std::string heldPowers(const Reported &it)
{
    return powersOf(*it.device.model);
}
