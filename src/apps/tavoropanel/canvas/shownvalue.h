#pragma once

#include <QtGlobal>

#include <optional>
#include <utility>

namespace Tavoro::Panel {

/// A value that the operator changes and that the device model follows later. Shows what was sent
/// until the model has it, or until the device has refused it.
///
/// While a drag lasts, older values still arrive from the device; they are not shown.
template <class Value>
class ShownValue {
public:
    /// What to show.
    const Value &shown() const { return m_sent ? *m_sent : m_actual; }
    /// True for the number of the value that was sent last.
    bool isLast(quint64 number) const { return number == m_lastNumber; }

    /// The device model holds this value now.
    void setActual(Value value) { m_actual = std::move(value); }
    /// A value was sent. Returns its number.
    quint64 send(Value value)
    {
        m_sent = std::move(value);
        return ++m_lastNumber;
    }
    /// Shows what the model holds, unless a newer value was sent than the one with this number.
    void followAfter(quint64 number)
    {
        if (isLast(number))
            m_sent.reset();
    }
    /// Shows what the model holds.
    void follow() { m_sent.reset(); }

private:
    Value m_actual{};
    std::optional<Value> m_sent;
    quint64 m_lastNumber = 0;
};

} // namespace Tavoro::Panel
