#pragma once

#include <tavoropanel/sources/layersources.h>
#include <tavoropanel/undo/changeedits.h>

#include <tavoromodels/devicesmodel.h>
#include <tavoromodels/filesmodel.h>
#include <tavoromodels/interfacesmodel.h>
#include <tavoromodels/layersmodel.h>
#include <tavoromodels/screensmodel.h>

#include <QMetaObject>
#include <QModelIndex>
#include <QObject>

namespace Tavoro::Panel {

class Changes;
class Selection;

/// The item models of the selected device, and the rows of what is selected.
class SelectedRows : public QObject {
    Q_OBJECT

public:
    SelectedRows(const Selection &selection, Changes &changes, QObject *parent = nullptr);

    Models::ObjectModel &model(Models::ObjectKind kind);
    /// The row of the selected object of a kind; invalid if there is none.
    QModelIndex row(Models::ObjectKind kind) const;
    /// Carries out the edits of the models.
    Models::EditHandler &edits() { return m_edits; }
    /// What layers can show.
    const LayerSources &sources() const { return m_sources; }

Q_SIGNALS:
    /// An object of a kind was selected, also the same one again.
    void selected(Tavoro::Models::ObjectKind kind);
    /// The selected object of a kind is another one, has appeared or is gone.
    void changed(Tavoro::Models::ObjectKind kind);

private:
    void follow(Models::ObjectKind kind);
    void followDevice();
    void showDevice();
    void showScene();

    const Selection &m_selection;
    ChangeEdits m_edits;
    Models::DevicesModel m_devices;
    Models::InterfacesModel m_interfaces;
    LayerSources m_sources;
    Models::ScreensModel m_screens;
    Models::LayersModel m_layers;
    Models::FilesModel m_files;
    QMetaObject::Connection m_deviceConnection;
};

} // namespace Tavoro::Panel
