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

/// The one door through which every operation reaches a device.
///
/// Applications rarely need it: the control classes wrap it. It is public for commands that no
/// operation covers yet, and for the two vocabularies, commandLabel() and errorText().
///
/// All three overloads of sendSyncRequest() block the caller until the device has answered or the
/// time of the device's timeout table has run out; the further packets of a read and all packets of
/// a split write have DeviceRequestCommand::defaultTimeout each. They may be called from any
/// thread but the channels' own, several at once. They log each exchange under the category \c
/// tavoro.control, and show its outcome on the status bar through the signals of
/// BizModel::DeviceList. A device without a channel counts as done: true, and nothing is sent.
/// Nothing is ever sent twice, and what was sent before a failure is not taken back.
class TAVOROCONTROL_EXPORT ControlHelper : public QObject {
    Q_OBJECT

public:
    ControlHelper();
    ~ControlHelper() override;

    /// Reads: sends \a request and gathers the answer, of however many packets, in \a result.
    ///
    /// The timeout of \a request is overridden by the device's table. On failure \a error holds the
    /// sentence shown to the user, and \a result what had arrived; if not even the first packet
    /// came, it is left alone. On success \a error is left alone. Without a channel \a result is
    /// empty.
    bool sendSyncRequest(std::weak_ptr<BizModel::Device> device,
                         std::shared_ptr<SSProxy::DeviceRequestCommand> request,
                         std::string &result, QString &error);

    /// Writes: sends \a request, in several packets if its body is longer than the channel's \c
    /// maxPacketSize.
    ///
    /// \a showSuccess decides whether success is shown on the status bar; failure always is. On
    /// failure \a error holds the sentence, for a split write whose packet was refused the bare
    /// reason. On success \a error is left alone.
    bool sendSyncRequest(std::weak_ptr<BizModel::Device> device,
                         std::shared_ptr<SSProxy::DeviceRequestCommand> request, QString &error,
                         bool showSuccess);

    /// Reads packet by packet: \a callback gets each packet as it arrives, on the caller's thread,
    /// and nothing is gathered.
    ///
    /// Its arguments: \c ok; the share done, from above 0 to 1; the packet's bytes; the error text.
    /// \c ok false ends the read. The read ends too when another client gets control of the device
    /// or setCancelledState() was called, and does not begin while one has it. An empty \a callback
    /// throws \c std::bad_function_call.
    bool sendSyncRequest(
        std::weak_ptr<BizModel::Device> device,
        std::shared_ptr<SSProxy::DeviceRequestCommand> request,
        std::function<void(bool ok, double progress, const std::string &data, QString &error)>
            callback);

    /// Stops a read with a callback at its next packet, from any thread. Stays set until it is
    /// called with false.
    void setCancelledState(bool cancelled);

    /// Name of the command with these codes, translated; "N/A" for one without a name.
    static QString commandLabel(quint8 BC, quint8 FC);
    /// What a response's status means, translated; "N/A" for one without a text.
    static QString errorText(quint16 status);

private:
    std::atomic<bool> m_cancelled{false};
};

} // namespace Tavoro::Control
