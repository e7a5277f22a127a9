#pragma once

#include <tavoromodels/export.h>
#include <tavoromodels/objectmodel.h>

#include <memory>

namespace Tavoro::BizModel {
class Device;
}

namespace Tavoro::Models {

/// All devices that the application knows: those of BizModel::DeviceList, in its order.
///
/// The keys are those of ProtoModel::Device::s_DeviceDetail. Further roles: \c name, \c ip, \c mac,
/// \c sn, \c modelId, and \c syncSuccess, which is true if the last reading was complete.
class TAVOROMODELS_EXPORT DevicesModel : public ObjectModel {
    Q_OBJECT

public:
    /// Creates a model of the list.
    explicit DevicesModel(QObject *parent = nullptr);
    ~DevicesModel() override;

    /// The device of a row; empty if \a index is not valid.
    std::shared_ptr<BizModel::Device> device(const QModelIndex &index) const;
};

} // namespace Tavoro::Models
