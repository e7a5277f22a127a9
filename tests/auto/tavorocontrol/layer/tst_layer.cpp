#include "layerwrites.h"

#include <QtTest>
#include <support/tavorocontrol/writetests.h>

using namespace Tavoro::ProtoModel::Layer;
using Tavoro::Control::Layer;

static_assert(std::is_base_of_v<QObject, Layer>);
static_assert(!std::is_base_of_v<std::enable_shared_from_this<Layer>, Layer>);
static_assert(std::is_constructible_v<Layer, std::weak_ptr<Tavoro::BizModel::Device>, QObject *>);
static_assert(std::is_same_v<decltype(&Layer::readDetails),
                             bool (Layer::*)(int, int, int, int, std::vector<s_LayerFullDetail> &,
                                             QString &)>);
static_assert(std::is_same_v<decltype(&Layer::writeRemovedAll),
                             bool (Layer::*)(unsigned char, unsigned char, QString &)>);

class tst_Layer : public ListWriteTests {
    Q_OBJECT

public:
    tst_Layer() : ListWriteTests(checked(layerWrites())) { }

private Q_SLOTS:
    void removedAllNamesTheScreenInTheHead_data();
    void removedAllNamesTheScreenInTheHead();
    void removedAllOfScreen2SendsFFFF0002();
    void refusedRemovedAllFails();
    void removedWithAnEmptyListLeavesTheArgumentsAsConstructed();
    void removedIsAnObjectWithTheIdentityAsItsOnlyKey();

    void readSendsItsFiltersInTheHead_data();
    void readSendsItsFiltersInTheHead();
    void thirdFilterIsSentAtPosition32();
    void enableAllAndReadShareTheirCodeAndDifferInType();
    void readAppendsToTheResult();
    void readElementsStartWithDefaults();
    void failedReadReturnsTheSentence();
    void undecodableAnswerGivesTheCodecsText_data();
    void undecodableAnswerGivesTheCodecsText();
};

void tst_Layer::removedAllNamesTheScreenInTheHead_data()
{
    QTest::addColumn<int>("screenId");
    QTest::addColumn<int>("screenType");
    QTest::addColumn<QByteArray>("arguments"); // positions 31 to 34

    QTest::newRow("ordinary") << 2 << 0 << QByteArray("ffff0002");
    QTest::newRow("each in its place") << 3 << 4 << QByteArray("ffff0403");
    QTest::newRow("highest numbers") << 255 << 254 << QByteArray("fffffeff");
}

void tst_Layer::removedAllNamesTheScreenInTheHead()
{
    QFETCH(int, screenId);
    QFETCH(int, screenType);
    QFETCH(QByteArray, arguments);
    Controlled<Layer> it;
    it.setTimeouts(7001, {0x14, 0x0E, 7002});

    QVERIFY(it.control.writeRemovedAll(static_cast<unsigned char>(screenId),
                                       static_cast<unsigned char>(screenType), it.error));
    QCOMPARE(it.error, textFromBefore());
    QCOMPARE(it.sentCount(), std::size_t(1));
    QCOMPARE(headHex(it.lastSent()), requestHead(2, 0x140E, arguments));
    QCOMPARE(it.lastSent().body, std::string("[]"));
    QCOMPARE(it.lastSent().timeout, 7002);
    QCOMPARE(it.journal.lines().filter(QStringLiteral("status bar ")),
             QStringList(QStringLiteral(
                 "status bar 0 for 5000 ms: Set layer remove information successfully.")));
}

void tst_Layer::removedAllOfScreen2SendsFFFF0002()
{
    Controlled<Layer> it;
    QVERIFY(it.control.writeRemovedAll(2, 0, it.error));
    QCOMPARE(headHex(it.lastSent(), 29, 34), QStringLiteral("0e14ffff0002"));
    QCOMPARE(it.lastSent().body, std::string("[]"));
}

void tst_Layer::refusedRemovedAllFails()
{
    Controlled<Layer> it;
    ScriptedAnswer refusal;
    refusal.status = 67;
    it.device.channel->answer(refusal);

    QVERIFY(!it.control.writeRemovedAll(2, 0, it.error));
    QCOMPARE(it.error,
             QStringLiteral("Set layer remove information failed: "
                            "The current device is already under control ."));
}

