#pragma once

#include <tavorocontrol/export.h>
#include <tavorocontrol/proto/preset.h>

#include <QObject>
#include <QString>

#include <memory>
#include <vector>

namespace Tavoro::BizModel {
class Device;
}

namespace Tavoro::Control {

class ControlHelper;

namespace Internal {
struct Link;
}

/// Applies the presets that a device stores.
///
/// Cheap to make. What a preset changes on the device comes back by the device's reports and the
/// next synchronisation.
///
/// Every operation blocks its caller until the device has answered, at most for the time that the
/// device's timeout table has for the command, plus 10 s per packet where it takes several. It may
/// be called from any thread but the channels' own, where it fails with status 261. It returns true
/// for success. On failure it returns false, and \a error holds the sentence that was shown on the
/// status bar; for a packet of a split write that is refused, the reason alone. On success \a error
/// is left alone. A device without a channel takes every write as done.
class TAVOROCONTROL_EXPORT Preset : public QObject {
    Q_OBJECT

public:
    explicit Preset(std::weak_ptr<BizModel::Device> device, QObject *parent = nullptr);
    ~Preset() override;

    /// Applies presets (code 0x1501). An empty list is sent as it stands.
    bool presetApply(const std::vector<ProtoModel::Preset::s_PresetPlay> &presets, QString &error);

private:
    Internal::Link link() const;

    const std::weak_ptr<BizModel::Device> m_device;
    const std::shared_ptr<ControlHelper> m_helper;
};

} // namespace Tavoro::Control
