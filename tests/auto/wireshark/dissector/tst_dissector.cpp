// The dissector shows frames: names, fields, bodies.

#include <support/common/capturedcalls.h>
#include <support/wireshark/tshark.h>
#include <support/wireshark/wirepage.h>

#include <tavorossproxy/commandcodes.h>

#include <QMetaEnum>
#include <QRegularExpression>
#include <QTemporaryDir>
#include <QTest>

using namespace Tavoro::SSProxy;
using Wire::CaptureEvent;

namespace {

/// The first and the second cell of each row of the table under a heading of the page.
QStringList rowsOfPage(const QString &heading)
{
    const QString section = wirePage().section(QStringLiteral("\n## %1\n").arg(heading), 1, 1);
    const QRegularExpression row(QStringLiteral("^\\| (\\d+) \\| ([^|]+) \\|"),
                                 QRegularExpression::MultilineOption);
    QStringList rows;
    auto matches = row.globalMatch(section.section(QStringLiteral("\n## "), 0, 0));
    while (matches.hasNext()) {
        const auto match = matches.next();
        rows << match.captured(1) + QLatin1Char(' ') + match.captured(2);
    }
    return rows;
}

/// The numbers and names of a field, as the dissector declares them.
QStringList valuesOf(const QString &field)
{
    QStringList values;
    const QString begin = QStringLiteral("V\t%1\t").arg(field);
    for (const QString &line :
         Tshark::run({QStringLiteral("-G"), QStringLiteral("values")}).split(QLatin1Char('\n')))
        if (line.startsWith(begin))
            values << QStringLiteral("%1 %2")
                          .arg(line.section(QLatin1Char('\t'), 2, 2).toUInt(nullptr, 0))
                          .arg(line.section(QLatin1Char('\t'), 3));
    values.sort();
    return values;
}

QStringList sorted(QStringList list)
{
    list.sort();
    return list;
}

} // namespace

class tst_Dissector : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void initTestCase();
    void commandsHaveTheNamesOfTheLibrary();
    void numbersHaveTheNamesOfTheWirePage_data();
    void numbersHaveTheNamesOfTheWirePage();
    void framesOfTheWirePageAreShown();
    void fieldsOfAFrameAreShown();
    void fieldsOfExchangesAreNotShownInPings();
    void captureOfTheLibraryIsShown();
    void bodyIsShownAsJson();
    void contentOfAFileIsShownAsBytes();
};

void tst_Dissector::initTestCase()
{
    if (!Tshark::isInstalled())
        QSKIP(Tshark::skipMessage);
}

void tst_Dissector::commandsHaveTheNamesOfTheLibrary()
{
    QStringList commands{QStringLiteral("257 Control"), QStringLiteral("258 Outcome"),
                         QStringLiteral("259 Lease")};
    const QMetaEnum codes = QMetaEnum::fromType<Command>();
    for (int i = 0; i < codes.keyCount(); ++i)
        commands << QStringLiteral("%1 %2").arg(codes.value(i)).arg(QLatin1String(codes.key(i)));
    QCOMPARE(valuesOf(QStringLiteral("tavoro.code")), sorted(commands));
}

void tst_Dissector::numbersHaveTheNamesOfTheWirePage_data()
{
    QTest::addColumn<QString>("field");
    QTest::addColumn<QString>("heading");
    QTest::addColumn<QStringList>("more");
    QTest::newRow("statuses") << QStringLiteral("tavoro.status") << QStringLiteral("Statuses")
                              << QStringList(QStringLiteral("0 success"));
    QTest::newRow("kinds") << QStringLiteral("tavoro.kind") << QStringLiteral("Kinds")
                           << QStringList();
}

void tst_Dissector::numbersHaveTheNamesOfTheWirePage()
{
    QFETCH(QString, field);
    QFETCH(QString, heading);
    QFETCH(QStringList, more);
    QCOMPARE(valuesOf(field), sorted(rowsOfPage(heading) + more));
}

void tst_Dissector::framesOfTheWirePageAreShown()
{
    HandMadeCapture capture;
    for (const char *name :
         {"identity-request", "identity-answer", "write-request", "write-response", "read-request",
          "read-response", "read-request-1", "read-response-1", "split-write-request-0",
          "split-write-response-0", "split-write-request-1", "split-write-response-1", "report",
          "ping", "pong"})
        capture << name;
    capture.add(2, CaptureEvent::Open, "10.1.2.3");
    capture.add(2, CaptureEvent::Sent, dump("write-request"));
    capture.add(2, CaptureEvent::Received, dump("write-refused"));
    QCOMPARE(Tshark::infos(capture.save()),
             QStringList({
                 QStringLiteral("Identity request"),
                 QStringLiteral("Identity answer"),
                 QStringLiteral("Request 1: DeviceSwap write"),
                 QStringLiteral("Response 1: DeviceSwap write, success"),
                 QStringLiteral("Request 2: FileExport binary read"),
                 QStringLiteral("Response 2: FileExport binary read, packet 1 of 2, success"),
                 QStringLiteral("Request 3: FileExport binary read, packet 2 of 2"),
                 QStringLiteral("Response 3: FileExport binary read, packet 2 of 2, success"),
                 QStringLiteral("Request 4: FileImport binary write, packet 1 of 2"),
                 QStringLiteral("Response 4: FileImport binary write, success"),
                 QStringLiteral("Request 5: FileImport binary write, packet 2 of 2"),
                 QStringLiteral("Response 5: FileImport binary write, success"),
                 QStringLiteral("Report DevicePower"),
                 QStringLiteral("Ping"),
                 QStringLiteral("Pong"),
                 QStringLiteral("Request 1: DeviceSwap write"),
                 QStringLiteral("Response 1: DeviceSwap write, refused with status 4: "
                                "a value is out of range"),
             }));
}

