#include <operationtest.h>
#include <streamedcalls.h>
#include <tavorobizmodel/devicelist.h>
#include <tavorobizmodel/file.h>
#include <tavorocontrol/file.h>

#include <QtTest>

#include <thread>

using namespace Tavoro;
using namespace Tavoro::ProtoModel::File;
using Control::File;
using FileType = BizModel::Enum::File::FileType;

namespace {

using ReadIntoRecord = bool (File::*)(s_FileDetail &, QString &);
using ReadIntoString = bool (File::*)(int, int, std::string &, QString &);
using ReadIntoCallback = bool (File::*)(int, int, StreamCallback);

[[maybe_unused]] constexpr ReadIntoRecord readIntoRecord = &File::readBinary;
[[maybe_unused]] constexpr ReadIntoString readIntoString = &File::readBinary;
[[maybe_unused]] constexpr ReadIntoCallback readIntoCallback = &File::readBinary;
static_assert(std::is_same_v<decltype(&File::importFileBinary),
                             bool (File::*)(const ProtoModel::s_FileIdentity &, const std::string &,
                                            QString &)>);
static_assert(std::is_same_v<decltype(&File::writeFileBinary),
                             bool (File::*)(const std::string &, FileType, int, unsigned, unsigned,
                                            QString &, bool)>);
static_assert(std::is_same_v<decltype(&File::updateTransferProgress),
                             bool (File::*)(const std::string &, std::vector<s_FileTransPercent> &,
                                            QString &)>);

constexpr auto packet = &ScriptedAnswer::packet;
constexpr auto refusal = &ScriptedAnswer::refusal;

/// Bytes that no text codec would leave alone.
std::string rawContent()
{
    using namespace std::string_literals;
    return "\0\xFF\"{\r\n\0"s;
}

QStringList heads(const Controlled<File> &it)
{
    QStringList heads;
    for (const SentRequest &request : it.device.channel->sent())
        heads << headHex(request);
    return heads;
}

QStringList bodies(const Controlled<File> &it)
{
    QStringList bodies;
    for (const SentRequest &request : it.device.channel->sent())
        bodies << asText(request.body);
    return bodies;
}

/// Lines of the journal that begin so.
QStringList linesWith(const Controlled<File> &it, const char *beginning)
{
    return it.journal.lines().filter(
        QRegularExpression(QLatin1Char('^') + QLatin1String(beginning)));
}

void answerThreePackets(Controlled<File> &it)
{
    it.device.channel->answer(packet("one", 3, 0));
    it.device.channel->answer(packet("two", 3, 1));
    it.device.channel->answer(packet("three", 3, 2));
}

QString cancelledText()
{
    return QStringLiteral("Operation has been cancelled.");
}

/// A report of two files, and how its records look to whoever gets them.
constexpr auto reportBody = R"([{"fileId":3,"fileType":6,"type":1,"percent":40,"status":2},)"
                            R"({"fileId":9,"fileType":2,"type":-1,"percent":-2,"status":-3}])";

QStringList figures(const std::vector<s_FileTransPercent> &percents)
{
    QStringList figures;
    for (const s_FileTransPercent &p : percents)
        figures << QStringLiteral("%1 %2 %3 %4 %5")
                       .arg(p.fileId)
                       .arg(p.fileType)
                       .arg(p.type)
                       .arg(p.percent)
                       .arg(p.status);
    return figures;
}

QStringList reportFigures()
{
    return {QStringLiteral("3 6 1 40 2"), QStringLiteral("9 2 -1 -2 -3")};
}

/// A device whose model has one file, and a report that comes in.
class Report {
public:
    using Percents = std::vector<s_FileTransPercent>;

    Report()
    {
        QString error;
        it.device.model->initModelData(std::vector<s_FileDetail>{{{3, 6}, {"p"}, {}, {}, {}}},
                                       error);
        QObject::connect(
            BizModel::DeviceList::instance(),
            &BizModel::DeviceList::signalFilesTransferProgressChanged, &it.journal,
            [this](const std::weak_ptr<BizModel::Device> &device, const Percents &percents) {
                announced << figures(percents);
                announcedDevice = device;
                seenWhenAnnounced = {int(seen.size()), modelPercent()};
            },
            Qt::DirectConnection);
    }

