#pragma once

#include <tavorocontrol/export.h>

#include <QObject>
#include <QString>

#include <atomic>
#include <functional>
#include <memory>
#include <string>

namespace Tavoro::BizModel {
class Device;
}

namespace Tavoro::SSProxy {
class DeviceRequestCommand;
}

namespace Tavoro::Control {

/// \defgroup operations Operations
/// \brief The contract of every operation of the control classes.
///
/// A control object is cheap to create and holds no state of the device. Create one on the stack
/// for one call, or keep one for many. It does not keep its device alive.
///
/// - **Result:** true for success; \a error is then unchanged.
/// - **Errors:** false for failure; \a error then holds the sentence that the status bar shows:
///   "Get … failed: … ." or "Set … failed: … .". There are two exceptions. For a refused packet of
///   a split write \a error holds only the reason. For an answer that cannot be decoded it holds
///   "Decode json failed: …", which the status bar does not show. All texts are translated.
/// - **Blocking time:** the call returns when the device has answered, at the latest after the
///   timeout of the command in the device's table (BizModel::Device::deviceConfig()). The further
///   packets of a long answer, and all packets of a long write, have a timeout of
///   SSProxy::DeviceRequestCommand::defaultTimeout (10 s) each.
/// - **Thread:** any thread, also several at once, except the channels' own thread. On that thread
///   an operation fails with status 261.
/// - **Control:** a device accepts writes from one client at a time. It refuses those of other
///   clients with status 67.
/// - **Lists:** a write sends all records of its list in one command and gets one answer. An empty
///   list is sent as "[]". A read appends to the caller's list.
/// - **Model:** an operation does not change the model unless its documentation says so. A change
///   on the device reaches the model by a report of the device (see AutoReportManager) or by the
///   next synchronisation (see DeviceList).
/// - **Device without a channel:** every write succeeds, and nothing is sent. Every read gets an
///   empty body: a record then cannot be decoded, and the content of a file is empty.

/// The request path: sends one request to a device and reports the outcome.
///
/// All operations of the control classes use it. Applications need it only for commands without an
/// operation, and for the names of commands and statuses.
///
/// The three overloads of sendSyncRequest() follow the contract of all \ref operations. They log
/// each exchange under the category \c tavoro.control, and show its outcome on the status bar by
/// the signals of BizModel::DeviceList. They never repeat a request. They do not undo what was sent
/// before a failure.
class TAVOROCONTROL_EXPORT ControlHelper : public QObject {
    Q_OBJECT

public:
    /// Creates a helper that is not cancelled. Any thread.
    ControlHelper();
    ~ControlHelper() override;

    /// Reads: sends \a request and joins all packets of the answer in \a result.
    ///
    /// The device's timeout table replaces the timeout of \a request. After a failure \a result
    /// holds the packets that were received before it, or is unchanged if there were none. Without
    /// a channel \a result is empty.
    bool sendSyncRequest(std::weak_ptr<BizModel::Device> device,
                         std::shared_ptr<SSProxy::DeviceRequestCommand> request,
                         std::string &result, QString &error);

    /// Writes: sends \a request, in several packets if its body is longer than the \c maxPacketSize
    /// of the channel (in bytes).
    ///
    /// \a showSuccess decides whether the status bar shows a success; it shows every failure. The
    /// body of the answer is ignored.
    bool sendSyncRequest(std::weak_ptr<BizModel::Device> device,
                         std::shared_ptr<SSProxy::DeviceRequestCommand> request, QString &error,
                         bool showSuccess);

    /// Reads packet by packet: passes each packet to \a callback as it arrives, and holds at most
    /// one packet.
    ///
    /// The callback runs on the caller's thread. Its arguments are: \c ok; the share received, from
    /// 0 to 1; the bytes of this packet; the error text. If \c ok is false, the read has failed and
    /// the callback is not called again. The read also fails when another client takes control of
    /// the device, with "The device is controlled by others." in \c error, and after
    /// setCancelledState(true), with "Operation has been cancelled.". The status bar does not show
    /// these two texts. An empty \a callback throws \c std::bad_function_call.
    bool sendSyncRequest(
        std::weak_ptr<BizModel::Device> device,
        std::shared_ptr<SSProxy::DeviceRequestCommand> request,
        std::function<void(bool ok, double progress, const std::string &data, QString &error)>
            callback);

    /// Cancels reads with a callback: a running read ends at its next packet, and later ones end at
    /// once, until a call with false. Any thread; returns at once.
    void setCancelledState(bool cancelled);

    /// Name of the command with the base code \a BC and the function code \a FC, translated; "N/A"
    /// for a command without a name. Any thread.
    static QString commandLabel(quint8 BC, quint8 FC);
    /// Meaning of the \a status of a response, translated; "N/A" for a status without a text. 1 to
    /// 255 come from the device, 257 to 264 from the local channel, 357 to 365 from the local
    /// protocol decoder. Any thread.
    static QString errorText(quint16 status);

private:
    std::atomic<bool> m_cancelled{false};
};

} // namespace Tavoro::Control
