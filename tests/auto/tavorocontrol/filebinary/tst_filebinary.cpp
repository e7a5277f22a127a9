#include <support/tavorocontrol/filetransfer.h>

#include <QtTest>

using namespace Tavoro;
using namespace Tavoro::ProtoModel::File;
using Control::File;
using FileType = BizModel::Enum::File::FileType;

namespace {

using ReadIntoRecord = bool (File::*)(s_FileDetail &, QString &);
using ReadIntoString = bool (File::*)(int, int, std::string &, QString &);

[[maybe_unused]] constexpr ReadIntoRecord readIntoRecord = &File::readBinary;
[[maybe_unused]] constexpr ReadIntoString readIntoString = &File::readBinary;
static_assert(std::is_same_v<decltype(&File::importFileBinary),
                             bool (File::*)(const ProtoModel::s_FileIdentity &, const std::string &,
                                            QString &)>);
static_assert(std::is_same_v<decltype(&File::writeFileBinary),
                             bool (File::*)(const std::string &, FileType, int, unsigned, unsigned,
                                            QString &, bool)>);

constexpr auto packet = &ScriptedAnswer::packet;
constexpr auto refusal = &ScriptedAnswer::refusal;

/// Bytes that every text codec would change.
std::string rawContent()
{
    using namespace std::string_literals;
    return "\0\xFF\"{\r\n\0"s;
}

} // namespace

class tst_FileBinary : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void importSendsTheContentRaw();
    void importOfAnEmptyContentSendsAnEmptyBody();
    void importNamesTypeAndIdInTheHead_data();
    void importNamesTypeAndIdInTheHead();
    void importShowsSuccess();
    void longImportIsSplit();

    void pieceStatesItsCounts();
    void pieceShowsSuccessOnRequest_data();
    void pieceShowsSuccessOnRequest();
    void refusedPieceIsAlwaysShown();
    void splittingOverridesTheCountsOfAPiece();
    void pieceAtTheLimitKeepsItsCounts();
    void transfersHaveTheTimeoutOfTheTable();

    void readIntoRecordTakesItsIdentityAndFillsItsBinary();
    void readReplacesTheOutput();
    void readJoinsPacketsAndReportsProgress();
    void failedReadKeepsReceivedPackets();
    void refusedReadDoesNotChangeTheOutput();
    void readWithoutChannelEmptiesTheOutput();
};

void tst_FileBinary::importSendsTheContentRaw()
{
    ControlledFile it;
    QVERIFY(it.control.importFileBinary({3, 2}, rawContent(), it.error));
    QCOMPARE(it.sentCount(), std::size_t(1));
    QCOMPARE(headHex(it.lastSent()), requestHead(4, 0xFA03, "02030000"));
    QCOMPARE(it.lastSent().body, rawContent());
    QVERIFY(linesWith(it, "info: ").first().endsWith(QStringLiteral("\" lables: 0\"")));
}

void tst_FileBinary::importOfAnEmptyContentSendsAnEmptyBody()
{
    ControlledFile it;
    QVERIFY(it.control.importFileBinary({3, 2}, {}, it.error));
    QCOMPARE(heads(it), QStringList(requestHead(4, 0xFA03, "02030000")));
    QCOMPARE(it.lastSent().body, std::string());
}

void tst_FileBinary::importNamesTypeAndIdInTheHead_data()
{
    QTest::addColumn<int>("fileId");
    QTest::addColumn<int>("fileType");
    QTest::addColumn<QString>("arguments"); // positions 31 to 34

    // clang-format off
    QTest::newRow("type before id")      << 5   << 8   << "08050000";
    QTest::newRow("lowest numbers")      << 0   << 0   << "00000000";
    QTest::newRow("highest numbers")     << 254 << 254 << "fefe0000";
    QTest::newRow("cut to the low byte") << 258 << 263 << "07020000";
    QTest::newRow("wildcards")           << -1  << -1  << "ffff0000";
    // clang-format on
}

