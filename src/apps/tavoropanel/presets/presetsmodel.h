#pragma once

#include "presetlayout.h"

#include <tavoropanel/files/filecontents.h>
#include <tavoropanel/undo/changeedits.h>

#include <tavorocontrol/proto/identities.h>
#include <tavoromodels/filesmodel.h>

#include <QHash>
#include <QPointer>
#include <QSize>
#include <QSortFilterProxyModel>

namespace Tavoro::Panel {

/// The presets of a device, with pictures of their layouts.
///
/// A picture is drawn from the content of the preset. What the device model does not contain is
/// fetched from the device.
class PresetsModel : public QSortFilterProxyModel {
    Q_OBJECT

public:
    using FileId = ProtoModel::s_FileIdentity;

    explicit PresetsModel(Changes &changes, QObject *parent = nullptr);

    void setDevice(DeviceSession *device);
    void setPictureSize(const QSize &size) { m_pictureSize = size; }

    /// The preset of a row.
    FileId preset(const QModelIndex &index) const;
    /// All files of the device.
    const Models::FilesModel &files() const { return m_files; }

    QVariant data(const QModelIndex &index, int role = Qt::DisplayRole) const override;

protected:
    bool filterAcceptsRow(int row, const QModelIndex &parent) const override;
    bool lessThan(const QModelIndex &left, const QModelIndex &right) const override;

private:
    void showDevice();
    QString description(const QModelIndex &index) const;
    const std::optional<PresetLayout> &layoutOf(const QModelIndex &index) const;
    void learn(const QModelIndex &file, const std::string &content);

    Models::FilesModel m_files;
    ChangeEdits m_edits;
    FileContents m_contents;
    QPointer<DeviceSession> m_device;
    QMetaObject::Connection m_deviceConnection;
    QHash<QPair<int, int>, std::optional<PresetLayout>> m_layouts; ///< By type and number.
    QSize m_pictureSize{144, 81};
};

} // namespace Tavoro::Panel
