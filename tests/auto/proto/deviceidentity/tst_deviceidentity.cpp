#include <tavorocontrol/proto/deviceidentity.h>

#include <support/proto/recordtest.h>

using namespace Tavoro;
using namespace Tavoro::ProtoModel;

namespace {

const char fullIdentity[] =
    R"({"protocolVersion":1,"modelId":30465,"sn":"0123456789ABCDEF","mac":"02005E100001",)"
    R"("hardwareVersion":2,"firmwareVersion":3,"tcpPort":4,"slotCount":5,"backupPort":6,)"
    R"("maxPacketSize":7,"name":"wall","slotModels":[8,9],"features":10,)"
    R"("startTime":18446744073709551615,"configTime":12,"controlState":13,)"
    R"("ip":"192.0.2.7","hostName":"wall.example","extension":14})";

std::vector<RecordRow> records()
{
    return {{"s_DeviceIdentity", probe<ProtoModel::s_DeviceIdentity>()}};
}

} // namespace

class tst_DeviceIdentity : public RecordTest {
    Q_OBJECT

public:
    tst_DeviceIdentity() : RecordTest({}, records()) { }

private Q_SLOTS:
    void everyFieldOfTheIdentityIsWrittenAndRead();
    void digitsOfEitherCaseAreRead();
    void identityWithWrongDigitsIsRefused_data();
    void identityWithWrongDigitsIsRefused();
    void identityThatIsNotARecordFailsWithTheTextOfTheCodec();
};

void tst_DeviceIdentity::everyFieldOfTheIdentityIsWrittenAndRead()
{
    ProtoModel::DeviceBaseInfo info;
    std::string error;
    QVERIFY(decodeIdentity(fullIdentity, info, error));
    QCOMPARE(info.modelId, quint16(0x7701));
    QCOMPARE(info.sn, (std::array<quint8, 8>{0x01, 0x23, 0x45, 0x67, 0x89, 0xAB, 0xCD, 0xEF}));
    QCOMPARE(info.mac, (std::array<quint8, 6>{0x02, 0x00, 0x5E, 0x10, 0x00, 0x01}));
    QCOMPARE(info.maxPacketSize, quint32(7));
    QCOMPARE(info.name, std::string("wall"));
    QCOMPARE(info.ip, std::string("192.0.2.7"));
    QCOMPARE(encodeIdentity(info), std::string(fullIdentity));
}

void tst_DeviceIdentity::digitsOfEitherCaseAreRead()
{
    ProtoModel::DeviceBaseInfo info;
    std::string error;
    QVERIFY(decodeIdentity(R"({"sn":"aBcDeF0000000000","mac":"0000000000fF"})", info, error));
    QCOMPARE(info.sn[0], quint8(0xAB));
    QCOMPARE(info.mac[5], quint8(0xFF));
}

void tst_DeviceIdentity::identityWithWrongDigitsIsRefused_data()
{
    QTest::addColumn<QByteArray>("sn");
    QTest::addColumn<QByteArray>("mac");
    QTest::addColumn<QByteArray>("error");
    const QByteArray snError = "the serial number is not 16 hexadecimal digits";
    const QByteArray macError = "the MAC address is not 12 hexadecimal digits";
    // clang-format off
    QTest::newRow("no serial number")    << QByteArray()                   << QByteArray("000000000000")  << snError;
    QTest::newRow("short serial number") << QByteArray("000000000000000")  << QByteArray("000000000000")  << snError;
    QTest::newRow("letter in it")        << QByteArray("00000000000G0000") << QByteArray("000000000000")  << snError;
    QTest::newRow("no MAC address")      << QByteArray("0000000000000000") << QByteArray()                << macError;
    QTest::newRow("long MAC address")    << QByteArray("0000000000000000") << QByteArray("0000000000000") << macError;
    QTest::newRow("colons in it")        << QByteArray("0000000000000000") << QByteArray("00:00:00:00:")  << macError;
    // clang-format on
}

void tst_DeviceIdentity::identityWithWrongDigitsIsRefused()
{
    QFETCH(QByteArray, sn);
    QFETCH(QByteArray, mac);
    QFETCH(QByteArray, error);
    const QByteArray body = "{\"sn\":\"" + sn + "\",\"mac\":\"" + mac + "\",\"modelId\":5}";
    ProtoModel::DeviceBaseInfo info;
    std::string text;
    QVERIFY(!decodeIdentity(body.toStdString(), info, text));
    QCOMPARE(QByteArray::fromStdString(text), error);
    QCOMPARE(info.modelId, quint16(0));
}

void tst_DeviceIdentity::identityThatIsNotARecordFailsWithTheTextOfTheCodec()
{
    ProtoModel::DeviceBaseInfo info;
    std::string error;
    QVERIFY(!decodeIdentity("", info, error));
    QVERIFY(QByteArray::fromStdString(error).contains("read object must start with {!"));
}

QTEST_APPLESS_MAIN(tst_DeviceIdentity)
#include "tst_deviceidentity.moc"
