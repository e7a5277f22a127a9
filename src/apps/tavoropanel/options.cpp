#include "options.h"

#include <programhelp/optionrecorder.h>

#include <QCommandLineParser>
#include <QCoreApplication>

namespace Tavoro::Panel {

namespace {

constexpr int wrongUsage = 2;

QString translated(const char *text)
{
    return QCoreApplication::translate("Tavoro::Panel::Options", text);
}

bool isTheme(const QString &word)
{
    return word.isEmpty() || word == QLatin1String("dark") || word == QLatin1String("light")
        || word == QLatin1String("system");
}

#define TEXT(text) QT_TRANSLATE_NOOP("Tavoro::Panel::Options", text)

const QString help = QStringLiteral("help");
const QString version = QStringLiteral("version");
const QString demo = QStringLiteral("demo");
const QString theme = QStringLiteral("theme");
const QString store = QStringLiteral("store");
const QString usage = QStringLiteral("[DEVICE ...]");

/// Declares the options for a QCommandLineParser or an OptionRecorder.
template <class Parser>
void describe(Parser &parser)
{
    parser.setApplicationDescription(translated(TEXT("Operates networked video processors.")));
    parser.addOption({help, translated(TEXT("Shows this help."))});
    parser.addOption({version, translated(TEXT("Shows the version."))});
    parser.addOption({demo,
                      translated(TEXT("Starts with a simulated device. Other devices are "
                                      "neither opened nor stored."))});
    parser.addOption({theme, translated(TEXT("Colours: dark, light or system.")),
                      QStringLiteral("dark|light|system")});
    parser.addOption(
        {store, translated(TEXT("File that keeps the devices.")), QStringLiteral("FILE")});
}

} // namespace

Options readOptions(const QStringList &arguments)
{
    QCommandLineParser parser;
    describe(parser);
    parser.addPositionalArgument(QStringLiteral("DEVICE"),
                                 translated(TEXT("Devices to open: HOST or HOST:PORT.")), usage);

    Options options;
    const bool isParsed = parser.parse(arguments);
    options.isDemo = parser.isSet(demo);
    options.theme = parser.value(theme);
    options.store = parser.value(store);
    options.devices = parser.positionalArguments();
    if (!isParsed)
        options.text = parser.errorText();
    else if (!isTheme(options.theme))
        options.text = translated(TEXT("\"%1\" is not a theme; use dark, light or system."))
                           .arg(options.theme);
    if (!options.text.isEmpty())
        options.status = wrongUsage;
    else if (parser.isSet(help))
        options.text = parser.helpText().trimmed();
    else if (parser.isSet(version))
        options.text = QStringLiteral("tavoropanel " TAVORO_VERSION);
    return options;
}

Help::Program describeProgram()
{
    Help::OptionRecorder recorder;
    describe(recorder);
    Help::Program &program = recorder.program();
    program.name = QStringLiteral("tavoropanel");
    program.version = QStringLiteral(TAVORO_VERSION);
    program.usage = usage;
    program.details = translated(TEXT("DEVICE is a device to open: HOST or HOST:PORT."));
    program.statuses = {{0, translated(TEXT("The window was closed."))},
                        {wrongUsage, translated(TEXT("The command line is not valid."))}};
    program.seeAlso = {QStringLiteral("tavoroctl"), QStringLiteral("tavorosim")};
    return program;
}

} // namespace Tavoro::Panel
