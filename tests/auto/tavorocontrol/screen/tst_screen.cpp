#include "screenwrites.h"

#include <support/tavorocontrol/writetests.h>

#include <tavorobizmodel/screen.h>
#include <tavorocontrol/screen.h>

#include <QtTest>

using namespace Tavoro::ProtoModel::Screen;
using Tavoro::Control::Screen;
using Tavoro::ProtoModel::s_ScreenId;

static_assert(std::is_base_of_v<QObject, Screen>);
static_assert(std::is_base_of_v<std::enable_shared_from_this<Screen>, Screen>);
static_assert(std::is_constructible_v<Screen, std::weak_ptr<Tavoro::BizModel::Device>, QObject *>);
static_assert(
    std::is_same_v<decltype(&Screen::readDetails),
                   bool (Screen::*)(int, int, int, std::vector<s_ScreenFullDetail> &, QString &)>);
static_assert(std::is_same_v<decltype(&Screen::updateScreenZelkInfo),
                             bool (Screen::*)(const std::string &, QString &)>);

namespace {

/// A device of the model with four screens.
struct WithScreens : Controlled<Screen> {
    WithScreens()
    {
        const std::vector<s_ScreenId> ids = {{1, 2}, {2, 2}, {1, 4}, {9, 4}};
        std::vector<s_ScreenFullDetail> details;
        for (const s_ScreenId &id : ids) {
            s_ScreenFullDetail detail;
            static_cast<s_ScreenId &>(detail) = id;
            details.push_back(detail);
        }
        QString ignored;
        device.model->initModelData(details, ignored);
    }

    /// Enable and status of a screen in the model.
    QString zelk(int screenType, unsigned char screenId) const
    {
        const auto screen = device.model->findScreen(screenType, screenId).lock();
        const s_ScreenZeLK state = screen->detail().screenZeLK;
        return QStringLiteral("%1 %2").arg(state.enable).arg(state.status);
    }
};

} // namespace

class tst_Screen : public ListWriteTests {
    Q_OBJECT

public:
    tst_Screen() : ListWriteTests(checked(screenWrites())) { }

private Q_SLOTS:
    void writesDoNotChangeTheModel();
    void takeAndSwitchEffectRunUnderTheTablesTimeout();
    void takeAndSwitchEffectDifferByFunctionCodeAlone();

    void readSendsItsFiltersInTheHead_data();
    void readSendsItsFiltersInTheHead();
    void readOfAllScreensSendsFF00FF();
    void readAppendsToTheResult();
    void readElementsStartWithDefaults();
    void readDoesNotChangeTheModel();
    void failedReadReturnsTheSentence();
    void undecodableAnswerGivesTheCodecsText_data();
    void undecodableAnswerGivesTheCodecsText();

    void zelkReportReachesTheModel();
    void zelkReportNamingAnUnknownScreenAppliesTheRest();
    void zelkReportForAnExpiredDeviceReturnsFalseWithoutText();
    void undecodableZelkReportGivesTheCodecsText();
    void emptyZelkReportSucceeds();
};

void tst_Screen::writesDoNotChangeTheModel()
{
    WithScreens it;
    const auto screen = it.device.model->findScreen(4, 9).lock();
    const QSignalSpy changes(screen.get(), &Tavoro::BizModel::Screen::screenChanged);
    for (const auto &row : screenWrites()) // all of them name this screen
        QVERIFY2(row.write(it.control, it.error), row.name);

    QCOMPARE(changes.size(), 0);
    QCOMPARE(screen->detail().freeze, 0);
    QCOMPARE(screen->detail().general.name, std::string("N/A"));
    QCOMPARE(it.device.model->findScreen(4, 9).lock(), screen);
}

void tst_Screen::takeAndSwitchEffectRunUnderTheTablesTimeout()
{
    Controlled<Screen> it;
    it.setTimeouts(7001, {0x13, 0x0E, 7002});

    QVERIFY(it.control.writeTake({{{9, 4}, {10, 2, 3}}}, it.error));
    QCOMPARE(it.lastSent().timeout, 7002); // not the 15000 of the operation
    QVERIFY(it.control.writeSwitchEffect({{{9, 4}, {10, 2, 3}}}, it.error));
    QCOMPARE(it.lastSent().timeout, 7001);

    it.setTimeouts(7001, {});
    QVERIFY(it.control.writeTake({}, it.error));
    QCOMPARE(it.lastSent().timeout, 7001);
}

