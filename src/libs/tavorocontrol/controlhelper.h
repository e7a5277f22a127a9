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
/// for one call, or keep one. It holds its device weakly.
///
/// - **Result:** true for success. Then \a error is left unchanged and still holds what it held
///   before.
/// - **Errors:** false for failure. Then \a error holds the sentence that the status bar shows,
/// "Get
///   … failed: … ." or "Set … failed: … .". Two cases differ: for a refused packet of a split write
///   \a error holds the reason alone, and for an answer that cannot be decoded it holds "Decode
///   json failed: …", which the status bar does not show. All texts are translated.
/// - **Blocking time:** the call returns when the device has answered, at the latest after the time
///   that the device's timeout table has for the command (BizModel::Device::deviceConfig()).
///   Further packets of a long answer, and all packets of a long write, have
///   SSProxy::DeviceRequestCommand::defaultTimeout (10 s) each.
/// - **Thread:** any thread, several at once, except the channels' own. There an operation fails
///   with status 261.
/// - **Control:** a device accepts writes from one client at a time. It refuses the writes of
/// others
///   with status 67.
/// - **Lists:** a write sends all records of its list in one command and gets one answer. An empty
///   list is sent as "[]". A read appends to the caller's list.
/// - **Model:** an operation does not change the model unless its documentation says so. A change
/// on
///   the device reaches the model by a report of the device (see AutoReportManager) or by the next
///   synchronisation (see DeviceList).
/// - **Device without a channel:** every write succeeds and nothing is sent. Every read gets an
/// empty
///   body: a record then fails to decode, the content of a file is empty.

/// The request path: sends one request to a device and reports the outcome.
///
/// All operations of the control classes use it. Applications need it only for commands that no
/// operation covers, and for the names of commands and statuses.
///
/// The three overloads of sendSyncRequest() follow the contract of all \ref operations. They log
/// each exchange under the category \c tavoro.control and show its outcome on the status bar, by
/// the signals of BizModel::DeviceList. They send nothing twice, and they do not undo what was sent
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
    /// holds what was received before; it is unchanged if that is nothing. Without a channel \a
    /// result is empty.
    bool sendSyncRequest(std::weak_ptr<BizModel::Device> device,
                         std::shared_ptr<SSProxy::DeviceRequestCommand> request,
                         std::string &result, QString &error);

    /// Writes: sends \a request, in several packets if its body is longer than the \c maxPacketSize
    /// of the channel (in bytes).
    ///
    /// \a showSuccess decides whether the status bar shows a success; it shows every failure. The
    /// answer's body is dropped.
    bool sendSyncRequest(std::weak_ptr<BizModel::Device> device,
                         std::shared_ptr<SSProxy::DeviceRequestCommand> request, QString &error,
                         bool showSuccess);

    /// Reads packet by packet: passes each packet to \a callback as it arrives and holds at most
    /// one.
    ///
    /// The callback runs on the caller's thread. Its arguments are: \c ok; the share received,
    /// above 0 and at most 1; the bytes of this packet; the error text. \c ok false ends the read.
    /// The read also ends, with "The device is controlled by others." or "Operation has been
    /// cancelled." in \c error, when another client takes control of the device and after
    /// setCancelledState(true). The status bar does not show these two. An empty \a callback throws
    /// \c std::bad_function_call.
    bool sendSyncRequest(
        std::weak_ptr<BizModel::Device> device,
        std::shared_ptr<SSProxy::DeviceRequestCommand> request,
        std::function<void(bool ok, double progress, const std::string &data, QString &error)>
            callback);

    /// Cancels reads with a callback: a running one ends at its next packet, later ones at once.
    /// The state lasts until a call with false. Any thread; returns at once.
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
