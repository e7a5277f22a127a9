#pragma once

#include "recordargument_p.h"
#include "texts_p.h"

#include <QString>
#include <QStringList>

#include <limits>
#include <type_traits>

namespace Tavoro::Operations::Internal {

template <class Value>
constexpr bool isNumber = std::is_integral_v<Value> || std::is_enum_v<Value>;

/// The range of a number in a call.
template <class Number, bool isEnum = std::is_enum_v<Number>>
struct NumberRange : NumberRange<std::underlying_type_t<Number>> { };
template <class Number>
struct NumberRange<Number, false> {
    static constexpr qint64 least = std::numeric_limits<Number>::min();
    static constexpr qint64 most = std::numeric_limits<Number>::max();
};
/// A filter of a read: a byte, or -1 for no restriction.
template <>
struct NumberRange<int, false> {
    static constexpr qint64 least = -1;
    static constexpr qint64 most = 255;
};

/// Reads the arguments of a call, one after the other.
class ArgumentReader {
public:
    ArgumentReader(const QStringList &arguments, MissingKeys missing)
        : m_arguments(arguments), m_missing(missing)
    { }

    void read(QString &text);

    template <class Number, std::enable_if_t<isNumber<Number>, int> = 0>
    void read(Number &number)
    {
        number =
            static_cast<Number>(takeNumber(NumberRange<Number>::least, NumberRange<Number>::most));
    }

    template <class Record, std::enable_if_t<std::is_class_v<Record>, int> = 0>
    void read(Record &record)
    {
        const std::string text = take(Texts::tr("a record is missing")).toStdString();
        if (m_fault.isEmpty())
            setFault(readRecord(text, record, m_missing, m_lacksKeys));
    }

    /// The first fault, arguments that are left over included; empty if there is none.
    QString fault() const;
    /// Whether that fault is that keys are missing.
    bool lacksKeys() const { return m_lacksKeys; }

private:
    /// The next argument. If there is none, the fault is \a whenMissing.
    QString take(const QString &whenMissing);
    qint64 takeNumber(qint64 least, qint64 most);
    void setFault(const Fault &fault);

    const QStringList &m_arguments;
    const MissingKeys m_missing;
    int m_taken = 0;
    bool m_lacksKeys = false;
    QString m_fault;
};

} // namespace Tavoro::Operations::Internal