void tst_FileBinary::importNamesTypeAndIdInTheHead()
{
    QFETCH(const int, fileId);
    QFETCH(const int, fileType);
    QFETCH(const QString, arguments);
    ControlledFile it;
    const QByteArray bytes = arguments.toLatin1();
    std::string content;
    QVERIFY(it.control.importFileBinary({fileId, fileType}, "x", it.error));
    QVERIFY(it.control.writeFileBinary("x", FileType(fileType), fileId, 0, 0, it.error, true));
    QVERIFY(it.control.readBinary(fileType, fileId, content, it.error));
    QVERIFY(it.control.readBinary(fileType, fileId, recordCallsIn(it.journal)));
    const QString write = requestHead(4, 0xFA03, bytes);
    const QString read = requestHead(3, 0xFA04, bytes);
    QCOMPARE(heads(it), (QStringList{write, write, read, read}));
}

void tst_FileBinary::importShowsSuccess()
{
    ControlledFile it;
    QVERIFY(it.control.importFileBinary({3, 2}, "content", it.error));
    QCOMPARE(it.error, textFromBefore());
    QCOMPARE(linesWith(it, "status bar"),
             QStringList(QStringLiteral(
                 "status bar 0 for 5000 ms: Set file import information successfully.")));
}

void tst_FileBinary::longImportIsSplit()
{
    ControlledFile it;
    it.device.channel->info.maxPacketSize = 4;
    QVERIFY(it.control.importFileBinary({3, 2}, "abcdefghi", it.error));
    QCOMPARE(heads(it),
             (QStringList{QStringLiteral("0000"
                                         "04"
                                         "03000000"
                                         "00000000"
                                         "03fa"
                                         "02030000"
                                         "00"),
                          QStringLiteral("0000"
                                         "04"
                                         "03000000"
                                         "01000000"
                                         "03fa"
                                         "02030000"
                                         "00"),
                          QStringLiteral("0000"
                                         "04"
                                         "03000000"
                                         "02000000"
                                         "03fa"
                                         "02030000"
                                         "00")}));
    QCOMPARE(bodies(it).join(QLatin1Char(' ')), QStringLiteral("abcd efgh i"));
    QCOMPARE(linesWith(it, "sending: ").join(QLatin1Char(' ')),
             QStringLiteral("sending: 0.333333 sending: 0.666667 sending: 1"));
}

void tst_FileBinary::pieceStatesItsCounts()
{
    ControlledFile it;
    QVERIFY(it.control.writeFileBinary(rawContent(), FileType(2), 3, 0x01020304, 0x05060708,
                                       it.error, true));
    QCOMPARE(heads(it),
             QStringList(QStringLiteral("0000"
                                        "04"
                                        "04030201"
                                        "08070605"
                                        "03fa"
                                        "02030000"
                                        "00")));
    QCOMPARE(it.lastSent().body, rawContent());
}

void tst_FileBinary::pieceShowsSuccessOnRequest_data()
{
    QTest::addColumn<bool>("showMessage");
    QTest::addColumn<quint32>("limit");
    QTest::newRow("asked") << true << 100U;
    QTest::newRow("not asked") << false << 100U;
    QTest::newRow("split, asked") << true << 2U;
    QTest::newRow("split, not asked") << false << 2U;
}

void tst_FileBinary::pieceShowsSuccessOnRequest()
{
    QFETCH(const bool, showMessage);
    QFETCH(const quint32, limit);
    ControlledFile it;
    it.device.channel->info.maxPacketSize = limit;
    QVERIFY(it.control.writeFileBinary("piece", FileType(2), 3, 9, 4, it.error, showMessage));
    QCOMPARE(int(linesWith(it, "status bar").size()), showMessage ? 1 : 0);
}

void tst_FileBinary::refusedPieceIsAlwaysShown()
{
    ControlledFile it;
    it.device.channel->answer(refusal(9));
    QVERIFY(!it.control.writeFileBinary("piece", FileType(2), 3, 9, 4, it.error, false));
    QCOMPARE(it.error, QStringLiteral("Set file import information failed: hardware error:9 ."));
    QCOMPARE(linesWith(it, "status bar"),
             QStringList(QStringLiteral("status bar 2 for 5000 ms: ") + it.error));
}

void tst_FileBinary::splittingOverridesTheCountsOfAPiece()
{
    ControlledFile it;
    it.device.channel->info.maxPacketSize = 4;
    QVERIFY(it.control.writeFileBinary("abcde", FileType(2), 3, 77, 66, it.error, true));
    QCOMPARE(heads(it),
             (QStringList{QStringLiteral("0000"
                                         "04"
                                         "02000000"
                                         "00000000"
                                         "03fa"
                                         "02030000"
                                         "00"),
                          QStringLiteral("0000"
                                         "04"
                                         "02000000"
                                         "01000000"
                                         "03fa"
                                         "02030000"
                                         "00")}));
    QCOMPARE(bodies(it).join(QLatin1Char(' ')), QStringLiteral("abcd e"));
}

