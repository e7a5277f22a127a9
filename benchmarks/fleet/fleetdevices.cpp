// Many simulated devices in one process, for fleetbenchmark.
//
//   fleetdevices NUMBER
//
// Prints the port of each device on a line of its own, and then reads commands from standard
// input until it ends:
//
//   report RATE   each device sends RATE reports a second
//   quiet         stops the reports, and prints how many all devices have sent

#include "descriptors.h"

#include <support/bench.h>

#include <tavorosim/simulateddevice.h>

#include <QCoreApplication>
#include <QElapsedTimer>
#include <QSocketNotifier>
#include <QTimer>

#include <cstdio>
#include <iostream>
#include <memory>
#include <string>
#include <vector>

#include <unistd.h>

using namespace Tavoro;

namespace {

/// The devices, each on a thread of its own, so that one does not slow down another.
class Devices {
public:
    explicit Devices(int count)
    {
        for (int number = 1; number <= count; ++number) {
            m_devices.push_back(std::make_unique<Sim::SimulatedDevice>(optionsOf(number)));
            QString error;
            Bench::require(m_devices.back()->start(error), error);
        }
        m_timer.setTimerType(Qt::PreciseTimer);
        QObject::connect(&m_timer, &QTimer::timeout, [this] { sendDueReports(); });
    }

    void printPorts() const
    {
        for (const auto &device : m_devices)
            std::printf("%u\n", unsigned(device->port()));
        std::fflush(stdout);
    }

    void serve(const std::string &line)
    {
        if (line == "quiet")
            stopReports();
        else if (line.rfind("report ", 0) == 0)
            startReports(std::stoi(line.substr(7)));
    }

private:
    static Sim::SimOptions optionsOf(int number)
    {
        Sim::SimOptions options;
        options.sn[6] = options.mac[4] = quint8(number >> 8);
        options.sn[7] = options.mac[5] = quint8(number);
        return options;
    }

    void startReports(int rate)
    {
        m_rate = rate;
        m_sent = 0;
        m_clock.start();
        m_timer.start(1);
    }

    void stopReports()
    {
        m_timer.stop();
        std::printf("%lld\n", static_cast<long long>(m_sent));
        std::fflush(stdout);
    }

    /// The devices report in turn, so that their reports are spread over time.
    void sendDueReports()
    {
        const qint64 count = static_cast<qint64>(m_devices.size());
        for (const qint64 due = m_clock.elapsed() * m_rate * count / 1000; m_sent < due; ++m_sent) {
            const bool works = m_sent / count % 2 != 0;
            m_devices[std::size_t(m_sent % count)]->execute(works ? QStringLiteral("power 1 1")
                                                                  : QStringLiteral("power 1 0"));
        }
    }

    std::vector<std::unique_ptr<Sim::SimulatedDevice>> m_devices;
    QTimer m_timer;
    QElapsedTimer m_clock;
    qint64 m_rate = 0; ///< Reports of each device in a second.
    qint64 m_sent = 0;
};

} // namespace

int main(int argc, char *argv[])
{
    Bench::allowAllDescriptors();
    QCoreApplication application(argc, argv);
    const int count = QCoreApplication::arguments().value(1).toInt();
    Bench::require(count > 0 && count <= 0xFFFF, QStringLiteral("usage: fleetdevices NUMBER"));
    qInstallMessageHandler([](QtMsgType, const QMessageLogContext &, const QString &) {});

    Devices devices(count);
    devices.printPorts();
    QSocketNotifier input(STDIN_FILENO, QSocketNotifier::Read);
    QObject::connect(&input, &QSocketNotifier::activated, [&] {
        std::string line; // fleetbenchmark sends one at a time
        if (std::getline(std::cin, line))
            devices.serve(line);
        else
            QCoreApplication::quit();
    });
    return QCoreApplication::exec();
}
