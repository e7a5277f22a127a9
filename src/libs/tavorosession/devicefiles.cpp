#include <tavorosession/devicefiles.h>

#include "devicesession_p.h"
#include "transferjob_p.h"

#include <tavorobizmodel/device.h>
#include <tavorobizmodel/file.h>
#include <tavorocontrol/file.h>
#include <tavorocontrol/preset.h>

#include <utility>

namespace Tavoro {

using namespace SessionInternal;
using Operations::Scope;
using ProtoModel::s_FileIdentity;
using ProtoModel::File::s_FileInfo;

namespace {

PendingTransfer startSending(DeviceSessionPrivate &device, const s_FileInfo &file,
                             std::unique_ptr<ContentSource> content)
{
    const auto call = std::make_shared<TransferOperation<Outcome>>(
        Operations::find(&Control::File::importFile), std::vector<Scope>{Scope::file(file)});
    device.startTracked(std::make_shared<SendJob>(call, call->tracker, file, std::move(content)),
                        *call->tracker);
    return call->pending();
}

/// The length of a file that the model knows, or 0.
qint64 knownSize(const DeviceSessionPrivate &device, const s_FileIdentity &file)
{
    const auto type = static_cast<BizModel::Enum::File::FileType>(file.fileType);
    const auto known = device.device ? device.device->findFile(type, file.fileId).lock() : nullptr;
    return known ? known->listEntry().size.length : 0;
}

/// \a makeTarget gets the call, which keeps the content.
template <class Result, class MakeTarget>
TrackedCall<Result> startFetching(DeviceSessionPrivate &device, const s_FileIdentity &file,
                                  MakeTarget makeTarget)
{
    const auto call =
        std::make_shared<TransferOperation<Result>>(std::nullopt, std::vector<Scope>());
    device.startTracked(std::make_shared<FetchJob>(call, call->tracker, file,
                                                   knownSize(device, file), makeTarget(*call)),
                        *call->tracker);
    return call->pending();
}

} // namespace

PendingTransfer DeviceFiles::send(const s_FileInfo &file, std::string content)
{
    return startSending(*m_device.d, file, sourceOf(std::move(content)));
}

PendingTransfer DeviceFiles::send(const s_FileInfo &file, std::shared_ptr<QIODevice> content)
{
    return startSending(*m_device.d, file, sourceOf(std::move(content)));
}

PendingTransfer DeviceFiles::sendFrom(const s_FileInfo &file, const QString &path)
{
    return startSending(*m_device.d, file, sourceAt(path));
}

PendingContent DeviceFiles::fetch(const s_FileIdentity &file)
{
    return startFetching<Answer<std::string>>(*m_device.d, file,
                                              [](auto &call) { return targetOf(call.content); });
}

PendingTransfer DeviceFiles::fetch(const s_FileIdentity &file, std::shared_ptr<QIODevice> target)
{
    return startFetching<Outcome>(*m_device.d, file,
                                  [&](auto &) { return targetOf(std::move(target)); });
}

PendingTransfer DeviceFiles::fetchTo(const s_FileIdentity &file, const QString &path)
{
    return startFetching<Outcome>(*m_device.d, file, [&](auto &) { return targetAt(path); });
}

PendingCall<Outcome> DeviceFiles::savePreset(const s_FileIdentity &file, const std::string &name,
                                             const std::vector<ProtoModel::s_ScreenId> &screens)
{
    return m_device.call(&Control::File::writeCreatePresetFile, {{file, {name}, screens}});
}

PendingCall<Outcome> DeviceFiles::applyPreset(const s_FileIdentity &file, int applyType)
{
    return m_device.call(&Control::Preset::presetApply, {{file, applyType}});
}

PendingCall<Outcome> DeviceFiles::rename(const s_FileIdentity &file, const std::string &name)
{
    return move(file, file, name);
}

PendingCall<Outcome> DeviceFiles::move(const s_FileIdentity &file,
                                       const s_FileIdentity &destination, const std::string &name)
{
    return m_device.call(&Control::File::writeFilesInfo,
                         {{file, {name}, destination.fileId, destination.fileType}});
}

PendingCall<Outcome> DeviceFiles::remove(const s_FileIdentity &file)
{
    return m_device.call(&Control::File::writeDeleteFiles, {{file}});
}

} // namespace Tavoro
