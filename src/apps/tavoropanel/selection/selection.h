#pragma once

#include "identity.h"

#include <QList>
#include <QObject>

#include <memory>
#include <optional>

namespace Tavoro {
class DeviceSession;
class Session;
} // namespace Tavoro

namespace Tavoro::BizModel {
class Device;
class Layer;
class Screen;
} // namespace Tavoro::BizModel

namespace Tavoro::Panel {

/// What the operator has selected; all parts of the window share one object. What vanishes from the
/// device model is deselected. Each signal follows a change, and is emitted once for it.
///
/// A device that becomes selected has its first ordinary screen selected. A selected layer belongs
/// to one of the selected screens, and decides which scene is selected.
class Selection : public QObject {
    Q_OBJECT

public:
    using ScreenId = ProtoModel::s_ScreenId;
    using LayerId = ProtoModel::Layer::s_LayerIdentity;
    using InterfaceId = ProtoModel::s_InterfaceID;
    using FileId = ProtoModel::s_FileIdentity;

    explicit Selection(Session &session, QObject *parent = nullptr);

    /// The selected device; null if there is none.
    DeviceSession *device() const { return m_device; }
    void setDevice(DeviceSession *device);

    /// True if the selected device is connected.
    bool isConnected() const;
    /// True if the selected device is connected and no other client controls it.
    bool canWrite() const { return m_canWrite; }

    /// The selected screens, in the order in which they were selected.
    const QList<ScreenId> &screens() const { return m_screens; }
    bool contains(const ScreenId &screen) const;
    void setScreens(const QList<ScreenId> &screens);
    /// Adds a screen, or removes it.
    void setScreenSelected(const ScreenId &screen, bool isSelected);
    /// The objects of the selected screens.
    QList<std::shared_ptr<BizModel::Screen>> screenObjects() const;

    /// The scene that edits go to.
    Scene scene() const { return m_scene; }
    void setScene(Scene scene);

    /// The selected layer; nothing if there is none.
    const std::optional<LayerId> &layer() const { return m_layer; }
    void setLayer(const std::optional<LayerId> &layer);
    /// The object of the selected layer; null if there is none.
    std::shared_ptr<BizModel::Layer> layerObject() const;

    /// The interface whose details the operator looks at; nothing if there is none.
    const std::optional<InterfaceId> &interface() const { return m_interface; }
    void setInterface(const std::optional<InterfaceId> &interface);
    /// The file whose details the operator looks at; nothing if there is none.
    const std::optional<FileId> &file() const { return m_file; }
    void setFile(const std::optional<FileId> &file);

Q_SIGNALS:
    /// Another device is selected. Screens and layer have changed with it.
    void deviceChanged();
    /// The device in the model exists now, or is another object. Precedes changes of the screens.
    void modelChanged();
    /// State, its details, or control of the selected device have changed.
    void stateChanged();
    /// canWrite() has changed.
    void canWriteChanged();
    /// Other screens are selected.
    void screensChanged();
    /// The other scene is selected.
    void sceneChanged();
    /// Another layer is selected, or none.
    void layerChanged();
    /// An interface was selected, also the same one again, or none.
    void interfaceChanged();
    /// A file was selected, also the same one again, or none.
    void fileChanged();

private:
    void watchDevice();
    void forget(const DeviceSession *device);
    void checkObjects();
    void updateCanWrite();
    void selectFirstScreen();
    bool exists(const ScreenId &screen) const;

    DeviceSession *m_device = nullptr;
    std::weak_ptr<BizModel::Device> m_model; ///< The device in the model.
    QMetaObject::Connection m_modelConnection; ///< To m_model.
    QList<ScreenId> m_screens;
    std::optional<LayerId> m_layer;
    std::optional<InterfaceId> m_interface;
    std::optional<FileId> m_file;
    Scene m_scene = Scene::Preview;
    bool m_canWrite = false;
};

} // namespace Tavoro::Panel
