#include <tavorocontrol/file.h>

#include "operation_p.h"
#include "request/sendwrite_p.h"

#include <tavorobizmodel/device.h>
#include <tavorobizmodel/devicelist.h>
#include <tavorobizmodel/file.h>
#include <tavorocontrol/controlhelper.h>

namespace Tavoro::Control {

namespace {

using namespace Internal;
using namespace ProtoModel::File;
using SSProxy::Command;
using SSProxy::CommandType;

template <class Record>
using List = std::vector<Record>;

// The head of a request names a file by its type and then its ID, one byte each, after the command
// code. In JSON the ID comes first.
constexpr int typePosition = 31;
constexpr int idPosition = 32;

std::shared_ptr<SSProxy::DeviceRequestCommand> fileRequest(CommandType type, Command command,
                                                           int fileType, int fileId)
{
    return makeRequest(type, command, {{typePosition, fileType}, {idPosition, fileId}});
}

} // namespace

File::File(std::weak_ptr<BizModel::Device> device, QObject *parent)
    : QObject(parent), m_device(std::move(device)), m_helper(std::make_shared<ControlHelper>())
{ }

File::~File() = default;

OperationTarget File::target() const
{
    return {m_device, *m_helper};
}

// clang-format off
// Each row encodes the list and sends it as a write; the status bar shows a success.
bool File::writeDeleteFiles      (const List<s_DeleteFile> &l,       QString &error) { return write(target(), Command::FileDelete,        l, error); }
bool File::writeFilesInfo        (const List<s_ModifyFileInfo> &l,   QString &error) { return write(target(), Command::FileGeneral,       l, error); }
bool File::importFile            (const List<s_FileInfo> &l,         QString &error) { return write(target(), Command::FileImport,        l, error); }
bool File::writeCreateImageFile  (const List<s_CreateImageFile> &l,  QString &error) { return write(target(), Command::FileCreateImage,   l, error); }
bool File::writeCreatePresetFile (const List<s_CreatePresetFile> &l, QString &error) { return write(target(), Command::FileCreatePreset,  l, error); }
bool File::writeCreateProjectFile(const List<s_CreateProjFile> &l,   QString &error) { return write(target(), Command::FileCreateProject, l, error); }
bool File::writeCreateLogFile    (const List<s_CreateLogFile> &l,    QString &error) { return write(target(), Command::FileCreateLog,     l, error); }
bool File::edidCreateFileBinary  (const List<s_CreateFileInfo> &l,   QString &error) { return write(target(), Command::FileCreateEdid,    l, error); }
// clang-format on

bool File::writeApplyProjectFile(const List<ProtoModel::ProjectFile::s_ProjectFileApply> &files,
                                 QString &error)
{
    const auto held = m_device.lock(); // keeps the device alive during the command
    return write(target(), Command::ProjectApply, files, error);
}

// Kept: encodes the list, drops the body, sends nothing and fails without a text.
bool File::writeFile(const List<s_FileInfo> &files, QString &)
{
    std::string body;
    ajson::encodeRecord(files, body);
    return false;
}

bool File::importFileBinary(const ProtoModel::s_FileIdentity &file, const std::string &content,
                            QString &error)
{
    const auto request =
        fileRequest(CommandType::BinaryWrite, Command::FileImport, file.fileType, file.fileId);
    return sendWrite(m_device, request, content, error, true);
}

bool File::writeFileBinary(const std::string &content, BizModel::Enum::File::FileType fileType,
                           int fileId, unsigned totalCount, unsigned packetIndex, QString &error,
                           bool showMessage)
{
    const auto request =
        fileRequest(CommandType::BinaryWrite, Command::FileImport, fileType, fileId);
    request->head().totalCount = totalCount;
    request->head().sendCount = packetIndex;
    return sendWrite(m_device, request, content, error, showMessage);
}

bool File::readDetails(int fileType, int fileId, List<s_FileDetail> &files, QString &error)
{
    return readRecord(target(), Command::FileDetail, files, error,
                      {{typePosition, fileType}, {idPosition, fileId}});
}

bool File::readBinary(s_FileDetail &file, QString &error)
{
    return readBinary(file.fileType, file.fileId, file.binary, error);
}

bool File::readBinary(int fileType, int fileId, std::string &content, QString &error)
{
    const auto request =
        fileRequest(CommandType::BinaryRead, Command::FileExport, fileType, fileId);
    return m_helper->sendSyncRequest(m_device, request, content, error);
}

bool File::readBinary(int fileType, int fileId,
                      std::function<void(bool, double, const std::string &, QString &)> callback)
{
    const auto held = m_device.lock(); // keeps the device alive during the transfer
    const auto request =
        fileRequest(CommandType::BinaryRead, Command::FileExport, fileType, fileId);
    return m_helper->sendSyncRequest(m_device, request, std::move(callback));
}

void File::setCancelledState(bool cancelled)
{
    m_helper->setCancelledState(cancelled);
}

bool File::updateTransferProgress(const std::string &body, List<s_FileTransPercent> &percents,
                                  QString &error)
{
    List<s_FileTransPercent> report;
    if (!decode(body, report, error))
        return false;
    // Kept: emitted before the device is locked, and therefore also for a device that is gone.
    Q_EMIT BizModel::DeviceList::instance()->signalFilesTransferProgressChanged(m_device, report);
    percents = report;
    const auto device = m_device.lock();
    if (!device) {
        error = missingDevice();
        return false;
    }
    for (const s_FileTransPercent &percent : report) {
        const auto type = static_cast<BizModel::Enum::File::FileType>(percent.fileType);
        if (const auto file = device->findFile(type, percent.fileId).lock())
            file->setTransferProgress(percent);
    }
    return true;
}

} // namespace Tavoro::Control
