#pragma once

#include "requestcommand.h"

#include <tavorosim/simulateddevice.h>
#include <tavorossproxy/tcpdevicechannel.h>
#include <tavorossproxy/wirecapture.h>
#include <tavorowire/capture.h>

#include <QFile>
#include <QString>
#include <QTest>

#include <algorithm>
#include <memory>
#include <string>
#include <vector>

// Makes exchanges over TCP that are captured, and reads the frames of a capture.

inline std::shared_ptr<Tavoro::SSProxy::NetworkChannel> connectTo(quint16 port)
{
    auto channel = Tavoro::SSProxy::openTcpDeviceChannel(QStringLiteral("127.0.0.1"), port);
    QString error;
    if (!channel->waitUntilReady(30000, error))
        qFatal("%s", qUtf8Printable(error));
    return channel;
}

inline std::shared_ptr<Tavoro::SSProxy::DeviceResponseCommand>
send(Tavoro::SSProxy::NetworkChannel &channel, quint8 type, quint16 code,
     const std::string &body = {})
{
    return channel.sendSyncRequest(requestCommand(type, code, body));
}

/// Captures three exchanges with a simulated device into the file \a path: a read, a write and a
/// refused write.
inline void captureASwap(const QString &path)
{
    Tavoro::Sim::SimOptions options;
    options.packetSize = 400;
    Tavoro::Sim::SimulatedDevice device(options);
    QString error;
    QVERIFY2(device.start(error), qPrintable(error));
    QVERIFY2(Tavoro::SSProxy::startWireCapture(path, error), qPrintable(error));
    const auto channel = connectTo(device.port());
    QCOMPARE(int(send(*channel, 1, 0x110A)->status), 0);
    QCOMPARE(int(send(*channel, 2, 0x1107, R"({"swap":0})")->status), 0);
    QCOMPARE(int(send(*channel, 2, 0x1107, R"({"swap":7})")->status), 4);
    channel->stopChannel();
    Tavoro::SSProxy::stopWireCapture();
}

inline std::vector<Tavoro::SSProxy::Wire::CapturedItem> framesOf(const QString &path)
{
    QFile file(path);
    std::vector<Tavoro::SSProxy::Wire::CapturedItem> items;
    std::string error;
    if (!file.open(QIODevice::ReadOnly)
        || !Tavoro::SSProxy::Wire::decodeCapture(file.readAll().toStdString(), items, error))
        qFatal("%s: %s", qUtf8Printable(path), error.c_str());
    items.erase(std::remove_if(items.begin(), items.end(),
                               [](const Tavoro::SSProxy::Wire::CapturedItem &item) {
                                   return item.kind != Tavoro::SSProxy::Wire::CapturedKind::Frame;
                               }),
                items.end());
    return items;
}
