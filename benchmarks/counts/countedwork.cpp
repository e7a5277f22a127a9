// Fixed work whose cost scripts/count compares with counts.tsv.
//
//   countedwork              lists the work
//   countedwork WORK         does it once, in runCounted(), for callgrind
//   countedwork WORK calls   prints how many allocations it makes
//
// The first run, which fills caches and creates tables, is not counted.

#include "allocations.h"

#include <tavorobizmodel/device.h>
#include <tavorobizmodel/enums.h>
#include <tavorocontrol/proto/codec.h>
#include <tavorocontrol/proto/file.h>
#include <tavorocontrol/proto/screen.h>
#include <tavorocontrol/screen.h>
#include <tavorossproxy/devicechannel.h>
#include <tavorossproxy/devicecommand.h>
#include <tavorossproxy/devicemanager.h>

#include <QLoggingCategory>

#include <cstdio>
#include <cstdlib>
#include <functional>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

using namespace Tavoro;

namespace {

constexpr int writes = 100; ///< In the work "write".
constexpr std::size_t longName = 1 << 20;

using Screens = std::vector<ProtoModel::Screen::s_ScreenFullDetail>;
using Files = std::vector<ProtoModel::File::s_FileDetail>;
using SwitchEffects = std::vector<ProtoModel::Screen::s_SwitchEffect>;

[[noreturn]] void fail(const char *why)
{
    std::fprintf(stderr, "countedwork: %s\n", why);
    std::exit(1);
}

Screens screens()
{
    Screens screens(32);
    for (std::size_t i = 0; i < screens.size(); ++i) {
        screens[i].screenId = static_cast<quint8>(i);
        screens[i].general.name = "Screen " + std::to_string(i);
    }
    return screens;
}

Files files()
{
    Files files(200);
    for (std::size_t i = 0; i < files.size(); ++i) {
        files[i].fileId = static_cast<int>(i);
        files[i].general.name = "a picture with the number " + std::to_string(i * 7919) + ".png";
        files[i].size.length = static_cast<int>(i * 65537);
    }
    return files;
}

SwitchEffects switchEffects()
{
    SwitchEffects effects(8);
    for (std::size_t i = 0; i < effects.size(); ++i)
        effects[i].screenId = static_cast<quint8>(i);
    return effects;
}

/// Every character is an escape, so that the text is longer than any estimate.
ProtoModel::File::s_FileDetail fileWithEscapes()
{
    ProtoModel::File::s_FileDetail file;
    file.general.name.assign(longName, '\t');
    return file;
}

/// Answers every request at once.
class InstantChannel final : public SSProxy::DeviceChannel {
public:
    InstantChannel()
    {
        m_info.ip = "192.0.2.1";
        m_info.mac = {2, 0, 0x5E, 0x10, 0, 1};
        m_info.maxPacketSize = 1 << 20;
        m_response->head().totalCount = 1;
    }

    std::shared_ptr<SSProxy::DeviceResponseCommand>
    sendSyncRequest(std::shared_ptr<SSProxy::DeviceRequestCommand> /*request*/) override
    {
        return m_response;
    }
    ProtoModel::DeviceBaseInfo deviceBaseInfo() const override { return m_info; }
    bool isHardwareReadFinished() override { return true; }
    bool isMasterControl() override { return true; }
    void stopChannel() override { }

private:
    ProtoModel::DeviceBaseInfo m_info;
    const std::shared_ptr<SSProxy::DeviceResponseCommand> m_response =
        std::make_shared<SSProxy::DeviceResponseCommand>();
};

using Work = std::function<void()>;

template <class Records>
Work decoding(const Records &records)
{
    std::string text;
    ajson::encodeRecord(records, text);
    return [text] {
        Records decoded;
        std::string error;
        if (!ajson::decodeRecord(text, decoded, error))
            fail(error.c_str());
    };
}

template <class Records>
Work encoding(const Records &records)
{
    return [records] {
        std::string text;
        ajson::encodeRecord(records, text);
    };
}

Work writing()
{
    const auto channel = std::make_shared<InstantChannel>();
    SSProxy::DeviceManager::instance()->addDeviceChannel(channel);
    const auto model = std::make_shared<BizModel::Device>(quint16(1), nullptr);
    model->updateDeviceBaseInfo(channel->deviceBaseInfo());
    model->setIPAddress(QString::fromStdString(channel->deviceBaseInfo().ip));
    return [model, effects = switchEffects()] {
        Control::Screen screen(model, nullptr);
        QString error;
        for (int i = 0; i < writes; ++i) {
            if (!screen.writeTake(effects, error))
                fail(qUtf8Printable(error));
        }
    };
}

struct WorkRow {
    const char *name;
    Work (*make)();
};

// clang-format off
const WorkRow workRows[] = {
    {"decode-screens", [] { return decoding(screens()); }},
    {"decode-files",   [] { return decoding(files()); }},
    {"decode-effects", [] { return decoding(switchEffects()); }},
    {"encode-screens", [] { return encoding(screens()); }},
    {"encode-files",   [] { return encoding(files()); }},
    {"encode-effects", [] { return encoding(switchEffects()); }},
    {"encode-escapes", [] { return encoding(fileWithEscapes()); }},
    {"write",          [] { return writing(); }},
};
// clang-format on

} // namespace

/// Callgrind counts the instructions of this function.
extern "C" Q_DECL_EXPORT Q_NEVER_INLINE void runCounted(const Work &work)
{
    work();
}

int main(int argc, char *argv[])
{
    QLoggingCategory::setFilterRules(QStringLiteral("tavoro.*=false"));
    for (const WorkRow &row : workRows) {
        if (argc < 2) {
            std::printf("%s\n", row.name);
        } else if (row.name == std::string_view(argv[1])) {
            const Work work = row.make();
            work();
            const long before = Allocations::count();
            runCounted(work);
            if (argc > 2)
                std::printf("%ld\n", Allocations::count() - before);
            return 0;
        }
    }
    return argc < 2 ? 0 : 2;
}
