// Each member of the control classes that call() cannot take has a named function of the session,
// and the page lists it.

#include <tavorooperations/operation.h>
#include <tavorosession/session.h>

#include <QFile>
#include <QMap>
#include <QRegularExpression>
#include <QTest>

using namespace Tavoro;

class tst_NamedFunctions : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void callTakesEveryOperationOfTheTable();
    void otherMembersHaveNamedFunctions();
    void pageListsTheNamedFunctions();
};

namespace {

using ProtoModel::s_FileIdentity;
using ProtoModel::File::s_FileInfo;

/// Makes the compiler find the function.
template <class Function>
constexpr const char *named(const char *name, Function /*function*/)
{
    return name;
}

struct Row {
    const char *member; ///< As in the page.
    const char *function;
};

// clang-format off
const Row rows[] = {
    {"File::readBinary with a callback", named("files().fetch",    qOverload<const s_FileIdentity &, std::shared_ptr<QIODevice>>(&DeviceFiles::fetch))},
    {"File::writeFileBinary",            named("files().send",     qOverload<const s_FileInfo &, std::string>(&DeviceFiles::send))},
    {"File::setCancelledState",          named("TrackedCall::cancel", &PendingTransfer::cancel)},
    {"Device::refreshDeviceChannel",     named("reconnectNow",     &DeviceSession::reconnectNow)},
    {"Device::disconnectCommunication",  named("close",            &DeviceSession::close)},
};
/// Members that do nothing.
const char *const idle[] = {"Auxiliary::updateCutoutRGB"};
// clang-format on

const QStringList classNames =
    QStringLiteral("Device Interface Screen Layer Preset File Auxiliary").split(QLatin1Char(' '));

struct Member {
    QString name; ///< "File::readBinary", or "File::readBinary with a callback".
    bool hasErrorLast = false;
};

/// The public member functions of a control class, as its header declares them.
QList<Member> membersOf(const QString &className)
{
    QFile header(QStringLiteral(CONTROL_HEADERS "/%1.h").arg(className.toLower()));
    if (!header.open(QIODevice::ReadOnly))
        return {};
    QString text = QString::fromUtf8(header.readAll())
                       .section(QStringLiteral("public:"), 1)
                       .section(QStringLiteral("private:"), 0, 0);
    static const QRegularExpression comment(QStringLiteral("//[^\n]*"));
    text.remove(comment);
    static const QRegularExpression member(
        QStringLiteral("\\b(?:bool|void)\\s+(\\w+)\\s*\\(([^;]*)\\);"));
    static const QRegularExpression error(QStringLiteral("QString &?error$"));
    QList<Member> members;
    for (auto matches = member.globalMatch(text); matches.hasNext();) {
        const auto match = matches.next();
        const QString parameters = match.captured(2).simplified();
        QString name = className + QStringLiteral("::") + match.captured(1);
        if (parameters.endsWith(QLatin1String("callback")))
            name += QStringLiteral(" with a callback");
        members.append({name, parameters.contains(error)});
    }
    return members;
}

QStringList membersWith(bool hasErrorLast)
{
    QStringList names;
    for (const QString &className : classNames) {
        const auto members = membersOf(className);
        for (const Member &member : members) {
            if (member.hasErrorLast == hasErrorLast)
                names += member.name;
        }
    }
    names.sort();
    return names;
}

} // namespace

void tst_NamedFunctions::callTakesEveryOperationOfTheTable()
{
    const QStringList taken = membersWith(true);
    for (const Operations::Operation &operation : Operations::all()) {
        QString name = operation.name();
        name.replace(QLatin1Char('.'), QLatin1String("::"));
        QVERIFY2(taken.contains(name), qPrintable(name));
    }
}

void tst_NamedFunctions::otherMembersHaveNamedFunctions()
{
    QStringList expected;
    for (const Row &row : rows)
        expected += QLatin1String(row.member);
    for (const char *const member : idle)
        expected += QLatin1String(member);
    expected.sort();
    QCOMPARE(membersWith(false), expected);
}

void tst_NamedFunctions::pageListsTheNamedFunctions()
{
    QFile page(QStringLiteral(SESSION_PAGE));
    QVERIFY(page.open(QIODevice::ReadOnly));
    const QString text = QString::fromUtf8(page.readAll());
    for (const Row &row : rows) {
        const QString member = QLatin1String(row.member);
        const QString line = QStringLiteral("| `%1`%2 | `%3` |")
                                 .arg(member.section(QLatin1Char(' '), 0, 0),
                                      member.mid(member.section(QLatin1Char(' '), 0, 0).size()),
                                      QLatin1String(row.function));
        QVERIFY2(text.contains(line), qPrintable(line));
    }
}

QTEST_GUILESS_MAIN(tst_NamedFunctions)
#include "tst_namedfunctions.moc"
