#pragma once

#include "packet_p.h"

#include <QString>

#include <array>
#include <string>

namespace Tavoro::BizModel {
class Device;
}

namespace Tavoro::Control::Internal {

enum class Verb {
    Get,
    Set,
};

/// Reports one exchange to the caller, the log and the status bar. Makes each text once; does not
/// make the text of a success that is neither logged nor shown.
///
/// Lives on the stack of one call, on the caller's thread.
class ExchangeReporter {
public:
    /// Reads the codes and the argument bytes of \a request once: a channel may change it. The tag
    /// is read again for each line, since a channel assigns it when it sends.
    ExchangeReporter(Verb verb, const SSProxy::DeviceRequestCommand &request);

    quint8 baseCode() const { return m_BC; }
    quint8 functionCode() const { return m_FC; }

    /// Names the device in every line that follows.
    void setDevice(const BizModel::Device &device) { m_device = &device; }

    void logRequest() const;
    void logMissingChannel() const;

    /// Logs a failure, then shows it on the status bar. \a error gets the sentence. Always returns
    /// false.
    bool fail(const Reply &reply, QString &error, PacketCount count = {}) const;
    /// Reports a write that the device refused: shows it, with a message box if the device's data
    /// has changed, then logs it. \a error gets the sentence. Always returns false.
    bool failWrite(quint16 status, QString &error) const;
    /// The same for a packet of a split write. \a error gets the bare reason.
    bool failSplitWrite(quint16 status, QString &error, PacketCount count) const;

    /// Logs \a content if \a responseType is JSON. Always returns true.
    bool succeedRead(quint8 responseType, const std::string &content, bool onePacket) const;
    /// Always returns true.
    bool succeedWrite(bool show) const;

private:
    QString label() const;
    QString failureSentence(const QString &reason) const;
    QString successSentence() const;
    void logFailure(const QString &text, PacketCount count) const;
    void showWriteFailure(const QString &reason, quint16 status) const;
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

/// Logs a call without a request. \a error gets the text. Always returns false.
bool refuseMissingRequest(QString &error);

} // namespace Tavoro::Control::Internal
