#include <support/common/messagecatcher.h>
#include <support/tavorocontrol/requestpath.h>

#include <tavorobizmodel/devicelist.h>

#include <QCoreApplication>
#include <QLoggingCategory>
#include <QTranslator>
#include <QtTest>

namespace {

struct LogRow {
    const char *name;
    quint8 type;
    quint16 code;
    const char *body;
    const char *request; ///< First line.
    const char *success; ///< Second line.
};

/// Sets filter rules of the log during its lifetime.
class FilterRules {
public:
    explicit FilterRules(const char *rules)
    {
        QLoggingCategory::setFilterRules(QString::fromLatin1(rules));
    }
    ~FilterRules() { QLoggingCategory::setFilterRules(QString()); }
    FilterRules(const FilterRules &) = delete;
    FilterRules &operator=(const FilterRules &) = delete;
};

/// Counts the texts that are translated.
class CountingTranslator : public QTranslator {
public:
    CountingTranslator() { QCoreApplication::installTranslator(this); }
    ~CountingTranslator() override { QCoreApplication::removeTranslator(this); }
    CountingTranslator(const CountingTranslator &) = delete;
    CountingTranslator &operator=(const CountingTranslator &) = delete;

    bool isEmpty() const override { return false; }
    QString translate(const char *, const char *, const char *, int) const override
    {
        ++count;
        return {};
    }

    mutable int count = 0;
};

} // namespace

Q_DECLARE_METATYPE(const LogRow *)

class tst_RequestLog : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void readsAreLogged_data();
    void readsAreLogged();
    void writesAreLogged_data();
    void writesAreLogged();
    void requestIsLoggedBeforeItIsSent();
    void contentHasAHeadingForOnePacketOnly_data();
    void contentHasAHeadingForOnePacketOnly();
    void contentOfABinaryAnswerIsNotLogged_data();
    void contentOfABinaryAnswerIsNotLogged();
    void codesAreHexadecimalAndTheTagDecimal();
    void argumentBytesAreReadBeforeTheExchange();
    void missingDeviceIsNotNamed();
    void levelsCanBeSilenced_data();
    void levelsCanBeSilenced();
    void successTextIsMadeForListenersOnly_data();
    void successTextIsMadeForListenersOnly();
};

