#pragma once

#include "recordargument.h"

#include <QString>
#include <QStringList>

#include <limits>
#include <type_traits>

namespace Tavoro::Ctl {

/// Reads the arguments of a call, one after the other.
class ArgumentReader {
public:
    ArgumentReader(const QStringList &arguments, MissingKeys missing)
        : m_arguments(arguments), m_missing(missing)
    { }

    /// A filter of a read: a byte, or -1 for no restriction.
    void read(int &filter);
    void read(quint8 &number);
    void read(QString &text);

    template <class Enum, std::enable_if_t<std::is_enum_v<Enum>, int> = 0>
    void read(Enum &value)
    {
        using Limits = std::numeric_limits<std::underlying_type_t<Enum>>;
        value = static_cast<Enum>(takeNumber(Limits::min(), Limits::max()));
    }

    template <class Record, std::enable_if_t<std::is_class_v<Record>, int> = 0>
    void read(Record &record)
    {
        const std::string text = take(QStringLiteral("a record")).toStdString();
        if (m_fault.isEmpty())
            setFault(readRecord(text, record, m_missing));
    }

    /// The first fault, arguments that are left over included; empty if there is none.
    QString fault() const;

private:
    /// The next argument. If there is none, reports that \a expected is missing.
    QString take(const QString &expected);
    qint64 takeNumber(qint64 least, qint64 most);
    void setFault(const Fault &fault);

    const QStringList &m_arguments;
    const MissingKeys m_missing;
    int m_taken = 0;
    QString m_fault;
};

} // namespace Tavoro::Ctl