void tst_Screen::takeAndSwitchEffectDifferByFunctionCodeAlone()
{
    Controlled<Screen> it;
    const std::vector<s_SwitchEffect> list = {{{9, 4}, {10, 2, 3}}};
    QVERIFY(it.control.writeTake(list, it.error));
    SentRequest take = it.lastSent();
    QVERIFY(it.control.writeSwitchEffect(list, it.error));
    const SentRequest effect = it.lastSent();

    QCOMPARE(take.body, effect.body);
    QVERIFY(take.head.FC != effect.head.FC);
    take.head.FC = effect.head.FC;
    QCOMPARE(headHex(take, 0, 35), headHex(effect, 0, 35));
}

void tst_Screen::readSendsItsFiltersInTheHead_data()
{
    QTest::addColumn<int>("screenId");
    QTest::addColumn<int>("screenType");
    QTest::addColumn<int>("third");
    QTest::addColumn<QByteArray>("arguments"); // positions 31 to 34

    // clang-format off
    QTest::newRow("each in its place")     << 1     << 2     << 3    << QByteArray("00030201");
    QTest::newRow("no restriction")        << -1    << -1    << -1   << QByteArray("00ffffff");
    QTest::newRow("only low bytes travel") << 0x1FE << 0x203 << -256 << QByteArray("000003fe");
    // clang-format on
}

void tst_Screen::readSendsItsFiltersInTheHead()
{
    QFETCH(int, screenId);
    QFETCH(int, screenType);
    QFETCH(int, third);
    QFETCH(QByteArray, arguments);
    Controlled<Screen> it;
    it.setTimeouts(7001, {0x13, 0x00, 7002});
    it.device.channel->answerBody("[]");
    std::vector<s_ScreenFullDetail> result;

    QVERIFY(it.control.readDetails(screenId, screenType, third, result, it.error));
    QCOMPARE(it.error, textFromBefore());
    QCOMPARE(it.sentCount(), std::size_t(1));
    QCOMPARE(headHex(it.lastSent()), requestHead(1, 0x1300, arguments));
    QCOMPARE(it.lastSent().body, std::string());
    QCOMPARE(it.lastSent().timeout, 7002);
    QVERIFY(result.empty());
}

void tst_Screen::readOfAllScreensSendsFF00FF()
{
    Controlled<Screen> it;
    it.device.channel->answerBody("[]");
    std::vector<s_ScreenFullDetail> result;

    QVERIFY(it.control.readDetails(-1, 0, -1, result, it.error));
    QCOMPARE(headHex(it.lastSent(), 34, 34), QStringLiteral("ff"));
    QCOMPARE(headHex(it.lastSent(), 33, 33), QStringLiteral("00"));
    QCOMPARE(headHex(it.lastSent(), 32, 32), QStringLiteral("ff"));
    QCOMPARE(headHex(it.lastSent(), 31, 31), QStringLiteral("00"));
}

void tst_Screen::readAppendsToTheResult()
{
    Controlled<Screen> it;
    std::vector<s_ScreenFullDetail> result;
    it.device.channel->answerBody(
        R"([{"screenId":1,"screenType":2},{"screenId":2,"screenType":4}])");
    QVERIFY(it.control.readDetails(-1, 0, -1, result, it.error));
    it.device.channel->answerBody(R"([{"screenId":3,"screenType":3}])");
    QVERIFY(it.control.readDetails(-1, 0, -1, result, it.error));

    QCOMPARE(result.size(), std::size_t(3));
    for (std::size_t i = 0; i < result.size(); ++i)
        QCOMPARE(std::size_t(result[i].screenId), i + 1);
}

