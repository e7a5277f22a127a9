#pragma once

#include "simbench.h"

#include <memory>
#include <string>

/// Base class of tests of a small device whose time passes only when the test says so. Each test
/// starts its own device.
class SimClockFixture {
protected:
    void start() { m_bench = std::make_unique<SimBench>(options()); }
    void stop() { m_bench.reset(); }

    static Tavoro::Sim::SimOptions options()
    {
        Tavoro::Sim::SimOptions wanted;
        wanted.clockSpeed = 0;
        wanted.inputs = 4;
        wanted.outputs = 4;
        wanted.screens = 1;
        return wanted;
    }
    /// Body of an upgrade that restarts the device.
    static constexpr char upgradeAndRestart[] =
        R"({"filePath":"/a.bin","reboot":1,"parts":[{"type":1,"section":[{"code":257}]}]})";

    std::string read(quint16 code) { return m_bench->client->read(code).body; }
    /// Carries out a line of the device's console.
    void run(const char *line)
    {
        const auto answer = m_bench->device->execute(QLatin1String(line));
        QVERIFY2(answer.ok, qPrintable(answer.text));
    }
    void restart()
    {
        QCOMPARE(m_bench->write(0xFC01, R"({"type":0})"), 0);
        QVERIFY(m_bench->client->waitForEnd());
        run("pass 1000");
        QVERIFY(m_bench->reconnect());
    }
    bool hasVersion(const char *text) { return read(0xFC0A).find(text) != std::string::npos; }

    std::unique_ptr<SimBench> m_bench;
};
