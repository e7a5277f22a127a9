#include "changes.h"

#include <tavorobizmodel/device.h>

#include <QUndoStack>

#include <utility>

namespace Tavoro::Panel {

namespace {

constexpr int mostSteps = 500;

/// True if the device has carried the call out, or may have done so.
bool mayHaveChanged(const Outcome &outcome)
{
    return outcome.kind() == Outcome::Done || outcome.kind() == Outcome::Unknown;
}

} // namespace

Changes::Changes(Messages &messages, QObject *parent)
    : QObject(parent), m_messages(messages), m_steps(new QUndoStack(this))
{
    m_steps->setUndoLimit(mostSteps);
    connect(m_steps, &QUndoStack::indexChanged, this, &Changes::stepsChanged);
}

Changes::~Changes() = default;

// Calls

PendingCall<Answer<std::string>>
Changes::callLatestByName(const QString &key, DeviceSession &device, const Write &write)
{
    const Started started = start(device, write, makeStep());
    return watch(
        started,
        device.callLatestByName(key, write.operation, {Operations::jsonText(write.argument)}));
}

std::shared_ptr<Changes::OpenStep> Changes::stepOf(const QString &key)
{
    std::shared_ptr<OpenStep> &step = m_openSteps[key];
    if (!step)
        step = std::make_shared<OpenStep>();
    return step;
}

/// A step of a single call.
std::shared_ptr<Changes::OpenStep> Changes::makeStep()
{
    auto step = std::make_shared<OpenStep>();
    step->isFinished = true;
    return step;
}

/// Finds out what undoes the write, and notes its values. Called before it is sent.
Changes::Started Changes::start(DeviceSession &device, const Write &write,
                                const std::shared_ptr<OpenStep> &step)
{
    Started started{write, step, ++m_lastWrite};
    step->device = &device;
    ++step->callsUnderWay;
    const UndoOperation *const row = findUndoOperation(write.operation);
    const auto model = device.device();
    if (!row || !model)
        return started;
    if (step->text.isEmpty()) {
        step->text = row->stepText();
        step->back = row->reversed({*model, m_known}, write);
    }
    const QJsonArray records = row->recordsIn(write.argument);
    for (const auto &record : records)
        m_known.note(*model, row->kind, record.toObject(), started.number);
    return started;
}

void Changes::end(const Started &started, const Outcome &outcome)
{
    m_messages.report(outcome);
    const auto forget = [this, number = started.number] {
        m_known.forget(number);
    };
    if (mayHaveChanged(outcome))
        started.step->again = started.write;
    if (outcome && started.step->device)
        started.step->device->modelUpdate().then(this, [forget](bool) { forget(); });
    else
        forget();
    --started.step->callsUnderWay;
    addIfComplete(*started.step);
}

void Changes::finish(const QString &key)
{
    if (const auto step = m_openSteps.take(key)) {
        step->isFinished = true;
        addIfComplete(*step);
    }
}

void Changes::addIfComplete(const OpenStep &step)
{
    if (!step.device || !step.isFinished || step.callsUnderWay > 0 || !step.back || !step.again)
        return;
    const bool isChanged = step.back->operation != step.again->operation
        || step.back->argument != step.again->argument;
    if (isChanged)
        push(std::make_unique<UndoStep>(*step.device, step.text, *step.back, *step.again));
}

// Steps

void Changes::push(std::unique_ptr<UndoStep> step)
{
    if (m_isMoving) {
        m_waiting.push_back(std::move(step));
        return;
    }
    watchState(*step->device());
    m_steps->push(step.release());
    Q_EMIT stepsChanged();
}

/// The texts of steps say whether their device is connected.
void Changes::watchState(DeviceSession &device)
{
    connect(&device, &DeviceSession::stateChanged, this, &Changes::stepsChanged,
            Qt::UniqueConnection);
    connect(&device, &QObject::destroyed, this, &Changes::stepsChanged, Qt::UniqueConnection);
}

const UndoStep *Changes::stepAt(int index) const
{
    return static_cast<const UndoStep *>(m_steps->command(index));
}

bool Changes::canUndo() const
{
    return !m_isMoving && m_steps->canUndo();
}

bool Changes::canRedo() const
{
    return !m_isMoving && m_steps->canRedo();
}

QString Changes::undoText() const
{
    return m_steps->canUndo() ? stepAt(m_steps->index() - 1)->description() : QString();
}

QString Changes::redoText() const
{
    return m_steps->canRedo() ? stepAt(m_steps->index())->description() : QString();
}

void Changes::undo()
{
    if (canUndo())
        move(m_steps->index() - 1, {&UndoStep::back, &QUndoStack::undo});
}

void Changes::redo()
{
    if (canRedo())
        move(m_steps->index(), {&UndoStep::again, &QUndoStack::redo});
}

void Changes::move(int index, const Direction &direction)
{
    const UndoStep &step = *stepAt(index);
    if (!step.device())
        return dropClosed(index, direction);
    m_isMoving = true;
    Q_EMIT stepsChanged();
    const Write &write = (step.*direction.write)();
    const Started started = start(*step.device(), write, std::make_shared<OpenStep>());
    step.device()
        ->callByName(write.operation, {Operations::jsonText(write.argument)})
        .then(this, [=](const Outcome &outcome) {
            end(started, outcome);
            endMove(direction, mayHaveChanged(outcome));
        });
}

void Changes::endMove(const Direction &direction, bool isDone)
{
    if (isDone)
        (m_steps->*direction.move)();
    m_isMoving = false;
    for (std::unique_ptr<UndoStep> &step : std::exchange(m_waiting, {}))
        push(std::move(step));
    Q_EMIT stepsChanged();
}

/// A device that was closed cannot be changed any more: its step goes.
void Changes::dropClosed(int index, const Direction &direction)
{
    const UndoStep &step = *stepAt(index);
    m_messages.report(Severity::Error,
                      tr("\"%1\" cannot be undone or redone: the device is no longer open.")
                          .arg(step.description()),
                      step.deviceName());
    const_cast<QUndoCommand *>(m_steps->command(index))->setObsolete(true);
    (m_steps->*direction.move)();
    Q_EMIT stepsChanged();
}

} // namespace Tavoro::Panel
