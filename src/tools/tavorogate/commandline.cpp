#include "commandline.h"

#include <programhelp/helptext.h>
#include <programhelp/optionrecorder.h>

#include <QCommandLineParser>

namespace Tavoro::Gate {

namespace {

const QString configOption = QStringLiteral("config");
const QString checkOption = QStringLiteral("check-config");
const QString usualConfig = QStringLiteral("/etc/tavorogate/tavorogate.json");

/// Declares what the program takes for \a parser, which parses or records it.
template <class Parser>
void describe(Parser &parser)
{
    parser.setApplicationDescription(
        QStringLiteral("Connects video processors to an MQTT broker\n"
                       "It publishes the state of the devices, and carries out calls.\n"
                       "docs/gateway.md describes the topics and the configuration file."));
    parser.addHelpOption();
    parser.addVersionOption();
    parser.addOption({configOption,
                      QStringLiteral("Read the configuration from FILE (%1).").arg(usualConfig),
                      QStringLiteral("FILE"), usualConfig});
    parser.addOption({checkOption, QStringLiteral("Check the configuration file and end.")});
}

} // namespace

CommandLine parseCommandLine(const QStringList &arguments)
{
    QCommandLineParser parser;
    describe(parser);
    CommandLine line;
    line.isValid = parser.parse(arguments);
    line.configFile = parser.value(configOption);
    line.onlyChecks = parser.isSet(checkOption);
    if (!line.isValid) {
        line.text = QStringLiteral("tavorogate: ") + parser.errorText();
    } else if (parser.isSet(QStringLiteral("help"))) {
        line.text = Help::helpText(describeProgram());
    } else if (parser.isSet(QStringLiteral("version"))) {
        line.text = QStringLiteral("tavorogate " TAVORO_VERSION);
    } else if (!parser.positionalArguments().isEmpty()) {
        line.isValid = false;
        line.text = QStringLiteral("tavorogate: \"%1\" is not an option.")
                        .arg(parser.positionalArguments().at(0));
    }
    return line;
}

Help::Program describeProgram()
{
    Help::OptionRecorder recorder;
    describe(recorder);
    Help::Program &program = recorder.program();
    program.name = QStringLiteral("tavorogate");
    program.version = QStringLiteral(TAVORO_VERSION);
    program.statuses = {
        {0, QStringLiteral("The gateway was stopped, or the configuration is valid.")},
        {1, QStringLiteral("The configuration is not valid.")},
        {2, QStringLiteral("The command line is not valid.")}};
    program.seeAlso = {QStringLiteral("tavoroctl"), QStringLiteral("tavorosim")};
    return program;
}

} // namespace Tavoro::Gate
