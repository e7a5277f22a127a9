// The files of the simulated device: announced, sent, listed, moved, deleted, read back.

#include <support/tavorosim/commandcodes.h>
#include <support/tavorosim/packetsize.h>
#include <support/tavorosim/simbench.h>

#include <QTemporaryDir>
#include <QTest>

#include <utility>

using namespace CommandCodes;
using Tavoro::Sim::SimOptions;
using Tavoro::SSProxy::CommandType;

namespace {

constexpr quint8 any = 0xFF;

const std::string sample = "123456789"; ///< Its hash sum is 0xCBF43926, -873187034.

std::string detail(int type, int id, const char *name, const char *size)
{
    return QStringLiteral(R"({"fileId":%1,"fileType":%2,"general":{"name":"%3"},)"
                          R"("source":{"id":0,"type":0,"zoomRatio":1},"size":{%4}})")
        .arg(id)
        .arg(type)
        .arg(QLatin1String(name), QLatin1String(size))
        .toStdString();
}

const char *const sampleSize = R"("length":9,"hashSum":-873187034,"width":8,"height":6)";
const char *const oneByteSize = R"("length":1,"hashSum":-390611389,"width":8,"height":6)"; // "a"

} // namespace

class tst_TavoroSimFiles : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void anImportedFileIsListedAndReadBack();
    void anEmptyDeviceListsTwoBrackets();
    void filtersRestrictTheList();
    void anAnnouncedFileIsNotListedBeforeItsContent();
    void zeroInAnAnnouncementIsNotChecked();
    void contentThatWasNotAnnouncedIsRefused_data();
    void contentThatWasNotAnnouncedIsRefused();
    void badAnnouncementsAreRefused_data();
    void badAnnouncementsAreRefused();
    void anEmptyFileIsAFile();
    void packetsOfAContentMayUseAnyStream();
    void aPieceOutOfTurnDropsTheContent();
    void theEndOfTheConnectionDropsTheContent();
    void progressIsReportedWhileContentArrives();
    void aRefusedContentIsReportedAsFailed();
    void aLongContentIsReadInPackets();
    void aReplacedContentIsReadToItsEnd_data();
    void aReplacedContentIsReadToItsEnd();
    void deletingRemovesAllOrNothing();
    void filesMoveOnlyToFreePlaces();
    void unknownFilesAreRefused();
};

void tst_TavoroSimFiles::anImportedFileIsListedAndReadBack()
{
    SimBench bench;
    QCOMPARE(bench.write(fileImport, SimBench::announcement(2, 7, 9, -873187034)), 0);
    QCOMPARE(bench.send(2, 7, sample), 0);
    QCOMPARE(bench.list(), '[' + detail(2, 7, "wall", sampleSize) + ']');
    const WireFrame answer = bench.receive(2, 7);
    QCOMPARE(int(answer.head.status), 0);
    QCOMPARE(answer.head.totalCount, 1u);
    QCOMPARE(answer.body, sample);
}

void tst_TavoroSimFiles::anEmptyDeviceListsTwoBrackets()
{
    SimBench bench;
    QCOMPARE(bench.list(), std::string("[]"));
}

void tst_TavoroSimFiles::filtersRestrictTheList()
{
    SimBench bench;
    bench.import(0, 1, "a");
    bench.import(2, 1, "a");
    bench.import(2, 5, "a");
    const std::string background = detail(0, 1, "wall", oneByteSize);
    const std::string logo1 = detail(2, 1, "wall", oneByteSize);
    const std::string logo5 = detail(2, 5, "wall", oneByteSize);
    QCOMPARE(bench.list(any, any), '[' + background + ',' + logo1 + ',' + logo5 + ']');
    QCOMPARE(bench.list(0, any), '[' + background + ']');
    QCOMPARE(bench.list(2, any), '[' + logo1 + ',' + logo5 + ']');
    QCOMPARE(bench.list(2, 5), '[' + logo5 + ']');
    QCOMPARE(bench.list(any, 1), '[' + background + ',' + logo1 + ']');
    QCOMPARE(bench.list(3, any), std::string("[]"));
}

void tst_TavoroSimFiles::anAnnouncedFileIsNotListedBeforeItsContent()
{
    SimBench bench;
    QCOMPARE(bench.write(fileImport, SimBench::announcement(2, 7, 9, 0)), 0);
    QCOMPARE(bench.list(), std::string("[]"));
    QCOMPARE(int(bench.receive(2, 7).head.status), 3);
}

