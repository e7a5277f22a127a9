#include "presetsmodel.h"

#include "presetpicture.h"

#include <tavorobizmodel/enums.h>
#include <tavorobizmodel/file.h>

#include <QGuiApplication>
#include <QIcon>

namespace Tavoro::Panel {

namespace {

using BizModel::Enum::File::DevicePreset;
using BizModel::Enum::File::ScreenPreset;

bool isPreset(int fileType)
{
    return fileType == ScreenPreset || fileType == DevicePreset;
}

int layerCount(const PresetLayout &layout)
{
    int count = 0;
    for (const PresetScreen &screen : layout)
        count += static_cast<int>(screen.layers.size());
    return count;
}

} // namespace

PresetsModel::PresetsModel(Changes &changes, QObject *parent)
    : StoredFilesModel(changes, isPreset, parent)
{
    sort(0);
}

QVariant PresetsModel::data(const QModelIndex &index, int role) const
{
    switch (role) {
    case Qt::DecorationRole:
        return QIcon(presetPicture(layoutOf(index), pictureSize(), qGuiApp->devicePixelRatio(),
                                   QGuiApplication::palette()));
    case Qt::AccessibleDescriptionRole:
        return description(index);
    case Qt::ToolTipRole:
        return QString(index.data().toString() + QLatin1Char('\n') + description(index));
    default:
        return StoredFilesModel::data(index, role);
    }
}

/// The screens and layers in words.
QString PresetsModel::description(const QModelIndex &index) const
{
    const auto &layout = layoutOf(index);
    if (!layout)
        return tr("The layout of this preset is not known.");
    QStringList names;
    for (const PresetScreen &screen : *layout)
        names << screen.name;
    //: Names of screens, number of layers
    return tr("%1; layers: %2").arg(names.join(QStringLiteral(", "))).arg(layerCount(*layout));
}

bool PresetsModel::lessThan(const QModelIndex &left, const QModelIndex &right) const
{
    const auto one = files().file(left);
    const auto other = files().file(right);
    return one && other && keyOf(one->identity()) < keyOf(other->identity());
}

// Layouts

const std::optional<PresetLayout> &PresetsModel::layoutOf(const QModelIndex &index) const
{
    static const std::optional<PresetLayout> unknown;
    const auto known = m_layouts.constFind(keyOf(file(index)));
    return known == m_layouts.constEnd() ? unknown : *known;
}

void PresetsModel::keepContent(const QModelIndex &index, const std::string &content)
{
    m_layouts.insert(keyOf(file(index)), readPresetLayout(content));
    Q_EMIT dataChanged(index, index,
                       {Qt::DecorationRole, Qt::AccessibleDescriptionRole, Qt::ToolTipRole});
}

} // namespace Tavoro::Panel
