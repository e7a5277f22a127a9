#include "plan.h"

#include <QCommandLineParser>

#include <array>
#include <limits>

namespace {

constexpr qint64 mostInt = std::numeric_limits<int>::max();
constexpr qint64 mostUnsigned = std::numeric_limits<unsigned>::max();

struct NumberRow {
    const char *name;
    const char *usual;
    qint64 least;
    qint64 most;
};

// In the order of the members of Plan.
// clang-format off
constexpr NumberRow numberRows[] = {
//   name       usual least most
    {"devices", "50", 1,    0xFFFF},         // two bytes of the serial number identify a device
    {"rounds",  "3",  2,    mostInt},
    {"seconds", "2",  1,    mostInt / 1000}, // timers count milliseconds
    {"seed",    "1",  0,    mostUnsigned},
};
// clang-format on

QString faultOfNumber(const NumberRow &row, const QString &text)
{
    return QStringLiteral("\"%1\" is not valid for --%2 (a number from %3 to %4)")
        .arg(text, QLatin1String(row.name))
        .arg(row.least)
        .arg(row.most);
}

qint64 readNumber(const NumberRow &row, const QString &text, QString &fault)
{
    bool ok = false;
    const qint64 number = text.toLongLong(&ok);
    if (!ok || number < row.least || number > row.most)
        fault = faultOfNumber(row, text);
    return number;
}

} // namespace

std::optional<Plan> readPlan(const QStringList &arguments, QString &fault)
{
    QCommandLineParser parser;
    parser.addHelpOption();
    for (const NumberRow &row : numberRows)
        parser.addOption(
            {QLatin1String(row.name), {}, QStringLiteral("N"), QLatin1String(row.usual)});
    if (!parser.parse(arguments))
        fault = parser.errorText();
    else if (parser.isSet(QStringLiteral("help")))
        parser.showHelp();
    else if (!parser.positionalArguments().isEmpty())
        fault =
            QStringLiteral("unexpected argument \"%1\"").arg(parser.positionalArguments().at(0));
    std::array<qint64, std::size(numberRows)> numbers{};
    for (std::size_t i = 0; i < numbers.size() && fault.isEmpty(); ++i)
        numbers[i] =
            readNumber(numberRows[i], parser.value(QLatin1String(numberRows[i].name)), fault);
    if (!fault.isEmpty())
        return std::nullopt;
    return Plan{static_cast<int>(numbers[0]), static_cast<int>(numbers[1]),
                static_cast<int>(numbers[2]), static_cast<unsigned>(numbers[3])};
}
