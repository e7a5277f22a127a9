#pragma once

#include <tavorossproxy/devicecommand.h>

#include <QString>

#include <array>
#include <memory>
#include <string>

namespace Tavoro::BizModel {
class Device;
}

namespace Tavoro::Control::Internal {

enum class Verb {
    Get,
    Set,
};

/// Why a packet did not come back well.
enum class Failure {
    None,
    NoDevice,
    Offline,
    NullResponse,
    Status,
};

/// Place of a packet in a split exchange, for the log. None: not told.
///
/// Kept: counted from 0 in reads and from 1 in writes.
struct PacketCount {
    quint32 packet = 0;
    quint32 total = 0;
};

/// What one exchange says to the log and to the user. Makes each text once, shows it and logs it; a
/// success that neither listens to is not put into words.
///
/// Lives on the stack of one call, on the caller's thread.
class Exchange {
public:
    /// Reads the codes and the argument bytes of \a request once: a channel may change it. The tag
    /// is read anew for each line, since a channel assigns it when it sends.
    Exchange(Verb verb, const SSProxy::DeviceRequestCommand &request);

    quint8 baseCode() const { return m_BC; }
    quint8 functionCode() const { return m_FC; }

    /// Names the device in every line from now on.
    void setDevice(const BizModel::Device &device) { m_device = &device; }

    void logRequest() const;
    void logMissingChannel() const;

    /// Log, then status bar. \a error gets the sentence. Always false.
    bool fail(Failure failure, quint16 status, QString &error, PacketCount count = {}) const;
    /// A write that the device refused. Shown before it is logged, with a message box if the
    /// device's data has changed; a packet of a split write leaves the bare reason in \a error.
    /// Always false.
    bool failWrite(quint16 status, QString &error) const;
    bool failSplitWrite(quint16 status, QString &error, PacketCount count) const;

    /// Always true. \a content is logged if it is JSON; \a onePacket words the line.
    bool succeedRead(quint8 responseType, const std::string &content, bool onePacket) const;
    bool succeedWrite(bool show) const;

private:
    QString label() const;
    QString failureSentence(const QString &reason) const;
    QString successSentence() const;
    void logFailure(const QString &text, PacketCount count) const;
    void reportWriteFailure(const QString &reason, quint16 status) const;
    QString labelled(const char *words) const;
    QString codes() const;
    QString lables() const;

    const Verb m_verb;
    const SSProxy::DeviceRequestCommand &m_request;
    const quint8 m_BC;
    const quint8 m_FC;
    const std::array<quint8, 4> m_arg2;
    const BizModel::Device *m_device = nullptr;
};

/// Log and text of a call without a request. Always false.
bool refuseMissingRequest(QString &error);

} // namespace Tavoro::Control::Internal
