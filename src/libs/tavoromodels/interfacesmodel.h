#pragma once

#include <tavoromodels/contentsmodel.h>
#include <tavoromodels/export.h>

#include <memory>

namespace Tavoro::BizModel {
class Interface;
}

namespace Tavoro::Models {

/// The interfaces of a device, in the device's order.
///
/// The keys are those of ProtoModel::Interface::s_InterfaceDetail. \c online is false as well if
/// the card of the interface does not work. Further roles: \c signal, which is true if the
/// interface has a video signal.
class TAVOROMODELS_EXPORT InterfacesModel : public ContentsModel {
    Q_OBJECT

public:
    /// Creates a model that shows nothing until setDevice() is called.
    explicit InterfacesModel(QObject *parent = nullptr);
    ~InterfacesModel() override;

    /// Restricts the rows to one kind of interface (\c general.type); 0 shows all.
    void setInterfaceType(int type);

    /// The interface of a row; empty if \a index is not valid.
    std::shared_ptr<BizModel::Interface> interface(const QModelIndex &index) const;
};

} // namespace Tavoro::Models
