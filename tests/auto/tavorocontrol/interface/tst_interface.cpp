#include "interfacewrites.h"

#include <support/tavorocontrol/writetests.h>
#include <tavorobizmodel/interface.h>

#include <QtTest>

using namespace Tavoro::ProtoModel::Interface;
using Tavoro::Control::Interface;

static_assert(std::is_base_of_v<QObject, Interface>);
static_assert(std::is_base_of_v<std::enable_shared_from_this<Interface>, Interface>);
static_assert(
    std::is_constructible_v<Interface, std::weak_ptr<Tavoro::BizModel::Device>, QObject *>);
static_assert(
    std::is_same_v<decltype(&Interface::readDetails),
                   bool (Interface::*)(int, int, std::vector<s_InterfaceDetail> &, QString &)>);
static_assert(
    std::is_same_v<decltype(&Interface::writeActualTiming),
                   bool (Interface::*)(const std::vector<s_ActualTimingDetail> &, QString &)>);

class tst_Interface : public ListWriteTests {
    Q_OBJECT

public:
    tst_Interface() : ListWriteTests(checked(interfaceWrites())) { }

private Q_SLOTS:
    void writesDoNotChangeTheModel();
    void nameAndGeneralAreTheSameCommand();
    void actualTimingIsNeverSent();

    void readSendsItsFiltersInTheHead_data();
    void readSendsItsFiltersInTheHead();
    void firstFilterHasThePositionOfTheSecondOfScreens();
    void timeoutOfTheReadIsOverridden();
    void readAppendsToTheResult();
    void readElementsStartWithDefaults();
    void failedReadReturnsTheSentence();
    void undecodableAnswerGivesTheCodecsText_data();
    void undecodableAnswerGivesTheCodecsText();
};

void tst_Interface::writesDoNotChangeTheModel()
{
    Controlled<Interface> it;
    const Tavoro::ProtoModel::s_InterfaceID id{1, 2, 3};
    s_InterfaceDetail detail;
    detail.interfaceId = id;
    QVERIFY(it.device.model->initModelData(std::vector<s_InterfaceDetail>{detail}, it.error));
    const auto interface = it.device.model->findInterface(id).lock();
    const QSignalSpy changes(interface.get(), &Tavoro::BizModel::Interface::interfaceChanged);
    for (const auto &row : interfaceWrites()) // all of them name this interface
        QVERIFY2(row.write(it.control, it.error), row.name);

    QCOMPARE(changes.size(), 0);
    QCOMPARE(interface->detail().general.name, std::string("N/A"));
    QCOMPARE(it.device.model->findInterface(id).lock(), interface);
}

void tst_Interface::nameAndGeneralAreTheSameCommand()
{
    Controlled<Interface> it;
    const std::vector<s_General> list = {{{1, 2, 3}, {7, "Camera", "C"}}, {}};
    QVERIFY(it.control.writeInterfaceName(list, it.error));
    const SentRequest name = it.lastSent();
    QVERIFY(it.control.writeInterfaceGeneral(list, it.error));
    const SentRequest general = it.lastSent();

    QCOMPARE(it.sentCount(), std::size_t(2));
    QCOMPARE(headHex(name, 0, 35), headHex(general, 0, 35));
    QCOMPARE(name.body, general.body);
    QCOMPARE(name.timeout, general.timeout);
}

void tst_Interface::actualTimingIsNeverSent()
{
    Controlled<Interface> it;
    const std::vector<std::vector<s_ActualTimingDetail>> lists = {
        {}, {s_ActualTimingDetail()}, {{{1, 2, 3}, {}}, {{4, 5, 6}, {}}}};
    for (const auto &list : lists) {
        QVERIFY(!it.control.writeActualTiming(list, it.error));
        QCOMPARE(it.error, textFromBefore());
    }
    it.device.removeChannel(); // then all other writes succeed
    QVERIFY(!it.control.writeActualTiming({}, it.error));
    QCOMPARE(it.error, textFromBefore());
    QCOMPARE(it.sentCount(), std::size_t(0));
    QCOMPARE(it.journal.lines(), QStringList());
}

void tst_Interface::readSendsItsFiltersInTheHead_data()
{
    QTest::addColumn<int>("first");
    QTest::addColumn<int>("second");
    QTest::addColumn<QByteArray>("arguments"); // positions 31 to 34

    // clang-format off
    QTest::newRow("each in its place")     << 1     << 2     << QByteArray("00020100");
    QTest::newRow("all interfaces")        << 0     << -1    << QByteArray("00ff0000");
    QTest::newRow("no restriction")        << -1    << -1    << QByteArray("00ffff00");
    QTest::newRow("only low bytes travel") << 0x1FE << 0x203 << QByteArray("0003fe00");
    // clang-format on
}

void tst_Interface::readSendsItsFiltersInTheHead()
{
    QFETCH(int, first);
    QFETCH(int, second);
    QFETCH(QByteArray, arguments);
    Controlled<Interface> it;
    it.device.channel->answerBody("[]");
    std::vector<s_InterfaceDetail> result;

    QVERIFY(it.control.readDetails(first, second, result, it.error));
    QCOMPARE(it.error, textFromBefore());
    QCOMPARE(it.sentCount(), std::size_t(1));
    QCOMPARE(headHex(it.lastSent()), requestHead(1, 0x1200, arguments));
    QCOMPARE(it.lastSent().body, std::string());
    QVERIFY(result.empty());
}

