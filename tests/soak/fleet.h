#pragma once

#include <support/tavorosim/simulatedconnection.h>

#include <memory>
#include <random>
#include <vector>

/// Many simulated devices, each with a channel to it and a device in the model's list.
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
    /// Reports that came from all devices.
    quint64 reports() const;
    /// Something happens to a device, of which it tells: a cable, a card, a power supply, a signal.
    /// False if the device knows no such thing.
    bool disturb(std::mt19937 &random);
    /// A device goes off, or on again.
    void switchOne(std::mt19937 &random);

private:
    std::vector<std::unique_ptr<SimulatedConnection>> m_devices;
    std::vector<bool> m_isOff;
};