    bool update(const std::string &body)
    {
        return it.control.updateTransferProgress(body, seen, it.error);
    }

    int modelPercent() const
    {
        const auto file =
            it.device.model ? it.device.model->findFile(FileType(6), 3).lock() : nullptr;
        return file ? file->transferProgress().percent : -1;
    }

    Controlled<File> it;
    Percents seen;
    QStringList announced;
    std::weak_ptr<BizModel::Device> announcedDevice;
    QList<int> seenWhenAnnounced; ///< Records that the caller had, and the model's percent.
};

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
    void pieceShowsSuccessOnlyWhenAsked_data();
    void pieceShowsSuccessOnlyWhenAsked();
    void refusedPieceIsShownInAnyCase();
    void splittingOverridesTheCountsOfAPiece();
    void pieceAtTheLimitKeepsItsCounts();
    void transfersHaveTheTimeoutOfTheTable();

    void readIntoRecordTakesItsIdentityAndFillsItsBinary();
    void readReplacesWhatTheOutputHeld();
    void readJoinsPacketsAndTellsProgress();
    void partialReadLeavesWhatArrived();
    void refusedReadLeavesTheOutput();
    void readWithoutChannelLeavesNothing();

    void streamedReadHandsOverEachPacket();
    void streamedReadReturnsItsFailure();
    void streamedReadOfADeviceThatIsGoneFails();
    void cancelBeforeAStreamedReadFailsItWithoutTraffic();
    void cancelStaysUntilItIsCleared();
    void cancelOfOneFileLeavesOthersAlone();
    void cancelFromAnotherThreadStopsAStreamedRead();
    void deviceStaysForTheLengthOfAStreamedRead();
    void emptyCallbackThrows();

    void progressReachesSignalCallerAndModel();
    void progressIsAnnouncedBeforeAnybodyHasIt();
    void progressOfAFileThatTheModelLacksIsSkipped();
    void progressReplacesWhatTheCallerHad();
    void progressForADeviceThatIsGoneIsAnnouncedAndFails();
    void undecodableProgressReachesNobody();
};

void tst_FileBinary::importSendsTheContentRaw()
{
    Controlled<File> it;
    QVERIFY(it.control.importFileBinary({3, 2}, rawContent(), it.error));
    QCOMPARE(it.sentCount(), std::size_t(1));
    QCOMPARE(headHex(it.lastSent()), requestHead(4, 0xFA03, "02030000"));
    QCOMPARE(it.lastSent().body, rawContent());
    QVERIFY(linesWith(it, "info: ").first().endsWith(QStringLiteral("\" lables: 0\"")));
}

void tst_FileBinary::importOfAnEmptyContentSendsAnEmptyBody()
{
    Controlled<File> it;
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
    Controlled<File> it;
    const QByteArray bytes = arguments.toLatin1();
    std::string content;
    QVERIFY(it.control.importFileBinary({fileId, fileType}, "x", it.error));
    QVERIFY(it.control.writeFileBinary("x", FileType(fileType), fileId, 0, 0, it.error, true));
    QVERIFY(it.control.readBinary(fileType, fileId, content, it.error));
    QVERIFY(it.control.readBinary(fileType, fileId, tellCallsTo(it.journal)));
    const QString write = requestHead(4, 0xFA03, bytes);
    const QString read = requestHead(3, 0xFA04, bytes);
    QCOMPARE(heads(it), (QStringList{write, write, read, read}));
}

void tst_FileBinary::importShowsSuccess()
{
    Controlled<File> it;
    QVERIFY(it.control.importFileBinary({3, 2}, "content", it.error));
    QCOMPARE(it.error, textFromBefore());
    QCOMPARE(linesWith(it, "status bar"),
             QStringList(QStringLiteral(
                 "status bar 0 for 5000 ms: Set file import information successfully.")));
}

