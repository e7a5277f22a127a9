#pragma once

#include <tavorocontrol/proto/identities.h>
#include <tavoromodels/interfacesmodel.h>

#include <QIdentityProxyModel>

namespace Tavoro::Panel {

/// The inputs of a device with their formats in words. An input without a signal is marked by words
/// and by its sign.
class SourcesModel : public QIdentityProxyModel {
    Q_OBJECT

public:
    explicit SourcesModel(QObject *parent = nullptr);

    void setDevice(const std::weak_ptr<BizModel::Device> &device) { m_inputs.setDevice(device); }
    /// The input of a row.
    ProtoModel::s_InterfaceID input(const QModelIndex &index) const;

    QVariant data(const QModelIndex &index, int role = Qt::DisplayRole) const override;
    Qt::ItemFlags flags(const QModelIndex &index) const override;
    QStringList mimeTypes() const override;
    /// The source that a layer shows when the first of these inputs is dropped onto it.
    QMimeData *mimeData(const QModelIndexList &indexes) const override;
    Qt::DropActions supportedDragActions() const override { return Qt::CopyAction; }

private:
    QString name(const QModelIndex &index) const;
    QString stateText(const QModelIndex &index) const;
    QVariant value(const QModelIndex &index, const char *role) const;

    Models::InterfacesModel m_inputs;
};

} // namespace Tavoro::Panel