void tst_FileBinary::pieceAtTheLimitKeepsItsCounts()
{
    ControlledFile it;
    it.device.channel->info.maxPacketSize = 4;
    QVERIFY(it.control.writeFileBinary("abcd", FileType(2), 3, 77, 66, it.error, true));
    QCOMPARE(heads(it),
             QStringList(QStringLiteral("0000"
                                        "04"
                                        "4d000000"
                                        "42000000"
                                        "03fa"
                                        "02030000"
                                        "00")));
}

void tst_FileBinary::transfersHaveTheTimeoutOfTheTable()
{
    ControlledFile it;
    it.setTimeouts(7001, {0xFA, 0x04, 7002});
    s_FileDetail file;
    it.control.readBinary(file, it.error);
    it.control.readBinary(6, 3, recordCallsIn(it.journal));
    it.control.importFileBinary({3, 6}, "x", it.error);
    const auto sent = it.device.channel->sent();
    QCOMPARE(sent.at(0).timeout, 7002);
    QCOMPARE(sent.at(1).timeout, 7002);
    QCOMPARE(sent.at(2).timeout, 7001);
}

void tst_FileBinary::readIntoRecordTakesItsIdentityAndFillsItsBinary()
{
    ControlledFile it;
    it.device.channel->answerBody(rawContent());
    s_FileDetail file{{3, 6}, {"p"}, {}, {4, 5, 6, 7}, "from before"};
    QVERIFY(it.control.readBinary(file, it.error));
    QCOMPARE(it.error, textFromBefore());
    QCOMPARE(heads(it), QStringList(requestHead(3, 0xFA04, "06030000")));
    QCOMPARE(it.lastSent().body, std::string());
    QCOMPARE(file.binary, rawContent());
    QCOMPARE(asText(file.general.name), QStringLiteral("p"));
    QCOMPARE(file.size.hashSum, 5); // the device's value, not compared with the content
}

void tst_FileBinary::readReplacesTheOutput()
{
    ControlledFile it;
    it.device.channel->answerBody("new");
    std::string content = "from before";
    QVERIFY(it.control.readBinary(6, 3, content, it.error));
    QCOMPARE(content, std::string("new"));
}

void tst_FileBinary::readJoinsPacketsAndReportsProgress()
{
    ControlledFile it;
    answerThreePackets(it);
    std::string content;
    QVERIFY(it.control.readBinary(6, 3, content, it.error));
    QCOMPARE(content, std::string("onetwothree"));
    QCOMPARE(heads(it), headsOfThreePackets());
    QCOMPARE(linesWith(it, "reading: ").join(QLatin1Char(' ')),
             QStringLiteral("reading: 0.666667 reading: 1"));
    QVERIFY(linesWith(it, "info: ").filter(QStringLiteral("onetwothree")).isEmpty());
}

void tst_FileBinary::failedReadKeepsReceivedPackets()
{
    ControlledFile it;
    it.device.channel->answer(packet("one", 3, 0));
    it.device.channel->answer(packet("two", 3, 1));
    it.device.channel->answer(refusal(260));
    s_FileDetail file;
    QVERIFY(!it.control.readBinary(file, it.error));
    QCOMPARE(it.error,
             QStringLiteral("Get file export information failed: "
                            "software error: Request timed out ."));
    QCOMPARE(file.binary, std::string("onetwo"));
}

void tst_FileBinary::refusedReadDoesNotChangeTheOutput()
{
    ControlledFile it;
    it.device.channel->answer(refusal(9));
    std::string content = "from before";
    QVERIFY(!it.control.readBinary(6, 3, content, it.error));
    QCOMPARE(content, std::string("from before"));
}

void tst_FileBinary::readWithoutChannelEmptiesTheOutput()
{
    ControlledFile it;
    it.device.removeChannel();
    std::string content = "from before";
    QVERIFY(it.control.readBinary(6, 3, content, it.error));
    QCOMPARE(content, std::string());
}

QTEST_GUILESS_MAIN(tst_FileBinary)
#include "tst_filebinary.moc"
