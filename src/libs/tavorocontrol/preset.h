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
struct OperationTarget;
}

/// Applies the presets that a device stores.
///
/// \ingroup operations
class TAVOROCONTROL_EXPORT Preset : public QObject {
    Q_OBJECT

public:
    /// Creates a control object for \a device, which may already be gone. Any thread.
    explicit Preset(std::weak_ptr<BizModel::Device> device, QObject *parent = nullptr);
    ~Preset() override;

    /// Applies presets (code 0x1501). Each record names a preset file and how to apply it; the
    /// device defines the values of \c applyType. Reports and the next synchronisation bring the
    /// changes into the model.
    bool presetApply(const std::vector<ProtoModel::Preset::s_PresetPlay> &presets, QString &error);

private:
    Internal::OperationTarget target() const;

    const std::weak_ptr<BizModel::Device> m_device;
    const std::shared_ptr<ControlHelper> m_helper;
};

} // namespace Tavoro::Control
