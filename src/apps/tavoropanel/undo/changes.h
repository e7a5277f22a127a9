#pragma once

#include "undostep.h"

#include <tavoropanel/messages/messages.h>

#include <tavorocontrol/proto/codec.h>
#include <tavorooperations/jsontext.h>
#include <tavorooperations/operation.h>
#include <tavorosession/devicesession.h>

#include <QHash>
#include <QObject>
#include <QPointer>
#include <QString>

#include <memory>
#include <optional>
#include <string>
#include <type_traits>
#include <vector>

QT_BEGIN_NAMESPACE
class QUndoStack;
QT_END_NAMESPACE

namespace Tavoro::Panel {

/// The changes that the operator makes. Parts of the window call writes through this object, which
/// reports their failures in the messages. If the table of undoable operations has the operation,
/// the change can be undone: by writing what the device had before.
///
/// A change becomes a step when the device has carried it out, or may have done so. Undoing and
/// redoing are writes as well: the step moves when the device has carried them out, and stays where
/// it was if they fail. One of them is under way at a time.
class Changes : public QObject {
    Q_OBJECT

public:
    explicit Changes(Messages &messages, QObject *parent = nullptr);
    ~Changes() override;

    /// Calls a write on a device, see DeviceSession::call(), and adds a step.
    template <class Control, class Parameter>
    PendingCall<Outcome> call(DeviceSession &device,
                              bool (Control::*operation)(Parameter, QString &),
                              const SessionInternal::Value<Parameter> &records)
    {
        const Started started = start(device, writeOf(operation, records), makeStep());
        return watch(started, device.call(operation, records));
    }

    /// Does the same for values that change continuously, such as a rectangle that is dragged, see
    /// DeviceSession::callLatest(). Calls with the same \a key are one step until finish().
    template <class Control, class Parameter>
    PendingCall<Outcome> callLatest(const QString &key, DeviceSession &device,
                                    bool (Control::*operation)(Parameter, QString &),
                                    const SessionInternal::Value<Parameter> &records)
    {
        const Started started = start(device, writeOf(operation, records), stepOf(key));
        return watch(started, device.callLatest(key, operation, records));
    }

    /// Calls a write by its name, see DeviceSession::callLatestByName(), and adds a step for each
    /// call that is carried out.
    PendingCall<Answer<std::string>> callLatestByName(const QString &key, DeviceSession &device,
                                                      const Write &write);

    /// Ends the step that the calls with this key make, for example when a drag ends.
    void finish(const QString &key);

    /// \name Steps
    /// @{

    /// Whether there is a step that can be undone now; false while another one is under way.
    bool canUndo() const;
    /// Whether there is a step that can be redone now.
    bool canRedo() const;
    /// True while a step is being undone or redone.
    bool isMoving() const { return m_isMoving; }
    /// The next step to be undone or redone, in words; empty if there is none.
    QString undoText() const;
    QString redoText() const;
    /// The steps, for views. Do not undo with its members.
    const QUndoStack &steps() const { return *m_steps; }

public Q_SLOTS:
    /// Writes what the device had before the last change. A failure is reported in the messages.
    void undo();
    /// Makes the change again that was undone last.
    void redo();
    /// @}

Q_SIGNALS:
    /// canUndo(), canRedo() or a text has changed.
    void stepsChanged();

private:
    /// The calls of which one step is made.
    struct OpenStep {
        QPointer<DeviceSession> device;
        QString text; ///< Empty until the first call of an operation that can be undone.
        std::optional<Write> back; ///< Undoes the first call.
        std::optional<Write> again; ///< The last call that was carried out.
        int callsUnderWay = 0;
        bool isFinished = false; ///< No more calls follow.
    };
    /// A call that was started.
    struct Started {
        Write write;
        std::shared_ptr<OpenStep> step;
        quint64 number = 0;
    };
    /// Which write a move of the stack sends, and how the stack is moved afterwards.
    struct Direction {
        const Write &(UndoStep::*write)() const;
        void (QUndoStack::*move)();
    };

    template <class Member, class Records>
    static Write writeOf(Member operation, const Records &records)
    {
        const auto row = Operations::find(operation);
        std::string text;
        if constexpr (std::is_arithmetic_v<Records>)
            text = std::to_string(records);
        else
            ajson::encodeRecord(records, text);
        return {row ? row->name() : QString(), Operations::jsonValue(text)};
    }

    template <class Result>
    PendingCall<Result> watch(const Started &started, PendingCall<Result> call)
    {
        call.then(this, [this, started](const Outcome &outcome) { end(started, outcome); });
        return call;
    }

    std::shared_ptr<OpenStep> stepOf(const QString &key);
    static std::shared_ptr<OpenStep> makeStep();
    Started start(DeviceSession &device, const Write &write, const std::shared_ptr<OpenStep> &step);
    void end(const Started &started, const Outcome &outcome);
    void addIfComplete(const OpenStep &step);
    void push(std::unique_ptr<UndoStep> step);
    void watchState(DeviceSession &device);
    const UndoStep *stepAt(int index) const;
    void move(int index, const Direction &direction);
    void endMove(const Direction &direction, bool isDone);
    void dropClosed(int index, const Direction &direction);

    Messages &m_messages;
    QUndoStack *const m_steps;
    KnownRecords m_known;
    QHash<QString, std::shared_ptr<OpenStep>> m_openSteps;
    std::vector<std::unique_ptr<UndoStep>> m_waiting; ///< Made while a step is being moved.
    quint64 m_lastWrite = 0;
    bool m_isMoving = false; ///< A step is being undone or redone.
};

} // namespace Tavoro::Panel