void tst_TavoroSimFiles::zeroInAnAnnouncementIsNotChecked()
{
    SimBench bench;
    QCOMPARE(bench.write(fileImport, SimBench::announcement(2, 7, 0, 0)), 0);
    QCOMPARE(bench.send(2, 7, sample), 0);
    QCOMPARE(bench.list(), '[' + detail(2, 7, "wall", sampleSize) + ']');
}

void tst_TavoroSimFiles::contentThatWasNotAnnouncedIsRefused_data()
{
    QTest::addColumn<int>("type");
    QTest::addColumn<int>("id");
    QTest::addColumn<QString>("content");
    QTest::addColumn<int>("status");
    QTest::newRow("other type") << 3 << 7 << "123456789" << 3;
    QTest::newRow("other number") << 2 << 8 << "123456789" << 3;
    QTest::newRow("all types") << 255 << 7 << "123456789" << 3;
    QTest::newRow("too short") << 2 << 7 << "12345678" << 9;
    QTest::newRow("too long") << 2 << 7 << "1234567890" << 9;
    QTest::newRow("other bytes") << 2 << 7 << "123456780" << 9;
}

void tst_TavoroSimFiles::contentThatWasNotAnnouncedIsRefused()
{
    QFETCH(int, type);
    QFETCH(int, id);
    QFETCH(QString, content);
    SimBench bench;
    QCOMPARE(bench.write(fileImport, SimBench::announcement(2, 7, 9, -873187034)), 0);
    const int status = bench.send(quint8(type), quint8(id), content.toStdString());
    QTEST(status, "status");
    QCOMPARE(bench.list(), std::string("[]"));
    QCOMPARE(bench.send(2, 7, sample), 0); // The announcement still holds.
    QCOMPARE(bench.send(2, 7, sample), 3); // It holds for one content only.
}

void tst_TavoroSimFiles::badAnnouncementsAreRefused_data()
{
    QTest::addColumn<QString>("body");
    QTest::addColumn<int>("status");
    // clang-format off
    QTest::newRow("no JSON")           << "x"                                                                  << 2;
    QTest::newRow("no list")           << R"({"fileId":1,"fileType":2})"                                       << 2;
    QTest::newRow("number above 254")  << R"([{"fileId":255,"fileType":2}])"                                   << 4;
    QTest::newRow("number below 0")    << R"([{"fileId":-1,"fileType":2}])"                                    << 4;
    QTest::newRow("type above 254")    << R"([{"fileId":1,"fileType":255}])"                                   << 4;
    QTest::newRow("type below 0")      << R"([{"fileId":1,"fileType":-1}])"                                    << 4;
    QTest::newRow("negative length")   << R"([{"fileId":1,"fileType":2,"size":{"length":-1}}])"                << 4;
    QTest::newRow("no name")           << R"([{"fileId":1,"fileType":2,"general":{"name":""}}])"               << 4;
    QTest::newRow("no such interface") << R"([{"fileId":1,"fileType":2,"interfaceIds":{"slotId":99}}])"        << 3;
    // clang-format on
}

void tst_TavoroSimFiles::badAnnouncementsAreRefused()
{
    QFETCH(QString, body);
    SimBench bench;
    const int status = bench.write(fileImport, body.toStdString());
    QTEST(status, "status");
    QCOMPARE(bench.send(2, 1, sample), 3);
}

void tst_TavoroSimFiles::anEmptyFileIsAFile()
{
    SimBench bench;
    bench.import(5, 0, {});
    QCOMPARE(bench.list(5, 0),
             '[' + detail(5, 0, "wall", R"("length":0,"hashSum":0,"width":8,"height":6)") + ']');
    QCOMPARE(int(bench.receive(5, 0).head.status), 0);
    QCOMPARE(bench.receive(5, 0).body, std::string());
}

void tst_TavoroSimFiles::packetsOfAContentMayUseAnyStream()
{
    SimBench bench(packetsOf(200));
    QCOMPARE(bench.write(fileImport, SimBench::announcement(2, 7, 9, -873187034)), 0);
    for (quint32 i = 0; i < 3; ++i) {
        WireFrame piece =
            WireClient::request(fileImport, CommandType::BinaryWrite, sample.substr(3 * i, 3));
        piece.head.stream = static_cast<quint16>(40 + i);
        piece.head.arg2[0] = 2;
        piece.head.arg2[1] = 7;
        piece.head.totalCount = 3;
        piece.head.sendCount = i;
        QCOMPARE(int(bench.client->exchange(piece).head.status), 0);
    }
    QCOMPARE(bench.receive(2, 7).body, sample);
}