void tst_Layer::removedWithAnEmptyListLeavesTheArgumentsAsConstructed()
{
    Controlled<Layer> it;
    QVERIFY(it.control.writeRemoved({}, it.error));
    QCOMPARE(headHex(it.lastSent(), 29, 34), QStringLiteral("0e1400000000"));
    QCOMPARE(it.lastSent().body, std::string("[]"));
}

void tst_Layer::removedIsAnObjectWithTheIdentityAsItsOnlyKey()
{
    Controlled<Layer> it;
    QVERIFY(it.control.writeRemoved({s_LayerRemoved()}, it.error));
    QCOMPARE(it.lastSent().body,
             std::string(R"([{"layerIdenti":{"screenId":0,"screenType":0,)"
                         R"("layerId":0,"layerType":0,"sceneType":0}}])"));
}

void tst_Layer::readSendsItsFiltersInTheHead_data()
{
    QTest::addColumn<int>("screenId");
    QTest::addColumn<int>("screenType");
    QTest::addColumn<int>("third");
    QTest::addColumn<int>("fourth");
    QTest::addColumn<QByteArray>("arguments"); // positions 31 to 34

    // clang-format off
    QTest::newRow("each in its place")     << 1     << 2     << 3    << 4     << QByteArray("04030201");
    QTest::newRow("no restriction")        << -1    << -1    << -1   << -1    << QByteArray("ffffffff");
    QTest::newRow("programme of a screen") << 5     << 3     << 4    << -1    << QByteArray("ff040305");
    QTest::newRow("preview of a screen")   << 5     << 3     << 2    << -1    << QByteArray("ff020305");
    QTest::newRow("only low bytes travel") << 0x1FE << 0x203 << -256 << 65535 << QByteArray("ff0003fe");
    // clang-format on
}

void tst_Layer::readSendsItsFiltersInTheHead()
{
    QFETCH(int, screenId);
    QFETCH(int, screenType);
    QFETCH(int, third);
    QFETCH(int, fourth);
    QFETCH(QByteArray, arguments);
    Controlled<Layer> it;
    it.setTimeouts(7001, {0x14, 0x00, 7002});
    it.device.channel->answerBody("[]");
    std::vector<s_LayerFullDetail> result;

    QVERIFY(it.control.readDetails(screenId, screenType, third, fourth, result, it.error));
    QCOMPARE(it.error, textFromBefore());
    QCOMPARE(it.sentCount(), std::size_t(1));
    QCOMPARE(headHex(it.lastSent()), requestHead(1, 0x1400, arguments));
    QCOMPARE(it.lastSent().body, std::string());
    QCOMPARE(it.lastSent().timeout, 7002);
    QVERIFY(result.empty());
}

void tst_Layer::thirdFilterIsSentAtPosition32()
{
    Controlled<Layer> it;
    it.device.channel->answerBody("[]");
    std::vector<s_LayerFullDetail> result;
    QVERIFY(it.control.readDetails(0, 0, 4, 0, result, it.error));
    QCOMPARE(headHex(it.lastSent(), 32, 32), QStringLiteral("04"));
}

void tst_Layer::enableAllAndReadShareTheirCodeAndDifferInType()
{
    Controlled<Layer> it;
    it.device.channel->answerBody("[]");
    std::vector<s_LayerFullDetail> result;
    QVERIFY(it.control.readDetails(0, 0, 0, 0, result, it.error));
    const QString read = headHex(it.lastSent());
    QVERIFY(it.control.writeEnableAll({}, it.error));
    const QString write = headHex(it.lastSent());

    QCOMPARE(read, requestHead(1, 0x1400));
    QCOMPARE(write, requestHead(2, 0x1400));
}

