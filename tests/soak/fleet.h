#pragma once

#include <support/tavorosim/simulatedconnection.h>

#include <memory>
#include <random>
#include <vector>

/// Many simulated devices, each with a channel and a device in the model's list.
class Fleet {
public:
    explicit Fleet(int size);
    ~Fleet();
    Fleet(const Fleet &) = delete;
    Fleet &operator=(const Fleet &) = delete;

    std::shared_ptr<Tavoro::BizModel::Device> model(std::size_t index) const
    {
        return m_devices[index % m_devices.size()]->model;
    }
    /// The number of reports received from all devices.
    quint64 reports() const;
    /// Changes a cable, a card, a power supply or a signal of a device, which reports the change.
    /// False if the device refuses it.
    bool disturb(std::mt19937 &random);
    /// Disconnects a device, or connects it again.
    void switchOne(std::mt19937 &random);

private:
    std::vector<std::unique_ptr<SimulatedConnection>> m_devices;
    std::vector<bool> m_isOff;
};