void tst_Dissector::fieldsOfAFrameAreShown()
{
    HandMadeCapture capture;
    capture << "read-request-1";
    const QStringList names{QStringLiteral("tavoro.flag"),
                            QStringLiteral("tavoro.version"),
                            QStringLiteral("tavoro.tag"),
                            QStringLiteral("tavoro.body_length"),
                            QStringLiteral("tavoro.status"),
                            QStringLiteral("tavoro.checksum_index"),
                            QStringLiteral("tavoro.kind"),
                            QStringLiteral("tavoro.head_checksum"),
                            QStringLiteral("tavoro.body_checksum"),
                            QStringLiteral("tavoro.stream"),
                            QStringLiteral("tavoro.type"),
                            QStringLiteral("tavoro.total_count"),
                            QStringLiteral("tavoro.send_count"),
                            QStringLiteral("tavoro.code"),
                            QStringLiteral("tavoro.arg2"),
                            QStringLiteral("tavoro.number"),
                            QStringLiteral("tavoro.head_checksum.status"),
                            QStringLiteral("tavoro.body_checksum.status")};
    QCOMPARE(Tshark::fields(capture.save(), QStringLiteral("tavoro"), names),
             QStringList(QStringLiteral("0x5654|1|3|0|0|1|1|0x6a4c|0x00000000|2|3|2|1|0xfa04|"
                                        "03:07:00:00|3|1|1")));
}

void tst_Dissector::fieldsOfExchangesAreNotShownInPings()
{
    HandMadeCapture capture;
    capture << "ping";
    QCOMPARE(Tshark::fields(capture.save(), QStringLiteral("tavoro"),
                            {QStringLiteral("tavoro.kind"), QStringLiteral("tavoro.code"),
                             QStringLiteral("tavoro.stream"), QStringLiteral("tavoro.number")}),
             QStringList(QStringLiteral("6|||")));
}

void tst_Dissector::captureOfTheLibraryIsShown()
{
    const QTemporaryDir folder;
    const QString path = folder.filePath(QStringLiteral("swap.pcapng"));
    captureASwap(path);
    const QStringList names{QStringLiteral("frame.number"),
                            QStringLiteral("tavoro.response_in"),
                            QStringLiteral("tavoro.response_to"),
                            QStringLiteral("tavoro.head_checksum.status"),
                            QStringLiteral("tavoro.body_checksum.status"),
                            QStringLiteral("_ws.col.Info")};
    QCOMPARE(Tshark::fields(path, QStringLiteral("tavoro"), names),
             QStringList({
                 QStringLiteral("4|5||1|1|Identity request"),
                 QStringLiteral("5||4|1|1|Identity answer"),
                 QStringLiteral("6|7||1|1|Request 1: DeviceGroupInfo read"),
                 QStringLiteral("7||6|1|1|Response 1: DeviceGroupInfo read, success"),
                 QStringLiteral("8|9||1|1|Request 2: DeviceSwap write"),
                 QStringLiteral("9||8|1|1|Response 2: DeviceSwap write, success"),
                 QStringLiteral("10|11||1|1|Request 3: DeviceSwap write"),
                 QStringLiteral("11||10|1|1|Response 3: DeviceSwap write, refused with status 4: "
                                "a value is out of range"),
             }));
    QCOMPARE(Tshark::lines(path, QStringLiteral("tcp.analysis.flags || tcp.checksum.status != 1"),
                           {QStringLiteral("-o"), QStringLiteral("tcp.check_checksum:TRUE")}),
             QStringList());
}

void tst_Dissector::bodyIsShownAsJson()
{
    HandMadeCapture capture;
    capture << "write-request"
            << "report";
    QCOMPARE(Tshark::fields(capture.save(), QStringLiteral("json"),
                            {QStringLiteral("json.path_with_value"),
                             QStringLiteral("_ws.col.Protocol"), QStringLiteral("tavoro.body")}),
             QStringList({
                 QStringLiteral("/swap:1|Tavoro|"),
                 QStringLiteral("/powers/[]/powerId:0,/powers/[]/iSignal:1,/powers/[]/status:1"
                                "|Tavoro|"),
             }));
}

void tst_Dissector::contentOfAFileIsShownAsBytes()
{
    HandMadeCapture capture;
    const std::string json = R"({"is":"content"})"; // not a record
    capture.sent(frameOf(requestHead(4, 0xFA03, 1), json));
    QCOMPARE(
        Tshark::fields(capture.save(), QStringLiteral("tavoro"),
                       {QStringLiteral("tavoro.content"), QStringLiteral("json.key")}),
        QStringList(QLatin1String(QByteArray::fromStdString(json).toHex()) + QLatin1Char('|')));
}

QTEST_GUILESS_MAIN(tst_Dissector)
#include "tst_dissector.moc"