void tst_TavoroSimFiles::aPieceOutOfTurnDropsTheContent()
{
    SimBench bench;
    QCOMPARE(bench.write(fileImport, SimBench::announcement(2, 7, 9, 0)), 0);
    QCOMPARE(bench.send(2, 7, "123", 3, 1), 5);
    QCOMPARE(bench.send(2, 7, "123", 3, 0), 0);
    QCOMPARE(bench.send(2, 7, "789", 3, 2), 5);
    QCOMPARE(bench.send(2, 7, "456", 3, 1), 5);
    QCOMPARE(bench.send(2, 7, "123", 3, 0), 0);
    QCOMPARE(bench.send(2, 7, "456", 4, 1), 5);
    QCOMPARE(bench.send(2, 7, "xyz", 3, 0), 0);
    QCOMPARE(bench.send(2, 7, "123", 3, 0), 0); // A first piece starts again.
    QCOMPARE(bench.send(2, 7, "456", 3, 1), 0);
    QCOMPARE(bench.send(2, 7, "789", 3, 2), 0);
    QCOMPARE(bench.receive(2, 7).body, sample);
}

void tst_TavoroSimFiles::theEndOfTheConnectionDropsTheContent()
{
    SimBench bench;
    QCOMPARE(bench.write(fileImport, SimBench::announcement(2, 7, 9, 0)), 0);
    QCOMPARE(bench.send(2, 7, "123", 3, 0), 0);
    bench.client = std::make_unique<WireClient>();
    QVERIFY(bench.client->connectTo(bench.device->port()));
    QCOMPARE(bench.send(2, 7, "456", 3, 1), 5);
}

void tst_TavoroSimFiles::progressIsReportedWhileContentArrives()
{
    SimBench bench;
    QCOMPARE(bench.write(fileImport, SimBench::announcement(2, 7, 9, 0)), 0);
    for (quint32 i = 0; i < 3; ++i)
        QCOMPARE(bench.send(2, 7, sample.substr(3 * i, 3), 3, i), 0);
    for (const char *progress : {R"("percent":33,"status":0)", R"("percent":66,"status":0)",
                                 R"("percent":100,"status":1)"}) {
        const WireFrame report = bench.client->waitForReport();
        QCOMPARE(report.head.code(), fileProgress);
        QCOMPARE(report.body,
                 std::string(R"([{"fileId":7,"fileType":2,"type":1,)") + progress + "}]");
    }
}

void tst_TavoroSimFiles::aRefusedContentIsReportedAsFailed()
{
    SimBench bench;
    QCOMPARE(bench.write(fileImport, SimBench::announcement(2, 7, 9, 1)), 0);
    QCOMPARE(bench.send(2, 7, "12345", 2, 0), 0);
    QCOMPARE(bench.send(2, 7, "6789", 2, 1), 9);
    QCOMPARE(bench.client->waitForReport().body,
             std::string(R"([{"fileId":7,"fileType":2,"type":1,"percent":50,"status":0}])"));
    QCOMPARE(bench.client->waitForReport().body,
             std::string(R"([{"fileId":7,"fileType":2,"type":1,"percent":50,"status":2}])"));
}

void tst_TavoroSimFiles::aLongContentIsReadInPackets()
{
    SimBench bench(packetsOf(200));
    const std::string content(450, 'x');
    QCOMPARE(bench.write(fileImport, SimBench::announcement(16, 254, 450, 0)), 0);
    for (quint32 i = 0; i < 3; ++i)
        QCOMPARE(bench.send(16, 254, content.substr(200 * i, 200), 3, i), 0);
    std::string joined;
    for (quint32 i = 0; i < 3; ++i) {
        const WireFrame packet = bench.receive(16, 254, 3, i);
        QCOMPARE(int(packet.head.status), 0);
        QCOMPARE(packet.head.totalCount, 3u);
        QCOMPARE(packet.head.sendCount, i);
        joined += packet.body;
    }
    QCOMPARE(joined, content);
    QCOMPARE(int(bench.receive(16, 254, 3, 2).head.status), 6);
}

