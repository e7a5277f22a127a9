#pragma once

#include <tavorosim/simulateddevice.h>

#include <QObject>
#include <QTimer>

#include <cstddef>

namespace Tavoro::Panel {

/// The simulated device of the demo, in this process. Its inputs change all the time: formats,
/// colour depths, and a cable that comes loose.
class DemoDevice : public QObject {
    Q_OBJECT

public:
    explicit DemoDevice(QObject *parent = nullptr);

    /// Switches the device on. On failure \a error holds a sentence.
    bool start(QString &error);
    quint16 port() const { return m_device.port(); }

    bool isOn() const { return m_isOn; }
    /// Pulls the plug of the device, or plugs it in again.
    void setOn(bool isOn);

    /// Makes the next change to the inputs.
    void moveInputs();
    /// Carries out a line of the device's console.
    void execute(const QString &line) { m_device.execute(line); }

Q_SIGNALS:
    void isOnChanged();

private:
    static Sim::SimOptions options();

    Sim::SimulatedDevice m_device;
    QTimer m_motion;
    std::size_t m_next = 0; ///< The next line that changes an input.
    bool m_isOn = true;
};

} // namespace Tavoro::Panel
