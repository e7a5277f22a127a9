#pragma once

#include <tavorosession/export.h>

#include <QMetaType>
#include <QSharedDataPointer>
#include <QString>

#include <utility>

namespace Tavoro {

namespace SessionInternal {
class OutcomeData;
}

/// What became of one call to a device. A value: cheap to copy, may be kept and used on any thread.
///
/// True means that the device has answered, and has carried the operation out:
/// \code
/// wall->call(&Control::Screen::writeTake, {effect}).then(this, [=](const Outcome &outcome) {
///     if (!outcome)
///         showError(outcome.text());
/// });
/// \endcode
class TAVOROSESSION_EXPORT Outcome {
public:
    /// What is known about the operation.
    enum Kind {
        Done, ///< The device has carried it out. Nothing but an answer of the device leads here.
        Refused, ///< The device has refused it. Nothing has changed on the device.
        NotSent, ///< The device has not received it, or not all of it, and will not receive it
                 ///< later. Nothing has changed on the device.
        Unknown, ///< The request was sent, but no valid answer was received, and the device could
                 ///< not say afterwards whether it has carried the operation out.
    };

    /// An outcome of the kind NotSent without a device and without a reason.
    Outcome();
    /// For the library, which makes all outcomes.
    explicit Outcome(QSharedDataPointer<SessionInternal::OutcomeData> data);
    /// Copies share their data.
    Outcome(const Outcome &other);
    /// Leaves \a other without data; only assign to it or destroy it.
    Outcome(Outcome &&other) noexcept;
    /// Copies share their data.
    Outcome &operator=(const Outcome &other);
    /// Leaves \a other with the data that this object had.
    Outcome &operator=(Outcome &&other) noexcept;
    ~Outcome();

    /// True if the kind is Done.
    explicit operator bool() const { return kind() == Done; }
    /// What is known about the operation.
    Kind kind() const;
    /// The status that decided the outcome: 0 if the device accepted, 1 to 255 if it refused, above
    /// 255 a SSProxy::ChannelStatus. Also 0 if there was no exchange with the device.
    quint16 status() const;
    /// Why the operation was not carried out, or why nothing is known, without a full stop; empty
    /// if it was carried out. Translated. If the device refused because another client controls it,
    /// the reason names that client.
    QString reason() const;
    /// The sentence for the user. It names the device and the operation. Translated.
    QString text() const;
    /// Name of the operation's command, translated, such as "screen take information"; "Request" if
    /// the command is not known.
    QString operation() const;
    /// Name of the device when the call ended, or its address if it has no name.
    QString deviceName() const;
    /// True if the call was not sent because callLatest() replaced it by a newer one with the same
    /// key. Its kind is NotSent. Applications do not report it to the user.
    bool isReplaced() const;
    /// True if the call ended because the application has cancelled it, see TrackedCall::cancel().
    /// Its kind is NotSent, or Unknown for an upgrade that the device had begun.
    bool isCanceled() const;

private:
    QSharedDataPointer<SessionInternal::OutcomeData> d;
};

/// The outcome of an operation that delivers a record, together with that record.
template <class Record>
class Answer : public Outcome {
public:
    /// An outcome of the kind NotSent with a default record.
    Answer() = default;
    /// For the library, which makes all answers.
    Answer(const Outcome &outcome, Record record)
        : Outcome(outcome), m_record(std::move(record)) { }

    /// What the device sent. Only valid if the outcome is Done; otherwise it may be incomplete.
    const Record &record() const { return m_record; }

private:
    Record m_record{};
};

} // namespace Tavoro

Q_DECLARE_METATYPE(Tavoro::Outcome)
