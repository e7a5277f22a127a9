#include "presetsmodel.h"

#include "presetpicture.h"

#include <tavorobizmodel/enums.h>
#include <tavorobizmodel/file.h>
#include <tavorosession/devicesession.h>

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

QPair<int, int> keyOf(const PresetsModel::FileId &file)
{
    return {file.fileType, file.fileId};
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
    : QSortFilterProxyModel(parent), m_edits(changes), m_contents(m_files, isPreset)
{
    m_files.setEditHandler(&m_edits);
    setSourceModel(&m_files);
    sort(0);
    connect(&m_contents, &FileContents::arrived, this, &PresetsModel::learn);
}

void PresetsModel::setDevice(DeviceSession *device)
{
    disconnect(m_deviceConnection);
    m_device = device;
    m_edits.setDevice(device);
    if (device)
        m_deviceConnection =
            connect(device, &DeviceSession::deviceChanged, this, &PresetsModel::showDevice);
    showDevice();
}

void PresetsModel::showDevice()
{
    m_layouts.clear();
    m_files.setDevice(m_device ? m_device->device() : nullptr);
    m_contents.setDevice(m_device);
}

PresetsModel::FileId PresetsModel::preset(const QModelIndex &index) const
{
    const auto file = m_files.file(mapToSource(index));
    return file ? file->identity() : FileId();
}

QVariant PresetsModel::data(const QModelIndex &index, int role) const
{
    switch (role) {
    case Qt::DecorationRole:
        return QIcon(presetPicture(layoutOf(index), m_pictureSize, qGuiApp->devicePixelRatio(),
                                   QGuiApplication::palette()));
    case Qt::AccessibleDescriptionRole:
        return description(index);
    case Qt::ToolTipRole:
        return QString(index.data().toString() + QLatin1Char('\n') + description(index));
    default:
        return QSortFilterProxyModel::data(index, role);
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

bool PresetsModel::filterAcceptsRow(int row, const QModelIndex & /*parent*/) const
{
    const auto file = m_files.file(m_files.index(row));
    return file && isPreset(file->identity().fileType);
}

bool PresetsModel::lessThan(const QModelIndex &left, const QModelIndex &right) const
{
    const auto one = m_files.file(left);
    const auto other = m_files.file(right);
    return one && other && keyOf(one->identity()) < keyOf(other->identity());
}

// Layouts

const std::optional<PresetLayout> &PresetsModel::layoutOf(const QModelIndex &index) const
{
    static const std::optional<PresetLayout> unknown;
    const auto known = m_layouts.constFind(keyOf(preset(index)));
    return known == m_layouts.constEnd() ? unknown : *known;
}

void PresetsModel::learn(const QModelIndex &file, const std::string &content)
{
    const QModelIndex index = mapFromSource(file);
    if (!index.isValid())
        return;
    m_layouts.insert(keyOf(preset(index)), readPresetLayout(content));
    Q_EMIT dataChanged(index, index,
                       {Qt::DecorationRole, Qt::AccessibleDescriptionRole, Qt::ToolTipRole});
}

} // namespace Tavoro::Panel
