#include <tavorocontrol/preset.h>

#include "operation_p.h"

#include <tavorocontrol/controlhelper.h>

namespace Tavoro::Control {

using namespace Internal;
using SSProxy::Command;

Preset::Preset(std::weak_ptr<BizModel::Device> device, QObject *parent)
    : QObject(parent), m_device(std::move(device)), m_helper(std::make_shared<ControlHelper>())
{ }

Preset::~Preset() = default;

OperationTarget Preset::target() const
{
    return {m_device, *m_helper};
}

bool Preset::presetApply(const std::vector<ProtoModel::Preset::s_PresetPlay> &presets,
                         QString &error)
{
    return write(target(), Command::PresetApply, presets, error);
}

} // namespace Tavoro::Control
