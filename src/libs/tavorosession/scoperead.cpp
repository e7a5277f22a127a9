#include "scoperead_p.h"

#include <tavorobizmodel/device.h>
#include <tavorobizmodel/deviceupdate.h>
#include <tavorocontrol/device.h>
#include <tavorocontrol/file.h>
#include <tavorocontrol/interface.h>
#include <tavorocontrol/layer.h>
#include <tavorocontrol/screen.h>

#include <utility>
#include <vector>

namespace Tavoro::SessionInternal {

using Operations::Scope;
using Operations::ScopeKind;

namespace {

using WeakDevice = std::weak_ptr<BizModel::Device>;

ScopeUpdate readDevice(const WeakDevice &device)
{
    ProtoModel::Device::s_DeviceDetail detail;
    QString error;
    if (!Control::Device(device).readDetails(detail, error))
        return {};
    return [detail = std::move(detail)](BizModel::Device &model, QString &fault) {
        return BizModel::updateDeviceDetail(model, detail, fault);
    };
}

ScopeUpdate readInterfaces(const WeakDevice &device, const std::vector<int> &filters)
{
    std::vector<ProtoModel::Interface::s_InterfaceDetail> details;
    QString error;
    if (!Control::Interface(device).readDetails(filters[0], filters[1], details, error))
        return {};
    return [details = std::move(details)](BizModel::Device &model, QString &fault) {
        return BizModel::updateInterfaces(model, details, {}, fault);
    };
}

ScopeUpdate readFiles(const WeakDevice &device, const std::vector<int> &filters)
{
    std::vector<ProtoModel::File::s_FileDetail> details;
    QString error;
    if (!Control::File(device).readDetails(filters[0], filters[1], details, error))
        return {};
    const BizModel::s_FileFilter filter{filters[0], filters[1]};
    return [details = std::move(details), filter](BizModel::Device &model, QString &fault) {
        return BizModel::updateFiles(model, details, filter, BizModel::FileContents::WereNotRead,
                                     fault);
    };
}

ScopeUpdate readScreens(const WeakDevice &device, const std::vector<int> &filters)
{
    std::vector<ProtoModel::Screen::s_ScreenFullDetail> details;
    QString error;
    if (!Control::Screen(device).readDetails(filters[0], filters[1], filters[2], details, error))
        return {};
    const BizModel::s_ScreenFilter filter{filters[0], filters[1]};
    return [details = std::move(details), filter](BizModel::Device &model, QString &fault) {
        return BizModel::updateScreens(model, details, filter, fault);
    };
}

ScopeUpdate readLayers(const WeakDevice &device, const std::vector<int> &filters)
{
    std::vector<ProtoModel::Layer::s_LayerFullDetail> details;
    QString error;
    if (!Control::Layer(device).readDetails(filters[0], filters[1], filters[2], filters[3], details,
                                            error))
        return {};
    const BizModel::s_LayerFilter filter{filters[0], filters[1], filters[2], filters[3]};
    return [details = std::move(details), filter](BizModel::Device &model, QString &fault) {
        return BizModel::updateLayers(model, details, filter, fault);
    };
}

} // namespace

ScopeUpdate readScope(const WeakDevice &device, const Scope &scope)
{
    switch (scope.kind) {
    case ScopeKind::Device:
        return readDevice(device);
    case ScopeKind::Interfaces:
        return readInterfaces(device, scope.filters());
    case ScopeKind::Files:
        return readFiles(device, scope.filters());
    case ScopeKind::Screens:
        return readScreens(device, scope.filters());
    case ScopeKind::Layers:
        return readLayers(device, scope.filters());
    }
    return {};
}

} // namespace Tavoro::SessionInternal
