#include "exchangereporter_p.h"

#include "commandlabels_p.h"
#include "errortexts_p.h"
#include "translation_p.h"

#include <tavorobizmodel/device.h>
#include <tavorobizmodel/devicelist.h>
#include <tavorocontrol/bodylog_p.h>
#include <tavorocontrol/logging_p.h>
#include <tavorocontrol/statusbar_p.h>
#include <tavorossproxy/commandcodes.h>

#include <QMetaMethod>

namespace Tavoro::Control::Internal {

namespace {

using BizModel::DeviceList;
using SSProxy::CommandType;

constexpr char tavoroCmd[] = "TavoroCmd"; ///< Marks every line about a command.

struct VerbRow {
    const char *failed; ///< Shown; %1 is the label, %2 the reason.
    const char *succeeded; ///< Shown; %1 is the label.
    const char *request; ///< Logged; %1 is the label.
    const char *rawRequest; ///< Logged for requests without a JSON body; %1 is the label.
};

// clang-format off
constexpr VerbRow getRow = {
    QT_TRANSLATE_NOOP("Tavoro::Control::ControlHelper", "Get %1 failed: %2 ."),
    QT_TRANSLATE_NOOP("Tavoro::Control::ControlHelper", "Get %1 successfully."),
    "Get %1.",
    "Get %1.arg2 values:",
};
constexpr VerbRow setRow = {
    QT_TRANSLATE_NOOP("Tavoro::Control::ControlHelper", "Set %1 failed: %2 ."),
    QT_TRANSLATE_NOOP("Tavoro::Control::ControlHelper", "Set %1 successfully."),
    "Set %1.",
    "Set %1.",
};

constexpr char invalidRequest[]  = QT_TRANSLATE_NOOP("Tavoro::Control::ControlHelper", "Invalid request command");
constexpr char invalidDevice[]   = QT_TRANSLATE_NOOP("Tavoro::Control::ControlHelper", "invalid device model data");
constexpr char deviceOffline[]   = QT_TRANSLATE_NOOP("Tavoro::Control::ControlHelper", "The device is offline");
constexpr char invalidResponse[] = QT_TRANSLATE_NOOP("Tavoro::Control::ControlHelper", "invalid response command model data");
constexpr char dataUpdated[]     = QT_TRANSLATE_NOOP("Tavoro::Control::ControlHelper", "Device data has been updated, please synchronize now.");
// clang-format on

const VerbRow &rowOf(Verb verb)
{
    return verb == Verb::Get ? getRow : setRow;
}

QString reasonOf(const Reply &reply)
{
    switch (reply.failure) {
    case Failure::NoDevice:
        return translated(invalidDevice);
    case Failure::Offline:
        return translated(deviceOffline);
    case Failure::NullResponse:
        return translated(invalidResponse);
    case Failure::Status:
        return errorText(reply.status);
    case Failure::None:
        break;
    }
    Q_ASSERT_X(false, "ExchangeReporter", "a success has no reason");
    return {};
}

/// Makes QObject's protected isSignalConnected() callable for other objects.
struct Connections : QObject {
    static constexpr bool (QObject::*isConnected)(const QMetaMethod &) const =
        &Connections::isSignalConnected;
};

bool hasStatusBar()
{
    static const QMetaMethod signal = QMetaMethod::fromSignal(&DeviceList::signalShowStatusBarMsg);
    return (DeviceList::instance()->*Connections::isConnected)(signal);
}

/// Name and identity of the device for a log line; empty while the device is not known.
struct DeviceName {
    const BizModel::Device *device;
};

QDebug operator<<(QDebug line, DeviceName name)
{
    return name.device ? line << name.device->name() << name.device->ipMacSn() : line;
}

QDebug operator<<(QDebug line, PacketCount count)
{
    if (count.total == 0)
        return line;
    return line
        << QStringLiteral(",send count/total count:%1/%2").arg(count.packet).arg(count.total);
}

std::array<quint8, 4> argumentsOf(const SSProxy::PacketHead &head)
{
    return {head.arg2[0], head.arg2[1], head.arg2[2], head.arg2[3]};
}

} // namespace

bool refuseMissingRequest(QString &error)
{
    error = translated(invalidRequest);
    qCWarning(controlLog) << QStringLiteral("%1%2").arg(QStringLiteral("TavoroCmd :"), error);
    return false;
}

ExchangeReporter::ExchangeReporter(Verb verb, const SSProxy::DeviceRequestCommand &request)
    : m_verb(verb),
      m_request(request),
      m_BC(request.head().BC),
      m_FC(request.head().FC),
      m_arg2(argumentsOf(request.head()))
{ }

QString ExchangeReporter::label() const
{
    return commandLabel(m_BC, m_FC);
}

QString ExchangeReporter::labelled(const char *words) const
{
    return QString::fromLatin1(words).arg(label());
}

QString ExchangeReporter::codes() const
{
    return QStringLiteral("BC(%1), FC(%2).").arg(m_BC, 0, 16).arg(m_FC, 0, 16);
}

QString ExchangeReporter::lables() const
{
    return QStringLiteral(" lables: %1").arg(m_request.head().lables);
}

QString ExchangeReporter::failureSentence(const QString &reason) const
{
    return translated(rowOf(m_verb).failed).arg(label(), reason);
}

QString ExchangeReporter::successSentence() const
{
    return translated(rowOf(m_verb).succeeded).arg(label());
}

void ExchangeReporter::logRequest() const
{
    if (!controlLog().isInfoEnabled())
        return;
    const VerbRow &row = rowOf(m_verb);
    if (m_request.head().type == static_cast<quint8>(CommandType::Write)) {
        qCInfo(controlLog) << tavoroCmd << DeviceName{m_device} << codes() << labelled(row.request)
                           << lables() << LoggedBody{m_device, m_request.body()};
    } else if (m_verb == Verb::Get) {
        qCInfo(controlLog) << tavoroCmd << DeviceName{m_device} << codes()
                           << labelled(row.rawRequest) << int(m_arg2[3]) << int(m_arg2[2])
                           << int(m_arg2[1]) << int(m_arg2[0]) << lables();
    } else {
        qCInfo(controlLog) << tavoroCmd << DeviceName{m_device} << codes()
                           << labelled(row.rawRequest) << lables();
    }
}

void ExchangeReporter::logMissingChannel() const
{
    qCDebug(controlLog) << "find Tavoro Device Channel false. ip address is :"
                        << m_device->IPAddress();
}

void ExchangeReporter::logFailure(const QString &text, PacketCount count) const
{
    qCWarning(controlLog) << tavoroCmd << DeviceName{m_device} << codes() << text << lables()
                          << count;
}

bool ExchangeReporter::fail(const Reply &reply, QString &error, PacketCount count) const
{
    error = failureSentence(reasonOf(reply));
    logFailure(error, count);
    showOnStatusBar(BizModel::Enum::StatusBarFailure, error);
    return false;
}

void ExchangeReporter::showWriteFailure(const QString &reason, quint16 status) const
{
    showOnStatusBar(BizModel::Enum::StatusBarFailure, failureSentence(reason));
    if (status == SSProxy::statusDataUpdated)
        Q_EMIT DeviceList::instance()->signalShowFramelessMessageBoxMsg(
            BizModel::Enum::MessageBoxWarning, translated(dataUpdated));
}

bool ExchangeReporter::failWrite(quint16 status, QString &error) const
{
    const QString reason = errorText(status);
    showWriteFailure(reason, status);
    error = failureSentence(reason);
    logFailure(error, {});
    return false;
}

// Kept: the status bar shows the whole sentence, the caller of a split write gets the reason alone.
bool ExchangeReporter::failSplitWrite(quint16 status, QString &error, PacketCount count) const
{
    const QString reason = errorText(status);
    showWriteFailure(reason, status);
    error = reason;
    logFailure(error, count);
    return false;
}

// Kept: ", content:" precedes the content of an answer of one packet only, although the content is
// logged in both cases.
bool ExchangeReporter::succeedRead(quint8 responseType, const std::string &content,
                                   bool onePacket) const
{
    if (!controlLog().isInfoEnabled() && !hasStatusBar())
        return true;
    const QString text = successSentence();
    if (controlLog().isInfoEnabled()) {
        if (responseType == static_cast<quint8>(CommandType::Read) && isBodyLogged(m_device)) {
            const QString tag = onePacket ? lables() + QStringLiteral(", content:") : lables();
            qCInfo(controlLog) << tavoroCmd << DeviceName{m_device} << codes() << text << tag
                               << QString::fromStdString(content);
        } else {
            qCInfo(controlLog) << tavoroCmd << DeviceName{m_device} << codes() << text << lables();
        }
    }
    showOnStatusBar(BizModel::Enum::StatusBarSuccess, text);
    return true;
}

bool ExchangeReporter::succeedWrite(bool show) const
{
    if (!controlLog().isInfoEnabled() && !(show && hasStatusBar()))
        return true;
    const QString text = successSentence();
    qCInfo(controlLog) << tavoroCmd << DeviceName{m_device} << codes() << text << lables();
    if (show)
        showOnStatusBar(BizModel::Enum::StatusBarSuccess, text);
    return true;
}

} // namespace Tavoro::Control::Internal
