#pragma once

#include "simbench.h"

#include <QByteArray>
#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>
#include <QString>

#include <array>
#include <memory>

/// Reads and writes of a simulated device, as JSON.
namespace SimReads {

using Filters = std::array<quint8, 4>; ///< Positions 31 to 34.

constexpr quint16 device = 0x1100;
constexpr quint16 interface = 0x1200;
constexpr quint16 screen = 0x1300;
constexpr quint16 layer = 0x1400;
constexpr quint8 any = 0xFF;

// The objects that most tests use: input 1, output 1, screen 1, layer 1 of its programme.
constexpr Filters whole{};
constexpr Filters inputs{0, 1, 1, 0};
constexpr Filters outputs{0, 3, 2, 0};
constexpr Filters screen1{0, any, 0, 1};
constexpr Filters programme1{any, 4, 0, 1};
constexpr Filters preview1{any, 2, 0, 1};

/// Base class of tests; each test starts its own device.
class Fixture {
protected:
    void start(Tavoro::Sim::SimOptions options = {})
    {
        options.packetSize = 64 << 20; // each answer fits into one packet
        m_bench = std::make_unique<SimBench>(options);
    }
    void stop() { m_bench.reset(); }

    WireClient &client() { return *m_bench->client; }
    const Tavoro::Sim::SimulatedDevice &simulator() const { return *m_bench->device; }

    QByteArray list(quint16 code, const Filters &filters)
    {
        return QByteArray::fromStdString(client().read(code, filters).body);
    }
    int count(quint16 code, const Filters &filters)
    {
        return static_cast<int>(QJsonDocument::fromJson(list(code, filters)).array().size());
    }
    /// The value at \a path, such as "0.freeze", in the answer to a read, as JSON.
    QByteArray valueAt(quint16 code, const Filters &filters, const QString &path)
    {
        const QJsonDocument document = QJsonDocument::fromJson(list(code, filters));
        QJsonValue value =
            document.isArray() ? QJsonValue(document.array()) : QJsonValue(document.object());
        for (const QString &step : path.split(QLatin1Char('.')))
            value =
                value.isArray() ? value.toArray().at(step.toInt()) : value.toObject().value(step);
        const QByteArray json = QJsonDocument(QJsonArray{value}).toJson(QJsonDocument::Compact);
        return json.mid(1, json.size() - 2);
    }
    /// The status of a write.
    int status(quint16 code, const QByteArray &body)
    {
        return client().write(code, body.toStdString()).head.status;
    }
    /// The answers of the device to its four reads, joined.
    QByteArray everything()
    {
        return list(device, whole) + list(interface, {0, any, 0, 0})
            + list(screen, {0, any, 0, any}) + list(layer, {any, any, any, any});
    }

private:
    std::unique_ptr<SimBench> m_bench;
};

} // namespace SimReads