void tst_Screen::readElementsStartWithDefaults()
{
    Controlled<Screen> it;
    it.device.channel->answerBody(
        R"([{"screenId":1,"mosaic":{"outputs":[{"pos":{"x":5},"feather":[{"width":8}]}]}}])");
    std::vector<s_ScreenFullDetail> result;
    QVERIFY(it.control.readDetails(-1, 0, -1, result, it.error));

    QCOMPARE(result.size(), std::size_t(1));
    const s_ScreenFullDetail &screen = result.front();
    QCOMPARE(int(screen.screenId), 1);
    QCOMPARE(screen.screenType, 0);
    QCOMPARE(screen.general.name, std::string("N/A"));
    QCOMPARE(screen.mosaic.splice.row, 1);
    QCOMPARE(screen.mosaic.window.width, 1920);
    QCOMPARE(screen.mosaic.refOutputPara.colorDepths.presetColorDepth, 255);
    QCOMPARE(screen.mosaic.outputs.front().crop.height, 1080);
    QCOMPARE(screen.mosaic.outputs.front().feather.front().gamma, 220);
    QCOMPARE(screen.backgroundColor.R, 50);
    QCOMPARE(screen.physicalSize.height, 1080);
    QCOMPARE(screen.imageQuality.gamma, 220);
    QCOMPARE(screen.testPattern.type, 65535);
    QCOMPARE(screen.switchEffect.time, 5);
    QCOMPARE(screen.HDR.dynamicRange.presetDynamicRange.type, 255);
    QCOMPARE(screen.screenZeLK.enable, 0);
}

void tst_Screen::readDoesNotChangeTheModel()
{
    WithScreens it;
    it.device.channel->answerBody(R"([{"screenId":1,"screenType":2,"screenZeLK":{"enable":1}}])");
    std::vector<s_ScreenFullDetail> result;
    QVERIFY(it.control.readDetails(-1, 0, -1, result, it.error));
    QCOMPARE(it.zelk(2, 1), QStringLiteral("0 0"));
}

void tst_Screen::failedReadReturnsTheSentence()
{
    Controlled<Screen> it;
    ScriptedAnswer refusal;
    refusal.status = 260;
    refusal.body = R"([{"screenId":1}])";
    it.device.channel->answer(refusal);
    std::vector<s_ScreenFullDetail> result;

    QVERIFY(!it.control.readDetails(-1, 0, -1, result, it.error));
    QCOMPARE(it.error,
             QStringLiteral("Get screen detail information failed: "
                            "software error: Request timed out ."));
    QVERIFY(result.empty());
}

void tst_Screen::undecodableAnswerGivesTheCodecsText_data()
{
    QTest::addColumn<QByteArray>("answer");
    QTest::addColumn<QString>("error");

    // clang-format off
    QTest::newRow("empty body")         << QByteArray()
        << QStringLiteral("Decode json failed: error at line :0 col :0 msg:array must start with [.");
    QTest::newRow("record for a list")  << QByteArray(R"({"screenId":1})")
        << QStringLiteral("Decode json failed: error at line :0 col :1 msg:array must start with [.");
    QTest::newRow("negative screen id") << QByteArray(R"([{"screenId":-1}])")
        << QStringLiteral("Decode json failed: error at line :0 col :15 msg:assign a negative signed integral to unsigned integral number.");
    QTest::newRow("cut off")            << QByteArray("[\n{\"screenId\":1}")
        << QStringLiteral("Decode json failed: error at line :1 col :15 msg:no valid array!");
    // clang-format on
}

void tst_Screen::undecodableAnswerGivesTheCodecsText()
{
    QFETCH(QByteArray, answer);
    QFETCH(QString, error);
    Controlled<Screen> it;
    it.device.channel->answerBody(answer.toStdString());
    std::vector<s_ScreenFullDetail> result;

    QVERIFY(!it.control.readDetails(-1, 0, -1, result, it.error));
    QCOMPARE(it.error, error);
    QCOMPARE(it.warnings(), QStringList());
    QCOMPARE(it.journal.lines().filter(QStringLiteral("status bar ")),
             QStringList(QStringLiteral(
                 "status bar 0 for 5000 ms: Get screen detail information successfully.")));
}

