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
    /// What the device model holds.
    const Value &actual() const { return m_actual; }
    /// True for the number of the value that was sent last.
    bool isLast(quint64 number) const { return number == m_lastNumber; }
    /// True if the model does not have the shown value yet.
    bool isAwaited() const { return m_sent.has_value(); }

    /// The device model holds this value now.
    void setActual(Value value)
    {
        m_actual = std::move(value);
        settle();
    }
    /// A value was sent. Returns its number.
    quint64 send(Value value)
    {
        m_sent = std::move(value);
        m_isConfirmed = false;
        return ++m_lastNumber;
    }
    /// The device has accepted the value with this number. The model has it after the next read.
    void confirm(quint64 number)
    {
        if (!isLast(number))
            return;
        m_isConfirmed = true;
        settle();
    }
    /// Shows what the model holds, unless a newer value was sent.
    void drop(quint64 number)
    {
        if (isLast(number))
            m_sent.reset();
    }
    /// Shows what the model holds.
    void drop() { m_sent.reset(); }

private:
    void settle()
    {
        if (m_isConfirmed && m_sent && *m_sent == m_actual)
            m_sent.reset();
    }

    Value m_actual{};
    std::optional<Value> m_sent;
    bool m_isConfirmed = false;
    quint64 m_lastNumber = 0;
};

} // namespace Tavoro::Panel
