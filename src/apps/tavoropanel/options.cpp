#include "options.h"

#include <programhelp/optionrecorder.h>

#include <QCommandLineParser>
#include <QCoreApplication>

namespace Tavoro::Panel {

namespace {

constexpr int wrongUsage = 2;

QString optionText(const char *text)
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
    parser.setApplicationDescription(optionText(TEXT("Operates networked video processors.")));
    parser.addOption({help, optionText(TEXT("Shows this help."))});
    parser.addOption({version, optionText(TEXT("Shows the version."))});
    parser.addOption({demo,
                      optionText(TEXT("Starts with a simulated device. Other devices are "
                                      "neither opened nor stored."))});
    parser.addOption({theme, optionText(TEXT("Colours: dark, light or system.")),
                      QStringLiteral("dark|light|system")});
    parser.addOption(
        {store, optionText(TEXT("File that keeps the devices.")), QStringLiteral("FILE")});
}

} // namespace

Options readOptions(const QStringList &arguments)
{
    QCommandLineParser parser;
    describe(parser);
    parser.addPositionalArgument(QStringLiteral("DEVICE"),
                                 optionText(TEXT("Devices to open: HOST or HOST:PORT.")), usage);

    Options options;
    const bool isParsed = parser.parse(arguments);
    options.isDemo = parser.isSet(demo);
    options.theme = parser.value(theme);
    options.store = parser.value(store);
    options.devices = parser.positionalArguments();
    if (!isParsed)
        options.text = parser.errorText();
    else if (!isTheme(options.theme))
        options.text = optionText(TEXT("\"%1\" is not a theme; use dark, light or system."))
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
    program.details = optionText(TEXT("DEVICE is a device to open: HOST or HOST:PORT."));
    program.statuses = {{0, optionText(TEXT("The window was closed."))},
                        {wrongUsage, optionText(TEXT("The command line is not valid."))}};
    program.seeAlso = {QStringLiteral("tavoroctl"), QStringLiteral("tavorosim")};
    return program;
}

#undef TEXT

} // namespace Tavoro::Panel
