#pragma once

#include <support/examples/exampleprogram.h>
#include <support/tavorosim/simulatedconnection.h>

#include <QString>
#include <QStringList>

/// A small simulated device for an example.
class ExampleBench {
public:
    /// "Main hall" with two inputs, two outputs and two screens of two layers each.
    static Tavoro::Sim::SimOptions mainHall()
    {
        Tavoro::Sim::SimOptions options;
        options.inputs = 2;
        options.outputs = 2;
        options.screens = 2;
        options.layersPerScreen = 2;
        options.name = QStringLiteral("Main hall");
        return options;
    }

    QString port() const { return QString::number(m_running.simulator->port()); }
    QStringList hostAndPort() const { return {QStringLiteral("127.0.0.1"), port()}; }
    /// Carries out a line of the device's console.
    bool execute(const char *line)
    {
        return m_running.simulator->execute(QString::fromLatin1(line)).ok;
    }

private:
    RunningSimulator m_running{mainHall()};
};