namespace {

// clang-format off
const LogRow readRows[] = {
    {"JSON read", 1, 0x1100, "",
     R"(info: TavoroCmd {device} "BC(11), FC(0)." "Get device detail information.arg2 values:" 4 3 2 1 " lables: 7")",
     R"(info: TavoroCmd {device} "BC(11), FC(0)." "Get device detail information successfully." " lables: 7, content:" "{\"a\":1}")"},
    {"write through the read overload", 2, 0x1107, R"({"swap":1})",
     R"(info: TavoroCmd {device} "BC(11), FC(7)." "Get device swap status information." " lables: 7" "{\"swap\":1}")",
     R"(info: TavoroCmd {device} "BC(11), FC(7)." "Get device swap status information successfully." " lables: 7")"},
    {"binary read", 3, 0xFA04, "",
     R"(info: TavoroCmd {device} "BC(fa), FC(4)." "Get file export information.arg2 values:" 4 3 2 1 " lables: 7")",
     R"(info: TavoroCmd {device} "BC(fa), FC(4)." "Get file export information successfully." " lables: 7")"},
    {"binary write through the read overload", 4, 0xFA03, "raw",
     R"(info: TavoroCmd {device} "BC(fa), FC(3)." "Get file import information.arg2 values:" 4 3 2 1 " lables: 7")",
     R"(info: TavoroCmd {device} "BC(fa), FC(3)." "Get file import information successfully." " lables: 7")"},
    {"command without a label", 1, 0x110B, "",
     R"(info: TavoroCmd {device} "BC(11), FC(b)." "Get N/A.arg2 values:" 4 3 2 1 " lables: 7")",
     R"(info: TavoroCmd {device} "BC(11), FC(b)." "Get N/A successfully." " lables: 7, content:" "{\"a\":1}")"},
};

const LogRow writeRows[] = {
    {"JSON write", 2, 0x1107, R"({"swap":1})",
     R"(info: TavoroCmd {device} "BC(11), FC(7)." "Set device swap status information." " lables: 7" "{\"swap\":1}")",
     R"(info: TavoroCmd {device} "BC(11), FC(7)." "Set device swap status information successfully." " lables: 7")"},
    {"binary write keeps its bytes out of the log", 4, 0xFA03, "raw",
     R"(info: TavoroCmd {device} "BC(fa), FC(3)." "Set file import information." " lables: 7")",
     R"(info: TavoroCmd {device} "BC(fa), FC(3)." "Set file import information successfully." " lables: 7")"},
    {"JSON read through the write overload", 1, 0x1100, "",
     R"(info: TavoroCmd {device} "BC(11), FC(0)." "Set device detail information." " lables: 7")",
     R"(info: TavoroCmd {device} "BC(11), FC(0)." "Set device detail information successfully." " lables: 7")"},
    {"binary read through the write overload", 3, 0xFA04, "",
     R"(info: TavoroCmd {device} "BC(fa), FC(4)." "Set file export information." " lables: 7")",
     R"(info: TavoroCmd {device} "BC(fa), FC(4)." "Set file export information successfully." " lables: 7")"},
    {"command without a label", 2, 0xFC00, "{}",
     R"(info: TavoroCmd {device} "BC(fc), FC(0)." "Set N/A." " lables: 7" "{}")",
     R"(info: TavoroCmd {device} "BC(fc), FC(0)." "Set N/A successfully." " lables: 7")"},
};
// clang-format on

} // namespace

void tst_RequestLog::readsAreLogged_data()
{
    QTest::addColumn<const LogRow *>("row");
    for (const LogRow &row : readRows)
        QTest::newRow(row.name) << &row;
}

void tst_RequestLog::readsAreLogged()
{
    QFETCH(const LogRow *, row);
    RequestPath path;
    path.device.channel->answerBody(R"({"a":1})");
    const auto outcome = path.read(RequestPath::request(row->type, row->code, row->body));
    QVERIFY(outcome.ok);
    QCOMPARE(outcome.lines.size(), 3);
    QCOMPARE(outcome.lines.at(0), QString::fromLatin1(row->request));
    QCOMPARE(outcome.lines.at(1), QString::fromLatin1(row->success));
    QCOMPARE(outcome.lines.at(2),
             QStringLiteral("status bar 0 for 5000 ms: Get %1 successfully.")
                 .arg(Tavoro::Control::ControlHelper::commandLabel(
                     static_cast<quint8>(row->code >> 8), static_cast<quint8>(row->code))));
}

void tst_RequestLog::writesAreLogged_data()
{
    QTest::addColumn<const LogRow *>("row");
    for (const LogRow &row : writeRows)
        QTest::newRow(row.name) << &row;
}

void tst_RequestLog::writesAreLogged()
{
    QFETCH(const LogRow *, row);
    RequestPath path;
    path.device.channel->answerBody("dropped");
    const auto outcome = path.write(RequestPath::request(row->type, row->code, row->body));
    QVERIFY(outcome.ok);
    QCOMPARE(outcome.lines.size(), 3);
    QCOMPARE(outcome.lines.at(0), QString::fromLatin1(row->request));
    QCOMPARE(outcome.lines.at(1), QString::fromLatin1(row->success));
    QVERIFY(outcome.lines.at(2).startsWith(QStringLiteral("status bar 0 for 5000 ms: Set ")));
}

void tst_RequestLog::requestIsLoggedBeforeItIsSent()
{
    RequestPath path;
    QStringList linesInFlight;
    ScriptedAnswer answer;
    answer.before = [&] {
        linesInFlight = path.journal.lines();
    };
    path.device.channel->answer(answer);
    path.write(RequestPath::request(2, 0x1107, "{}"));
    QCOMPARE(linesInFlight.size(), 1);
}

void tst_RequestLog::contentHasAHeadingForOnePacketOnly_data()
{
    QTest::addColumn<quint32>("totalCount");
    QTest::addColumn<QString>("end");

    // clang-format off
    QTest::newRow("one packet")                   << 1U << R"( " lables: 7, content:" "[")";
    QTest::newRow("two packets")                  << 2U << R"( " lables: 7" "[]")";
    QTest::newRow("counts that claim no packets") << 0U << R"( " lables: 7" "[")";
    // clang-format on
}

void tst_RequestLog::contentHasAHeadingForOnePacketOnly()
{
    QFETCH(const quint32, totalCount);
    RequestPath path;
    path.device.channel->answer(ScriptedAnswer::packet("[", totalCount));
    path.device.channel->answerBody("]");
    const auto lines = path.read(RequestPath::request(1, 0x1200)).lines;
    const auto infos = lines.filter(QRegularExpression(QStringLiteral("^info: ")));
    QCOMPARE(infos.size(), 2);
    QTEST(infos.at(1).section(QStringLiteral("successfully.\""), 1), "end");
}

void tst_RequestLog::contentOfABinaryAnswerIsNotLogged_data()
{
    QTest::addColumn<quint32>("totalCount");
    QTest::addColumn<int>("responseType");
    QTest::addColumn<QString>("end");

    // The type of the first answer decides, not that of the request.
    // clang-format off
    QTest::newRow("binary")              << 1U << 3 << R"( " lables: 7")";
    QTest::newRow("binary, two packets") << 2U << 3 << R"( " lables: 7")";
    QTest::newRow("JSON")                << 1U << 1 << R"( " lables: 7, content:" "[")";
    QTest::newRow("JSON, two packets")   << 2U << 1 << R"( " lables: 7" "[]")";
    // clang-format on
}

void tst_RequestLog::contentOfABinaryAnswerIsNotLogged()
{
    QFETCH(const quint32, totalCount);
    QFETCH(const int, responseType);
    RequestPath path;
    auto first = ScriptedAnswer::packet("[", totalCount);
    first.type = static_cast<quint8>(responseType);
    auto second = ScriptedAnswer::packet("]");
    second.type = 2;
    path.device.channel->answer(first);
    path.device.channel->answer(second);
    const quint8 requestType = responseType == 1 ? 3 : 1;
    const auto lines = path.read(RequestPath::request(requestType, 0xFA04)).lines;
    const auto infos = lines.filter(QRegularExpression(QStringLiteral("^info: ")));
    QCOMPARE(infos.size(), 2);
    QTEST(infos.at(1).section(QStringLiteral("successfully.\""), 1), "end");
}

void tst_RequestLog::codesAreHexadecimalAndTheTagDecimal()
{
    RequestPath path;
    const auto request = RequestPath::request(2, 0xFC0D, "{}");
    request->head().lables = 255;
    const auto lines = path.write(request).lines;
    QCOMPARE(lines.first(),
             QStringLiteral(R"(info: TavoroCmd {device} "BC(fc), FC(d)." )"
                            R"("Set device file load progress information." " lables: 255" "{}")"));
}

void tst_RequestLog::argumentBytesAreReadBeforeTheExchange()
{
    RequestPath path;
    const auto request = RequestPath::request(1, 0x1300);
    request->head().arg2[0] = 0xFF;
    request->head().arg2[3] = 0x80;
    const auto lines = path.read(request).lines;
    QVERIFY(lines.first().contains(QStringLiteral("arg2 values:\" 128 3 2 255 \"")));
}

void tst_RequestLog::missingDeviceIsNotNamed()
{
    RequestPath path;
    path.device.model.reset();
    const auto lines = path.read(RequestPath::request(1, 0x1100)).lines;
    QCOMPARE(lines.first(),
             QStringLiteral(R"(warning: TavoroCmd "BC(11), FC(0)." )"
                            R"("Get device detail information failed: )"
                            R"(invalid device model data ." " lables: 7")"));
}

void tst_RequestLog::levelsCanBeSilenced_data()
{
    QTest::addColumn<QByteArray>("rules");
    QTest::addColumn<int>("infos");
    QTest::addColumn<int>("debugs");
    QTest::addColumn<int>("warnings");

    // clang-format off
    QTest::newRow("all on without a rule") << QByteArray("")                             << 4 << 1 << 1;
    QTest::newRow("category off")          << QByteArray("tavoro.control=false")         << 0 << 0 << 0;
    QTest::newRow("info off")              << QByteArray("tavoro.control.info=false")    << 0 << 1 << 1;
    QTest::newRow("debug off")             << QByteArray("tavoro.control.debug=false")   << 4 << 0 << 1;
    QTest::newRow("warning off")           << QByteArray("tavoro.control.warning=false") << 4 << 1 << 0;
    // clang-format on
}

void tst_RequestLog::levelsCanBeSilenced()
{
    QFETCH(const QByteArray, rules);
    const FilterRules silence(rules.constData());
    RequestPath path;
    QStringList lines;
    lines += path.write(RequestPath::request(2, 0x1107, "{}")).lines;
    path.device.channel->ready = false;
    lines += path.read(RequestPath::request(1, 0x1100)).lines;
    path.device.removeChannel();
    lines += path.read(RequestPath::request(1, 0x1100)).lines;

    QTEST(int(lines.filter(QStringLiteral("info: ")).size()), "infos");
    QTEST(int(lines.filter(QStringLiteral("debug: ")).size()), "debugs");
    QTEST(int(lines.filter(QStringLiteral("warning: ")).size()), "warnings");
    QCOMPARE(lines.filter(QStringLiteral("status bar ")).size(), 2); // shown in any case
}

void tst_RequestLog::successTextIsMadeForListenersOnly_data()
{
    QTest::addColumn<QByteArray>("rules");
    QTest::addColumn<bool>("hasStatusBar");
    QTest::addColumn<bool>("showsSuccess");
    QTest::addColumn<int>("texts"); // sentences and labels; the write's and the read's

    // clang-format off
    QTest::newRow("no listener")             << QByteArray("tavoro.control=false") << false << true  << 0;
    QTest::newRow("status bar")              << QByteArray("tavoro.control=false") << true  << true  << 4;
    QTest::newRow("status bar, write quiet") << QByteArray("tavoro.control=false") << true  << false << 2;
    QTest::newRow("log")                     << QByteArray("")                     << false << true  << 6;
    // clang-format on
}

void tst_RequestLog::successTextIsMadeForListenersOnly()
{
    QFETCH(const QByteArray, rules);
    QFETCH(const bool, hasStatusBar);
    QFETCH(const bool, showsSuccess);
    const FilterRules silence(rules.constData());
    const MessageCatcher catcher;
    ScriptedDevice device;
    QObject statusBar;
    if (hasStatusBar)
        QObject::connect(Tavoro::BizModel::DeviceList::instance(),
                         &Tavoro::BizModel::DeviceList::signalShowStatusBarMsg, &statusBar, [] {});
    Tavoro::Control::ControlHelper helper;
    std::string result;
    QString error;
    const CountingTranslator translator;

    QVERIFY(helper.sendSyncRequest(device.model, RequestPath::request(2, 0x1107, "{}"), error,
                                   showsSuccess));
    QVERIFY(helper.sendSyncRequest(device.model, RequestPath::request(1, 0x1100), result, error));
    QTEST(translator.count, "texts");
}

QTEST_GUILESS_MAIN(tst_RequestLog)
#include "tst_requestlog.moc"
