#include <support/tavorocontrol/writetests.h>
#include <tavorocontrol/auxiliary.h>
#include <tavorocontrol/proto/codec.h>

#include <QtTest>

using namespace Tavoro::ProtoModel::Auxiliary;
using Tavoro::Control::Auxiliary;

static_assert(std::is_base_of_v<QObject, Auxiliary>);
static_assert(
    std::is_constructible_v<Auxiliary, std::weak_ptr<Tavoro::BizModel::Device>, QObject *>);
static_assert(std::is_same_v<decltype(&Auxiliary::saveDeviceData), bool (Auxiliary::*)(QString &)>);
// The error text is passed by value: it does not reach the caller.
static_assert(std::is_same_v<decltype(&Auxiliary::readDeviceLoadTransferProgress),
                             bool (Auxiliary::*)(s_DeviceProcess &, QString)>);
static_assert(std::is_same_v<decltype(&Auxiliary::updateCutoutRGB), bool (Auxiliary::*)()>);

namespace {

/// A write of one record.
template <class Record>
WriteRow<Auxiliary> byRecord(const char *name, bool (Auxiliary::*member)(const Record &, QString &),
                             quint16 code, Record record, std::string body)
{
    return {name,
            [=](Auxiliary &control, QString &error) { return (control.*member)(record, error); },
            {},
            code,
            std::move(body)};
}

// clang-format off
const std::vector<WriteRow<Auxiliary>> &recordWrites()
{
    static const std::vector<WriteRow<Auxiliary>> rows = {
        byRecord<s_AuxiliaryOpt>("writeRestartShutdown", &Auxiliary::writeRestartShutdown, 0xFC01, {2}, R"({"type":2})"),
        byRecord<s_AuxiliaryOpt>("writeFactoryType",     &Auxiliary::writeFactoryType,     0xFC02, {3}, R"({"type":3})"),
        byRecord<s_AuxiliaryOpt>("writeSourceLostCnt",   &Auxiliary::writeSourceLostCnt,   0xFC04, {-4}, R"({"type":-4})"),
        byRecord<s_CutoutPos>("pickCutoutPos", &Auxiliary::pickCutoutPos, 0xFC06, {1, 2, 4294967295U, {-3, 4}},
            R"({"enable":1,"type":2,"id":4294967295,"pos":{"x":-3,"y":4}})"),
        byRecord<s_UpgradeDetail>("setUgradeConfig", &Auxiliary::setUgradeConfig, 0xFC08, {1, "/upload/p.bin", 2, 3, {{4, 5, 6, {{7}, {8}}}, {9, 0, 0, {}}}},
            R"({"upgradeType":1,"filePath":"/upload/p.bin","reboot":2,"deleteUpgradeFile":3,)"
            R"("parts":[{"type":4,"slotId":5,"boardId":6,"section":[{"code":7},{"code":8}]},{"type":9,"slotId":0,"boardId":0,"section":[]}]})"),
        byRecord<s_UpgradeDetail>("setUgradeConfig without parts", &Auxiliary::setUgradeConfig, 0xFC08, {},
            R"({"upgradeType":0,"filePath":"","reboot":0,"deleteUpgradeFile":0,"parts":[]})"),
        byRecord<s_DeviceTime>("setDeviceTime", &Auxiliary::setDeviceTime, 0xFC0C, {2026, 11, 21, 5, 50, 59, 999},
            R"({"year":2026,"month":11,"day":21,"hour":5,"minute":50,"second":59,"millisecond":999})"),
        {"saveDeviceData", [](Auxiliary &control, QString &error) { return control.saveDeviceData(error); }, {}, 0xFC03, ""},
    };
    return rows;
}
// clang-format on

/// One read: the member, and an answer in which no field has its default.
struct ReadRow {
    /// \a seen gets the caller's record after the call, as JSON.
    using Call = std::function<bool(Auxiliary &, std::string &seen, QString &error)>;

