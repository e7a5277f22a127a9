#pragma once

#include <tavoromodels/contentsmodel.h>
#include <tavoromodels/export.h>

#include <memory>

namespace Tavoro::BizModel {
class Screen;
}

namespace Tavoro::Models {

/// The screens of a device, in the device's order.
///
/// The keys are those of ProtoModel::Screen::s_ScreenFullDetail. Further roles: \c signal, which is
/// true if an output of the screen has a video signal; \c active, which is true for the screen and
/// the multiviewer that the user works on; \c genlockStatus.
class TAVOROMODELS_EXPORT ScreensModel : public ContentsModel {
    Q_OBJECT

public:
    /// Creates a model that shows nothing until setDevice() is called.
    explicit ScreensModel(QObject *parent = nullptr);
    ~ScreensModel() override;

    /// Restricts the rows to the types in \a mask, as in BizModel::Device::screens(). By default
    /// all types are shown.
    void setScreenTypes(int mask);

    /// The screen of a row; empty if \a index is not valid.
    std::shared_ptr<BizModel::Screen> screen(const QModelIndex &index) const;
};

} // namespace Tavoro::Models