void tst_Interface::firstFilterHasThePositionOfTheSecondOfScreens()
{
    Controlled<Interface> it;
    it.device.channel->answerBody("[]");
    std::vector<s_InterfaceDetail> result;
    QVERIFY(it.control.readDetails(0xAB, 0xCD, result, it.error));
    QCOMPARE(headHex(it.lastSent(), 33, 33), QStringLiteral("ab"));
    QCOMPARE(headHex(it.lastSent(), 32, 32), QStringLiteral("cd"));
    QCOMPARE(headHex(it.lastSent(), 34, 34), QStringLiteral("00"));
}

void tst_Interface::timeoutOfTheReadIsOverridden()
{
    Controlled<Interface> it;
    it.setTimeouts(7001, {0x12, 0x00, 7002});
    it.device.channel->answerBody("[]");
    std::vector<s_InterfaceDetail> result;
    QVERIFY(it.control.readDetails(0, -1, result, it.error));
    QCOMPARE(it.lastSent().timeout, 7002); // not the 100000 of the operation

    it.setTimeouts(7001, {});
    it.device.channel->answerBody("[]");
    QVERIFY(it.control.readDetails(0, -1, result, it.error));
    QCOMPARE(it.lastSent().timeout, 7001);
}

void tst_Interface::readAppendsToTheResult()
{
    Controlled<Interface> it;
    std::vector<s_InterfaceDetail> result;
    it.device.channel->answerBody(R"([{"formatMapping":1},{"formatMapping":2}])");
    QVERIFY(it.control.readDetails(0, -1, result, it.error));
    it.device.channel->answerBody(R"([{"formatMapping":3}])");
    QVERIFY(it.control.readDetails(0, -1, result, it.error));

    QCOMPARE(result.size(), std::size_t(3));
    for (std::size_t i = 0; i < result.size(); ++i)
        QCOMPARE(std::size_t(result[i].formatMapping), i + 1);
}

void tst_Interface::readElementsStartWithDefaults()
{
    Controlled<Interface> it;
    it.device.channel->answerBody(
        R"([{"interfaceId":{"slotId":1},"crop":{"id":4,"rect":{"x":9}},"HDCP":{"enable":true}}])");
    std::vector<s_InterfaceDetail> result;
    QVERIFY(it.control.readDetails(0, -1, result, it.error));

    QCOMPARE(result.size(), std::size_t(1));
    const s_InterfaceDetail &interface = result.front();
    QCOMPARE(interface.interfaceId.slotId, 1);
    QCOMPARE(interface.interfaceId.splitId, 0);
    QCOMPARE(interface.general.name, std::string("N/A"));
    QCOMPARE(interface.colorDepths.actualColorDepth, 0);
    QCOMPARE(interface.colorDepths.presetColorDepth, 255);
    QCOMPARE(interface.colorSpaces.presetColorSpace, 255);
    QCOMPARE(interface.colorRanges.presetColorRange, 255);
    QCOMPARE(interface.HDR.colorGamut.presetColorGamut, 255);
    QCOMPARE(interface.HDR.dynamicRange.actualDynamicRange.SDR.Gamma, 220);
    QCOMPARE(interface.HDCP.enable, true);
    QCOMPARE(interface.HDCP.presetType, 1);
    QCOMPARE(interface.testPattern.type, 65535);
    QCOMPARE(interface.imageQuality.saturation, 50);
    QCOMPARE(interface.crop.id, 4U);
    QCOMPARE(interface.crop.widthRatio, 100000);
    QCOMPARE(interface.crop.rect.x, 0);
    QCOMPARE(interface.crop.rect.width, 1920);
    QCOMPARE(interface.cutoutGeneral.hue.color.G, 50);
}

void tst_Interface::failedReadReturnsTheSentence()
{
    Controlled<Interface> it;
    it.device.channel->ready = false;
    std::vector<s_InterfaceDetail> result;

    QVERIFY(!it.control.readDetails(0, -1, result, it.error));
    QCOMPARE(it.error,
             QStringLiteral("Get interface detail information failed: The device is offline ."));
    QVERIFY(result.empty());
}

void tst_Interface::undecodableAnswerGivesTheCodecsText_data()
{
    QTest::addColumn<QByteArray>("answer");
    QTest::addColumn<QString>("error");

    // clang-format off
    QTest::newRow("empty body")        << QByteArray()
        << QStringLiteral("Decode json failed: error at line :0 col :0 msg:array must start with [.");
    QTest::newRow("list in an object") << QByteArray(R"([{"crop":[{"id":1}]}])")
        << QStringLiteral("Decode json failed: error at line :0 col :10 msg:read object must start with {!");
    QTest::newRow("negative crop id")  << QByteArray(R"([{"crop":{"id":-1.5}}])")
        << QStringLiteral("Decode json failed: error at line :0 col :19 msg:assign a negative float point to unsigned integral number.");
    // clang-format on
}

void tst_Interface::undecodableAnswerGivesTheCodecsText()
{
    QFETCH(QByteArray, answer);
    QFETCH(QString, error);
    Controlled<Interface> it;
    it.device.channel->answerBody(answer.toStdString());
    std::vector<s_InterfaceDetail> result;

    QVERIFY(!it.control.readDetails(0, -1, result, it.error));
    QCOMPARE(it.error, error);
    QCOMPARE(it.warnings(), QStringList());
    QCOMPARE(it.journal.lines().filter(QStringLiteral("status bar ")),
             QStringList(QStringLiteral(
                 "status bar 0 for 5000 ms: Get interface detail information successfully.")));
}

QTEST_GUILESS_MAIN(tst_Interface)
#include "tst_interface.moc"
