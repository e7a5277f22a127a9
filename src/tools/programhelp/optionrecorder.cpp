#include "optionrecorder.h"

#include "texts.h"

#include <QStringList>

namespace Tavoro::Help {

void OptionRecorder::setApplicationDescription(const QString &description)
{
    m_program.summary = description.section(QLatin1Char('\n'), 0, 0);
    if (m_program.summary.endsWith(QLatin1Char('.')))
        m_program.summary.chop(1);
    m_program.details = description.section(QLatin1Char('\n'), 1).trimmed();
}

void OptionRecorder::addHelpOption()
{
    m_program.options += {QStringLiteral("help"), {}, Texts::tr("Show the help.")};
}

void OptionRecorder::addVersionOption()
{
    m_program.options +=
        {QStringLiteral("version"), {}, Texts::tr("Show the version of the program.")};
}

bool OptionRecorder::addOption(const QCommandLineOption &option)
{
    m_program.options += {option.names().last(), option.valueName(), option.description()};
    return true;
}

} // namespace Tavoro::Help