void tst_TavoroSimFiles::aReplacedContentIsReadToItsEnd_data()
{
    QTest::addColumn<bool>("isInFolder");
    QTest::newRow("memory") << false;
    QTest::newRow("folder") << true;
}

void tst_TavoroSimFiles::aReplacedContentIsReadToItsEnd()
{
    QFETCH(bool, isInFolder);
    QTemporaryDir folder;
    SimOptions options = packetsOf(200);
    if (isInFolder)
        options.filesFolder = folder.path();
    SimBench bench(options);
    const std::string first(200, 'a');
    QCOMPARE(bench.write(fileImport, SimBench::announcement(2, 7, 400, 0)), 0);
    QCOMPARE(bench.send(2, 7, first, 2, 0), 0);
    QCOMPARE(bench.send(2, 7, std::string(200, 'b'), 2, 1), 0);
    QCOMPARE(bench.receive(2, 7).body, first);
    auto reader = std::exchange(bench.client, std::make_unique<WireClient>());
    QVERIFY(bench.client->connectTo(bench.device->port()));
    QCOMPARE(bench.client->control(3), 0); // forced: the reader has control
    bench.import(2, 7, "new");
    bench.client = std::move(reader);
    QCOMPARE(bench.receive(2, 7, 2, 1).body, std::string(200, 'b'));
    QCOMPARE(bench.receive(2, 7).body, std::string("new"));
}

void tst_TavoroSimFiles::deletingRemovesAllOrNothing()
{
    SimBench bench;
    bench.import(2, 1, "a");
    bench.import(2, 2, "a");
    QCOMPARE(bench.write(fileDelete, R"([{"fileId":1,"fileType":2},{"fileId":9,"fileType":2}])"),
             3);
    QCOMPARE(bench.write(fileDelete, R"([{"fileId":1,"fileType":2},{"fileId":1,"fileType":2}])"),
             3);
    QCOMPARE(bench.write(fileDelete, "[]"), 0);
    QCOMPARE(bench.list(2, 1), '[' + detail(2, 1, "wall", oneByteSize) + ']');
    QCOMPARE(bench.write(fileDelete, R"([{"fileId":1,"fileType":2}])"), 0);
    QCOMPARE(bench.list(), '[' + detail(2, 2, "wall", oneByteSize) + ']');
    QCOMPARE(int(bench.receive(2, 1).head.status), 3);
}

void tst_TavoroSimFiles::filesMoveOnlyToFreePlaces()
{
    SimBench bench;
    bench.import(2, 1, "a");
    bench.import(2, 2, "b");
    const auto move = [&](int from, int type, int id, const char *name) {
        return bench.write(fileGeneral,
                           QStringLiteral(R"([{"fileId":%1,"fileType":2,"general":{"name":"%2"},)"
                                          R"("desFileId":%3,"desFileType":%4}])")
                               .arg(from)
                               .arg(QLatin1String(name))
                               .arg(id)
                               .arg(type)
                               .toStdString());
    };
    QCOMPARE(move(1, 2, 2, "gone"), 8);
    QCOMPARE(move(9, 2, 3, "gone"), 3);
    QCOMPARE(move(1, 2, 255, "gone"), 4);
    QCOMPARE(move(1, 2, 3, ""), 4);
    QCOMPARE(bench.list(2, 1), '[' + detail(2, 1, "wall", oneByteSize) + ']');
    QCOMPARE(move(1, 2, 1, "renamed"), 0);
    QCOMPARE(bench.list(2, 1), '[' + detail(2, 1, "renamed", oneByteSize) + ']');
    QCOMPARE(move(1, 0, 4, "moved"), 0);
    QCOMPARE(bench.list(0, any), '[' + detail(0, 4, "moved", oneByteSize) + ']');
    QCOMPARE(bench.receive(0, 4).body, std::string("a"));
    QCOMPARE(bench.list(2, 1), std::string("[]"));
}

void tst_TavoroSimFiles::unknownFilesAreRefused()
{
    SimBench bench;
    QCOMPARE(int(bench.receive(2, 1).head.status), 3);
    QCOMPARE(int(bench.receive(any, any).head.status), 3);
}

QTEST_GUILESS_MAIN(tst_TavoroSimFiles)
#include "tst_tavorosimfiles.moc"
