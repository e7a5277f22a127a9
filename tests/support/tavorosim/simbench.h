#pragma once

#include <support/tavorowire/wireclient.h>

#include <tavorosim/simulateddevice.h>

#include <QTest>

#include <memory>
#include <string>

/// A device and a client; the device can be switched off and on again.
struct SimBench {
    explicit SimBench(const Tavoro::Sim::SimOptions &wanted = {}) : options(wanted) { switchOn(); }

    void switchOn()
    {
        client = std::make_unique<WireClient>();
        device = std::make_unique<Tavoro::Sim::SimulatedDevice>(options);
        QString error;
        if (!device->start(error))
            qFatal("%s", qUtf8Printable(error));
        if (!client->connectTo(device->port()) || client->identity().empty())
            qFatal("the device does not identify itself");
    }
    void switchOff()
    {
        client.reset();
        device.reset();
    }

    /// Connects again, after the device was away.
    bool reconnect()
    {
        client = std::make_unique<WireClient>();
        return client->connectTo(device->port()) && !client->identity().empty();
    }

    int write(quint16 code, const std::string &body)
    {
        return client->write(code, body).head.status;
    }
    std::string list(quint8 type = 0xFF, quint8 id = 0xFF)
    {
        return client->read(0xFA00, {type, id, 0, 0}).body;
    }
    /// One packet of a content.
    int send(quint8 type, quint8 id, const std::string &piece, quint32 count = 1, quint32 index = 0)
    {
        WireFrame frame =
            WireClient::request(0xFA03, Tavoro::SSProxy::CommandType::BinaryWrite, piece);
        frame.head.arg2[0] = type;
        frame.head.arg2[1] = id;
        frame.head.totalCount = count;
        frame.head.sendCount = index;
        return client->exchange(frame).head.status;
    }
    WireFrame receive(quint8 type, quint8 id, quint32 count = 1, quint32 index = 0)
    {
        WireFrame frame = WireClient::request(0xFA04, Tavoro::SSProxy::CommandType::BinaryRead);
        frame.head.arg2[0] = type;
        frame.head.arg2[1] = id;
        frame.head.totalCount = count;
        frame.head.sendCount = index;
        return client->exchange(frame);
    }
    void import(int type, int id, const std::string &content)
    {
        QCOMPARE(write(0xFA03, announcement(type, id, static_cast<int>(content.size()), 0)), 0);
        QCOMPARE(send(static_cast<quint8>(type), static_cast<quint8>(id), content), 0);
    }
    static std::string announcement(int type, int id, int length, int hashSum)
    {
        return QStringLiteral(R"([{"fileId":%1,"fileType":%2,"general":{"name":"wall"},)"
                              R"("size":{"length":%3,"hashSum":%4,"width":8,"height":6}}])")
            .arg(id)
            .arg(type)
            .arg(length)
            .arg(hashSum)
            .toStdString();
    }

    Tavoro::Sim::SimOptions options;
    std::unique_ptr<Tavoro::Sim::SimulatedDevice> device;
    std::unique_ptr<WireClient> client;
};
