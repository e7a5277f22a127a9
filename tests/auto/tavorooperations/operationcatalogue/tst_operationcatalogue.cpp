// The table has every operation of the control classes: their headers are compared with it.

#include <tavorooperations/operation.h>

#include <QDir>
#include <QFile>
#include <QMap>
#include <QRegularExpression>
#include <QTest>

#include <algorithm>

using namespace Tavoro::Operations;

class tst_OperationCatalogue : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void everyClassWithOperationsIsInTheTable();
    void tableHasEveryOperationOfTheHeaders_data();
    void tableHasEveryOperationOfTheHeaders();
    void exceptionsAreMembersOfTheHeaders();
    void argumentsHaveTheNamesOfTheParameters_data();
    void argumentsHaveTheNamesOfTheParameters();
    void summariesAreThoseOfTheHeaders_data();
    void summariesAreThoseOfTheHeaders();
};

namespace {

struct Exception {
    const char *name;
    const char *reason;
};

// clang-format off
/// Members that cannot be called by name, each with the reason.
constexpr Exception exceptions[] = {
    {"Device.writeDeviceControlRequest",  "asks for control of the connection, not of the device's state"},
    {"Device.updateDeviceGroupInfo",      "applies a report"},
    {"Device.updateGenlockStatus",        "applies a report"},
    {"Device.updateTransferProgress",     "applies a report"},
    {"Device.updateInterfaceRelationInfo","applies a report"},
    {"Device.updatePowerConfig",          "applies a report"},
    {"Device.updateScreenGenlockInfo",    "applies a report"},
    {"Device.updateSubcardsInfo",         "applies a report"},
    {"Device.updateCutoutRGB",            "applies a report"},
    {"Interface.updateActualTiming",      "applies a report"},
    {"Interface.updateInterfaceGeneralInfo",     "applies a report"},
    {"Interface.updateInterfaceBitDepthInfo",    "applies a report"},
    {"Interface.updateInterfaceColorSpacesInfo", "applies a report"},
    {"Interface.updateInterfaceColorRangesInfo", "applies a report"},
    {"Interface.updateInterfaceHDRInfo",  "applies a report"},
    {"Screen.updateScreenZelkInfo",       "applies a report"},
    {"File.updateTransferProgress",       "applies a report"},
    {"Auxiliary.updateCutoutRGB",         "applies a report"},
    {"File.readBinary",                   "fetches content"},
    {"File.importFileBinary",             "sends content"},
    {"File.writeFileBinary",              "sends content"},
    {"File.writeFile",                    "sends nothing"},
};

/// Classes with such members that are not operations, each with the reason.
constexpr Exception otherClasses[] = {
    {"controlhelper",  "is the request path"},
    {"devicelist",     "synchronises devices"},
    {"savefile",       "writes local files"},
    {"syncdevicetask", "synchronises a device"},
};

/// Summaries that differ from the documentation of C++.
struct Rewording {
    const char *name;
    const char *header;
    const char *summary;
};
constexpr Rewording rewordings[] = {
    {"Device.readSubcardDetail",    "that \\a reported names.",                              "that the argument names."},
    {"Interface.writeActualTiming", "Sends nothing and returns false, with \\a error unchanged:", "Sends nothing and fails:"},
};
// clang-format on

bool isException(const QString &name)
{
    return std::any_of(std::begin(exceptions), std::end(exceptions),
                       [&](const Exception &row) { return name == QLatin1String(row.name); });
}

/// A member as its header declares it.
struct Member {
    QString documentation; ///< In one line.
    QStringList parameters; ///< Names.
};

QString withoutTemplateArguments(QString text)
{
    static const QRegularExpression innermost(QStringLiteral("<[^<>]*>"));
    while (text.contains(innermost))
        text.remove(innermost);
    return text;
}

QStringList parameterNames(const QString &parameters)
{
    static const QRegularExpression lastWord(QStringLiteral("(\\w+)\\s*$"));
    QStringList names;
    const QStringList list = withoutTemplateArguments(parameters).split(QLatin1Char(','));
    for (const QString &parameter : list)
        names += lastWord.match(parameter).captured(1);
    return names;
}

QString joined(const QString &comment)
{
    QStringList lines;
    for (const QString &line : comment.split(QLatin1Char('\n')))
        lines += line.trimmed().mid(3).trimmed();
    return lines.join(QLatin1Char(' ')).simplified();
}

bool declaresOperations(const QString &path)
{
    static const QRegularExpression operation(
        QStringLiteral("\n    bool\\s+\\w+\\s*\\([^;]*QString &error[^;]*\\);"));
    QFile header(path);
    return !path.endsWith(QLatin1String("_p.h")) && header.open(QIODevice::ReadOnly)
        && QString::fromUtf8(header.readAll()).contains(operation);
}

/// The public members of \a className that return bool, by "Class.member".
QMap<QString, Member> membersOf(const QString &className)
{
    QFile header(QStringLiteral(CONTROL_HEADERS "/%1.h").arg(className.toLower()));
    if (!header.open(QIODevice::ReadOnly))
        return {};
    const QString text = QString::fromUtf8(header.readAll())
                             .section(QStringLiteral("public:"), 1)
                             .section(QStringLiteral("private:"), 0, 0);
    static const QRegularExpression member(
        QStringLiteral("((?:[ ]*///[^\n]*\n)*)\\s*bool\\s+(\\w+)\\s*\\(([^;]*)\\);"));
    QMap<QString, Member> members;
    for (auto matches = member.globalMatch(text); matches.hasNext();) {
        const auto match = matches.next();
        const QString name = className + QLatin1Char('.') + match.captured(2);
        members.insert(name, {joined(match.captured(1)), parameterNames(match.captured(3))});
    }
    return members;
}

const QStringList classNames =
    QStringLiteral("Device Interface Screen Layer Preset File Auxiliary").split(QLatin1Char(' '));

QMap<QString, Member> allMembers()
{
    QMap<QString, Member> all;
    for (const QString &name : classNames)
        all.insert(membersOf(name));
    return all;
}

/// The first sentence of the documentation, without the code and what concerns only C++.
QString summaryIn(const QString &name, const QString &documentation)
{
    static const QRegularExpression code(QStringLiteral(" \\((code )?0x[0-9A-F]{4}\\)"));
    static const QRegularExpression sentence(QStringLiteral("^.*?\\.(?= |$)"));
    static const QRegularExpression destination(
        QStringLiteral("( and appends (it|them) to| into) \\\\a \\w+(?=\\.)"));
    QString text = documentation;
    text.remove(code);
    text = sentence.match(text).captured();
    text.remove(destination);
    for (const Rewording &row : rewordings) {
        if (name == QLatin1String(row.name))
            text.replace(QLatin1String(row.header), QLatin1String(row.summary));
    }
    return text;
}

void addOperations()
{
    QTest::addColumn<QString>("name");
    for (const Operation &operation : all())
        QTest::newRow(qPrintable(operation.name())) << operation.name();
}

} // namespace

