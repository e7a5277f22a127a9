#pragma once

#include <tavoromodels/export.h>
#include <tavoromodels/objectmodel.h>

#include <memory>

namespace Tavoro::BizModel {
class Device;
}

namespace Tavoro::Models {

class ContentsModelPrivate;
class ContentsSource;

/// A list of objects of one device; the rows are those of the device that was set last.
class TAVOROMODELS_EXPORT ContentsModel : public ObjectModel {
    Q_OBJECT

public:
    ~ContentsModel() override;

    /// Shows the objects of \a device; none if it is empty. The model does not keep the device:
    /// when it is gone, the rows are removed.
    void setDevice(const std::weak_ptr<BizModel::Device> &device);
    /// The device whose objects are shown.
    std::weak_ptr<BizModel::Device> device() const;

protected:
    /// \cond
    ContentsModel(std::unique_ptr<ContentsSource> source, QObject *parent);
    /// \endcond

private:
    const std::unique_ptr<ContentsModelPrivate> d;
};

} // namespace Tavoro::Models
