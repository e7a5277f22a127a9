#pragma once

#include "recordargument.h"

#include <QString>
#include <QStringList>

#include <limits>
#include <type_traits>

namespace Tavoro::Ctl {

/// Reads the words of a call, one after the other.
class ArgumentReader {
public:
    explicit ArgumentReader(const QStringList &arguments) : m_arguments(arguments) { }

    /// A filter of a read: -1, which restricts nothing, or a byte.
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
            tell(readRecord(text, record));
    }

    /// The first thing that was wrong, words that are left over included; empty if nothing was.
    QString fault() const;

private:
    /// The next word, empty if there is none; \a due is what should stand there.
    QString take(const QString &due);
    qint64 takeNumber(qint64 least, qint64 most);
    void tell(const Fault &fault);

    const QStringList &m_arguments;
    int m_taken = 0;
    QString m_fault;
};

} // namespace Tavoro::Ctl
