#include "filecommands.h"

#include "handlers_p.h"

#include <algorithm>
#include <numeric>

namespace Tavoro::Sim {

using namespace ProtoModel;
using namespace ProtoModel::File;

namespace {

constexpr std::size_t maxFileNameLength = 255; ///< Bytes of the name of a file.
constexpr std::size_t maxUploads = 16; ///< Simultaneous uploads on one connection.

/// The type of a transfer in a progress report.
enum TransferType : qint32 {
    ToDevice = 1,
};
enum TransferStatus : qint32 {
    UnderWay = 0,
    Arrived = 1,
    Failed = 2,
};

/// The file that the head of \a request names.
FileKey namedFile(const Request &request)
{
    return {request.arg2[0], request.arg2[1]};
}

DeviceStatus checkAnnounced(const SimState &state, const s_FileInfo &file)
{
    if (!isFileIdentity(file) || !isFileName(file.general) || file.size.length < 0)
        return DeviceStatus::ValueOutOfRange;
    if (file.size.length > state.files.maxContentLength())
        return DeviceStatus::BodyTooLong;
    const bool hasInterface = keyOf(file.interfaceIds) != InterfaceKey{};
    return hasInterface && !find(state, file.interfaceIds) ? DeviceStatus::NoSuchObject
                                                           : DeviceStatus::Success;
}

void reportProgress(const FileKey &key, qint32 percent, TransferStatus status, Reports &reports)
{
    s_FileTransPercent progress;
    progress.fileType = key.first;
    progress.fileId = key.second;
    progress.type = ToDevice;
    progress.percent = percent;
    progress.status = status;
    reports.push_back({Command::FileTransferProgress, encoded(std::vector{progress})});
}

/// The upload of the packet, a new one for a first packet; null if the packet is out of order.
Upload *findUpload(SimState &state, const s_FileInfo &announced, const Request &request)
{
    Uploads &uploads = *request.uploads;
    const FileKey key = namedFile(request);
    if (request.sendCount == 0) {
        uploads.erase(key);
        IncomingContent content = state.files.beginContent(announced.size.length);
        return &uploads.emplace(key, Upload{std::move(content), request.totalCount}).first->second;
    }
    Upload *const upload = findValue(uploads, key);
    const bool isNext =
        upload && upload->next == request.sendCount && upload->totalCount == request.totalCount;
    return isNext ? upload : nullptr;
}

qint64 bytesIn(const Uploads &uploads)
{
    return std::accumulate(
        uploads.begin(), uploads.end(), qint64{0},
        [](qint64 sum, const auto &upload) { return sum + upload.second.content.length(); });
}

/// Stores a complete content.
DeviceStatus storeContent(SimState &state, const s_FileInfo &announced, IncomingContent content)
{
    const s_FileSize &size = announced.size;
    if ((size.length != 0 && size.length != content.length())
        || (size.hashSum != 0 && size.hashSum != content.hashSum()))
        return DeviceStatus::WrongContent;
    s_FileDetail detail;
    static_cast<s_FileIdentity &>(detail) = announced;
    detail.general = announced.general;
    detail.size = size;
    FileChanges changes = state.files.change();
    if (!state.files.put(changes, detail, std::move(content)))
        return DeviceStatus::StorageFailed;
    const DeviceStatus status = commit(state, changes);
    if (status == DeviceStatus::Success)
        state.announced.erase(keyOf(announced));
    return status;
}

/// Takes the expected packet.
DeviceStatus addPacket(SimState &state, const s_FileInfo &announced, Upload &upload,
                       const Request &request)
{
    const qint64 limit =
        announced.size.length != 0 ? announced.size.length : state.files.maxContentLength();
    const auto length = static_cast<qint64>(request.body.size());
    if (upload.content.length() + length > limit)
        return announced.size.length != 0 ? DeviceStatus::WrongContent : DeviceStatus::BodyTooLong;
    if (bytesIn(*request.uploads) + length > state.files.maxUnfinishedBytes()
        || !upload.content.append(request.body))
        return DeviceStatus::StorageFailed;
    if (++upload.next < upload.totalCount)
        return DeviceStatus::Success;
    return storeContent(state, announced, std::move(upload.content));
}

} // namespace

bool isFileIdentity(const s_FileIdentity &id)
{
    return id.fileType >= 0 && id.fileType <= maxFileNumber && id.fileId >= 0
        && id.fileId <= maxFileNumber;
}

bool isFileName(const s_FileGeneral &general)
{
    return !general.name.empty() && general.name.size() <= maxFileNameLength;
}

DeviceStatus commit(SimState &state, const FileChanges &changes)
{
    return state.files.commit(changes) ? DeviceStatus::Success : DeviceStatus::StorageFailed;
}

std::string readFiles(const SimState &state, const Request &request)
{
    std::vector<s_FileDetail> list;
    for (const auto &[key, file] : state.files.index()) {
        if (matches(file.fileType, request.arg2[0]) && matches(file.fileId, request.arg2[1]))
            list.push_back(file);
    }
    return encoded(list);
}

DeviceStatus writeFileDelete(SimState &state, const Request &request, Reports & /*reports*/)
{
    std::vector<s_DeleteFile> list;
    if (!decoded(request.body, list))
        return DeviceStatus::MalformedBody;
    FileChanges changes = state.files.change();
    for (const s_DeleteFile &file : list) {
        if (!changes.remove(keyOf(file)))
            return DeviceStatus::NoSuchObject;
    }
    return commit(state, changes);
}

DeviceStatus writeFileGeneral(SimState &state, const Request &request, Reports & /*reports*/)
{
    std::vector<s_ModifyFileInfo> list;
    if (!decoded(request.body, list))
        return DeviceStatus::MalformedBody;
    FileChanges changes = state.files.change();
    for (const s_ModifyFileInfo &wanted : list) {
        const s_FileIdentity destination{wanted.desFileId, wanted.desFileType};
        if (!isFileIdentity(destination) || !isFileName(wanted.general))
            return DeviceStatus::ValueOutOfRange;
        const StoredFile *const file = changes.find(keyOf(wanted));
        if (!file)
            return DeviceStatus::NoSuchObject;
        StoredFile moved = *file;
        static_cast<s_FileIdentity &>(moved) = destination;
        moved.general = wanted.general;
        changes.remove(keyOf(wanted));
        if (changes.find(keyOf(destination)))
            return DeviceStatus::Busy;
        changes.put(std::move(moved));
    }
    return commit(state, changes);
}

DeviceStatus writeFileAnnounced(SimState &state, const Request &request, Reports & /*reports*/)
{
    return writeEach<s_FileInfo>(
        state, request, checkAnnounced,
        [](SimState &now, const s_FileInfo &file) { now.announced[keyOf(file)] = file; });
}

DeviceStatus writeFileContent(SimState &state, const Request &request, Reports &reports)
{
    const FileKey key = namedFile(request);
    const s_FileInfo *const announced = findValue(state.announced, key);
    if (!announced)
        return DeviceStatus::NoSuchObject;
    if (request.uploads->size() >= maxUploads && request.uploads->count(key) == 0)
        return DeviceStatus::Busy;
    Upload *const upload = findUpload(state, *announced, request);
    const DeviceStatus status =
        upload ? addPacket(state, *announced, *upload, request) : DeviceStatus::WrongPacket;
    const qint64 done = request.sendCount + qint64{status == DeviceStatus::Success};
    const auto percent =
        static_cast<qint32>(std::min<qint64>(done * 100 / request.totalCount, 100));
    const bool isOver = status != DeviceStatus::Success || upload->next == upload->totalCount;
    if (isOver) {
        reportProgress(key, percent, status == DeviceStatus::Success ? Arrived : Failed, reports);
        request.uploads->erase(key);
    } else if (percent != std::exchange(upload->percent, percent)) {
        reportProgress(key, percent, UnderWay, reports);
    }
    return status;
}

Answer readContent(const SimState &state, const Request &request)
{
    const StoredFile *const file = findValue(state.files.index(), namedFile(request));
    if (!file)
        return {DeviceStatus::NoSuchObject, {}, nullptr};
    auto content = state.files.content(*file);
    const auto status = content ? DeviceStatus::Success : DeviceStatus::StorageFailed;
    return {status, {}, std::move(content)};
}

} // namespace Tavoro::Sim
