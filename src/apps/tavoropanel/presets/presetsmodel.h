#pragma once

#include "presetlayout.h"

#include <tavoropanel/files/storedfilesmodel.h>

#include <QHash>

#include <optional>

namespace Tavoro::Panel {

/// The presets of a device, with pictures of their layouts, which are drawn from the contents.
class PresetsModel : public StoredFilesModel {
    Q_OBJECT

public:
    explicit PresetsModel(Changes &changes, QObject *parent = nullptr);

    QVariant data(const QModelIndex &index, int role = Qt::DisplayRole) const override;

protected:
    bool lessThan(const QModelIndex &left, const QModelIndex &right) const override;
    void forgetContents() override { m_layouts.clear(); }
    void keepContent(const QModelIndex &index, const std::string &content) override;

private:
    QString description(const QModelIndex &index) const;
    const std::optional<PresetLayout> &layoutOf(const QModelIndex &index) const;

    QHash<Key, std::optional<PresetLayout>> m_layouts;
};

} // namespace Tavoro::Panel