    const char *name;
    Call read;
    quint16 code;
    const char *label;
    const char *answer;
    const char *decodeError; ///< For the answer "1".
};

template <class Record, class Member>
ReadRow::Call into(Member member)
{
    return [=](Auxiliary &control, std::string &seen, QString &error) {
        Record record;
        const bool ok = (control.*member)(record, error);
        ajson::encodeRecord(record, seen);
        return ok;
    };
}

constexpr auto noRecord = "error at line :0 col :1 msg:read object must start with {!";
constexpr auto noArray = "error at line :0 col :1 msg:array must start with [.";

// clang-format off
const std::vector<ReadRow> &recordReads()
{
    static const std::vector<ReadRow> rows = {
        {"readSourceLossStatResult", into<std::vector<s_SourceLossStat>>(&Auxiliary::readSourceLossStatResult), 0xFC05,
            "source loss statics result information",
            R"([{"slotId":1,"connectors":[{"index":2,"times":4294967295}]},{"slotId":3,"connectors":[]}])", noArray},
        {"readUpgradeProgress", into<s_UpgradePercent>(&Auxiliary::readUpgradeProgress), 0xFC09, "upgrade percent information",
            R"({"result":-1,"rate":2,"subSections":{"rate":3},"parts":)"
            R"([{"type":4,"slotId":5,"rate":6,"result":7,"section":[{"code":8,"rate":9,"result":-10}]}]})", noRecord},
        {"readDeviceVersion", into<s_DeviceVersion>(&Auxiliary::readDeviceVersion), 0xFC0A, "device version information",
            R"({"version":"1","brief":"b","parts":)"
            R"([{"type":2,"slotId":3,"modelId":100000,"version":"4","brief":"c","section":[{"code":5,"version":"6","brief":"d"}]}]})", noRecord},
        {"readDeviceSelfCheckDetail", into<s_DeviceSelfCheckDetail>(&Auxiliary::readDeviceSelfCheckDetail), 0xFC0B, "self check detail information",
            R"({"parts":[{"type":2,"slotId":3,"modelId":4,"section":[{"sequence":5,"name":"fan","value":"6","max":"7","min":"8","state":9,"showBrief":10}]}]})",
            "error at line :0 col :1 msg:read object must start with {! error json is : 1"},
        {"readDeviceLoadTransferProgress", into<s_DeviceProcess>(&Auxiliary::readDeviceLoadTransferProgress), 0xFC0D, "device file load progress information",
            R"({"status":1,"totalProcess":2,"processDetails":[{"fileType":4294967295,"fileId":3,"process":4}]})", noRecord},
    };
    return rows;
}
// clang-format on

const ReadRow &recordRead(int row)
{
    return recordReads()[std::size_t(row)];
}

/// The caller's error text after a failure.
QString errorOfCaller(const ReadRow &row, const QString &text)
{
    return row.code == 0xFC0D ? textFromBefore() : text;
}

} // namespace

class tst_Auxiliary : public WriteTests {
    Q_OBJECT

public:
    tst_Auxiliary() : WriteTests(checked(recordWrites())) { }

private Q_SLOTS:
    void timeoutOfSaveDeviceDataIsOverridden();
    void pickCutoutPosReadsNothingFromTheAnswer();

    void readDecodesTheAnswer_data() { addRows(recordReads()); }
    void readDecodesTheAnswer();
    void readHasTheTimeoutOfTheTable_data() { addRows(recordReads()); }
    void readHasTheTimeoutOfTheTable();
    void refusedReadFails_data() { addRows(recordReads()); }
    void refusedReadFails();
    void undecodableAnswerGivesTheCodecsText_data() { addRows(recordReads()); }
    void undecodableAnswerGivesTheCodecsText();
    void readWithoutChannelFailsToDecode_data() { addRows(recordReads()); }
    void readWithoutChannelFailsToDecode();
    void readOfADeviceThatIsGoneFails_data() { addRows(recordReads()); }
    void readOfADeviceThatIsGoneFails();
    void sourceLossResultsAreAppended();
    void undecodableSelfCheckReportsTheWholeBody();
    void loadProgressFailsWithoutAText();

    void updateCutoutRGBReturnsFalseWithoutTraffic();
};

void tst_Auxiliary::timeoutOfSaveDeviceDataIsOverridden()
{
    Controlled<Auxiliary> it;
    it.setTimeouts(7001, {0xFC, 0x03, 7002});
    QVERIFY(it.control.saveDeviceData(it.error));
    QCOMPARE(it.lastSent().timeout, 7002);
    it.setTimeouts(7001, {});
    QVERIFY(it.control.saveDeviceData(it.error));
    QCOMPARE(it.lastSent().timeout, 7001); // the default too overrides the operation's timeout
}

void tst_Auxiliary::pickCutoutPosReadsNothingFromTheAnswer()
{
    Controlled<Auxiliary> it;
    it.device.channel->answerBody(R"({"R":1,"G":2,"B":3})");
    const auto before = it.device.model->cutoutRGB();
    QVERIFY(it.control.pickCutoutPos({}, it.error));
    QCOMPARE(it.device.model->cutoutRGB().R, before.R);
    QCOMPARE(it.error, textFromBefore());
}

void tst_Auxiliary::readDecodesTheAnswer()
{
    QFETCH(int, row);
    const ReadRow &read = recordRead(row);
    Controlled<Auxiliary> it;
    const QSignalSpy modelChanges(it.device.model.get(),
                                  &Tavoro::BizModel::Device::deviceDataChanged);
    it.device.channel->answerBody(read.answer);
    std::string seen;

    QVERIFY(read.read(it.control, seen, it.error));
    QCOMPARE(asText(seen), QString::fromLatin1(read.answer));
    QCOMPARE(it.error, textFromBefore());
    QCOMPARE(it.sentCount(), std::size_t(1));
    QCOMPARE(headHex(it.lastSent()), requestHead(1, read.code));
    QCOMPARE(it.lastSent().body, std::string());
    QCOMPARE(it.journal.lines().filter(QStringLiteral("status bar ")),
             QStringList(QStringLiteral("status bar 0 for 5000 ms: Get %1 successfully.")
                             .arg(QString::fromLatin1(read.label))));
    QCOMPARE(modelChanges.size(), 0);
}

