#include "devicereader_p.h"

#include "courier_p.h"
#include "texts_p.h"

#include <tavorocontrol/auxiliary.h>
#include <tavorocontrol/device.h>
#include <tavorocontrol/file.h>
#include <tavorocontrol/interface.h>
#include <tavorocontrol/layer.h>
#include <tavorocontrol/screen.h>

#include <QDateTime>

#include <utility>

namespace Tavoro::SessionInternal {

using Operations::ScopeKind;

namespace {

constexpr qint32 readyStatus = 1; ///< Status of a device that may be read.
constexpr qint32 removedFileType = 15; ///< The device lists such a file, but no longer has it.

// The shares of the work after each step. A large device spends most of it on files.
constexpr double shareOfDetail = 0.05;
constexpr double shareOfInterfaces = 0.2;
constexpr double shareOfScreens = 0.3;
constexpr double shareOfLayers = 0.4;
constexpr double shareOfFileList = 0.5;

/// The types of files whose content is read. Of other files only the details are.
bool hasContent(qint32 fileType)
{
    return fileType == 12 || fileType <= 9 || fileType >= 16;
}

ProtoModel::Auxiliary::s_DeviceTime timeOfNow()
{
    const QDateTime now = QDateTime::currentDateTime();
    ProtoModel::Auxiliary::s_DeviceTime time;
    time.year = now.date().year();
    time.month = now.date().month();
    time.day = now.date().day();
    time.hour = now.time().hour();
    time.minute = now.time().minute();
    time.second = now.time().second();
    time.millisecond = now.time().msec();
    return time;
}

// clang-format off
constexpr char clockFailed[]    = QT_TRANSLATE_NOOP("Tavoro::DeviceSession", "the clock could not be set (%1)");
constexpr char detailFailed[]   = QT_TRANSLATE_NOOP("Tavoro::DeviceSession", "the details could not be read (%1)");
constexpr char notReady[]       = QT_TRANSLATE_NOOP("Tavoro::DeviceSession", "the device is not ready yet");
constexpr char ifacesFailed[]   = QT_TRANSLATE_NOOP("Tavoro::DeviceSession", "the interfaces could not be read (%1)");
constexpr char screensFailed[]  = QT_TRANSLATE_NOOP("Tavoro::DeviceSession", "the screens could not be read (%1)");
constexpr char layersFailed[]   = QT_TRANSLATE_NOOP("Tavoro::DeviceSession", "the layers could not be read (%1)");
constexpr char filesFailed[]    = QT_TRANSLATE_NOOP("Tavoro::DeviceSession", "the list of files could not be read (%1)");
constexpr char contentFailed[]  = QT_TRANSLATE_NOOP("Tavoro::DeviceSession", "the content of a file could not be read (%1)");
// clang-format on

} // namespace

DeviceReader::DeviceReader(std::shared_ptr<const CallTarget> target,
                           std::shared_ptr<Courier> courier, Options options,
                           ProgressHandler progress, Handler finished)
    : m_target(std::move(target)),
      m_courier(std::move(courier)),
      m_options(options),
      m_progress(std::move(progress)),
      m_finished(std::move(finished))
{ }

std::vector<ScopeKind> DeviceReadResult::outdatedKinds(const ReportCounts &reports) const
{
    std::vector<ScopeKind> kinds;
    for (const auto &[kind, count] : reportsBefore) {
        if (reports.of(kind) != count)
            kinds.push_back(kind);
    }
    return kinds;
}

void DeviceReader::begin(ScopeKind kind)
{
    m_result.reportsBefore[kind] = m_target->reports->of(kind);
}

void DeviceReader::run()
{
    readAll();
}

void DeviceReader::deliver()
{
    m_finished(shared_from_this());
}

bool DeviceReader::mayContinue() const
{
    return !m_isCanceled && m_target->isConnected();
}

/// Carries out one read, which gets the model's device and the error text. Its failure is described
/// by \a what and the outcome of its exchange.
template <class Read>
bool DeviceReader::read(const char *what, Read operation)
{
    if (!mayContinue()) {
        m_result.isAborted = true;
        return false;
    }
    const SSProxy::ExchangeWatch watch;
    QString error;
    const bool ok = operation(error);
    const CallResult result = resultOf(ok, error, watch);
    if (result.kind == Outcome::Done)
        return true;
    m_result.failures << SessionTexts::tr(what).arg(result.reason);
    m_result.isAborted = !mayContinue();
    return false;
}

void DeviceReader::readAll()
{
    const std::weak_ptr<BizModel::Device> device = m_target->device;
    if (m_options.setsClock) {
        read(clockFailed, [&](QString &error) {
            return Control::Auxiliary(device).setDeviceTime(timeOfNow(), error);
        });
    }
    m_result.hasEssentials = readEssentials();
    if (m_result.hasEssentials) {
        readScreensAndLayers();
        readFiles();
    }
    m_result.reading.baseInfo = m_target->channel->deviceBaseInfo();
    m_result.reading.isComplete = m_result.hasEssentials && m_result.failures.isEmpty();
}

bool DeviceReader::readEssentials()
{
    BizModel::s_DeviceReading &reading = m_result.reading;
    const std::weak_ptr<BizModel::Device> device = m_target->device;
    begin(ScopeKind::Device);
    ProtoModel::Device::s_DeviceDetail detail;
    if (!read(detailFailed,
              [&](QString &error) { return Control::Device(device).readDetails(detail, error); }))
        return false;
    const bool isReady = detail.general.status == readyStatus;
    reading.detail = std::move(detail);
    if (!isReady) {
        m_result.failures << SessionTexts::tr(notReady);
        return false;
    }
    showProgress(shareOfDetail);
    begin(ScopeKind::Interfaces);
    std::vector<ProtoModel::Interface::s_InterfaceDetail> interfaces;
    if (!read(ifacesFailed, [&](QString &error) {
            return Control::Interface(device).readDetails(0, -1, interfaces, error);
        }))
        return false;
    reading.interfaces = std::move(interfaces);
    showProgress(shareOfInterfaces);
    return true;
}

void DeviceReader::readScreensAndLayers()
{
    BizModel::s_DeviceReading &reading = m_result.reading;
    const std::weak_ptr<BizModel::Device> device = m_target->device;
    begin(ScopeKind::Screens);
    std::vector<ProtoModel::Screen::s_ScreenFullDetail> screens;
    if (!read(screensFailed, [&](QString &error) {
            return Control::Screen(device).readDetails(-1, 0, -1, screens, error);
        }))
        return;
    reading.screens = std::move(screens);
    showProgress(shareOfScreens);
    begin(ScopeKind::Layers);
    std::vector<ProtoModel::Layer::s_LayerFullDetail> layers;
    if (read(layersFailed, [&](QString &error) {
            return Control::Layer(device).readDetails(-1, -1, -1, -1, layers, error);
        }))
        reading.layers = std::move(layers);
    showProgress(shareOfLayers);
}

void DeviceReader::readFiles()
{
    std::vector<ProtoModel::File::s_FileDetail> files;
    if (!read(filesFailed, [&](QString &error) {
            return Control::File(m_target->device).readDetails(-1, -1, files, error);
        }))
        return;
    m_result.reading.files = std::move(files);
    showProgress(shareOfFileList);
    if (m_options.readsFileContents)
        readContents();
}

void DeviceReader::readContents()
{
    auto &files = *m_result.reading.files;
    double count = 0;
    for (ProtoModel::File::s_FileDetail &file : files) {
        if (file.fileType != removedFileType && hasContent(file.fileType)
            && !read(contentFailed, [&](QString &error) {
                   return Control::File(m_target->device).readBinary(file, error);
               }))
            file.binary.clear();
        showProgress(shareOfFileList + (1 - shareOfFileList) * ++count / double(files.size()));
    }
}

void DeviceReader::showProgress(double share)
{
    m_courier->post([self = shared_from_this(), share] { self->m_progress(self, share); });
}

} // namespace Tavoro::SessionInternal
