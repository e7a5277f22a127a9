#include <tavorocontrol/layer.h>

#include "operation_p.h"

#include <tavorocontrol/controlhelper.h>

namespace Tavoro::Control {

using namespace Internal;
using namespace ProtoModel::Layer;
using SSProxy::Command;

template <class Record>
using List = std::vector<Record>;

Layer::Layer(std::weak_ptr<BizModel::Device> device, QObject *parent)
    : QObject(parent), m_device(std::move(device)), m_helper(std::make_shared<ControlHelper>())
{ }

Layer::~Layer() = default;

OperationTarget Layer::target() const
{
    return {m_device, *m_helper};
}

// clang-format off
// Each row encodes the list and sends it as a write; the status bar shows a success.
bool Layer::writeEnableAll   (const List<s_LayerFullDetail> &l,   QString &error) { return write(target(), Command::LayerDetail,       l, error); }
bool Layer::writeEnable      (const List<s_LayerEnable> &l,       QString &error) { return write(target(), Command::LayerEnable,       l, error); }
bool Layer::writeZOrder      (const List<s_LayerZorder> &l,       QString &error) { return write(target(), Command::LayerZOrder,       l, error); }
bool Layer::writeGeneral     (const List<s_LayerGeneral> &l,      QString &error) { return write(target(), Command::LayerGeneral,      l, error); }
bool Layer::writeSource      (const List<s_LayerSource> &l,       QString &error) { return write(target(), Command::LayerSource,       l, error); }
bool Layer::writeWindow      (const List<s_LayerWindow> &l,       QString &error) { return write(target(), Command::LayerWindow,       l, error); }
bool Layer::writeMask        (const List<s_LayerMask> &l,         QString &error) { return write(target(), Command::LayerMask,         l, error); }
bool Layer::writeColor       (const List<s_LayerColor> &l,        QString &error) { return write(target(), Command::LayerColor,        l, error); }
bool Layer::writeOpacity     (const List<s_LayerOpacity> &l,      QString &error) { return write(target(), Command::LayerOpacity,      l, error); }
bool Layer::writeImageQuality(const List<s_LayerImageQuality> &l, QString &error) { return write(target(), Command::LayerImageQuality, l, error); }
bool Layer::writeShadow      (const List<s_LayerShadow> &l,       QString &error) { return write(target(), Command::LayerShadow,       l, error); }
bool Layer::writeBorder      (const List<s_LayerBorder> &l,       QString &error) { return write(target(), Command::LayerBorder,       l, error); }
bool Layer::writeSelected    (const List<s_LayerSelected> &l,     QString &error) { return write(target(), Command::LayerSelected,     l, error); }
bool Layer::writeUMD         (const List<s_LayerUMD> &l,          QString &error) { return write(target(), Command::LayerUMD,          l, error); }
bool Layer::writeRemoved     (const List<s_LayerRemoved> &l,      QString &error) { return write(target(), Command::LayerRemoved,      l, error); }
bool Layer::writeCutAndFill  (List<s_CutFill> l,                  QString &error) { return write(target(), Command::LayerCutFill,      l, error); }
// clang-format on

bool Layer::readDetails(int screenId, int screenType, int third, int fourth,
                        std::vector<s_LayerFullDetail> &result, QString &error)
{
    return readRecord(target(), Command::LayerDetail, result, error,
                      {{34, screenId}, {33, screenType}, {32, third}, {31, fourth}});
}

// Only the argument bytes distinguish this command from the removal of listed layers.
bool Layer::writeRemovedAll(unsigned char screenId, unsigned char screenType, QString &error)
{
    const auto request = makeRequest(SSProxy::CommandType::Write, Command::LayerRemoved,
                                     {{34, screenId}, {33, screenType}, {32, -1}, {31, -1}});
    request->body() = "[]";
    return m_helper->sendSyncRequest(m_device, request, error, true);
}

} // namespace Tavoro::Control
