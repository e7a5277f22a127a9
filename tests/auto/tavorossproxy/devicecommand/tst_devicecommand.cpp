#include <tavorossproxy/devicecommand.h>

#include <QTest>

using namespace Tavoro::SSProxy;

class tst_DeviceCommand : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void newRequestIsAllZeroAndEmpty();
    void newRequestWaitsTenSeconds();
    void timeoutIsWhatWasSet();
    void newResponseIsASuccess();
    void headFieldsAreAtTheirPositions();
    void codeIsStoredLowByteFirst();
    void bodyHoldsAnyBytes();
    void bufferIsTheChannelsOwn();
};

void tst_DeviceCommand::newRequestIsAllZeroAndEmpty()
{
    const DeviceRequestCommand request;
    const auto *bytes = reinterpret_cast<const char *>(&request.head());
    QCOMPARE(QByteArray(bytes, sizeof request.head()), QByteArray(40, '\0'));
    QVERIFY(request.body().empty());
    QVERIFY(request.buffer().empty());
    QCOMPARE(request.bufferLen(), std::size_t(0));
}

void tst_DeviceCommand::newRequestWaitsTenSeconds()
{
    QCOMPARE(DeviceRequestCommand().timeout(), 10000);
}

void tst_DeviceCommand::timeoutIsWhatWasSet()
{
    DeviceRequestCommand request;
    request.setTimeout(15000);
    QCOMPARE(request.timeout(), 15000);
}

void tst_DeviceCommand::newResponseIsASuccess()
{
    const DeviceResponseCommand response;
    QCOMPARE(response.status, quint16(0));
    QVERIFY(response.body().empty());
}

void tst_DeviceCommand::headFieldsAreAtTheirPositions()
{
    DeviceRequestCommand request;
    PacketHead &head = request.head();
    head.lables = 1;
    head.type = 2;
    head.totalCount = 0x06050403;
    head.sendCount = 0x0A090807;
    head.FC = 11;
    head.BC = 12;
    for (int i = 0; i < 4; ++i)
        head.arg2[i] = static_cast<quint8>(13 + i);
    const auto *bytes = reinterpret_cast<const char *>(&head);
    QCOMPARE(QByteArray(bytes, 40).toHex(' '),
             QByteArray("00 00 00 01 00 00 00 00 00 00 00 00 00 00 00 00 00 00 00 00 02 03 04 05 "
                        "06 07 08 09 0a 0b 0c 0d 0e 0f 10 00 00 00 00 00"));
}

void tst_DeviceCommand::codeIsStoredLowByteFirst()
{
    DeviceRequestCommand request;
    request.head().BC = 0x11; // 0x1100, the details of the device
    const auto *bytes = reinterpret_cast<const char *>(&request.head());
    QCOMPARE(bytes[29], '\x00');
    QCOMPARE(bytes[30], '\x11');
}

void tst_DeviceCommand::bodyHoldsAnyBytes()
{
    DeviceRequestCommand request;
    request.body() = std::string("\0\xFF\n", 3);
    QCOMPARE(request.body().size(), std::size_t(3));
}

void tst_DeviceCommand::bufferIsTheChannelsOwn()
{
    DeviceRequestCommand request;
    request.setBuffer("frame");
    request.setBufferLen(5);
    request.body() = "body";
    QCOMPARE(request.buffer(), std::string("frame"));
    QCOMPARE(request.bufferLen(), std::size_t(5));
}

QTEST_APPLESS_MAIN(tst_DeviceCommand)
#include "tst_devicecommand.moc"
