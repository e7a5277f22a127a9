#include "texts_p.h"
#include "transferjob_p.h"

#include <tavorocontrol/file.h>
#include <tavorossproxy/exchangewatch.h>

#include <algorithm>
#include <limits>

namespace Tavoro::SessionInternal {

namespace {

/// For a device that announces a larger limit or none.
constexpr quint32 longestPacket = 1 << 20;
constexpr qint32 lastNumber = 254; ///< Greatest type and ID of a file.

// clang-format off
constexpr char badIdentity[] = QT_TRANSLATE_NOOP("Tavoro::DeviceFiles", "type and ID of a file are 0 to %1");
constexpr char tooLong[]     = QT_TRANSLATE_NOOP("Tavoro::DeviceFiles", "a file has at most %1 bytes");
// clang-format on

bool isNumber(qint32 value)
{
    return value >= 0 && value <= lastNumber;
}

} // namespace

SendJob::SendJob(std::shared_ptr<PendingOperation> call, std::shared_ptr<CallTracker> callTracker,
                 ProtoModel::File::s_FileInfo file, std::unique_ptr<ContentSource> content)
    : TransferJob(std::move(call), std::move(callTracker), SSProxy::Command::FileImport),
      m_file(std::move(file)),
      m_content(std::move(content))
{ }

CallResult SendJob::attempt()
{
    QString error;
    if (!prepare(error))
        return notSent(error);
    CallResult announced = announce();
    if (announced.kind != Outcome::Done)
        return announced;
    CallResult sent = sendPackets();
    sent.firstSent = announced.firstSent; // also of a transfer that was cancelled
    return sent;
}

/// Nothing is sent of a content that the device could not take.
bool SendJob::prepare(QString &error)
{
    if (!isNumber(m_file.fileType) || !isNumber(m_file.fileId)) {
        error = FilesTexts::tr(badIdentity).arg(lastNumber);
        return false;
    }
    if (!m_content->open(error))
        return false;
    constexpr qint64 most = std::numeric_limits<qint32>::max();
    if (m_content->size() > most) {
        error = FilesTexts::tr(tooLong).arg(most);
        return false;
    }
    m_file.size.length = static_cast<qint32>(m_content->size());
    tracker->setDone(0, m_content->size());
    return true;
}

CallResult SendJob::announce() const
{
    const SSProxy::ExchangeWatch watch;
    QString error;
    const bool ok = Control::File(target->device).importFile({m_file}, error);
    CallResult announced = resultOf(ok, error, watch);
    // Whether the device knows the announcement does not matter: it has no content.
    if (announced.kind == Outcome::Unknown)
        announced.kind = Outcome::NotSent;
    announced.unresolved.reset();
    return announced;
}

CallResult SendJob::sendPackets()
{
    const quint32 limit = target->channel->deviceBaseInfo().maxPacketSize;
    const qint64 most = limit == 0 ? longestPacket : std::min(limit, longestPacket);
    const qint64 size = m_content->size();
    const auto count = static_cast<quint32>(std::max<qint64>(1, (size + most - 1) / most));
    CallResult sent;
    qint64 done = 0;
    std::string body;
    for (quint32 i = 0; i < count; ++i) {
        QString error;
        if (operation->isCanceled())
            return notSent(NotSentReason::Canceled);
        if (!m_content->read(body, std::min(most, size - done), error))
            return notSent(error);
        sent = sendPacket(body, count, i);
        if (sent.kind != Outcome::Done)
            return sent;
        done += static_cast<qint64>(body.size());
        tracker->setDone(done, size);
    }
    return sent;
}

CallResult SendJob::sendPacket(const std::string &body, quint32 count, quint32 index) const
{
    const SSProxy::ExchangeWatch watch;
    QString error;
    const bool ok =
        Control::File(target->device)
            .writeFileBinary(body, static_cast<BizModel::Enum::File::FileType>(m_file.fileType),
                             m_file.fileId, count, index, error, false);
    return resultOf(ok, error, watch);
}

} // namespace Tavoro::SessionInternal
