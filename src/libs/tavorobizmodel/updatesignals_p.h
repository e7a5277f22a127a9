#pragma once

#include <tavorobizmodel/enums.h>

#include <memory>
#include <set>
#include <vector>

namespace Tavoro::BizModel {

class Device;
class File;
class Interface;
class Layer;
class Screen;

/// Collects the signals of an update, so that they are emitted after all changes were made.
class UpdateSignals {
public:
    void add(Enum::Device::DataPart part) { m_parts.insert(part); }
    void add(const std::shared_ptr<Interface> &interface) { m_interfaces.push_back(interface); }
    void add(const std::shared_ptr<Screen> &screen) { m_screens.push_back(screen); }
    void add(const std::shared_ptr<Layer> &layer) { m_layers.push_back(layer); }
    void add(const std::shared_ptr<File> &file) { m_files.push_back(file); }
    void addOutdatedCrops(const std::shared_ptr<Interface> &interface);

    /// Emits the signals, of the device first. A device whose signals are blocked emits nothing.
    void emitSignals(Device &device) const;

private:
    std::set<Enum::Device::DataPart> m_parts;
    std::vector<std::shared_ptr<Interface>> m_interfaces;
    std::vector<std::shared_ptr<Interface>> m_interfacesOfOutdatedCrops;
    std::vector<std::shared_ptr<Screen>> m_screens;
    std::vector<std::shared_ptr<Layer>> m_layers;
    std::vector<std::shared_ptr<File>> m_files;
};

} // namespace Tavoro::BizModel