void tst_FileBinary::longImportIsSplit()
{
    Controlled<File> it;
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
    Controlled<File> it;
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

void tst_FileBinary::pieceShowsSuccessOnlyWhenAsked_data()
{
    QTest::addColumn<bool>("showMessage");
    QTest::addColumn<quint32>("limit");
    QTest::newRow("asked") << true << 100U;
    QTest::newRow("not asked") << false << 100U;
    QTest::newRow("split, asked") << true << 2U;
    QTest::newRow("split, not asked") << false << 2U;
}

void tst_FileBinary::pieceShowsSuccessOnlyWhenAsked()
{
    QFETCH(const bool, showMessage);
    QFETCH(const quint32, limit);
    Controlled<File> it;
    it.device.channel->info.maxPacketSize = limit;
    QVERIFY(it.control.writeFileBinary("piece", FileType(2), 3, 9, 4, it.error, showMessage));
    QCOMPARE(int(linesWith(it, "status bar").size()), showMessage ? 1 : 0);
}

void tst_FileBinary::refusedPieceIsShownInAnyCase()
{
    Controlled<File> it;
    it.device.channel->answer(refusal(9));
    QVERIFY(!it.control.writeFileBinary("piece", FileType(2), 3, 9, 4, it.error, false));
    QCOMPARE(it.error, QStringLiteral("Set file import information failed: hardware error:9 ."));
    QCOMPARE(linesWith(it, "status bar"),
             QStringList(QStringLiteral("status bar 2 for 5000 ms: ") + it.error));
}

void tst_FileBinary::splittingOverridesTheCountsOfAPiece()
{
    Controlled<File> it;
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
    Controlled<File> it;
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
    Controlled<File> it;
    it.setTimeouts(7001, {0xFA, 0x04, 7002});
    s_FileDetail file;
    it.control.readBinary(file, it.error);
    it.control.readBinary(6, 3, tellCallsTo(it.journal));
    it.control.importFileBinary({3, 6}, "x", it.error);
    const auto sent = it.device.channel->sent();
    QCOMPARE(sent.at(0).timeout, 7002);
    QCOMPARE(sent.at(1).timeout, 7002);
    QCOMPARE(sent.at(2).timeout, 7001);
}

void tst_FileBinary::readIntoRecordTakesItsIdentityAndFillsItsBinary()
{
    Controlled<File> it;
    it.device.channel->answerBody(rawContent());
    s_FileDetail file{{3, 6}, {"p"}, {}, {4, 5, 6, 7}, "from before"};
    QVERIFY(it.control.readBinary(file, it.error));
    QCOMPARE(it.error, textFromBefore());
    QCOMPARE(heads(it), QStringList(requestHead(3, 0xFA04, "06030000")));
    QCOMPARE(it.lastSent().body, std::string());
    QCOMPARE(file.binary, rawContent());
    QCOMPARE(asText(file.general.name), QStringLiteral("p"));
    QCOMPARE(file.size.hashSum, 5); // stated by the device, not compared with the content
}

void tst_FileBinary::readReplacesWhatTheOutputHeld()
{
    Controlled<File> it;
    it.device.channel->answerBody("new");
    std::string content = "from before";
    QVERIFY(it.control.readBinary(6, 3, content, it.error));
    QCOMPARE(content, std::string("new"));
}

void tst_FileBinary::readJoinsPacketsAndTellsProgress()
{
    Controlled<File> it;
    answerThreePackets(it);
    std::string content;
    QVERIFY(it.control.readBinary(6, 3, content, it.error));
    QCOMPARE(content, std::string("onetwothree"));
    QCOMPARE(heads(it),
             (QStringList{QStringLiteral("0000"
                                         "03"
                                         "00000000"
                                         "00000000"
                                         "04fa"
                                         "06030000"
                                         "00"),
                          QStringLiteral("0000"
                                         "03"
                                         "03000000"
                                         "01000000"
                                         "04fa"
                                         "06030000"
                                         "00"),
                          QStringLiteral("0000"
                                         "03"
                                         "03000000"
                                         "02000000"
                                         "04fa"
                                         "06030000"
                                         "00")}));
    QCOMPARE(linesWith(it, "reading: ").join(QLatin1Char(' ')),
             QStringLiteral("reading: 0.666667 reading: 1"));
    QVERIFY(linesWith(it, "info: ").filter(QStringLiteral("onetwothree")).isEmpty());
}

void tst_FileBinary::partialReadLeavesWhatArrived()
{
    Controlled<File> it;
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

void tst_FileBinary::refusedReadLeavesTheOutput()
{
    Controlled<File> it;
    it.device.channel->answer(refusal(9));
    std::string content = "from before";
    QVERIFY(!it.control.readBinary(6, 3, content, it.error));
    QCOMPARE(content, std::string("from before"));
}

void tst_FileBinary::readWithoutChannelLeavesNothing()
{
    Controlled<File> it;
    it.device.removeChannel();
    std::string content = "from before";
    QVERIFY(it.control.readBinary(6, 3, content, it.error));
    QCOMPARE(content, std::string());
}

void tst_FileBinary::streamedReadHandsOverEachPacket()
{
    Controlled<File> it;
    answerThreePackets(it);
    QVERIFY(it.control.readBinary(6, 3, tellCallsTo(it.journal)));
    QCOMPARE(linesWith(it, "callback: "),
             (QStringList{streamedCall(true, 1.0 / 3, "one"), streamedCall(true, 2.0 / 3, "two"),
                          streamedCall(true, 1, "three")}));
    QCOMPARE(heads(it),
             (QStringList{QStringLiteral("0000"
                                         "03"
                                         "00000000"
                                         "00000000"
                                         "04fa"
                                         "06030000"
                                         "00"),
                          QStringLiteral("0000"
                                         "03"
                                         "03000000"
                                         "01000000"
                                         "04fa"
                                         "06030000"
                                         "00"),
                          QStringLiteral("0000"
                                         "03"
                                         "03000000"
                                         "02000000"
                                         "04fa"
                                         "06030000"
                                         "00")}));
    QCOMPARE(bodies(it), (QStringList{QString(), QString(), QString()}));
    QCOMPARE(linesWith(it, "reading: "), QStringList()); // the callback tells
}

void tst_FileBinary::streamedReadReturnsItsFailure()
{
    Controlled<File> it;
    it.device.channel->answer(refusal(9));
    QVERIFY(!it.control.readBinary(6, 3, tellCallsTo(it.journal)));
    QCOMPARE(linesWith(it, "callback: "),
             QStringList(streamedCall(
                 false, 0, {},
                 QStringLiteral("Get file export information failed: hardware error:9 ."))));
}

void tst_FileBinary::streamedReadOfADeviceThatIsGoneFails()
{
    Controlled<File> it;
    it.device.model.reset();
    QVERIFY(!it.control.readBinary(6, 3, tellCallsTo(it.journal)));
    QCOMPARE(
        linesWith(it, "callback: "),
        QStringList(streamedCall(
            false, 0, {},
            QStringLiteral("Get file export information failed: invalid device model data ."))));
}

void tst_FileBinary::cancelBeforeAStreamedReadFailsItWithoutTraffic()
{
    Controlled<File> it;
    it.control.setCancelledState(true);
    QVERIFY(!it.control.readBinary(6, 3, tellCallsTo(it.journal)));
    QCOMPARE(linesWith(it, "callback: "), QStringList(streamedCall(false, 0, {}, cancelledText())));
    QCOMPARE(it.sentCount(), std::size_t(0));
}

void tst_FileBinary::cancelStaysUntilItIsCleared()
{
    Controlled<File> it;
    it.control.setCancelledState(true);
    QVERIFY(!it.control.readBinary(6, 3, tellCallsTo(it.journal)));
    QVERIFY(!it.control.readBinary(6, 3, tellCallsTo(it.journal)));
    it.control.setCancelledState(false);
    QVERIFY(it.control.readBinary(6, 3, tellCallsTo(it.journal)));
}

void tst_FileBinary::cancelOfOneFileLeavesOthersAlone()
{
    Controlled<File> it;
    it.control.setCancelledState(true);
    File fresh(it.device.model, nullptr);
    QVERIFY(fresh.readBinary(6, 3, tellCallsTo(it.journal)));
}

void tst_FileBinary::cancelFromAnotherThreadStopsAStreamedRead()
{
    Controlled<File> it;
    it.device.channel->answer(packet("one", 3, 0));
    auto second = packet("two", 3, 1);
    second.before = [&it] {
        std::thread([&it] { it.control.setCancelledState(true); }).join();
    };
    it.device.channel->answer(second);
    QVERIFY(!it.control.readBinary(6, 3, tellCallsTo(it.journal)));
    QCOMPARE(linesWith(it, "callback: "),
             (QStringList{streamedCall(true, 1.0 / 3, "one"),
                          streamedCall(false, 1.0 / 3, {}, cancelledText())}));
}

void tst_FileBinary::deviceStaysForTheLengthOfAStreamedRead()
{
    Controlled<File> it;
    answerThreePackets(it);
    const std::weak_ptr<BizModel::Device> device = it.device.model;
    QStringList got;
    QVERIFY(it.control.readBinary(6, 3, [&](bool, double, const std::string &data, QString &) {
        it.device.model.reset();
        got << asText(data)
            << (device.expired() ? QStringLiteral("gone") : QStringLiteral("there"));
    }));
    QCOMPARE(got.join(QLatin1Char(' ')), QStringLiteral("one there two there three there"));
    QVERIFY(device.expired());
}

void tst_FileBinary::emptyCallbackThrows()
{
    Controlled<File> it;
    QVERIFY(throwsBadFunctionCall([&] { it.control.readBinary(6, 3, StreamCallback()); }));
}

void tst_FileBinary::progressReachesSignalCallerAndModel()
{
    Report report;
    QVERIFY(report.update(reportBody));
    QCOMPARE(report.it.error, textFromBefore());
    QCOMPARE(report.announced, reportFigures());
    QCOMPARE(report.announcedDevice.lock(), report.it.device.model);
    QCOMPARE(figures(report.seen), reportFigures());
    const auto file = report.it.device.model->findFile(FileType(6), 3).lock();
    QCOMPARE(figures({file->transferProgress()}), QStringList(reportFigures().first()));
    QCOMPARE(report.it.sentCount(), std::size_t(0));
    QCOMPARE(report.it.journal.lines(), QStringList());
}

void tst_FileBinary::progressIsAnnouncedBeforeAnybodyHasIt()
{
    Report report;
    QVERIFY(report.update(reportBody));
    QCOMPARE(report.seenWhenAnnounced, (QList<int>{0, 0}));
}

void tst_FileBinary::progressOfAFileThatTheModelLacksIsSkipped()
{
    Report report;
    // The id of the model's file under another type, then another id, and only then the file.
    QVERIFY(report.update(R"([{"fileId":3,"fileType":8,"percent":10},)"
                          R"({"fileId":4,"fileType":6,"percent":20},)"
                          R"({"fileId":3,"fileType":6,"percent":30}])"));
    QCOMPARE(report.modelPercent(), 30);
    QCOMPARE(int(report.seen.size()), 3);
    QCOMPARE(int(report.announced.size()), 3);
    QCOMPARE(report.it.journal.lines(), QStringList());
}

void tst_FileBinary::progressReplacesWhatTheCallerHad()
{
    Report report;
    report.seen.resize(5);
    QVERIFY(report.update(reportBody));
    QCOMPARE(figures(report.seen), reportFigures());
    QVERIFY(report.update("[]"));
    QVERIFY(report.seen.empty());
}

void tst_FileBinary::progressForADeviceThatIsGoneIsAnnouncedAndFails()
{
    Report report;
    report.it.device.model.reset();
    QVERIFY(!report.update(reportBody));
    QCOMPARE(report.it.error, QStringLiteral("Device is null."));
    QCOMPARE(report.announced, reportFigures());
    QVERIFY(report.announcedDevice.expired());
    QCOMPARE(figures(report.seen), reportFigures());
}

void tst_FileBinary::undecodableProgressReachesNobody()
{
    Report report;
    QVERIFY(!report.update(R"([{"fileId":3,"fileType":6,"percent":"x"])"));
    QCOMPARE(report.it.error,
             QStringLiteral("Decode json failed: error at line :0 col :40 "
                            "msg:invalid json document!"));
    QCOMPARE(report.announced, QStringList());
    QVERIFY(report.seen.empty());
    QCOMPARE(report.modelPercent(), 0);
    QCOMPARE(report.it.journal.lines(), QStringList());
}

QTEST_GUILESS_MAIN(tst_FileBinary)
#include "tst_filebinary.moc"
