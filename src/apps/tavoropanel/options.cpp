#include "options.h"

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

} // namespace

#define TEXT(text) QT_TRANSLATE_NOOP("Tavoro::Panel::Options", text)

Options readOptions(const QStringList &arguments)
{
    QCommandLineParser parser;
    parser.setApplicationDescription(translated(TEXT("Operates networked video processors.")));
    const QCommandLineOption help(QStringLiteral("help"), translated(TEXT("Shows this help.")));
    const QCommandLineOption version(QStringLiteral("version"),
                                     translated(TEXT("Shows the version.")));
    const QCommandLineOption demo(
        QStringLiteral("demo"),
        translated(TEXT("Starts with a simulated device. Other devices are neither opened nor "
                        "stored.")));
    const QCommandLineOption theme(QStringLiteral("theme"),
                                   translated(TEXT("Colours: dark, light or system.")),
                                   QStringLiteral("THEME"));
    const QCommandLineOption store(QStringLiteral("store"),
                                   translated(TEXT("File that keeps the devices.")),
                                   QStringLiteral("FILE"));
    parser.addOptions({help, version, demo, theme, store});
    parser.addPositionalArgument(QStringLiteral("DEVICE"),
                                 translated(TEXT("Devices to open: HOST or HOST:PORT.")),
                                 QStringLiteral("[DEVICE ...]"));

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

} // namespace Tavoro::Panel
