#include <tavorosession/devicefiles.h>

#include "callstarter_p.h"
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
using namespace ProtoModel::File;

namespace {

PendingTransfer startSending(CallStarter &device, const s_FileInfo &file,
                             std::unique_ptr<ContentSource> content)
{
    const auto call = std::make_shared<TransferOperation<Outcome>>(
        Operations::find(&Control::File::importFile), std::vector<Scope>{Scope::file(file)});
    device.startTracked(std::make_shared<SendJob>(call, call->tracker, file, std::move(content)),
                        *call->tracker);
    return call->pending();
}

/// The length of a file that the model knows, or 0.
qint64 knownSize(const CallStarter &device, const s_FileIdentity &file)
{
    const auto type = static_cast<BizModel::Enum::File::FileType>(file.fileType);
    const auto model = device.modelDevice();
    const auto known = model ? model->findFile(type, file.fileId).lock() : nullptr;
    return known ? known->listEntry().size.length : 0;
}

template <class Method, class Argument>
PendingCall<Outcome> startCall(CallStarter &device, Method method, const Argument &argument)
{
    const auto call = makeCall(method, argument);
    PendingCall<Outcome> pending(call->future());
    device.start(std::make_shared<CallJob>(call));
    return pending;
}

/// \a makeTarget gets the call, which keeps the content.
template <class Result, class MakeTarget>
TrackedCall<Result> startFetching(CallStarter &device, const s_FileIdentity &file,
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
    return startSending(m_device, file, sourceOf(std::move(content)));
}

PendingTransfer DeviceFiles::send(const s_FileInfo &file, std::shared_ptr<QIODevice> content)
{
    return startSending(m_device, file, sourceOf(std::move(content)));
}

PendingTransfer DeviceFiles::sendFrom(const s_FileInfo &file, const QString &path)
{
    return startSending(m_device, file, sourceAt(path));
}

PendingContent DeviceFiles::fetch(const s_FileIdentity &file)
{
    return startFetching<Answer<std::string>>(m_device, file,
                                              [](auto &call) { return targetOf(call.content); });
}

PendingTransfer DeviceFiles::fetch(const s_FileIdentity &file, std::shared_ptr<QIODevice> target)
{
    return startFetching<Outcome>(m_device, file,
                                  [&](auto &) { return targetOf(std::move(target)); });
}

PendingTransfer DeviceFiles::fetchTo(const s_FileIdentity &file, const QString &path)
{
    return startFetching<Outcome>(m_device, file, [&](auto &) { return targetAt(path); });
}

PendingCall<Outcome> DeviceFiles::savePreset(const s_FileIdentity &file, const std::string &name,
                                             const std::vector<ProtoModel::s_ScreenId> &screens)
{
    const s_CreatePresetFile preset{file, {name}, screens};
    return startCall(m_device, &Control::File::writeCreatePresetFile, std::vector{preset});
}

PendingCall<Outcome> DeviceFiles::applyPreset(const s_FileIdentity &file, int applyType)
{
    const ProtoModel::Preset::s_PresetPlay preset{file, applyType};
    return startCall(m_device, &Control::Preset::presetApply, std::vector{preset});
}

PendingCall<Outcome> DeviceFiles::rename(const s_FileIdentity &file, const std::string &name)
{
    return move(file, file, name);
}

PendingCall<Outcome> DeviceFiles::move(const s_FileIdentity &file,
                                       const s_FileIdentity &destination, const std::string &name)
{
    const s_ModifyFileInfo moved{file, {name}, destination.fileId, destination.fileType};
    return startCall(m_device, &Control::File::writeFilesInfo, std::vector{moved});
}

PendingCall<Outcome> DeviceFiles::remove(const s_FileIdentity &file)
{
    return startCall(m_device, &Control::File::writeDeleteFiles, std::vector{s_DeleteFile{file}});
}

} // namespace Tavoro
