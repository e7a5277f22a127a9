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

/// Reports the outcome of one exchange to the caller, the log and the status bar. Makes each text
/// once, and only if it is logged or shown.
///
/// Lives on the stack of one call, on the caller's thread.
class ExchangeReporter {
public:
    /// Copies the codes and the argument bytes of \a request, since a channel may change them. The
    /// tag is read again for each log line, since the channel assigns it when it sends.
    ExchangeReporter(Verb verb, const SSProxy::DeviceRequestCommand &request);

    quint8 baseCode() const { return m_BC; }
    quint8 functionCode() const { return m_FC; }

    /// Sets the device that further log lines name.
    void setDevice(const BizModel::Device &device) { m_device = &device; }

    void logRequest() const;
    void logMissingChannel() const;

    /// Logs a failure, then shows it on the status bar. \a error gets the text that is shown.
    /// Always returns false.
    bool fail(const Reply &reply, QString &error, PacketCount count = {}) const;
    /// Reports a write that the device refused: shows it, with a message box if the device's data
    /// has changed, then logs it. \a error gets the text that is shown. Always returns false.
    bool failWrite(quint16 status, QString &error) const;
    /// Does the same for a packet of a split write. \a error gets only the reason.
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

/// Logs a call with a null request. \a error gets the text. Always returns false.
bool refuseMissingRequest(QString &error);

} // namespace Tavoro::Control::Internal
