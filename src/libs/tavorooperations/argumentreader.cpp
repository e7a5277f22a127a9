#include "argumentreader_p.h"

#include "texts_p.h"

#include <QRegularExpression>

namespace Tavoro::Operations::Internal {

namespace {

/// Also true for a number that is too large for any type.
bool isWholeNumber(const QString &text)
{
    static const QRegularExpression form(QStringLiteral("^[+-]?\\d+$"));
    return form.match(text).hasMatch();
}

} // namespace

void ArgumentReader::read(QString &text)
{
    text = take(Texts::tr("a text is missing"));
}

QString ArgumentReader::fault() const
{
    if (!m_fault.isEmpty() || m_taken == m_arguments.size())
        return m_fault;
    return Texts::tr("argument %1: unexpected \"%2\"")
        .arg(m_taken + 1)
        .arg(m_arguments.at(m_taken));
}

QString ArgumentReader::take(const QString &whenMissing)
{
    ++m_taken;
    if (m_taken <= m_arguments.size())
        return m_arguments.at(m_taken - 1);
    setFault(whenMissing);
    return {};
}

qint64 ArgumentReader::takeNumber(qint64 least, qint64 most)
{
    const QString text = take(Texts::tr("a number is missing"));
    bool ok = false;
    const qint64 number = text.toLongLong(&ok);
    if (!ok && !isWholeNumber(text))
        setFault(Texts::tr("\"%1\" is not a number").arg(text));
    else if (!ok || number < least || number > most)
        setFault(Texts::tr("%1 is not between %2 and %3").arg(text).arg(least).arg(most));
    return number;
}

void ArgumentReader::setFault(const Fault &fault)
{
    if (m_fault.isEmpty() && !fault.isEmpty())
        m_fault = Texts::tr("argument %1: %2").arg(m_taken).arg(fault);
}

} // namespace Tavoro::Operations::Internal