/// A public header with a member that returns bool and has an error text declares operations.
void tst_OperationCatalogue::everyClassWithOperationsIsInTheTable()
{
    QStringList expected;
    const QDir folder(QStringLiteral(CONTROL_HEADERS));
    const QStringList headers = folder.entryList({QStringLiteral("*.h")}, QDir::Files);
    for (const QString &header : headers) {
        if (declaresOperations(folder.filePath(header)))
            expected += header.section(QLatin1Char('.'), 0, 0);
    }
    for (const Exception &row : otherClasses)
        QVERIFY2(expected.removeOne(QLatin1String(row.name)), row.name);
    QStringList inTable;
    for (const Operation &operation : all())
        inTable += operation.name().section(QLatin1Char('.'), 0, 0).toLower();
    inTable.sort();
    inTable.removeDuplicates();
    QCOMPARE(inTable, expected);
}

void tst_OperationCatalogue::tableHasEveryOperationOfTheHeaders_data()
{
    QTest::addColumn<QString>("className");
    for (const QString &name : classNames)
        QTest::newRow(qPrintable(name)) << name;
}

void tst_OperationCatalogue::tableHasEveryOperationOfTheHeaders()
{
    QFETCH(QString, className);
    QStringList expected;
    const QStringList members = membersOf(className).keys();
    for (const QString &name : members) {
        if (!isException(name))
            expected += name;
    }
    QStringList offered;
    for (const Operation &operation : all()) {
        if (operation.name().startsWith(className + QLatin1Char('.')))
            offered += operation.name();
    }
    offered.sort();
    QVERIFY(!expected.isEmpty());
    QCOMPARE(offered, expected);
}

void tst_OperationCatalogue::exceptionsAreMembersOfTheHeaders()
{
    const QMap<QString, Member> members = allMembers();
    for (const Exception &row : exceptions)
        QVERIFY2(members.contains(QLatin1String(row.name)), row.name);
}

void tst_OperationCatalogue::argumentsHaveTheNamesOfTheParameters_data()
{
    addOperations();
}

/// The parameters after the arguments of a call are the answer and the error text.
void tst_OperationCatalogue::argumentsHaveTheNamesOfTheParameters()
{
    QFETCH(QString, name);
    const Operation operation = *find(name);
    QStringList names;
    for (const Argument &argument : operation.arguments())
        names += argument.name;
    QStringList expected = allMembers().value(name).parameters;
    QVERIFY(!expected.isEmpty());
    if (expected.last() == QLatin1String("error"))
        expected.removeLast();
    if (!operation.answer().isEmpty())
        expected.removeLast();
    // Kept: the parameter is not used and has no name, so the error text counts as unnamed.
    if (!expected.isEmpty() && expected.last().isEmpty())
        expected.removeLast();
    QCOMPARE(names, expected);
}

void tst_OperationCatalogue::summariesAreThoseOfTheHeaders_data()
{
    addOperations();
}

void tst_OperationCatalogue::summariesAreThoseOfTheHeaders()
{
    QFETCH(QString, name);
    const QString expected = summaryIn(name, allMembers().value(name).documentation);
    QVERIFY(!expected.isEmpty());
    QVERIFY(!expected.contains(QLatin1Char('\\')));
    QCOMPARE(find(name)->summary(), expected);
}

QTEST_GUILESS_MAIN(tst_OperationCatalogue)
#include "tst_operationcatalogue.moc"
