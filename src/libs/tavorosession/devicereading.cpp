#include "devicereading_p.h"

#include <tavorobizmodel/device.h>
#include <tavorobizmodel/devicelist.h>
#include <tavorobizmodel/savedevicedatathread.h>

#include <algorithm>
#include <optional>
#include <utility>

namespace Tavoro::SessionInternal {

using Operations::ScopeKind;

namespace {

/// The longest pause before a reading is repeated, as a multiple of the first one.
constexpr int longestPause = 16;

} // namespace

DeviceReading::DeviceReading(const Shared &shared, std::shared_ptr<Lane> lane,
                             const SessionOptions &options, Events &events)
    : m_shared(shared),
      m_options(options),
      m_events(events),
      m_lane(std::move(lane)),
      m_pause(options.readPause),
      m_self(std::make_shared<DeviceReading *>(this))
{
    m_retry.setSingleShot(true);
    QObject::connect(&m_retry, &QTimer::timeout, &m_retry, [this] { request(m_target); });
}

DeviceReading::~DeviceReading()
{
    stop();
}

void DeviceReading::request(std::shared_ptr<const CallTarget> target)
{
    m_target = std::move(target);
    m_retry.stop();
    if (std::exchange(m_hasTurn, true)) {
        m_isRepeated = true;
        return;
    }
    const auto wanted = m_target;
    m_events.readingStarted();
    if (m_target == wanted) // a slot may have closed the session
        m_shared.readQueue.request(this, [this] { start(); });
}

void DeviceReading::start()
{
    const std::weak_ptr<DeviceReading *> weak = m_self;
    const auto progressed = [weak](const ReaderPtr &reader, double share) {
        const auto self = weak.lock();
        if (self && (*self)->m_reader == reader)
            (*self)->m_events.readingProgressed(share);
    };
    const auto finished = [weak](const ReaderPtr &reader) {
        const auto self = weak.lock();
        if (self && (*self)->m_reader == reader)
            (*self)->ended(reader);
    };
    m_isRepeated = false;
    m_reader = std::make_shared<DeviceReader>(
        m_target, m_shared.courier,
        DeviceReader::Options{m_options.setsClock, m_options.readsFileContents}, progressed,
        finished);
    m_lane->append(m_reader);
}

void DeviceReading::stop()
{
    m_retry.stop();
    m_pause = m_options.readPause;
    if (m_reader)
        m_reader->cancel();
    m_lane->removeAll();
    endTurn();
    m_target = nullptr;
}

void DeviceReading::endTurn()
{
    m_reader = nullptr;
    if (std::exchange(m_hasTurn, false))
        m_shared.readQueue.end(this);
}

void DeviceReading::ended(const ReaderPtr &reader)
{
    endTurn();
    DeviceReadResult &result = reader->result();
    if (result.isAborted)
        return; // the loss of the connection is reported next
    leaveOutdated(result);
    const auto target = m_target;
    apply(result, target->device);
    if (m_target != target)
        return; // a slot of the model has closed the session
    const QString failures = result.failures.join(QStringLiteral(", "));
    if (!result.hasEssentials)
        return retry(failures);
    m_pause = m_options.readPause;
    if (m_isRepeated)
        request(m_target);
    else
        m_events.readingEnded(failures);
}

/// Does not overwrite what a report has changed after it was read. A device that was never read
/// gets all that was read, since it would lack these objects.
void DeviceReading::leaveOutdated(DeviceReadResult &result) const
{
    const bool isKnown = m_target->device->isSyncDataSuccess();
    BizModel::s_DeviceReading &reading = result.reading;
    std::vector<Operations::Scope> scopes;
    for (const ScopeKind kind : result.outdatedKinds(*m_target->reports)) {
        scopes.push_back(
            {kind, {Operations::Scope::any, Operations::Scope::any, Operations::Scope::any}});
        if (!isKnown)
            continue;
        switch (kind) {
        case ScopeKind::Device:
            reading.detail.reset();
            break;
        case ScopeKind::Interfaces:
            reading.interfaces.reset();
            break;
        case ScopeKind::Screens:
            reading.screens.reset();
            break;
        case ScopeKind::Layers:
            reading.layers.reset();
            break;
        case ScopeKind::Files:
            break; // a report about a file changes only its progress
        }
    }
    if (!scopes.empty())
        m_events.readingOutdated(scopes);
}

void DeviceReading::apply(DeviceReadResult &result,
                          const std::shared_ptr<BizModel::Device> &device) const
{
    std::optional<std::vector<ProtoModel::File::s_FileDetail>> filesWithoutContents;
    if (!m_options.readsFileContents)
        filesWithoutContents = std::exchange(result.reading.files, std::nullopt);
    QString error;
    if (!BizModel::updateDevice(*device, result.reading, error))
        result.failures << error;
    if (filesWithoutContents
        && !BizModel::updateFiles(*device, *filesWithoutContents, {},
                                  BizModel::FileContents::WereNotRead, error))
        result.failures << error;
    if (auto *const saver = BizModel::DeviceList::instance()->saveDeviceDataThread())
        saver->saveDevicesInfor(device);
}

void DeviceReading::retry(const QString &reason)
{
    const auto pause =
        std::exchange(m_pause, std::min(2 * m_pause, longestPause * m_options.readPause));
    m_retry.start(pause);
    m_events.readingFailed(reason, pause);
}

} // namespace Tavoro::SessionInternal
