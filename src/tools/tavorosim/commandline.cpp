#include "commandline.h"

#include <programhelp/optionrecorder.h>
#include <tavorosim/console/console.h>
#include <tavorosim/console/scenario.h>
#include <tavorosim/faults/faulttable.h>
#include <tavorosim/state/numbers.h>
#include <tavorosim/state/texts.h>

#include <QAbstractSocket>
#include <QCommandLineParser>
#include <QLoggingCategory>

#include <algorithm>
#include <limits>

namespace Tavoro::Sim {

namespace {

#define TEXT(text) QT_TRANSLATE_NOOP("Sim", text)

/// Sets an option. False when the value is not valid; \a reason may then say what is.
using Setter = bool (*)(SimOptions &options, const QString &value, QString &reason);

struct OptionRow {
    const char *name;
    const char *valueName;
    const char *help;
    Setter set;
};

template <auto Member, qint64 Min, qint64 Max>
bool setNumber(SimOptions &options, const QString &value, QString &reason)
{
    const std::optional<qint64> number = toNumber(value);
    if (!number || *number < Min || *number > Max) {
        reason = Texts::tr("expected a number from %1 to %2").arg(Min).arg(Max);
        return false;
    }
    using Number = std::decay_t<decltype(options.*Member)>;
    options.*Member = static_cast<Number>(*number);
    return true;
}

template <auto Member>
bool setDigits(SimOptions &options, const QString &value, QString &reason)
{
    auto &bytes = options.*Member;
    const QByteArray digits = QString(value).remove(QLatin1Char(':')).toLatin1();
    const QByteArray read = QByteArray::fromHex(digits);
    if (static_cast<std::size_t>(read.size()) != bytes.size()
        || static_cast<std::size_t>(digits.size()) != 2 * bytes.size()) {
        reason = Texts::tr("expected %1 hexadecimal digits").arg(2 * bytes.size());
        return false;
    }
    std::copy(read.begin(), read.end(), bytes.begin());
    return true;
}

bool setAddress(SimOptions &options, const QString &value, QString &reason)
{
    reason = Texts::tr("expected an IP address");
    return options.address.setAddress(value);
}

bool setName(SimOptions &options, const QString &value, QString & /*reason*/)
{
    options.name = value;
    return !value.isEmpty();
}

bool setFilesFolder(SimOptions &options, const QString &value, QString & /*reason*/)
{
    options.filesFolder = value;
    return !value.isEmpty();
}

bool setScenario(SimOptions &options, const QString &value, QString &reason)
{
    options.scenario = value;
    return readScenario(value, reason).has_value();
}

bool addFault(SimOptions &options, const QString &value, QString &reason)
{
    const auto rule = parseFaultRule(value, reason);
    if (rule)
        options.faults.push_back(*rule);
    return rule.has_value();
}

// clang-format off
constexpr OptionRow optionRows[] = {
//   option               value      help                                                               setter
    {"address",           "ADDRESS", TEXT("Listen on ADDRESS (127.0.0.1)."),                            setAddress},
    {"port",              "PORT",    TEXT("Listen on PORT (6630); 0: any free port."),                  setNumber<&SimOptions::port, 0, 65535>},
    {"control-port",      "PORT",    TEXT("Console port, for this machine only; 0: any free port."),    setNumber<&SimOptions::controlPort, 0, 65535>},
    {"discovery",         "PORT",    TEXT("Answer discovery requests on this UDP port; 0: any free port. On a loopback address 6631 by default."),
                                                                                                        setNumber<&SimOptions::discoveryPort, 0, 65535>},
    {"name",              "NAME",    TEXT("Device name."),                                              setName},
    {"sn",                "DIGITS",  TEXT("Serial number, 16 hexadecimal digits."),                     setDigits<&SimOptions::sn>},
    {"mac",               "DIGITS",  TEXT("MAC address, 12 hexadecimal digits."),                       setDigits<&SimOptions::mac>},
    {"model",             "NUMBER",  TEXT("Model ID (0x7701)."),                                        setNumber<&SimOptions::modelId, 0, 65535>},
    {"packet-size",       "BYTES",   TEXT("Longest body of a packet in either direction (65536)."),     setNumber<&SimOptions::packetSize, 1, 64 << 20>},
    {"latency",           "MS",      TEXT("Delay each answer by MS milliseconds (0)."),                 setNumber<&SimOptions::latencyMilliseconds, 0, 600000>},
    {"clock-speed",       "PERCENT", TEXT("Clock speed of the device (100); 0: moved by \"pass\"."),    setNumber<&SimOptions::clockSpeed, 0, 100000>},
    {"files",             "DIR",     TEXT("Keep files and the saved setup in the folder DIR."),         setFilesFolder},
    {"fault",             "RULE",    TEXT("Inject a fault (see below); may be given several times."),   addFault},
    {"seed",              "NUMBER",  TEXT("Seed for random faults (1)."),                               setNumber<&SimOptions::seed, 0, 4294967295>},
    {"scenario",          "SCENE",   TEXT("Carry out a scenario (see below), or the one in the file SCENE."),  setScenario},
    {"inputs",            "COUNT",   TEXT("Input connectors (8), 1 to 4096."),                          setNumber<&SimOptions::inputs, 1, 4096>},
    {"outputs",           "COUNT",   TEXT("Output connectors (8), 1 to 4096."),                         setNumber<&SimOptions::outputs, 1, 4096>},
    {"screens",           "COUNT",   TEXT("Screens of all kinds (4), 0 to 255."),                       setNumber<&SimOptions::screens, 0, 255>},
    {"layers-per-screen", "COUNT",   TEXT("Layers in each of the two scenes of a screen (4), 0 to 256."),setNumber<&SimOptions::layersPerScreen, 0, 256>},
};
// clang-format on

constexpr quint16 usualPort = 6630;
constexpr quint16 usualDiscoveryPort = 6631;
const QString noDiscovery = QStringLiteral("no-discovery");

const QString faultRuleForm =
    QStringLiteral("FAULT[=VALUE][,code=CODE][,skip=N][,count=N][,share=PERCENT]");

/// Declares what the program takes for \a parser, which parses or records it.
template <class Parser>
void describe(Parser &parser)
{
    parser.setApplicationDescription(
        Texts::tr("A simulated video processor, for tests and demonstrations.")
        + QStringLiteral("\n\n")
        + Texts::tr("Console, one command per line on standard input or on the control port:")
        + QLatin1Char('\n') + consoleHelp() + QStringLiteral("  ")
        + Texts::tr("help, quit (standard input only)") + QStringLiteral("\n\n")
        + Texts::tr("RULE is %1. Faults:").arg(faultRuleForm) + QLatin1Char('\n') + faultHelp()
        + QLatin1Char('\n')
        + Texts::tr("Scenarios: %1.").arg(scenarioNames().join(QLatin1String(", "))));
    parser.addHelpOption();
    parser.addVersionOption();
    for (const OptionRow &row : optionRows)
        parser.addOption(
            {QLatin1String(row.name), Texts::tr(row.help), QLatin1String(row.valueName)});
    parser.addOption({noDiscovery, Texts::tr("Do not answer discovery requests.")});
    parser.addOption({QStringLiteral("log"), Texts::tr("Log each exchange on standard error.")});
    parser.addOption(
        {QStringLiteral("log-bodies"), Texts::tr("Log each exchange with its bodies.")});
}

/// Why the arguments are not valid; empty if they are.
QString readOptions(const QCommandLineParser &parser, SimOptions &options)
{
    for (const OptionRow &row : optionRows) {
        const QString name = QLatin1String(row.name);
        const QStringList values = parser.values(name);
        for (const QString &value : values) {
            QString reason;
            if (row.set(options, value, reason))
                continue;
            if (!reason.isEmpty())
                reason.prepend(QLatin1String(": "));
            return Texts::tr("\"%1\" is not a valid value for --%2%3.").arg(value, name, reason);
        }
    }
    if (!parser.positionalArguments().isEmpty())
        return Texts::tr("\"%1\" is not an option.").arg(parser.positionalArguments().at(0));
    return {};
}

/// A device that listens on this machine only can be found by default. One that listens on a
/// network appears there only on request.
void setUsualDiscovery(const QCommandLineParser &parser, SimOptions &options)
{
    if (parser.isSet(noDiscovery))
        options.discoveryPort = -1;
    else if (options.discoveryPort < 0 && options.address.isLoopback()
             && options.address.protocol() == QAbstractSocket::IPv4Protocol)
        options.discoveryPort = usualDiscoveryPort;
}

void enableLog(const QCommandLineParser &parser)
{
    if (parser.isSet(QStringLiteral("log-bodies")))
        QLoggingCategory::setFilterRules(QStringLiteral("tavoro.sim=true"));
    else if (parser.isSet(QStringLiteral("log")))
        QLoggingCategory::setFilterRules(QStringLiteral("tavoro.sim.info=true"));
}

} // namespace

CommandLine parseCommandLine(const QStringList &arguments)
{
    QCommandLineParser parser;
    describe(parser);
    CommandLine line;
    line.options.port = usualPort;
    line.isValid = parser.parse(arguments);
    if (!line.isValid) {
        line.text = QStringLiteral("tavorosim: ") + parser.errorText();
    } else if (parser.isSet(QStringLiteral("help"))) {
        line.text = parser.helpText();
    } else if (parser.isSet(QStringLiteral("version"))) {
        line.text = QStringLiteral("tavorosim " TAVORO_VERSION);
    } else {
        const QString fault = readOptions(parser, line.options);
        line.isValid = fault.isEmpty();
        if (!line.isValid)
            line.text = QStringLiteral("tavorosim: ") + fault;
        setUsualDiscovery(parser, line.options);
        enableLog(parser);
    }
    return line;
}

Help::Program describeProgram()
{
    Help::OptionRecorder recorder;
    describe(recorder);
    Help::Program &program = recorder.program();
    program.name = QStringLiteral("tavorosim");
    program.version = QStringLiteral(TAVORO_VERSION);
    program.statuses = {{0, Texts::tr("The device has ended.")},
                        {1, Texts::tr("The device cannot listen.")},
                        {2, Texts::tr("The command line is not valid.")}};
    program.seeAlso = {QStringLiteral("tavoroctl")};
    return program;
}

} // namespace Tavoro::Sim