void tst_Auxiliary::readHasTheTimeoutOfTheTable()
{
    QFETCH(int, row);
    const ReadRow &read = recordRead(row);
    Controlled<Auxiliary> it;
    it.setTimeouts(7001, {quint16(read.code >> 8), quint16(read.code & 0xFF), 7002});
    std::string seen;
    read.read(it.control, seen, it.error);
    QCOMPARE(it.lastSent().timeout, 7002);
}

void tst_Auxiliary::refusedReadFails()
{
    QFETCH(int, row);
    const ReadRow &read = recordRead(row);
    Controlled<Auxiliary> it;
    it.device.channel->answer(ScriptedAnswer::refusal(67));
    std::string seen;
    const QString sentence =
        QStringLiteral("Get %1 failed: The current device is already under control .")
            .arg(QString::fromLatin1(read.label));

    QVERIFY(!read.read(it.control, seen, it.error));
    QCOMPARE(it.error, errorOfCaller(read, sentence));
    QVERIFY(it.journal.lines().contains(QStringLiteral("status bar 2 for 5000 ms: ") + sentence));
}

void tst_Auxiliary::undecodableAnswerGivesTheCodecsText()
{
    QFETCH(int, row);
    const ReadRow &read = recordRead(row);
    Controlled<Auxiliary> it;
    it.device.channel->answerBody("1 ");
    std::string seen;
    QVERIFY(!read.read(it.control, seen, it.error));
    QCOMPARE(it.error.trimmed(),
             errorOfCaller(read,
                           QStringLiteral("Decode json failed: ")
                               + QString::fromLatin1(read.decodeError)));
    QCOMPARE(it.warnings(), QStringList());
}

void tst_Auxiliary::readWithoutChannelFailsToDecode()
{
    QFETCH(int, row);
    Controlled<Auxiliary> it;
    it.device.removeChannel();
    std::string seen;
    QVERIFY(!recordRead(row).read(it.control, seen, it.error));
}

void tst_Auxiliary::readOfADeviceThatIsGoneFails()
{
    QFETCH(int, row);
    const ReadRow &read = recordRead(row);
    Controlled<Auxiliary> it;
    it.device.model.reset();
    std::string seen;
    const QString sentence = QStringLiteral("Get %1 failed: invalid device model data .")
                                 .arg(QString::fromLatin1(read.label));

    QVERIFY(!read.read(it.control, seen, it.error));
    QCOMPARE(it.error, errorOfCaller(read, sentence));
    QVERIFY(it.journal.lines().contains(QStringLiteral("status bar 2 for 5000 ms: ") + sentence));
    QCOMPARE(it.sentCount(), std::size_t(0));
}

void tst_Auxiliary::sourceLossResultsAreAppended()
{
    Controlled<Auxiliary> it;
    it.device.channel->answerBody(R"([{"slotId":2}])");
    std::vector<s_SourceLossStat> statistics{{1, {}}};
    QVERIFY(it.control.readSourceLossStatResult(statistics, it.error));
    QCOMPARE(int(statistics.size()), 2);
    QCOMPARE(int(statistics.back().slotId), 2);
}

void tst_Auxiliary::undecodableSelfCheckReportsTheWholeBody()
{
    Controlled<Auxiliary> it;
    it.device.channel->answerBody("{\"parts\":[{\"type\":2}\n]] and %1 the rest");
    s_DeviceSelfCheckDetail detail;
    QVERIFY(!it.control.readDeviceSelfCheckDetail(detail, it.error));
    QCOMPARE(it.error,
             QStringLiteral("Decode json failed: error at line :1 col :3 "
                            "msg:invalid json document! error json is : "
                            "{\"parts\":[{\"type\":2}\n]] and %1 the rest"));
    QCOMPARE(int(detail.parts.size()), 1); // what was decoded before the error
}

void tst_Auxiliary::loadProgressFailsWithoutAText()
{
    Controlled<Auxiliary> it;
    it.device.channel->answer(ScriptedAnswer::refusal(9));
    s_DeviceProcess progress;
    QVERIFY(!it.control.readDeviceLoadTransferProgress(progress, it.error));
    QCOMPARE(it.error, textFromBefore());
    it.device.channel->answerBody("no JSON");
    QVERIFY(!it.control.readDeviceLoadTransferProgress(progress, QString()));
}

void tst_Auxiliary::updateCutoutRGBReturnsFalseWithoutTraffic()
{
    Controlled<Auxiliary> it;
    QVERIFY(!it.control.updateCutoutRGB());
    QCOMPARE(it.sentCount(), std::size_t(0));
    QCOMPARE(it.journal.lines(), QStringList());
}

QTEST_GUILESS_MAIN(tst_Auxiliary)
#include "tst_auxiliary.moc"