void tst_Layer::readAppendsToTheResult()
{
    Controlled<Layer> it;
    std::vector<s_LayerFullDetail> result;
    it.device.channel->answerBody(R"([{"layerIdenti":{"screenId":1,"layerId":1},"zorder":1},)"
                                  R"({"layerIdenti":{"screenId":1,"layerId":2},"zorder":2}])");
    QVERIFY(it.control.readDetails(1, 1, 4, -1, result, it.error));
    it.device.channel->answerBody(R"([{"layerIdenti":{"screenId":1,"layerId":1},"zorder":3}])");
    QVERIFY(it.control.readDetails(1, 1, 2, -1, result, it.error));

    QCOMPARE(result.size(), std::size_t(3));
    for (std::size_t i = 0; i < result.size(); ++i)
        QCOMPARE(std::size_t(result[i].zorder), i + 1);
}

void tst_Layer::readElementsStartWithDefaults()
{
    Controlled<Layer> it;
    it.device.channel->answerBody(R"([{"layerIdenti":{"screenId":3},)"
                                  R"("source":{"crop":[{"id":1}]},"UMD":[{"index":4}]}])");
    std::vector<s_LayerFullDetail> result;
    QVERIFY(it.control.readDetails(-1, -1, -1, -1, result, it.error));

    QCOMPARE(result.size(), std::size_t(1));
    const s_LayerFullDetail &layer = result.front();
    QCOMPARE(int(layer.layerIdenti.screenId), 3);
    QCOMPARE(int(layer.layerIdenti.layerId), 0);
    QCOMPARE(layer.cutFill.enable, false);
    QCOMPARE(layer.general.name, std::string("N/A"));
    QCOMPARE(layer.source.crop.front().widthRatio, 100000);
    QCOMPARE(layer.window.width, 1920);
    QCOMPARE(layer.testColor.R, 50);
    QCOMPARE(layer.opacity, 100);
    QCOMPARE(layer.imageQuality.contrast.all, 50);
    QCOMPARE(layer.shadow.window.height, 1080);
    QCOMPARE(layer.border.size.hWidth, 2);
    QCOMPARE(layer.UMD.front().enable, 1);
    QCOMPARE(layer.UMD.front().color.backgroundColor.opacity, 100);
}

void tst_Layer::failedReadReturnsTheSentence()
{
    Controlled<Layer> it;
    ScriptedAnswer refusal;
    refusal.status = 364;
    refusal.body = R"([{"zorder":1}])";
    it.device.channel->answer(refusal);
    std::vector<s_LayerFullDetail> result;

    QVERIFY(!it.control.readDetails(-1, -1, -1, -1, result, it.error));
    QCOMPARE(it.error,
             QStringLiteral("Get layer detail information failed: "
                            "protocol error: Device response timeout ."));
    QVERIFY(result.empty());
}

void tst_Layer::undecodableAnswerGivesTheCodecsText_data()
{
    QTest::addColumn<QByteArray>("answer");
    QTest::addColumn<QString>("error");

    // clang-format off
    QTest::newRow("empty body")           << QByteArray()
        << QStringLiteral("Decode json failed: error at line :0 col :0 msg:array must start with [.");
    QTest::newRow("identity not nested")  << QByteArray(R"([{"layerIdenti":7}])")
        << QStringLiteral("Decode json failed: error at line :0 col :17 msg:read object must start with {!");
    QTest::newRow("trailing comma")       << QByteArray(R"([{"zorder":1,}])")
        << QStringLiteral("Decode json failed: error at line :0 col :14 msg:object key must be string");
    // clang-format on
}

void tst_Layer::undecodableAnswerGivesTheCodecsText()
{
    QFETCH(QByteArray, answer);
    QFETCH(QString, error);
    Controlled<Layer> it;
    it.device.channel->answerBody(answer.toStdString());
    std::vector<s_LayerFullDetail> result;

    QVERIFY(!it.control.readDetails(-1, -1, -1, -1, result, it.error));
    QCOMPARE(it.error, error);
    QCOMPARE(it.warnings(), QStringList());
    QCOMPARE(it.journal.lines().filter(QStringLiteral("status bar ")),
             QStringList(QStringLiteral(
                 "status bar 0 for 5000 ms: Get layer detail information successfully.")));
}

QTEST_GUILESS_MAIN(tst_Layer)
#include "tst_layer.moc"
