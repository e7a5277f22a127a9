#include "outcome_p.h"
#include "texts_p.h"

namespace Tavoro {

using SessionInternal::OutcomeData;
using SessionInternal::OutcomeTexts;

namespace {

struct SentenceRow {
    Outcome::Kind kind;
    const char *sentence; ///< %1 is the device, %2 the operation, %3 the reason.
};

// clang-format off
constexpr SentenceRow sentences[] = {
    {Outcome::Done,    QT_TRANSLATE_NOOP("Tavoro::Outcome", "%1: %2 was carried out.")},
    {Outcome::Refused, QT_TRANSLATE_NOOP("Tavoro::Outcome", "%1: %2 was refused: %3.")},
    {Outcome::NotSent, QT_TRANSLATE_NOOP("Tavoro::Outcome", "%1: %2 was not sent: %3.")},
    {Outcome::Unknown, QT_TRANSLATE_NOOP("Tavoro::Outcome", "%1: %2 may or may not have been carried out: %3.")},
};
// clang-format on

constexpr char cancelled[] = QT_TRANSLATE_NOOP("Tavoro::Outcome", "%1: %2 was cancelled.");

QString sentenceOf(Outcome::Kind kind)
{
    for (const SentenceRow &row : sentences) {
        if (row.kind == kind)
            return OutcomeTexts::tr(row.sentence);
    }
    Q_ASSERT_X(false, "Outcome::text", "a kind without a sentence");
    return {};
}

} // namespace

Outcome SessionInternal::makeOutcome(const OutcomeData &data)
{
    return Outcome(QSharedDataPointer<OutcomeData>(new OutcomeData(data)));
}

Outcome::Outcome() : d(new OutcomeData) { }
Outcome::Outcome(QSharedDataPointer<OutcomeData> data) : d(std::move(data)) { }
Outcome::Outcome(const Outcome &other) = default;
Outcome::Outcome(Outcome &&other) noexcept = default;
Outcome &Outcome::operator=(const Outcome &other) = default;
Outcome &Outcome::operator=(Outcome &&other) noexcept = default;
Outcome::~Outcome() = default;

// clang-format off
Outcome::Kind Outcome::kind() const       { return d->kind; }
quint16       Outcome::status() const     { return d->status; }
QString       Outcome::reason() const     { return d->reason; }
QString       Outcome::deviceName() const { return d->deviceName; }
bool          Outcome::isReplaced() const { return d->isReplaced; }
bool          Outcome::isCanceled() const { return d->isCanceled; }
// clang-format on

QString Outcome::operation() const
{
    return d->operation.isEmpty() ? OutcomeTexts::tr("Request") : d->operation;
}

QString Outcome::text() const
{
    if (kind() == NotSent && isCanceled())
        return OutcomeTexts::tr(cancelled).arg(deviceName(), operation());
    const QString sentence = sentenceOf(kind());
    return kind() == Done ? sentence.arg(deviceName(), operation())
                          : sentence.arg(deviceName(), operation(), reason());
}

} // namespace Tavoro