void tst_Screen::zelkReportReachesTheModel()
{
    WithScreens it;
    const auto screen = it.device.model->findScreen(2, 2).lock();
    const QSignalSpy changes(screen.get(), &Tavoro::BizModel::Screen::screenChanged);

    QVERIFY(it.control.updateScreenZelkInfo(
        R"([{"screenId":1,"screenType":2,"screenZeLK":{"enable":1,"status":5}},)"
        R"({"screenId":2,"screenType":2,"screenZeLK":{"status":6,"enable":2}}])",
        it.error));
    QCOMPARE(it.error, textFromBefore());
    QCOMPARE(it.zelk(2, 1), QStringLiteral("1 5"));
    QCOMPARE(it.zelk(2, 2), QStringLiteral("2 6"));
    QCOMPARE(it.zelk(4, 1), QStringLiteral("0 0")); // same ID, another type
    QCOMPARE(changes.size(), 1);
    QCOMPARE(it.journal.lines(), QStringList());
    QCOMPARE(it.sentCount(), std::size_t(0));
}

void tst_Screen::zelkReportNamingAnUnknownScreenAppliesTheRest()
{
    WithScreens it;
    QVERIFY(it.control.updateScreenZelkInfo(
        R"([{"screenId":1,"screenType":2,"screenZeLK":{"enable":1,"status":5}},)"
        R"({"screenId":2,"screenType":4,"screenZeLK":{"enable":9,"status":9}},)"
        R"({"screenId":1,"screenType":4,"screenZeLK":{"enable":3,"status":7}}])",
        it.error));
    QCOMPARE(it.error, textFromBefore());
    QCOMPARE(it.zelk(2, 1), QStringLiteral("1 5"));
    QCOMPARE(it.zelk(2, 2), QStringLiteral("0 0"));
    QCOMPARE(it.zelk(4, 1), QStringLiteral("3 7"));
    QCOMPARE(it.journal.lines(),
             QStringList(QStringLiteral("warning: Process auto report screen zelk info failed")));
}

void tst_Screen::zelkReportForAnExpiredDeviceReturnsFalseWithoutText()
{
    Controlled<Screen> it;
    it.device.model.reset();
    const QStringList warning(
        QStringLiteral("warning: Process auto report screen Zelk info failed: device is null."));

    it.error.clear();
    QVERIFY(!it.control.updateScreenZelkInfo(R"([{"screenId":1,"screenType":2}])", it.error));
    QCOMPARE(it.error, QString());
    QCOMPARE(it.journal.lines(), warning);

    it.journal.clear();
    it.error = textFromBefore();
    QVERIFY(!it.control.updateScreenZelkInfo("[]", it.error));
    QCOMPARE(it.error, textFromBefore());
    QCOMPARE(it.journal.lines(), warning);
}

void tst_Screen::undecodableZelkReportGivesTheCodecsText()
{
    WithScreens it;
    QVERIFY(!it.control.updateScreenZelkInfo(
        R"([{"screenId":1,"screenType":2,"screenZeLK":{"enable":1}},7])", it.error));
    QCOMPARE(it.error,
             QStringLiteral("Decode json failed: error at line :0 col :58 "
                            "msg:read object must start with {!"));
    QCOMPARE(it.zelk(2, 1), QStringLiteral("0 0"));

    it.device.model.reset(); // the body is decoded first
    QVERIFY(!it.control.updateScreenZelkInfo("", it.error));
    QCOMPARE(it.error,
             QStringLiteral("Decode json failed: error at line :0 col :0 "
                            "msg:array must start with [."));
    QCOMPARE(it.journal.lines(), QStringList());
}

void tst_Screen::emptyZelkReportSucceeds()
{
    WithScreens it;
    QVERIFY(it.control.updateScreenZelkInfo("[]", it.error));
    QCOMPARE(it.error, textFromBefore());
    QCOMPARE(it.journal.lines(), QStringList());
}

QTEST_GUILESS_MAIN(tst_Screen)
#include "tst_screen.moc"
